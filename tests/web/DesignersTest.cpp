#include "designers/dsrCommentsFrom.h"
#include "designers/dsrExampleSource.h"
#include "designers/dsrHTMLEdit.h"
#include "designers/dsrIsExample.h"
#include "designers/dsrIsNew.h"
#include "designers/dsrKeywords.h"
#include "designers/dsrMenuItem.h"
#include "designers/dsrSubItem.h"
#include "designers/dsrXMLIsland.h"
#include "platform/qt/HtmlEditView.h"
#include "platform/qt/Theme.h"
#include "platform/qt/ViewFactory.h"
#include "support/DesignerTest.h"
#include "support/HtmlFixtures.h"
#include "support/Waiting.h"
#include "web/SurfaceTest.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QToolButton>

namespace paperkite::test {
namespace {

/// A designer in a window, as an author sees it.
template <class Designer>
class ShownDesignerTest : public DesignerTest<Designer> {
protected:
    explicit ShownDesignerTest(const std::string& name)
        : DesignerTest<Designer>(name), mTheme(*qApp) {
        mTheme.SetScheme(ColourScheme::Light);
        mWindow = std::make_unique<QWidget>();
        mView = mFactory.MakeView(this->mControl, mWindow.get());
        Resize({720, 460});
        mWindow->show();
        mWindow->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    }
    ~ShownDesignerTest() override { mTheme.SetTextScale(100); }

    void Resize(QSize size) {
        mWindow->resize(size);
        mView->setGeometry(QRect(QPoint(), size));
    }
    std::vector<HtmlEditView*> Pages() const {
        std::vector<HtmlEditView*> pages;
        for (auto* widget : mWindow->findChildren<QWidget*>())
            if (auto* page = dynamic_cast<HtmlEditView*>(widget)) pages.push_back(page);
        return pages;
    }
    bool PagesStand() const {
        for (const HtmlEditView* page : Pages())
            if (page->isVisible() && !page->IsReady()) return false;
        return true;
    }
    /// A picture, kept for looking at where PAPERKITE_PICTURES names a folder.
    void Picture(const QString& name) {
        ASSERT_TRUE(WaitUntil([&] { return PagesStand(); }));
        // The engine draws a page some time after it stands.
        if (!Pages().empty()) QTest::qWait(400);
        // Bars come in a step of their own.
        QTest::qWait(20);
        const QPixmap picture = mWindow->grab();
        EXPECT_FALSE(picture.isNull());
        const QString folder = qEnvironmentVariable("PAPERKITE_PICTURES");
        if (!folder.isEmpty()) picture.save(QDir(folder).filePath(name + ".png"));
    }
    /// The texts that do not fit into their places.
    std::string ClippedTexts() const {
        std::string clipped;
        for (auto* button : mWindow->findChildren<QAbstractButton*>()) {
            const auto* tool = qobject_cast<QToolButton*>(button);
            const bool showsNoText = tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly;
            if (!button->isVisible() || button->text().isEmpty() || showsNoText) continue;
            const QString text = QString(button->text()).remove(QLatin1Char('&'));
            if (button->width() + 1 < button->fontMetrics().horizontalAdvance(text))
                clipped += text.toStdString() + ";";
        }
        for (auto* label : mWindow->findChildren<QLabel*>()) {
            if (!label->isVisible() || label->text().isEmpty()) continue;
            const int height = label->wordWrap() ? label->heightForWidth(label->width())
                                                 : label->sizeHint().height();
            if (label->height() < height) clipped += label->text().toStdString() + ";";
        }
        return clipped;
    }
    /// Light, dark, and with large text in a small window. Gives the texts that are clipped.
    std::string Pictures(const QString& name) {
        Picture(name + "-light");
        const std::string clipped = ClippedTexts();
        mTheme.SetScheme(ColourScheme::Dark);
        Picture(name + "-dark");
        mTheme.SetScheme(ColourScheme::Light);
        mTheme.SetTextScale(150);
        Resize({640, 480});
        Picture(name + "-large");
        return clipped + ClippedTexts();
    }

    Theme mTheme;
    ViewFactory mFactory;
    std::unique_ptr<QWidget> mWindow;
    QWidget* mView = nullptr;
};

class ShownHTMLEditTest : public ShownDesignerTest<dsrHTMLEdit> {
protected:
    ShownHTMLEditTest() : ShownDesignerTest("dsrHTMLEdit") { mPage = Pages().front(); }
    void ShowPage(const std::vector<std::string>& texts) {
        Show(texts);
        ASSERT_TRUE(WaitUntil([&] { return mPage->IsReady(); }));
    }
    void Focus() {
        mDesigner->Call("SetEditFocus", {});
        ASSERT_TRUE(WaitUntil([&] { return mControl->ed->IsCommandEnabled("bold"); }));
    }
    void Type(const QString& text) {
        for (const QChar letter : text)
            QTest::keyClick(mPage->GetSurface()->InputWidget(), letter.toLatin1());
    }

