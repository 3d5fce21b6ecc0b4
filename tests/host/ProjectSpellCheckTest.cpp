#include "host/ProjectSpellCheck.h"

#include "host/HostTest.h"
#include "support/FewWords.h"
#include "support/ScriptedServices.h"

#include <deque>

namespace paperkite::test {

namespace {

/// A check of three comments; questions get the answers in order, and are remembered.
class ProjectSpellCheckTest : public HostTest {
protected:
    ProjectSpellCheckTest() : mWorkspace(Create()), mChanges(mWorkspace, nullptr, nullptr) {
        CurrentServices().MessageBox = mMessages;
        mCat = Load("zoo~animals~Cat", "<p>foo and <b>fo</b>o, bar.</p>");
        mDog = Load("zoo~animals~Dog", "foo bar");
        mGone = Load("zoo~animals~Gone", "bar baz");
    }

    Ref<TaggedComment> Load(const std::string& item, const std::string& text) {
        auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier("##");
        comment->SetText(text);
        Store().Load(item, comment, {});
        return comment;
    }
    CommentStore& Store() { return *mWorkspace.GetSession().GetProject()->GetComments(); }
    /// False when it was cancelled, which what is not answered is.
    bool Run(std::deque<SpellAnswer> answers) {
        ProjectSpellCheck check(
            *mEngine,
            {[&](const SpellQuestion& question) {
                 mAsked += question.Word + "@" + std::to_string(question.At) + ";";
                 if (answers.empty()) return SpellAnswer{};
                 const SpellAnswer answer = answers.front();
                 answers.pop_front();
                 return answer;
             },
             [&](const auto& finding, const auto& replacement) { Change(finding, replacement); },
             [&](const std::string& word) { mEngine->AddIgnoreAll(word); }});
        const bool isComplete = check.Run(SpellCheckWork(*mEngine).Check(Store()));
        EXPECT_TRUE(answers.empty()) << answers.size() << " answers were not asked for";
        return isComplete;
    }
    void Change(const SpellCheckWork::Finding& finding, const std::string& replacement) {
        const auto changes = SpellCheckWork::Plan(Store(), finding, replacement);
        EXPECT_EQ(changes.size(), 1u) << finding.Word << " of " << finding.Item;
        EXPECT_EQ(mChanges.Apply(changes, "Spelling"), 0u);
    }
    std::string Texts() const {
        return mCat->GetText() + "/" + mDog->GetText() + "/" + mGone->GetText();
    }

    Workspace mWorkspace;
    TextChanges mChanges;
    std::shared_ptr<ScriptedMessageBox> mMessages = std::make_shared<ScriptedMessageBox>();
    Ref<FewWords> mEngine = MakeRef<FewWords>("and one two");
    Ref<TaggedComment> mCat;
    Ref<TaggedComment> mDog;
    Ref<TaggedComment> mGone;
    std::string mAsked;
};

TEST_F(ProjectSpellCheckTest, EachWrongWordIsAskedForAndMayStay) {
    EXPECT_TRUE(Run(std::deque<SpellAnswer>(7, {SpellAction::Ignore, {}})));
    EXPECT_EQ(mAsked, "foo@0;foo@8;bar@13;foo@0;bar@4;bar@0;baz@4;");
    EXPECT_EQ(Texts(), "<p>foo and <b>fo</b>o, bar.</p>/foo bar/bar baz");
    EXPECT_EQ(mEngine->Told, "");
}

TEST_F(ProjectSpellCheckTest, AWordIsChangedOnceOrWhereverItStands) {
    EXPECT_TRUE(Run({{SpellAction::Change, "one"},
                     {SpellAction::ChangeAll, "two & two"},
                     {SpellAction::ChangeAll, "b"},
                     {SpellAction::Ignore, {}}}));
    EXPECT_EQ(mAsked, "foo@0;foo@8;bar@13;baz@4;");
    EXPECT_EQ(Texts(), "<p>one and <b>two &amp; two</b>, b.</p>/two &amp; two b/b baz");
}

TEST_F(ProjectSpellCheckTest, WhatWasDecidedStaysWhenTheWordIsLearntBehindIt) {
    EXPECT_TRUE(Run({{SpellAction::Change, "one"},
                     {SpellAction::Add, {}},
                     {SpellAction::IgnoreAll, {}},
                     {SpellAction::Ignore, {}}}));
    EXPECT_EQ(mAsked, "foo@0;foo@8;bar@13;baz@4;");
    EXPECT_EQ(mEngine->Told, "learn foo;ignore bar;");
    EXPECT_EQ(Texts(), "<p>one and <b>fo</b>o, bar.</p>/foo bar/bar baz");
}

TEST_F(ProjectSpellCheckTest, WhatWasDecidedStaysWhenTheWordIsPassedOverBehindIt) {
    EXPECT_FALSE(Run({{SpellAction::Change, "one"}, {SpellAction::IgnoreAll, {}}, {}}));
    EXPECT_EQ(Texts(), "<p>one and <b>fo</b>o, bar.</p>/foo bar/bar baz");
}

TEST_F(ProjectSpellCheckTest, WhatWasDecidedStaysWhenOptionsMakeTheWordRight) {
    int shown = 0;
    const auto tie = mEngine->Events.OptionBtnClick.Connect([&] {
        ++shown;
        mEngine->AddIgnoreAll("foo");
    });
    EXPECT_FALSE(Run({{SpellAction::Change, "one"}, {SpellAction::Options, {}}, {}}));
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(mAsked, "foo@0;foo@8;bar@13;") << "the next word, as this one is right by now";
    EXPECT_EQ(Texts(), "<p>one and <b>fo</b>o, bar.</p>/foo bar/bar baz");
}

TEST_F(ProjectSpellCheckTest, OptionsThatChangeNothingAskAgain) {
    EXPECT_FALSE(Run({{SpellAction::Options, {}}, {}}));
    EXPECT_EQ(mAsked, "foo@0;foo@0;");
}

TEST_F(ProjectSpellCheckTest, CancellingKeepsWhatWasDecided) {
    EXPECT_FALSE(Run({{SpellAction::Change, "one"},
                      {SpellAction::Change, "two"},
                      {SpellAction::Ignore, {}},
                      {SpellAction::Change, "three"},
                      {SpellAction::Cancel, {}}}));
    EXPECT_EQ(Texts(), "<p>one and <b>two</b>, bar.</p>/three bar/bar baz");
}

TEST_F(ProjectSpellCheckTest, AWordThatCannotBeLearntIsToldAndAskedForAgain) {
    mEngine->CannotLearn = true;
    EXPECT_FALSE(Run({{SpellAction::Change, "one"}, {SpellAction::Add, {}}, {}}));
    EXPECT_EQ(mAsked, "foo@0;foo@8;foo@8;");
    EXPECT_EQ(mMessages->Shown, std::vector<std::string>{"Spelling [warning] No room for foo."});
    EXPECT_EQ(Texts(), "<p>one and <b>fo</b>o, bar.</p>/foo bar/bar baz");
}

} // namespace
} // namespace paperkite::test
