#include "authoring/CommentEditorFixture.h"
#include "authoring/ScriptedTheme.h"

namespace paperkite::test {
namespace {

class CommentEditorFlagsTest : public CommentEditorFixture {
protected:
    Ref<GroupItem> BoxItem() { return mEditor.eb->GetGroup("flags")->Item("checkboxcontainer"); }
    /// What a box is wide beside a bar of that width, in twips.
    int BoxWidth(int barWidth) {
        const auto group = mEditor.eb->GetGroup("flags");
        return (barWidth - 2 * (group->GetLeftMargin() + group->GetRightMargin()) + 3) * 15;
    }
};

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

// The boxes in the bar

TEST_F(CommentEditorFlagsTest, TheBoxesStandOnAFrameOfTheirOwn) {
    EXPECT_FALSE(BoxItem()->GetControl());
    mEditor.Initialize();
    ASSERT_TRUE(BoxItem()->GetControl());
    EXPECT_EQ(BoxItem()->GetControl()->GetName(), "fraExplorerBar");
}

TEST_F(CommentEditorFlagsTest, UnloadingForgetsPlaceAndTabOrder) {
    Load();
    const auto frame = BoxItem()->GetControl();
    EXPECT_NE(frame->GetTag(), "");
    EXPECT_NE(mEditor.eb->GetTag(), "");
    Tag("#todo").Namespaces = "Test:Method";
    mEditor.Refresh(false);
    EXPECT_EQ(frame->GetTag(), "");
    EXPECT_EQ(mEditor.eb->GetTag(), "");
    EXPECT_FALSE(FlagBox("#todo"));
}

TEST_F(CommentEditorFlagsTest, ARefreshPutsTheBoxesWhereTheyWere) {
    Define("#done", "Done").TagType = "f";
    Load();
    const auto first = FlagBox("#todo");
    const auto second = FlagBox("#done");
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->GetTop(), 0);
    mEditor.Refresh(false);
    EXPECT_FALSE(FlagBox("#todo") == first);
    EXPECT_EQ(FlagBox("#todo")->GetBounds(), first->GetBounds());
    EXPECT_EQ(FlagBox("#todo")->GetTabIndex(), first->GetTabIndex());
    EXPECT_EQ(FlagBox("#done")->GetBounds(), second->GetBounds());
    EXPECT_EQ(FlagBox("#done")->GetTabIndex(), second->GetTabIndex());
}

TEST_F(CommentEditorFlagsTest, BoxesTakeTheWidthOfTheBar) {
    mEditor.Initialize();
    mEditor.eb->SetWidth(300);
    Load();
    EXPECT_EQ(FlagBox("#todo")->GetWidth(), BoxWidth(300));
    mEditor.eb->SetWidth(400);
    EXPECT_EQ(FlagBox("#todo")->GetWidth(), BoxWidth(400));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorFlagsTest, TheGroupsHaveTheGroundOfTheTheme) {
    EXPECT_EQ(mEditor.eb->GetGroupBackColor(), Colour());
    CurrentServices().ThemeColours = std::make_shared<ScriptedTheme>();
    CommentEditor editor;
    EXPECT_EQ(editor.eb->GetGroupBackColor(), Colour(0x112233));
}

TEST_F(CommentEditorFlagsTest, ABoxThatCannotBeMadeIsReportedAndTheRefreshGoesOn) {
    Load();
    BoxItem()->SetControl(nullptr);
    mItem->Comment("#todo");
    mItem->Comment("#note", "text", "n");
    mEditor.Refresh(false);
    EXPECT_EQ(mServices.TakeReports(), "EBCheckBoxes.AddCheckbox (91)\n");
    EXPECT_TRUE(mEditor.prpFlags->Item("#todo")->GetChecked());
    EXPECT_EQ(Rows(), "[Existing Comments] #note=text [Available to add] ##+ #remarks+ #note+");
    EXPECT_TRUE(mEditor.prpTags->GetVisible());
}

} // namespace
} // namespace paperkite::test
