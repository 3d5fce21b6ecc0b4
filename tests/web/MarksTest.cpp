#include "web/SurfaceTest.h"

#include "foundation/Services.h"
#include "platform/html/HtmlServices.h"
#include "platform/qt/HtmlEditMenu.h"
#include "platform/qt/HtmlEditView.h"
#include "support/FewWords.h"
#include "support/Waiting.h"

namespace paperkite::test {
namespace {

using test::FewWords;

/// An HtmlEdit in the real engine, which checks the spelling while the author types.
class MarksTest : public testing::Test {
protected:
    MarksTest() : mBefore(CurrentServices()) {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        CurrentServices().Spelling = MakeRef<FewWords>("right words here");
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
