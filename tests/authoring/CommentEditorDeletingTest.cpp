#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

class CommentEditorDeletingTest : public CommentEditorFixture {
protected:
    void LoadTwo() {
        mItem->Comment("#remarks", "one", "r1", 1);
        mItem->Comment("#note", "two", "n1", kTaggedCommentNew);
        Load();
    }
};

TEST_F(CommentEditorDeletingTest, ADeletedCommentLeavesListAndCollection) {
    LoadTwo();
    mEditor.DeleteCommentItem("r1");
    EXPECT_EQ(mLog.Take(), "deleted(r1,1) dirty");
    EXPECT_FALSE(mItem->Comments()->Contains("r1"));
    EXPECT_EQ(Rows(), "[Existing Comments] #note=two [Available to add] ##+ #remarks+ #note+");
    EXPECT_EQ(SelectedRow(), "#note");
    EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
}

TEST_F(CommentEditorDeletingTest, TheLastCommentGivesTheSelectionToTheRowBefore) {
    LoadTwo();
    mEditor.DeleteCommentItem("n1");
    EXPECT_EQ(SelectedRow(), "#remarks");
    mEditor.DeleteCommentItem("r1");
    EXPECT_EQ(SelectedRow(), "Existing Comments");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDeletingTest, TombstonesStayUnlessTheCommentIsNew) {
    mEditor.SetKeepTombstones(true);
    LoadTwo();
    mEditor.DeleteCommentItem("n1");
    mEditor.DeleteCommentItem("r1");
    EXPECT_EQ(mLog.Take(), "deleted(n1,2) dirty deleted(r1,3)");
    EXPECT_FALSE(mItem->Comments()->Contains("n1"));
    EXPECT_EQ(mItem->Comments()->Item("r1")->GetState(), 3);
    EXPECT_EQ(Rows().find("=one"), std::string::npos);
    EXPECT_TRUE(mEditor.GetTaggedCommentByKey("r1"));
    EXPECT_FALSE(mEditor.GetTaggedCommentByKey("R1"));
}

TEST_F(CommentEditorDeletingTest, TheCommentIsGoneWhenItsDeletionIsAnnounced) {
    LoadTwo();
    std::string heard;
    const auto tie = mEditor.Events.TaggedCommentDeleted.Connect(
        [&](const auto&, const auto&, const std::string& key) {
            heard += mItem->Comments()->Contains(key) ? "there" : "gone";
            heard += mEditor.GetDirty() ? " dirty" : " clean";
            // Values that change on the way are no changes of a comment.
            mEditor.prpTags->Item("n1")->SetValue("by the host");
        });
    mEditor.DeleteCommentItem("r1");
    EXPECT_EQ(heard, "gone clean");
    EXPECT_EQ(mItem->Comments()->Item("n1")->GetText(), "two");
    EXPECT_EQ(mLog.Take(), "deleted(r1,1) dirty");
}

TEST_F(CommentEditorDeletingTest, OffersHeadersAndUnknownKeysChangeNothing) {
    LoadTwo();
    const std::string before = Rows();
    mEditor.DeleteCommentItem(Offer("#note")->GetKey());
    mEditor.DeleteCommentItem("unknown");
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(mLog.Take(), "");
    EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
}

TEST_F(CommentEditorDeletingTest, TheDeleteKeyIsSwallowedAndDeletes) {
    LoadTwo();
    mEditor.SetSelectedItem(mEditor.prpTags->Item("r1"));
    EXPECT_EQ(mEditor.prpTags->UserKeyDown(KeyDelete, 0), 0);
    EXPECT_FALSE(mItem->Comments()->Contains("r1"));
    mEditor.SetSelectedItem(mEditor.prpTags->Item("n1"));
    mEditor.prpTags->UserClickButton("DeleteButton");
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
}

TEST_F(CommentEditorDeletingTest, WithoutASelectionTheAuthorIsTold) {
    LoadTwo();
    mEditor.prpTags->SetSelectedItem({});
    EXPECT_EQ(mEditor.prpTags->UserKeyDown(KeyDelete, 0), 0);
    ASSERT_EQ(mServices.Messages->Shown.size(), 1u);
    EXPECT_TRUE(mServices.Messages->Shown[0].ends_with(
        "[warning] Please select a tag which exists in the active code element"));
    EXPECT_EQ(mItem->Comments()->Count(), 2u);
}

TEST_F(CommentEditorDeletingTest, AHandlerThatRefreshesDoesNoHarm) {
    LoadTwo();
    const auto tie = mEditor.Events.TaggedCommentDeleted.Connect(
        [&](const auto&, const auto&, const auto&) { mEditor.Refresh(false); });
    mEditor.DeleteCommentItem("r1");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_NE(Rows().find("#note=two"), std::string::npos);
}

} // namespace
} // namespace paperkite::test
