#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

using CommentEditorFlagsTest = CommentEditorFixture;

TEST_F(CommentEditorFlagsTest, AFlagIsARowAndACheckBox) {
    Load();
    ASSERT_EQ(mEditor.prpFlags->Count(), 1u);
    const auto row = mEditor.prpFlags->Item("#todo");
    EXPECT_EQ(row->GetCaption(), "#todo");
    EXPECT_EQ(row->GetDescription(), "To do");
    EXPECT_FALSE(row->GetChecked());
    ASSERT_TRUE(FlagBox("#todo"));
    EXPECT_EQ(FlagBox("#todo")->GetCaption(), "#todo");
    EXPECT_TRUE(mEditor.eb->GetGroup("flags")->GetVisible());
    Tag("#todo").TabName = "Open work";
    Tag("#todo").Tip = "What is left to do";
    mEditor.Refresh(false);
    EXPECT_EQ(mEditor.prpFlags->Item("#todo")->GetCaption(), "Open work");
    EXPECT_EQ(mEditor.prpFlags->Item("#todo")->GetDescription(), "What is left to do");
    EXPECT_EQ(FlagBox("#todo")->GetCaption(), "Open work");
}

TEST_F(CommentEditorFlagsTest, APresentFlagIsTickedWithoutAnEvent) {
    mItem->Comment("#todo");
    Load();
    EXPECT_TRUE(mEditor.prpFlags->Item("#todo")->GetChecked());
    EXPECT_TRUE(FlagBox("#todo")->GetChecked());
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_FALSE(mEditor.GetDirty());
}

TEST_F(CommentEditorFlagsTest, TickingARowAddsAnEmptyCommentAndUntickingDeletesIt) {
    Load();
    mEditor.prpFlags->Item("#todo")->SetChecked(true);
    EXPECT_EQ(mLog.Take(), "added(#todo///0) dirty");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "");
    EXPECT_EQ(mItem->Comments()->Item(1)->GetState(), 2);
    mEditor.prpFlags->Item("#todo")->SetChecked(false);
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
}

TEST_F(CommentEditorFlagsTest, ACheckBoxAddsAndDeletesToo) {
    Load();
    FlagBox("#todo")->UserClick();
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mItem->Comments()->Item(1)->GetTagIdentifier(), "#todo");
    FlagBox("#todo")->UserClick();
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorFlagsTest, UntickingARowFindsTombstonesFirst) {
    mEditor.SetKeepTombstones(true);
    mItem->Comment("#todo", "", "t1", kTaggedCommentTombstone);
    mItem->Comment("#todo", "", "t2", 1);
    Load();
    mEditor.prpFlags->Item("#todo")->SetChecked(false);
    EXPECT_EQ(mLog.Take(), "deleted(t1,3) dirty");
    EXPECT_EQ(mItem->Comments()->Item("t2")->GetState(), 1);
}

} // namespace
} // namespace paperkite::test
