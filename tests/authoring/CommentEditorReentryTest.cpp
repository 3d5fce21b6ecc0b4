#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

/// Handlers of the host that come back into the editor, or fail.
class CommentEditorReentryTest : public CommentEditorFixture {
protected:
    void Add(const std::string& tag) {
        mEditor.prpTags->UserClick(Offer(tag));
        mEditor.prpTags->UserClickButton("AddButton");
    }
    template <class Action>
    [[nodiscard]] Connection WhenAdded(Action action) {
        return mEditor.Events.TaggedCommentAdded.Connect(
            [action](const auto& item, const auto& comment) { action(item, comment); });
    }
    template <class Action>
    [[nodiscard]] Connection WhenDeleted(Action action) {
        return mEditor.Events.TaggedCommentDeleted.Connect(
            [action](const auto&, const auto&, const std::string& key) { action(key); });
    }
    static void Fail() { RaiseError(ErrorNumber::InvalidCall, "the host failed"); }
    void ExpectItStillWorks() {
        mServices.TakeReports();
        Load("P~B");
        Add("#remarks");
        mEditor.prpTags->UserType("written");
        mEditor.CommitEdit();
        ASSERT_EQ(mItem->Comments()->Count(), 1u);
        EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "written");
        EXPECT_EQ(mItem->Comments()->Item(1)->GetState(), kTaggedCommentNew);
        mEditor.DeleteCommentItem(mItem->Comments()->Item(1)->GetId());
        EXPECT_EQ(mItem->Comments()->Count(), 0u);
        EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
        EXPECT_EQ(mServices.TakeReports(), "");
    }
};

TEST_F(CommentEditorReentryTest, AHandlerThatDeletesTheNewCommentLeavesNone) {
    Load();
    {
        const auto tie = WhenAdded([this](const auto& item, const auto& comment) {
            mEditor.ICommentDesignerHost_TaggedCommentDeleted(item, comment);
        });
        Add("#note");
    }
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
    EXPECT_EQ(Rows(), "[Existing Comments] [Available to add] ##+ #remarks+ #note+");
    // There is no row to go on editing.
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.prpTags_ButtonClick (5)\n");
    EXPECT_FALSE(mEditor.prpTags->GetInEdit());
    ExpectItStillWorks();
}

TEST_F(CommentEditorReentryTest, AFailingHandlerOfAnAdditionIsReportedOnceAndTheCommentStays) {
    Load();
    {
        const auto tie = WhenAdded([](const auto&, const auto&) { Fail(); });
        Add("#note");
    }
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.TaggedCommentAdded (5)\n");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mItem->Comments()->Item(1)->GetState(), 0);
    EXPECT_TRUE(mItem->Comments()->Item(1)->GetItem() == mItem);
    EXPECT_EQ(SelectedRow(), "#note");
    EXPECT_TRUE(mEditor.prpTags->GetInEdit());
    mEditor.prpTags->UserType("kept");
    mEditor.CommitEdit();
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "kept");
    ExpectItStillWorks();
}

TEST_F(CommentEditorReentryTest, AHandlerMayLoadAnotherElementWhileACommentIsAdded) {
    Load();
    {
        const auto tie = WhenAdded([this](const auto&, const auto&) { Load("P~C"); });
        Add("#note");
    }
    EXPECT_EQ(mModel.Item("P~A")->Comments()->Count(), 1u);
    EXPECT_EQ(mModel.Item("P~A")->Comments()->Item(1)->GetState(), kTaggedCommentNew);
    EXPECT_EQ(mModel.Item("P~C")->Comments()->Count(), 0u);
    ExpectItStillWorks();
}

TEST_F(CommentEditorReentryTest, AFailingHandlerOfADeletionIsReportedOnceAndTheCommentIsGone) {
    mItem->Comment("#note", "one", "n1", 1);
    Load();
    {
        const auto tie = WhenDeleted([](const std::string&) { Fail(); });
        mEditor.DeleteCommentItem("n1");
    }
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.TaggedCommentDeleted (5)\n");
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
    ExpectItStillWorks();
}

