#include "foundation/Services.h"
#include "platform/html/HtmlServices.h"
#include "support/FewWords.h"
#include "support/ScriptedServices.h"
#include "widgets/HtmlEdit.h"

#include <gtest/gtest.h>

#include <deque>

namespace paperkite {
namespace {

using test::FewWords;

class HtmlEditSearchTest : public testing::Test, public HtmlEditObserver {
protected:
    HtmlEditSearchTest() : mBefore(CurrentServices()) {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        CurrentServices().Spelling = {};
        CurrentServices().AskSpelling = {};
        mEdit->SetDocumentHTML("<body>fish<span id='a' contenteditable='true'>One fish</span>"
                               "<span id='b' contenteditable='true'><b>Fi</b>sh two</span></body>");
        mTie = mEdit->Observe(*this);
        mChanges = mEdit->Events.EditableSpanChanged.Connect(
            [this](const auto& span) { mTold += span->GetId() + ";"; });
    }
    ~HtmlEditSearchTest() override { CurrentServices() = mBefore; }

    void SelectionWanted(const HtmlSelection& selection) override {
        mSelected += std::to_string(selection.Place) + ":" + std::to_string(selection.Start) + "-" +
                     std::to_string(selection.End) + ";";
    }
    bool Find(const std::string& text) { return mEdit->DoFind(text, false, false, false); }
    std::size_t Replace(const std::string& text, const std::string& by) {
        return mEdit->DoReplace(text, by, false, false, false);
    }
    std::string Text(std::size_t place) { return mEdit->GetPlaces()[place]->GetInnerHTML(); }

    /// Words are checked against these; questions get the answers in order, and are remembered.
    void Know(const std::string& words, std::deque<SpellAnswer> answers) {
        mEngine = MakeRef<FewWords>(words);
        CurrentServices().Spelling = mEngine;
        CurrentServices().AskSpelling = [this, answers](const SpellQuestion& question) mutable {
            mAsked += question.Word + "@" + std::to_string(question.At) + " in '" +
                      question.Sentence + "';";
            if (answers.empty()) return SpellAnswer{};
            const SpellAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        };
    }
    /// False when it was cancelled.
    bool Check() {
        bool cancel = false;
        mEdit->DoSpellCheck({}, cancel);
        return !cancel;
    }