    HtmlEditView* mPage;
};

TEST_F(ShownHTMLEditTest, EveryFixtureIsLoadedAndLeftWithoutAWord) {
    for (const HtmlFixture& fixture : HtmlFixtures()) {
        SCOPED_TRACE(fixture.Name);
        while (TestHost::Of(mDog)->Count() > 0)
            TestHost::Of(mDog)->Remove(TestHost::Of(mDog)->Item(std::size_t(1))->GetId());
        ShowPage({fixture.Source});
        mDesigner->CommitEdit();
        mDesigner->Deactivate();
        ASSERT_EQ(mHost.Take(), "");
        ASSERT_EQ(Texts(), fixture.Source + ";");
    }
}

TEST_F(ShownHTMLEditTest, ALetterReachesTheHost) {
    ShowPage({});
    Focus();
    Type("a");
    EXPECT_TRUE(WaitUntil([&] { return mHost.Told == "+a;"; })) << mHost.Told;
    Type("b");
    EXPECT_TRUE(WaitUntil([&] { return mHost.Told == "+a;=ab;"; })) << mHost.Told;
    QTest::keyClick(mPage->GetSurface()->InputWidget(), Qt::Key_Backspace);
    QTest::keyClick(mPage->GetSurface()->InputWidget(), Qt::Key_Backspace);
    EXPECT_TRUE(WaitUntil([&] { return Texts().empty(); })) << mHost.Told;
}

TEST_F(ShownHTMLEditTest, WhatWasTypedLastIsThereAtTheCommit) {
    ShowPage({"Dog"});
    Focus();
    Type("xyz");
    mDesigner->CommitEdit();
    EXPECT_TRUE(Texts() == "xyzDog;" || Texts() == "Dogxyz;") << Texts();
}

TEST_F(ShownHTMLEditTest, SeveralCommentsAreGoneThroughOnThePage) {
    ShowPage({"one", "two"});
    mControl->Dock->UserClick(mControl->Dock->Commands.Item("NextComment"));
    ASSERT_TRUE(WaitUntil([&] { return mPage->IsReady(); }));
    Focus();
    Type("2");
    EXPECT_TRUE(WaitUntil([&] { return Texts() == "one;two2;" || Texts() == "one;2two;"; }))
        << Texts();
}

TEST_F(ShownHTMLEditTest, IsDrawn) {
    ShowPage({"<p>Looks up the value of a <b>key</b> in the <i>present</i> state.</p>"
              "<ul><li>Gives <code>NotFound</code> where there is none.</li>"
              "<li>See <a href='DB.html'>DB</a>.</li></ul>"
              "<table><tbody><tr><th>Option</th><th>Means</th></tr>"
              "<tr><td><code>fill_cache</code></td><td>keeps the block</td></tr></tbody></table>",
              "two"});
    EXPECT_EQ(Pictures("dsrHTMLEdit"), "");
}

class ShownKeywordsTest : public ShownDesignerTest<dsrKeywords> {
protected:
    ShownKeywordsTest() : ShownDesignerTest("dsrKeywords") {}
};

TEST_F(ShownKeywordsTest, TheKeyboardAloneAddsAndRemoves) {
    Show({"cats"});
    mDesigner->Call("SetEditFocus", {});
    auto* field = mWindow->findChild<QLineEdit*>("txtKeyword");
    ASSERT_TRUE(WaitUntil([&] { return field->hasFocus(); }));
    QTest::keyClicks(field, "dogs > small");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(Texts(), "cats\ndogs > small;");
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(field->text(), "");
}

TEST_F(ShownKeywordsTest, IsDrawn) {
    Show({"databases\nfiles > opening\nfiles > opening > read only\nsnapshots"});
    mControl->lstKeywords->UserClick(1);
    mControl->txtKeyword->UserType("snapshots");
    mControl->cmdAdd->UserClick();
    EXPECT_EQ(Pictures("dsrKeywords"), "");
}

class ShownIsNewTest : public ShownDesignerTest<dsrIsNew> {
protected:
    ShownIsNewTest() : ShownDesignerTest("dsrIsNew") {}
};

TEST_F(ShownIsNewTest, IsDrawn) {
    Show({"1.4"});
    EXPECT_EQ(Pictures("dsrIsNew"), "");
}

class ShownIsExampleTest : public ShownDesignerTest<dsrIsExample> {
protected:
    ShownIsExampleTest() : ShownDesignerTest("dsrIsExample") {}
};

TEST_F(ShownIsExampleTest, IsDrawn) {
    Show({"Feeds the whole zoo\nof: zoo~Cat\nof: zoo~Dog~Bark"});
    EXPECT_EQ(Pictures("dsrIsExample"), "");
}

class ShownExampleSourceTest : public ShownDesignerTest<dsrExampleSource> {
protected:
    ShownExampleSourceTest() : ShownDesignerTest("dsrExampleSource") {
        mServices.Files->Texts["/project/examples/count.cpp"] =
            "#include <fstream>\n\n// Counts words.\nint main() {\n    //! [reading]\n"
            "    std::ifstream file(\"text.txt\");\n    std::string word;\n    int count = 0;\n"
            "    while (file >> word)\n        ++count; // one more\n    //! [reading]\n"
            "    return count;\n}\n";
    }
};

TEST_F(ShownExampleSourceTest, IsDrawn) {
    Show({"source: examples/count.cpp#reading\nReads a file word by word."});
    EXPECT_EQ(Pictures("dsrExampleSource"), "");
}

class ShownCommentsFromTest : public ShownDesignerTest<dsrCommentsFrom> {
protected:
    ShownCommentsFromTest() : ShownDesignerTest("dsrCommentsFrom") {}
};

TEST_F(ShownCommentsFromTest, IsDrawn) {
    mCat->Comment("##", "<p>An animal that <b>purrs</b> while it is content.</p>");
    mCat->Comment("##remarks", "<ul><li>Sleeps by day.</li><li>Hunts by night.</li></ul>");
    Show({"zoo~Cat"});
    EXPECT_EQ(Pictures("dsrCommentsFrom"), "");
}

class ShownMenuItemTest : public ShownDesignerTest<dsrMenuItem> {
protected:
    ShownMenuItemTest() : ShownDesignerTest("dsrMenuItem") {}
};

TEST_F(ShownMenuItemTest, IsDrawn) {
    Show({"File > Export > As PDF…\nkeys: Ctrl+Shift+E"});
    EXPECT_EQ(Pictures("dsrMenuItem"), "");
}

class ShownSubItemTest : public ShownDesignerTest<dsrSubItem> {
protected:
    ShownSubItemTest() : ShownDesignerTest("dsrSubItem") {}
};

TEST_F(ShownSubItemTest, IsDrawn) {
    Show({"<dl>\n<dt>fast</dt><dd>Leaves the order alone.<br>Use it for tests.</dd>\n"
          "<dt>safe</dt><dd>Flushes after each write.</dd>\n<dt>paranoid</dt><dd></dd>\n</dl>"});
    EXPECT_EQ(Pictures("dsrSubItem"), "");
}

class ShownXMLIslandTest : public ShownDesignerTest<dsrXMLIsland> {
protected:
    ShownXMLIslandTest() : ShownDesignerTest("dsrXMLIsland") {}
};

TEST_F(ShownXMLIslandTest, TypedTextIsCheckedAndCarriageReturnsStay) {
    Show({"<a>\r\n</a>"});
    auto* area = mWindow->findChild<QPlainTextEdit*>("txtXML");
    QApplication::processEvents();
    EXPECT_EQ(mHost.Take(), "") << "colours are no change";
    mDesigner->Call("SetEditFocus", {});
    ASSERT_TRUE(WaitUntil([&] { return area->hasFocus(); }));
    QTest::keyClicks(area, "<b>");
    EXPECT_EQ(Texts(), "<b><a>\n</a>;");
    EXPECT_TRUE(mControl->cmdGoTo->GetVisible());
}

TEST_F(ShownXMLIslandTest, IsDrawn) {
    Show({"<note level=\"info\">\n  <!-- for the help viewer -->\n  <title>Snapshots &amp; "
          "iterators</title>\n  <see ref='DB'>\n</note>\n"});
    EXPECT_EQ(Pictures("dsrXMLIsland"), "");
}

class ShownForeignTextTest : public ShownDesignerTest<dsrKeywords> {
protected:
    ShownForeignTextTest() : ShownDesignerTest("dsrKeywords") {}
};

TEST_F(ShownForeignTextTest, IsDrawn) {
    Show({"<p>databases, <b>files</b></p>"});
    EXPECT_EQ(Pictures("foreign"), "");
}

} // namespace
} // namespace paperkite::test