TEST_F(CommentEditorReentryTest, AHandlerThatDeletesTheNextCommentTooLeavesTheListAlive) {
    for (const char* id : {"n1", "n2", "n3"})
        mItem->Comment("#note", id, id, 1);
    Load();
    {
        const auto tie = WhenDeleted([this](const std::string& key) {
            if (key == "n1") mEditor.DeleteCommentItem("n2");
        });
        mEditor.DeleteCommentItem("n1");
    }
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    // The row that was to be selected went with the inner deletion.
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.DeleteCommentItem (5)\n");
    EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
    mEditor.prpTags->Item("n3")->SetValue("by code");
    EXPECT_EQ(mItem->Comments()->Item("n3")->GetText(), "by code");
    ExpectItStillWorks();
}

TEST_F(CommentEditorReentryTest, AHandlerThatReleasesTheElementLeavesTheListAlive) {
    mItem->Comment("#note", "one", "n1", 1);
    Load();
    {
        const auto tie = WhenDeleted([this](const std::string&) {
            mEditor.Clear();
            mEditor.SetCurrentCodeElement(nullptr);
        });
        mEditor.DeleteCommentItem("n1");
    }
    EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
    ExpectItStillWorks();
}

TEST_F(CommentEditorReentryTest, AFailingHandlerOfAChangeIsReportedOnceAndTheTextIsStored) {
    const auto comment = mItem->Comment("#note", "old", "n1", 1);
    Load();
    {
        const auto tie = mEditor.Events.TaggedCommentChanged.Connect(
            [](const auto&, const auto&, const auto&) { Fail(); });
        mEditor.SetSelectedItem(mEditor.prpTags->Item("n1"));
        mEditor.prpTags->BeginEdit();
        mEditor.prpTags->UserType("new");
        mEditor.CommitEdit();
    }
    EXPECT_EQ(mServices.TakeReports(),
              "CommentEditor.ICommentDesignerHost_TaggedCommentChanged (5)\n");
    EXPECT_EQ(comment->GetText(), "new");
    EXPECT_FALSE(mEditor.prpTags->GetInEdit());
    ExpectItStillWorks();
}

TEST_F(CommentEditorReentryTest, AHandlerMayRefreshWhileATextIsCommitted) {
    const auto comment = mItem->Comment("#note", "old", "n1", 1);
    Load();
    const auto tie = mEditor.Events.TaggedCommentChanged.Connect(
        [this](const auto&, const auto&, const auto&) { mEditor.Refresh(false); });
    mEditor.SetSelectedItem(mEditor.prpTags->Item("n1"));
    mEditor.prpTags->BeginEdit();
    mEditor.prpTags->UserType("new");
    mEditor.CommitEdit();
    EXPECT_EQ(comment->GetText(), "new");
    EXPECT_EQ(mEditor.prpTags->Item("n1")->GetValue(), "new");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorReentryTest, AHandlerMayRefreshWhileAFlagBoxIsClicked) {
    Load();
    const auto tie = WhenAdded([this](const auto&, const auto&) { mEditor.Refresh(false); });
    FlagBox("#todo")->UserClick();
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_TRUE(FlagBox("#todo")->GetChecked());
    EXPECT_TRUE(mEditor.prpFlags->Item("#todo")->GetChecked());
    FlagBox("#todo")->UserClick();
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorReentryTest, AFailingHandlerOfDirtinessIsReportedOnce) {
    Load();
    {
        const auto tie = mEditor.Events.DirtyStateChanged.Connect(Fail);
        mEditor.SetDirty(true);
    }
    EXPECT_TRUE(mEditor.GetDirty());
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.Dirty (5)\n");
    ExpectItStillWorks();
}

} // namespace
} // namespace paperkite::test
