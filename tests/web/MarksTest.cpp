#include "web/SurfaceTest.h"

#include "foundation/Services.h"
#include "platform/html/HtmlServices.h"
#include "platform/qt/HtmlEditMenu.h"
#include "platform/qt/HtmlEditView.h"
#include "support/FewWords.h"
#include "support/Waiting.h"

#include <QImage>

#include <algorithm>
#include <set>

namespace paperkite::test {
namespace {

using test::FewWords;

/// An HtmlEdit in the real engine, which checks the spelling while the author types.
class MarksTest : public testing::Test {
protected:
    MarksTest() : mBefore(CurrentServices()) {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        CurrentServices().Spelling = MakeRef<FewWords>("right words here two");
        mEdit->SetSpellAsYouType(true);
        mView.resize(600, 400);
        mView.show();
        mView.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mView));
    }
    ~MarksTest() override { CurrentServices() = mBefore; }

    void Show(const std::string& text) {
        mEdit->SetDocumentHTML("<html><body><div id='a' contenteditable='true'>" + text +
                               "</div><div id='b' contenteditable='true'>two</div></body></html>");
        ASSERT_TRUE(WaitUntil([&] { return mView.IsReady(); }));
        mEdit->SetEditFocus();
        ASSERT_TRUE(WaitUntil([&] { return mEdit->IsCommandEnabled("bold"); }));
    }
    void Type(const QString& text) {
        for (const QChar letter : text)
            QTest::keyClick(mView.GetSurface()->InputWidget(), letter.toLatin1());
    }
    std::string Text(std::size_t place = 0) {
        mEdit->CommitEdit();
        return mEdit->GetPlaces()[place]->GetInnerHTML();
    }

    /// The rows of the picture in which the colour of the wavy line stands.
    std::set<int> MarkedRows() {
        const QImage picture = mView.grab().toImage();
        std::set<int> rows;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                if (colour.red() - std::max(colour.green(), colour.blue()) > 70) rows.insert(y);
            }
        return rows;
    }

    Services mBefore;
    Ref<HtmlEdit> mEdit = MakeRef<HtmlEdit>("ed");
    HtmlEditView mView{mEdit, nullptr};
};

TEST_F(MarksTest, WrongWordsAreFoundInWhatIsTypedAndLeaveNothingInTheText) {
    Show("right");
    Type(" wrng words");
    ASSERT_TRUE(WaitUntil([&] { return Text() == "right wrng words"; })) << Text();
    const auto wrong = mEdit->FindMisspelt("right wrng words");
    EXPECT_EQ(wrong, (std::vector<TextRange>{{6, 4}}));
    EXPECT_EQ(mEdit->GetDocumentHTML().find("kite-marks"), std::string::npos);
}

TEST_F(MarksTest, ALineIsDrawnBelowAWrongWordAndNotBelowCode) {
    Show("right <b>wrng</b> words<br><br>right <code>wrng</code> <kbd>wrng</kbd>");
    ASSERT_TRUE(WaitUntil([this] { return !MarkedRows().empty(); }));
    // The colour of code has settled too by now.
    QTest::qWait(300);
    const auto rows = MarkedRows();
    ASSERT_FALSE(rows.empty());
    EXPECT_LE(*rows.rbegin() - *rows.begin(), 4) << "more than one line is marked";
    EXPECT_LT(*rows.rbegin(), 40) << "the line is not below the first words";
}

TEST_F(MarksTest, TheLineGoesWithTheMistake) {
    Show("wrng words");
    ASSERT_TRUE(WaitUntil([this] { return !MarkedRows().empty(); }));
    mEdit->GetPlaces()[0]->SetInnerHTML("right words");
    EXPECT_TRUE(WaitUntil([this] { return MarkedRows().empty(); }));
}

TEST_F(MarksTest, TheMenuOffersSuggestionsForAWrongWord) {
    Show("right wrng");
    WebMenuRequest request;
    request.Place = 0;
    request.Word = "wrng";
    HtmlEditMenu menu(mEdit, *mView.GetSurface(), request, false, nullptr);
    menu.setAttribute(Qt::WA_DeleteOnClose, false);
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts += action->text();
    EXPECT_TRUE(texts.contains("wrng?")) << texts.join('|').toStdString();
    EXPECT_TRUE(texts.contains("&Ignore all"));
    EXPECT_TRUE(texts.contains("&Add to the dictionary"));
}

TEST_F(MarksTest, FindingSelectsTheTextInThePage) {
    Show("One <b>fi</b>sh");
    EXPECT_TRUE(mEdit->DoFind("fish", false, false, false));
    EXPECT_TRUE(WaitUntil([&] { return mEdit->GetSelectedText() == "fish"; }))
        << mEdit->GetSelectedText();
    EXPECT_EQ(mEdit->GetSelection(), (HtmlSelection{0, 4, 8}));
}

TEST_F(MarksTest, AReplacementIsUndoneByTheKeyInOneStep) {
    Show("one two");
    EXPECT_EQ(mEdit->DoReplace("two", "three", false, false, false), 2u);
    EXPECT_EQ(Text() + "/" + Text(1), "one three/three");
    ASSERT_TRUE(WaitUntil([&] { return mView.IsReady(); }));
    mEdit->SetEditFocus();
    QWidget* input = mView.GetSurface()->InputWidget();
    for (int time = 0; time < 5 && Text() != "one two"; ++time) {
        QTest::keyClick(input, Qt::Key_Z, Qt::ControlModifier);
        if (!WaitUntil([&] { return Text() == "one two"; }, 2000)) continue;
    }
    EXPECT_EQ(Text() + "/" + Text(1), "one two/two");
}

} // namespace
} // namespace paperkite::test
