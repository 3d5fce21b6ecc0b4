#include "foundation/Services.h"
#include "foundation/Text.h"
#include "model/TemplateParser.h"
#include "pagelayout/MetaDocumentEdit.h"
#include "pagelayout/frmEditMetaSpan.h"
#include "platform/html/HtmlServices.h"
#include "platform/qt/CodeArea.h"
#include "platform/qt/HtmlEditView.h"
#include "platform/qt/WebLibrary.h"
#include "support/ModelServices.h"
#include "support/PageClick.h"

#include <QApplication>
#include <QClipboard>
#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>

// A page layout under the hands of an author, in the real engine.

namespace paperkite::test {
namespace {

const std::string kName = "<!--KITEMETADATA start type=\"property\" name=\"name\"-->name"
                          "<!--KITEMETADATA end-->";
const std::string kKind = "<!--KITEMETADATA start type=\"property\" name=\"kind\"-->kind"
                          "<!--KITEMETADATA end-->";

class LayoutEditingTest : public testing::Test {
protected:
    LayoutEditingTest() {
        Services& services = CurrentServices();
        services.CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
        services.HTMLDOMFactory = MakeHTMLDOMFactory();
        services.HTMLTidy = MakeHTMLTidy();
        auto space = MakeRef<TemplateNamespace>();
        space->Moniker = "kite.source";
        auto definition = MakeRef<ElementDef>();
        definition->Name = "property";
        auto attribute = MakeRef<AttributeDef>();
        attribute->Name = "name";
        definition->AttributeDefs.Add(attribute, "name");
        space->ElementDefs.Add(definition, "property");
        mTemplate->Namespaces = {space};
        mEdit.SetTemplate(mTemplate);
        mEdit.Initialize();
        mView.resize(600, 400);
        mView.show();
        mView.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mView));
        Form::SetDefaultRunner([this](Form& form, FormMode) {
            ++mDialogs;
            if (mAuthor) mAuthor(dynamic_cast<frmEditMetaSpan&>(form));
        });
    }
    ~LayoutEditingTest() override { Form::SetDefaultRunner({}); }

    void Open(const std::string& body) {
        mEdit.SetDocumentHTML("<html><head><title>T</title></head><body>" + body +
                              "</body></html>");
        Ready();
    }
    void Ready() {
        ASSERT_TRUE(WaitUntil([&] { return mView.IsReady(); }));
    }
    QWidget* Input() { return mView.GetSurface()->InputWidget(); }
    /// What stands in the body of the stored layout, without the lines that tidying makes.
    std::string Body() {
        const std::string html = mEdit.GetDocumentHTML();
        const std::size_t from = html.find("<body>") + 6;
        std::string text = html.substr(from, html.find("</body>") - from);
        std::string joined;
        for (const std::string& line : Split(text, "\n"))
            joined += TrimWhiteSpace(line);
        return ReplaceAll(joined, "&nbsp;", " ");
    }
    void Focus() {
        mEdit.dedDocument->SetEditFocus();
        ASSERT_TRUE(WaitUntil([&] { return mEdit.dedDocument->IsCommandEnabled("bold"); }));
    }
    /// Clicks the first element, behind a letter.
    bool ClickSpan() {
        return ClickUntil(Input(), QPoint(120, 26), [&] { return Current() == "metaspanstart1"; });
    }
    /// QTest keeps clicks so far apart that the engine takes none of them for the second one.
    void DoubleClick(const QPoint& at) {
        static ulong time = 1000000;
        time += 5000;
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            const bool isDown = type != QEvent::MouseButtonRelease;
            QMouseEvent event(type, at, Input()->mapToGlobal(at), Qt::LeftButton,
                              isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            event.setTimestamp(time += 20);
            QApplication::sendEvent(Input(), &event);
        }
    }
    /// The element in whose span the author stands; empty outside.
    std::string Current() {
        Ref<HTMLElement> span;
        return mEdit.IsInsideMetaSpan(mEdit.dedDocument->GetCurrentElement(), &span)
                   ? span->GetId()
                   : std::string();
    }

    ModelServices mServices;
    Ref<PageTemplate> mTemplate = MakeRef<PageTemplate>();
    MetaDocumentEdit mEdit;
    HtmlEditView mView{mEdit.dedDocument, nullptr};
    std::function<void(frmEditMetaSpan&)> mAuthor;
    int mDialogs = 0;
};

void Confirm(frmEditMetaSpan& form) {
    form.cmdOK->UserClick();
}

