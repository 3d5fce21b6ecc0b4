#include "host/CommentHistory.h"

#include "host/HostTest.h"

namespace paperkite::test {

namespace {

constexpr const char* kDog = "zoo~animals~Dog";
constexpr const char* kCat = "zoo~animals~Cat";

class CommentHistoryTest : public HostTest {
protected:
    CommentHistoryTest() : mWorkspace(Create()), mHistory(mWorkspace) {
        mHistory.Clock = [this] { return mTime; };
    }

    CommentStore& Store() { return *mWorkspace.GetSession().GetProject()->GetComments(); }
    Ref<TaggedCommentCollection> CommentsOf(const std::string& item) {
        return Store().CommentsOf(mWorkspace.GetSession().GetProvider()->GetItem(item), item);
    }
    Ref<TaggedComment> Add(const std::string& item, const std::string& text) {
        const auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier("##remarks");
        comment->SetText(text);
        comment->SetState(kTaggedCommentNew);
        mHistory.ItemShown(item);
        CommentsOf(item)->Add(comment, comment->GetId());
        mHistory.ItemChanged(item);
        return comment;
    }
    void Write(const std::string& item, const Ref<TaggedComment>& comment, std::string text) {
        comment->SetText(std::move(text));
        mHistory.ItemChanged(item);
    }
    void Delete(const std::string& item, const Ref<TaggedComment>& comment) {
        if (comment->GetState() == kTaggedCommentNew)
            CommentsOf(item)->Remove(comment->GetId());
        else
            comment->SetState(kTaggedCommentTombstone);
        mHistory.ItemChanged(item);
    }
    /// "text;text;" of the comments that are there.
    std::string Texts(const std::string& item) {
        std::string texts;
        for (const auto& comment : *CommentsOf(item))
            if (comment->GetState() != kTaggedCommentTombstone) texts += comment->GetText() + ";";
        return texts;
    }

    Workspace mWorkspace;
    CommentHistory mHistory;
    long long mTime = 0;
};

TEST_F(CommentHistoryTest, ThereIsNothingToTakeBackAtFirst) {
    mHistory.ItemsShown({kDog});
    mHistory.ItemChanged(kDog);
    EXPECT_FALSE(mHistory.CanUndo());
    EXPECT_FALSE(mHistory.CanRedo());
    EXPECT_TRUE(mHistory.Undo().empty());
    EXPECT_TRUE(mHistory.Redo().empty());
    EXPECT_EQ(mHistory.UndoCaption(), "");
}

TEST_F(CommentHistoryTest, StepsGoBackAndForthAcrossItems) {
    Add(kDog, "woof");
    Add(kCat, "meow");
    EXPECT_EQ(mHistory.UndoCaption(), "Adding to Cat");
    EXPECT_EQ(mHistory.Undo(), std::vector<std::string>{kCat});
    EXPECT_EQ(Texts(kDog) + Texts(kCat), "woof;");
    EXPECT_EQ(mHistory.Undo(), std::vector<std::string>{kDog});
    EXPECT_EQ(Texts(kDog) + Texts(kCat), "");
    EXPECT_EQ(mHistory.RedoCaption(), "Adding to Dog");
    mHistory.Redo();
    mHistory.Redo();
    EXPECT_EQ(Texts(kDog) + Texts(kCat), "woof;meow;");
    EXPECT_FALSE(mHistory.CanRedo());
}

TEST_F(CommentHistoryTest, WhatIsTypedWithoutAPauseIsOneStep) {
    const auto comment = Add(kDog, "w");
    for (const char* text : {"wo", "woo", "woof"}) {
        mTime += 500;
        Write(kDog, comment, text);
    }
    mTime += 60000;
    Write(kDog, comment, "woof, woof");
    EXPECT_EQ(mHistory.UndoCaption(), "Writing on Dog");
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "woof;");
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "");
    EXPECT_FALSE(mHistory.CanUndo());
    mHistory.Redo();
    EXPECT_EQ(Texts(kDog), "woof;");
}

TEST_F(CommentHistoryTest, AnotherCommentEndsTheStep) {
    const auto first = Add(kDog, "a");
    const auto second = Add(kDog, "b");
    Write(kDog, second, "bb");
    Write(kDog, first, "aa");
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "a;bb;");
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "a;");
}