    Services mBefore;
    Ref<HtmlEdit> mEdit = MakeRef<HtmlEdit>("ed");
    Ref<FewWords> mEngine;
    Connection mTie;
    Connection mChanges;
    std::string mTold;
    std::string mSelected;
    std::string mAsked;
};

TEST_F(HtmlEditSearchTest, FindingGoesFromPlaceToPlaceAndBeginsAgain) {
    EXPECT_TRUE(Find("fish"));
    EXPECT_TRUE(Find("fish"));
    EXPECT_TRUE(Find("fish"));
    EXPECT_EQ(mSelected, "0:4-8;1:0-4;0:4-8;");
    EXPECT_EQ(mTold, "");
}

TEST_F(HtmlEditSearchTest, FindingBeginsBehindTheSelection) {
    mEdit->UserSelectionMoved({1, 2, 2});
    EXPECT_TRUE(Find("fish"));
    EXPECT_EQ(mSelected, "0:4-8;");
    mEdit->UserSelectionMoved({0, 0, 0});
    EXPECT_TRUE(Find("o"));
    EXPECT_TRUE(Find("o"));
    EXPECT_EQ(mSelected, "0:4-8;0:0-1;1:7-8;");
}

TEST_F(HtmlEditSearchTest, WhatStandsNowhereSelectsNothing) {
    EXPECT_FALSE(Find("whale"));
    EXPECT_FALSE(Find(""));
    EXPECT_EQ(mSelected, "");
    EXPECT_FALSE(mEdit->GetSelection());
}

TEST_F(HtmlEditSearchTest, InHtmlEachHitIsFoundOnce) {
    mEdit->SetDocumentHTML("<body><span id='a' contenteditable='true'>"
                           "<i title='x'></i><i title='x'></i>x</span></body>");
    for (int time = 0; time < 3; ++time)
        EXPECT_TRUE(mEdit->DoFind("x", false, false, true));
    EXPECT_EQ(mSelected, "0:0-0;0:0-0;0:0-1;");
}

TEST_F(HtmlEditSearchTest, ReplacingChangesEveryPlaceAndReportsEach) {
    EXPECT_EQ(Replace("fish", "A & B"), 2u);
    EXPECT_EQ(Text(0), "One A &amp; B");
    EXPECT_EQ(Text(1), "<b>A &amp; B</b> two");
    EXPECT_EQ(mTold, "a;b;");
    EXPECT_TRUE(mEdit->GetDirty());
    EXPECT_EQ(mEdit->GetDocumentHTML().find("fish"), mEdit->GetDocumentHTML().rfind("fish"))
        << "what may not be edited stays";
}

TEST_F(HtmlEditSearchTest, ReplacingNothingReportsNothing) {
    EXPECT_EQ(Replace("whale", "x"), 0u);
    EXPECT_EQ(Replace("fish", "fish") + 0u, 2u);
    EXPECT_EQ(mTold.find('a'), std::string::npos) << "the text says the same";
}

TEST_F(HtmlEditSearchTest, UndoTakesAReplacementBackAtOnceAndRedoBringsItAgain) {
    EXPECT_FALSE(mEdit->IsCommandEnabled("undo"));
    Replace("fish", "x");
    mTold.clear();
    EXPECT_TRUE(mEdit->IsCommandEnabled("undo"));
    mEdit->ClickEditTool("undo");
    EXPECT_EQ(Text(0) + "/" + Text(1), "One fish/<b>Fi</b>sh two");
    EXPECT_EQ(mTold, "a;b;");
    EXPECT_FALSE(mEdit->IsCommandEnabled("undo"));
    EXPECT_TRUE(mEdit->IsCommandEnabled("redo"));
    mEdit->ClickEditTool("redo");
    EXPECT_EQ(Text(0) + "/" + Text(1), "One x/<b>x</b> two");
}

TEST_F(HtmlEditSearchTest, WhatWasTypedSinceIsNotUndoneOver) {
    Replace("fish", "x");
    mEdit->UserSpanChanged(0, "typed");
    EXPECT_FALSE(mEdit->IsCommandEnabled("undo"));
    mEdit->ClickEditTool("undo");
    EXPECT_EQ(Text(0) + "/" + Text(1), "typed/<b>x</b> two");
}

TEST_F(HtmlEditSearchTest, SearchingIsThereInTheNormalViewOnly) {
    EXPECT_TRUE(mEdit->CanFind());
    mEdit->SetView(HtmlView::Preview);
    EXPECT_FALSE(mEdit->CanFind());
    EXPECT_EQ(Replace("fish", "x"), 0u);
    mEdit->SetView(HtmlView::Normal);
    mEdit->Terminate();
    EXPECT_FALSE(mEdit->CanFind());
}

TEST_F(HtmlEditSearchTest, SearchingWorksByName) {
    EXPECT_EQ(mEdit
                  ->Call("DoReplace",
                         {Value("fish"), Value("x"), Value(true), Value(false), Value(false)})
                  .ToInteger(),
              2);
    EXPECT_TRUE(mEdit->Call("DoFind", {Value("two")}).ToBoolean());
}

TEST_F(HtmlEditSearchTest, WithoutAnybodyToAskASpellCheckChangesNothing) {
    EXPECT_FALSE(mEdit->CanCheckSpelling());
    EXPECT_TRUE(Check());
    CurrentServices().Spelling = MakeRef<FewWords>("");
    EXPECT_TRUE(mEdit->CanCheckSpelling());
    EXPECT_TRUE(Check());
    EXPECT_EQ(mTold, "");
}

TEST_F(HtmlEditSearchTest, EachWrongWordIsAskedForInItsSentence) {
    mEdit->UserSpanChanged(0, "<p>Good. It is bda! Good.</p><p>wrse</p>");
    Know("good it is fish two", {{SpellAction::Ignore, {}}, {SpellAction::Ignore, {}}});
    EXPECT_TRUE(Check());
    EXPECT_EQ(mAsked, "bda@6 in 'It is bda!';wrse@0 in 'wrse';");
    EXPECT_EQ(mSelected, "0:12-15;0:22-26;");
}

TEST_F(HtmlEditSearchTest, AnAnswerChangesTheWordOnceOrEverywhere) {
    mEdit->UserSpanChanged(0, "teh teh teh");
    mEdit->UserSpanChanged(1, "<b>te</b>h two");
    mTold.clear();
    Know("the two", {{SpellAction::Change, "a<"}, {SpellAction::ChangeAll, "the"}});
    EXPECT_TRUE(Check());
    EXPECT_EQ(Text(0) + "/" + Text(1), "a&lt; the the/<b>the</b> two");
    mEdit->ClickEditTool("undo");
    EXPECT_EQ(Text(0) + "/" + Text(1), "teh teh teh/<b>te</b>h two") << "one step";
}

TEST_F(HtmlEditSearchTest, WordsArePassedOverOrLearnt) {
    std::string ignored;
    const auto tie = mEdit->Events.SpellIgnoreWordAdded.Connect(
        [&](const std::string& word) { ignored += word + ";"; });
    mEdit->UserSpanChanged(0, "foo foo bar bar");
    Know("fish two", {{SpellAction::IgnoreAll, {}}, {SpellAction::Add, {}}});
    EXPECT_TRUE(Check());
    EXPECT_EQ(mEngine->Told, "ignore foo;learn bar;");
    EXPECT_EQ(ignored, "foo;");
}

TEST_F(HtmlEditSearchTest, APassedEngineLearnsWhatIsPassedOver) {
    Know("fish two", {{SpellAction::IgnoreAll, {}}});
    const auto own = mEngine;
    const auto passed = MakeRef<FewWords>("fish two");
    std::string ignored;
    const auto tie = mEdit->Events.SpellIgnoreWordAdded.Connect(
        [&](const std::string& word) { ignored += word + ";"; });
    mEdit->UserSpanChanged(0, "foo and foo");
    bool cancel = false;
    passed->AddIgnoreAll("and");
    mEdit->DoSpellCheck(passed, cancel);
    EXPECT_FALSE(cancel) << "the second one is not asked for";
    EXPECT_EQ(mAsked, "foo@0 in 'foo and foo';");
    EXPECT_EQ(passed->Told, "ignore and;ignore foo;");
    EXPECT_EQ(own->Told, "");
    EXPECT_EQ(ignored, "foo;");
}

TEST_F(HtmlEditSearchTest, AWordThatCannotBeLearntIsToldAndAskedForAgain) {
    const auto messages = std::make_shared<test::ScriptedMessageBox>();
    CurrentServices().MessageBox = messages;
    mEdit->UserSpanChanged(0, "foo bar");
    Know("fish two", {{SpellAction::Add, {}}, {SpellAction::Change, "fish"}, {}});
    mEngine->CannotLearn = true;
    EXPECT_FALSE(Check());
    EXPECT_EQ(messages->Shown, std::vector<std::string>{"Spelling [warning] No room for foo."});
    EXPECT_EQ(mAsked, "foo@0 in 'foo bar';foo@0 in 'foo bar';bar@5 in 'fish bar';");
    EXPECT_EQ(Text(0), "fish bar") << "what was decided is kept";
    mEdit->UserLearnWord("qux");
    EXPECT_EQ(messages->Shown.back(), "Spelling [warning] No room for qux.");
    CurrentServices().MessageBox = {};
    EXPECT_NO_THROW(mEdit->UserLearnWord("qux"));
}

TEST_F(HtmlEditSearchTest, TheOptionsAreShownAndTheWordIsAskedForAgain) {
    int shown = 0;
    Know("one fish two", {{SpellAction::Options, {}}, {SpellAction::Cancel, {}}});
    const auto tie = mEngine->Events.OptionBtnClick.Connect([&] { ++shown; });
    mEdit->UserSpanChanged(0, "wrng and wrse");
    EXPECT_FALSE(Check()) << "the author ended it";
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(mAsked, "wrng@0 in 'wrng and wrse';wrng@0 in 'wrng and wrse';");
    EXPECT_FALSE(mEdit->GetSpellCheckInProgress());
}

TEST_F(HtmlEditSearchTest, AChangeWhileTheAuthorIsAskedIsKept) {
    mEngine = MakeRef<FewWords>("one fish two");
    CurrentServices().Spelling = mEngine;
    CurrentServices().AskSpelling = [this](const SpellQuestion& question) {
        mAsked += question.Word + ";";
        if (mAsked == "wrng;") mEdit->UserSpanChanged(0, "one otehr");
        return SpellAnswer{SpellAction::Change, "two"};
    };
    mEdit->UserSpanChanged(0, "wrng");
    EXPECT_TRUE(Check());
    EXPECT_EQ(Text(0), "one two");
    EXPECT_EQ(mAsked, "wrng;otehr;");
}

} // namespace
} // namespace paperkite
