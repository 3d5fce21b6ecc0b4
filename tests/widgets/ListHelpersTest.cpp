#include "widgets/ListHelpers.h"

#include "widgets/DockHost.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

class ListHelpersTest : public testing::Test {
protected:
    ListHelpersTest() {
        mList.SetCheckBoxes(true);
        for (const auto* text : {"one", "two", "One", "two"})
            mList.AddItem(text);
    }

    std::string Ticks() {
        std::string ticks;
        for (int index = 0; index < mList.GetListCount(); ++index)
            ticks += mList.GetSelected(index) ? 'x' : '.';
        return ticks;
    }

    ListBox mList{"lbx"};
};

TEST_F(ListHelpersTest, TickingAnEntryMakesItTheCurrentOne) {
    mList.SetSelected(2, true);
    EXPECT_EQ(mList.GetListIndex(), 2);
}

TEST_F(ListHelpersTest, SelectListTicksAllAndKeepsTheCurrentEntry) {
    mList.SetListIndex(1);
    SelectList(mList, true);
    EXPECT_EQ(Ticks(), "xxxx");
    EXPECT_EQ(mList.GetListIndex(), 1);
    SelectList(mList, false);
    EXPECT_EQ(Ticks(), "....");
    EXPECT_EQ(mList.GetListIndex(), 1);
}

TEST_F(ListHelpersTest, SelectListPutsBackThatNothingIsCurrent) {
    SelectList(mList, true);
    EXPECT_EQ(mList.GetListIndex(), -1);
}

TEST_F(ListHelpersTest, SelectListLeavesAnEmptyListAlone) {
    mList.Clear();
    int clicks = 0;
    auto tie = mList.Events.Click.Connect([&] { ++clicks; });
    SelectList(mList, true);
    EXPECT_EQ(mList.GetListCount(), 0);
    EXPECT_EQ(mList.GetListIndex(), -1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListHelpersTest, CheckListItemTicksTheFirstExactMatch) {
    mList.SetListIndex(3);
    CheckListItem(mList, "two");
    EXPECT_EQ(Ticks(), ".x..");
    EXPECT_EQ(mList.GetListIndex(), 3);
}

TEST_F(ListHelpersTest, CheckListItemTicksNothingForAnUnknownText) {
    mList.SetListIndex(0);
    CheckListItem(mList, "TWO");
    EXPECT_EQ(Ticks(), "....");
    EXPECT_EQ(mList.GetListIndex(), 0);
}

TEST_F(ListHelpersTest, ACommandIsWrittenOnlyWhereItsStateDiffers) {
    DockHost dock("Dock");
    const auto command = dock.Commands.AddCheck("Grouped", "Grouped");
    int told = 0;
    const auto tie = dock.Events.CommandCheck.Connect([&](const auto&) { ++told; });
    SetCommandChecked(*command, false);
    EXPECT_FALSE(GetCommandChecked(*command));
    EXPECT_EQ(told, 0);
    SetCommandChecked(*command, true);
    SetCommandChecked(*command, true);
    EXPECT_TRUE(GetCommandChecked(*command));
    EXPECT_EQ(command->GetChecked(), 1);
    EXPECT_EQ(told, 1);
    SetCommandChecked(*command, false);
    EXPECT_EQ(command->GetChecked(), 0);
    EXPECT_EQ(told, 2);
}

} // namespace
} // namespace paperkite