TEST_F(LayoutEditingTest, WhatIsTypedStandsInTheStoredLayoutAndLoadingIsNoChange) {
    Open("<p>Kind: " + kKind + "</p>");
    EXPECT_FALSE(mEdit.GetDirty());
    Focus();
    QTest::keyClicks(Input(), "The ");
    EXPECT_TRUE(WaitUntil([&] { return mEdit.GetDirty(); }));
    EXPECT_EQ(Body(), "<p>The Kind: " + kKind + "</p>");
}

TEST_F(LayoutEditingTest, ADoubleClickOnASpanEditsItsElement) {
    Open("<p>" + kName + "</p>");
    mAuthor = [](frmEditMetaSpan& form) {
        EXPECT_EQ(form.ctlBuilder->GetElement()->Name, "property");
        EXPECT_EQ(form.GetText(), "name");
        form.ctlBuilder->prpProperties->Find("name")->SetValue("kind");
        form.SetText("kind");
        Confirm(form);
    };
    // Where a click is seen, a double click is too.
    ASSERT_TRUE(ClickUntil(Input(), QPoint(138, 26), [&] { return !Current().empty(); }));
    DoubleClick(QPoint(138, 26));
    ASSERT_TRUE(WaitUntil([&] { return mDialogs > 0; }));
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>" + kKind + "</p>"; })) << Body();
    EXPECT_TRUE(mEdit.GetDirty());
    // The key of the page takes back what the dialog did.
    QTest::keyClick(Input(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>" + kName + "</p>"; })) << Body();
    EXPECT_FALSE(mEdit.CanUndoElementEdit());
}

TEST_F(LayoutEditingTest, AnInsertedElementReplacesTheSelection) {
    Open("<p>Alpha beta</p>");
    Focus();
    for (int letter = 0; letter < 6; ++letter)
        QTest::keyClick(Input(), Qt::Key_Right);
    QTest::keyClick(Input(), Qt::Key_End, Qt::ShiftModifier);
    ASSERT_TRUE(WaitUntil([&] { return mEdit.dedDocument->GetSelectedText() == "beta"; }));
    mAuthor = [](frmEditMetaSpan& form) {
        const auto& tree = form.ctlBuilder->tvwElements;
        tree->UserClick(tree->Nodes.GetFirst()->GetChild());
        form.ctlBuilder->prpProperties->Find("name")->SetValue("name");
        form.SetText("name");
        Confirm(form);
    };
    mEdit.dksUI->UserClick("btnMetaAdd");
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>Alpha " + kName + "</p>"; })) << Body();
    EXPECT_EQ(mDialogs, 1);
    // What is typed next goes behind it, and each step can be taken back and done again.
    QTest::keyClicks(Input(), "x");
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>Alpha " + kName + "x</p>"; })) << Body();
    mEdit.dedDocument->ClickEditTool("undo");
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>Alpha " + kName + "</p>"; })) << Body();
    mEdit.dedDocument->ClickEditTool("undo");
    EXPECT_TRUE(WaitUntil([&] { return Body().find("KITE") == std::string::npos; })) << Body();
    mEdit.dedDocument->ClickEditTool("undo");
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>Alpha beta</p>"; })) << Body();
    for (int step = 0; step < 3; ++step)
        mEdit.dedDocument->ClickEditTool("redo");
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>Alpha " + kName + "x</p>"; })) << Body();
}

TEST_F(LayoutEditingTest, ADeletedElementComesBackByUndo) {
    Open("<p>A " + kName + " b</p>");
    const std::string before = Body();
    ASSERT_TRUE(ClickSpan());
    mEdit.dksUI->UserClick("btnMetaDelete");
    EXPECT_TRUE(WaitUntil([&] { return Body().find("KITEMETADATA") == std::string::npos; }));
    EXPECT_TRUE(mEdit.GetDirty());
    mEdit.dedDocument->ClickEditTool("undo");
    EXPECT_TRUE(WaitUntil([&] { return Body() == before; })) << Body();
}

TEST_F(LayoutEditingTest, ElementsThatStayAsTheyAreStayWhereTheyStand) {
    const std::string row =
        "<!--KITEMETADATA start type=\"rows\"-->All rows<!--KITEMETADATA end-->";
    const std::string head = "<!--KITEMETADATA start type=\"head\"-->Styles<!--KITEMETADATA end-->";
    mEdit.SetDocumentHTML("<html><head><title>" + kName + "</title>" + head +
                          "</head><body><p>x</p><table><tbody><tr>" + row +
                          "<td>a</td></tr></tbody></table></body></html>");
    Ready();
    Focus();
    QTest::keyClicks(Input(), "y");
    ASSERT_TRUE(WaitUntil([&] { return mEdit.GetDirty(); }));
    const std::string html = mEdit.GetDocumentHTML();
    EXPECT_NE(html.find("<title>" + kName + "</title>"), std::string::npos) << html;
    EXPECT_LT(html.find(head), html.find("</head>")) << html;
    EXPECT_LT(html.find("<tr>"), html.find(row)) << html;
    EXPECT_LT(html.find(row), html.find("<td>")) << html;
    EXPECT_NE(html.find("<p>yx</p>"), std::string::npos) << html;
}

TEST_F(LayoutEditingTest, ACopiedElementIsThereTwice) {
    Open("<p>A " + kName + " b</p><p>end</p>");
    ASSERT_TRUE(ClickSpan());
    mEdit.dedDocument->ClickEditTool("copy");
    ASSERT_TRUE(WaitUntil([&] { return !QApplication::clipboard()->text().isEmpty(); }));
    QTest::keyClick(Input(), Qt::Key_End, Qt::ControlModifier);
    mEdit.dedDocument->ClickEditTool("paste");
    EXPECT_TRUE(WaitUntil([&] {
        return Body() == "<p>A " + kName + " b</p><p>end" + kName + "</p>";
    })) << Body();
}

TEST_F(LayoutEditingTest, TheSourceViewIsWrittenOnAndComesBackAsElements) {
    Open("<p>Alpha</p>");
    mEdit.fstView->UserClick(2);
    ASSERT_TRUE(WaitUntil([&] { return mView.GetSourceArea() != nullptr; }));
    EXPECT_EQ(mEdit.GetView(), 1);
    CodeArea& area = *mView.GetSourceArea();
    EXPECT_NE(area.toPlainText().indexOf("<p>Alpha</p>"), -1);
    QString text = area.toPlainText();
    area.selectAll();
    area.insertPlainText(text.replace("Alpha", "Alpha " + QString::fromStdString(kName)));
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(mEdit.GetDocumentHTML(), text.toStdString());
    mEdit.fstView->UserClick(1);
    Ready();
    EXPECT_NE(mEdit.dedDocument->GetDocumentHTML().find("metaspanstart1"), std::string::npos);
    EXPECT_EQ(Body(), "<p>Alpha " + kName + "</p>");
}

TEST_F(LayoutEditingTest, WhatIsCopiedFromAnotherLayoutBringsItsElement) {
    Open("<p>A " + kKind + " b</p>");
    ASSERT_TRUE(ClickSpan());
    int copied = 0;
    const auto tie =
        mEdit.dedDocument->Events.PartCopied.Connect([&](const auto&, const auto&) { ++copied; });
    mEdit.dedDocument->ClickEditTool("copy");
    ASSERT_TRUE(WaitUntil([&] { return copied == 1; }));
    Open("<p>" + kName + " end</p>");
    Focus();
    QTest::keyClick(Input(), Qt::Key_End, Qt::ControlModifier);
    mEdit.dedDocument->ClickEditTool("paste");
    EXPECT_TRUE(WaitUntil([&] { return Body() == "<p>" + kName + " end" + kKind + "</p>"; }))
        << Body();
}

TEST_F(LayoutEditingTest, BlocksInAnElementStayInItWhenTextIsTyped) {
    const std::string element =
        "<!--KITEMETADATA start type=\"if\"--><p>block</p><!--KITEMETADATA end-->";
    Open("<p>" + element + "Alpha</p>");
    EXPECT_EQ(Body(), "<p>" + element + "Alpha</p>");
    Focus();
    QTest::keyClick(Input(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(Input(), "x");
    ASSERT_TRUE(WaitUntil([&] { return mEdit.GetDirty(); }));
    EXPECT_EQ(Body(), "<p>" + element + "Alphax</p>");
}

TEST_F(LayoutEditingTest, InvisibleCharactersAndEmptyCodeOfTheLayoutStay) {
    const std::string text = "long\u200Bword<code></code>";
    Open("<p>" + text + "</p><p>" + kName + "</p>");
    Focus();
    mAuthor = [](frmEditMetaSpan& form) {
        const auto& tree = form.ctlBuilder->tvwElements;
        tree->UserClick(tree->Nodes.GetFirst()->GetChild());
        form.ctlBuilder->prpProperties->Find("name")->SetValue("kind");
        form.SetText("kind");
        Confirm(form);
    };
    mEdit.dksUI->UserClick("btnMetaAdd");
    EXPECT_TRUE(WaitUntil([&] {
        return Body() == "<p>" + kKind + text + "</p><p>" + kName + "</p>";
    })) << Body();
}

} // namespace
} // namespace paperkite::test