TEST_F(CommentHistoryTest, GoingToAnItemEndsTheStep) {
    const auto comment = Add(kDog, "a");
    mHistory.ItemsShown({kDog});
    Write(kDog, comment, "ab");
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "a;");
}

TEST_F(CommentHistoryTest, SomethingNewDropsWhatWasTakenBack) {
    Add(kDog, "a");
    mHistory.Undo();
    Add(kDog, "b");
    EXPECT_FALSE(mHistory.CanRedo());
    EXPECT_EQ(Texts(kDog), "b;");
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "");
}

TEST_F(CommentHistoryTest, ManyChangesCanBeOneStep) {
    Add(kDog, "old dog");
    Add(kCat, "old cat");
    const auto dog = CommentsOf(kDog)->Item(std::size_t{1});
    const auto cat = CommentsOf(kCat)->Item(std::size_t{1});
    mHistory.BeginStep("Replace \"old\"");
    Write(kDog, dog, "new dog");
    Write(kCat, cat, "new cat");
    mHistory.EndStep();
    EXPECT_EQ(mHistory.UndoCaption(), "Replace \"old\"");
    EXPECT_EQ(mHistory.Undo().size(), 2u);
    EXPECT_EQ(Texts(kDog) + Texts(kCat), "old dog;old cat;");
    mHistory.Redo();
    EXPECT_EQ(Texts(kDog) + Texts(kCat), "new dog;new cat;");
}

TEST_F(CommentHistoryTest, AStepWithoutAChangeIsNone) {
    mHistory.BeginStep("Replace");
    mHistory.EndStep();
    EXPECT_FALSE(mHistory.CanUndo());
}

TEST_F(CommentHistoryTest, ADeletedCommentComesBackInItsPlace) {
    Add(kDog, "a");
    const auto second = Add(kDog, "b");
    Add(kDog, "c");
    ASSERT_FALSE(mWorkspace.Save());
    Delete(kDog, second);
    EXPECT_EQ(Texts(kDog), "a;c;");
    EXPECT_EQ(mHistory.UndoCaption(), "Deleting from Dog");
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "a;b;c;");
    EXPECT_EQ(CommentsOf(kDog)->Item(std::size_t{2}), second);
}

TEST_F(CommentHistoryTest, UndoReachesBehindASave) {
    const auto comment = Add(kDog, "a");
    ASSERT_FALSE(mWorkspace.Save());
    mHistory.Undo();
    EXPECT_EQ(Texts(kDog), "");
    EXPECT_TRUE(mWorkspace.GetSession().GetProject()->GetDirty());
    ASSERT_FALSE(mWorkspace.Save());
    const auto reopened = ProjectSession::Open(ProjectFile());
    ASSERT_TRUE(reopened.Session);
    EXPECT_EQ(reopened.Session->GetProject()->GetComments()->CountOf(kDog), 0u);
    mHistory.Redo();
    EXPECT_EQ(Texts(kDog), "a;");
    EXPECT_EQ(CommentsOf(kDog)->Item(std::size_t{1})->GetId(), comment->GetId());
}

TEST_F(CommentHistoryTest, ChangesOfItemsThatWereNotShownAreNobodysSteps) {
    const auto comment = MakeRef<TaggedComment>();
    CommentsOf(kCat)->Add(comment, comment->GetId());
    mHistory.ItemChanged(kCat);
    EXPECT_FALSE(mHistory.CanUndo());
}

TEST_F(CommentHistoryTest, TheTreeAndTheOpenItemFollow) {
    ASSERT_TRUE(mWorkspace.Select(kDog));
    Add(kDog, "woof");
    const auto node = mWorkspace.GetEditor().Project.GetNodes().Find(kDog);
    mHistory.Undo();
    EXPECT_FALSE(node->GetBold());
    mHistory.Redo();
    EXPECT_TRUE(node->GetBold());
    bool isShown = false;
    for (const auto& row : *mWorkspace.GetEditor().cEditor.prpTags)
        isShown = isShown || row->GetValue() == "woof";
    EXPECT_TRUE(isShown);
}

} // namespace

} // namespace paperkite::test
