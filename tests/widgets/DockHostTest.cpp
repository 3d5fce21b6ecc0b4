#include "widgets/DockHost.h"
#include "widgets/EventLog.h"
#include "widgets/ListHelpers.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

class DockHostTest : public testing::Test {
protected:
    DockHostTest() {
        mLog.Keep(mDock->Events.CommandClick.Connect(
            [this](const auto& command) { mLog.Add("click:" + command->GetName()); }));
        mLog.Keep(mDock->Events.CommandCheck.Connect(
            [this](const auto& command) { mLog.Add("check:" + command->GetName()); }));
    }

    Ref<DockHost> mDock = MakeRef<DockHost>("Dock");
    EventLog mLog;
};

TEST_F(DockHostTest, CommandsAreFoundByNameWhateverItsCaseAndByPosition) {
    auto next = mDock->Commands.Add("Next", "Next item");
    EXPECT_EQ(mDock->Commands.Item("NEXT"), next);
    EXPECT_EQ(mDock->Commands.Item(1), next);
    EXPECT_EQ(ErrorNumberOf([&] { mDock->Commands.Add("next"); }), 457);
    EXPECT_EQ(ErrorNumberOf([&] { mDock->Commands.Item("other"); }), 5);
    EXPECT_EQ(ErrorNumberOf([&] { mDock->Commands.CheckItem("Next"); }), 13);
}

TEST_F(DockHostTest, OnlyCommandsThatAreEnabledAndVisibleAreClicked) {
    auto next = mDock->Commands.Add("Next");
    mDock->UserClick("Next");
    EXPECT_EQ(mLog.Take(), "click:Next");
    next->SetEnabled(false);
    mDock->UserClick(next);
    next->SetEnabled(true);
    next->SetVisible(false);
    mDock->UserClick(next);
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(DockHostTest, ACheckCommandIsTurnedByItsHandlerNotByTheClick) {
    auto grouped = mDock->Commands.AddCheck("Grouped");
    mDock->UserClick(grouped);
    EXPECT_EQ(grouped->GetChecked(), 0);
    EXPECT_EQ(mLog.Take(), "click:Grouped");
    grouped->SetChecked(1);
    grouped->SetChecked(1);
    EXPECT_EQ(mLog.Take(), "check:Grouped");
    EXPECT_EQ(ErrorNumberOf([&] { grouped->SetChecked(2); }), 5);
}

TEST_F(DockHostTest, CommandCheckedIsWrittenOnlyWhereItDiffers) {
    auto grouped = mDock->Commands.AddCheck("Grouped");
    EXPECT_FALSE(GetCommandChecked(*grouped));
    SetCommandChecked(*grouped, false);
    EXPECT_EQ(mLog.Take(), "");
    SetCommandChecked(*grouped, true);
    EXPECT_EQ(grouped->GetChecked(), 1);
    EXPECT_TRUE(GetCommandChecked(*grouped));
    SetCommandChecked(*grouped, true);
    EXPECT_EQ(mLog.Take(), "check:Grouped");
    SetCommandChecked(*grouped, false);
    EXPECT_EQ(grouped->GetChecked(), 0);
}

TEST_F(DockHostTest, ARemovedCommandTakesItsButtonsWithIt) {
    auto bar = mDock->AddToolbar("Main");
    auto next = mDock->Commands.Add("Next");
    bar->Add(next);
    bar->Add(mDock->Commands.Add("Copy"), true);
    mDock->Commands.Remove("Next");
    EXPECT_EQ(bar->Count(), 1u);
    EXPECT_EQ(bar->Item(1).Command->GetName(), "Copy");
    EXPECT_TRUE(bar->Item(1).BeginGroup);
    mDock->UserClick(next);
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(DockHostTest, CommandsOfAPopUpAreClickedLikeOthers) {
    auto popup = mDock->Commands.AddPopup("p-fullpageedit");
    popup->GetPopupCommands().Add("inplaceedit:Page", "Full Page Edit");
    EXPECT_TRUE(popup->GetIsPopup());
    mDock->UserClick("inplaceedit:page");
    EXPECT_EQ(mLog.Take(), "click:inplaceedit:Page");
}

TEST_F(DockHostTest, AWindowSaysThatItShowsBeforeTheClick) {
    mDock->Commands.Add("TipPopup");
    mDock->PopupWindow("TipPopup").Width = 200;
    mLog.Keep(mDock->Events.PopupWindowShowing.Connect(
        [this](const std::string& name) { mLog.Add("showing:" + name); }));
    mDock->UserClick("TipPopup");
    EXPECT_EQ(mLog.Take(), "showing:TipPopup click:TipPopup");
    EXPECT_EQ(mDock->PopupWindow("tippopup").Width, 200);
}

class DockLog : public DockHostObserver {
public:
    void ToolbarsChanged() override { Log.Add("toolbars"); }

    void CommandChanged(DockCommand& command) override { Log.Add(command.GetName()); }

    EventLog Log;
};

TEST_F(DockHostTest, SuspendedPaintingIsMadeUpForOnce) {
    auto next = mDock->Commands.Add("Next");
    DockLog view;
    auto tie = mDock->Observe(view);
    next->SetEnabled(false);
    EXPECT_EQ(view.Log.Take(), "Next");
    mDock->SuspendPainting();
    mDock->SuspendPainting();
    next->SetEnabled(true);
    mDock->AddToolbar("Main")->Add(next);
    mDock->ResumePainting();
    EXPECT_EQ(view.Log.Take(), "");
    mDock->ResumePainting();
    EXPECT_EQ(view.Log.Take(), "toolbars");
}

TEST_F(DockHostTest, TheClientAreaIsTheWholeControlUntilAViewSaysOtherwise) {
    mLog.Keep(mDock->Events.ClientResize.Connect([this] { mLog.Add("resize"); }));
    mDock->Move(5, 5, 200, 100);
    EXPECT_EQ(mDock->GetClientRectangle(), (Bounds{0, 0, 200, 100}));
    mDock->UserClientResize({0, 32, 200, 68});
    EXPECT_EQ(mDock->GetClientRectangle(), (Bounds{0, 32, 200, 68}));
    mDock->UserClientResize({0, 32, 200, 68});
    EXPECT_EQ(mLog.Take(), "resize resize");
}

TEST_F(DockHostTest, CommandsOutliveTheirHost) {
    auto popup = mDock->Commands.AddPopup("p");
    auto inner = popup->GetPopupCommands().AddCheck("inner");
    auto bar = mDock->AddToolbar("Main");
    mDock = nullptr;
    inner->SetChecked(1);
    popup->SetVisible(false);
    bar->SetVisible(false);
    EXPECT_EQ(inner->GetChecked(), 1);
}

} // namespace
} // namespace paperkite
