#include "widgets/ExplorerBar.h"
#include "widgets/CheckBox.h"
#include "widgets/EventLog.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

class ExplorerBarTest : public testing::Test {
protected:
    ExplorerBarTest() {
        mLog.Keep(mBar->Events.SelChange.Connect(
            [this](const auto& group, const auto& item, const auto&) {
                mLog.Add(group ? group->GetKey() + "/" + item->GetKey() : std::string("-"));
            }));
    }

    Ref<ExplorerBar> mBar = MakeRef<ExplorerBar>("eb");
    Ref<ExplorerBarGroup> mMain = mBar->AddGroup("main", "{Item Name}");
    Ref<ExplorerBarGroup> mOther = mBar->AddGroup("other", "Other");
    EventLog mLog;
};

TEST_F(ExplorerBarTest, AGroupCanBeAddedBeforeAnother) {
    mBar->AddGroup("flags", "Flags", "other");
    EXPECT_EQ(mBar->GetGroup(2)->GetKey(), "flags");
    EXPECT_EQ(mBar->GetGroup("other"), mBar->GetGroup(3));
    EXPECT_EQ(ErrorNumberOf([&] { mBar->AddGroup("x", "", "unknown"); }), 5);
    EXPECT_EQ(ErrorNumberOf([&] { mBar->AddGroup("main", ""); }), 457);
}

TEST_F(ExplorerBarTest, OneItemOfTheWholeBarIsSelected) {
    auto page = mMain->Add("page", "Full Page Edit");
    auto other = mOther->Add("other", "Other Information");
    page->SetSelected(true);
    other->SetSelected(true);
    other->SetSelected(true);
    EXPECT_FALSE(page->GetSelected());
    EXPECT_EQ(mBar->GetSelectedItem(), other);
    other->SetSelected(false);
    EXPECT_FALSE(mBar->GetSelectedItem());
    EXPECT_EQ(mLog.Take(), "main/page other/other -");
}

TEST_F(ExplorerBarTest, RemovingTheSelectedItemOrItsGroupTakesTheSelectionAway) {
    mMain->Add("a", "")->SetSelected(true);
    mMain->Remove("a");
    EXPECT_FALSE(mBar->GetSelectedItem());
    auto b = mMain->Add("b", "");
    b->SetSelected(true);
    mBar->RemoveGroup("main");
    EXPECT_FALSE(mBar->GetSelectedItem());
    EXPECT_EQ(mLog.Take(), "main/a - main/b -");
    b->SetSelected(true);
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(ExplorerBarTest, TheAuthorChoosesOnlyWhatCanBeChosen) {
    auto item = mMain->Add("a", "");
    item->SetEnabled(false);
    mBar->UserClick(item);
    item->SetEnabled(true);
    item->SetVisible(false);
    mBar->UserClick(item);
    item->SetVisible(true);
    item->SetControl(MakeRef<CheckBox>("chk"));
    mBar->UserClick(item);
    EXPECT_EQ(mLog.Take(), "");
    item->SetControl(nullptr);
    mBar->UserClick(item);
    EXPECT_EQ(mLog.Take(), "main/a");
}

class BarLog : public ExplorerBarObserver {
public:
    void GroupsChanged() override { Log.Add("groups"); }

    void SelectionChanged() override { Log.Add("selection"); }

    EventLog Log;
};

TEST_F(ExplorerBarTest, SuspendedPaintingIsMadeUpForOnce) {
    BarLog view;
    auto tie = mBar->Observe(view);
    auto item = mMain->Add("a", "");
    item->SetSelected(true);
    EXPECT_EQ(view.Log.Take(), "groups selection");
    mBar->SuspendPainting();
    item->SetBold(true);
    item->SetSelected(false);
    EXPECT_EQ(view.Log.Take(), "");
    mBar->ResumePainting();
    EXPECT_EQ(view.Log.Take(), "groups");
}

} // namespace
} // namespace paperkite
