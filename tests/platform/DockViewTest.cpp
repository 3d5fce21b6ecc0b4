#include "platform/qt/DockView.h"

#include "platform/SampleControls.h"
#include "platform/ViewTest.h"

#include <QAction>
#include <QToolBar>
#include <QToolButton>

namespace paperkite {
namespace {

class DockViewTest : public ViewTest {
protected:
    void Open() { mView = Show<DockView>(mDock); }

    QToolButton* Button(const std::string& command) {
        for (auto* bar : mView->findChildren<QToolBar*>())
            if (auto* widget = bar->widgetForAction(mView->ActionOf(command)))
                return qobject_cast<QToolButton*>(widget);
        return nullptr;
    }

    void Click(const std::string& command) {
        QTest::mouseClick(Button(command), Qt::LeftButton);
        QTest::qWait(0);
    }

    Ref<TreeControl> mTree = SampleTree();
    Ref<DockHost> mDock = SampleDock(mTree);
    DockView* mView = nullptr;
};

TEST_F(DockViewTest, AButtonRaisesTheCommandAndShowsItsState) {
    Open();
    std::string clicks;
    auto tie = mDock->Events.CommandClick.Connect(
        [&](const auto& command) { clicks += command->GetName() + " "; });
    Click("Next");
    Click("ShowInherited");
    EXPECT_EQ(clicks, "Next ShowInherited ");
    EXPECT_FALSE(mView->ActionOf("ShowInherited")->isChecked())
        << "nobody wrote the state, so that it stays off";
    mDock->Commands.CheckItem("ShowInherited")->SetChecked(1);
    EXPECT_TRUE(mView->ActionOf("ShowInherited")->isChecked());
}

TEST_F(DockViewTest, DisabledAndHiddenCommandsFollowTheModel) {
    Open();
    EXPECT_FALSE(Button("Paste")->isEnabled());
    mDock->Commands.Item("Paste")->SetEnabled(true);
    EXPECT_TRUE(Button("Paste")->isEnabled());
    mDock->Commands.Item("Copy")->SetVisible(false);
    QTest::qWait(10);
    EXPECT_FALSE(Button("Copy")->isVisible());
}

TEST_F(DockViewTest, ButtonsHaveIconsNamesTipsAndKeys) {
    mFactory.SetShortcut("Next", QKeySequence("Ctrl+Shift+N"));
    mDock->Commands.Item("Next")->SetToolTipText("Move on (Ctrl-Shift-N)");
    Open();
    EXPECT_FALSE(Button("Next")->icon().isNull());
    EXPECT_EQ(Button("Next")->text(), "Next");
    EXPECT_EQ(Button("Next")->toolTip(), "Move on (Ctrl-Shift-N)");
    int clicks = 0;
    auto tie = mDock->Events.CommandClick.Connect([&](const auto&) { ++clicks; });
    QTest::keyClick(mView, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(clicks, 1);
}

TEST_F(DockViewTest, AHandlerMayRemoveTheCommandThatWasClicked) {
    Open();
    auto tie = mDock->Events.CommandClick.Connect(
        [&](const auto& command) { mDock->Commands.Remove(command->GetName()); });
    Click("Next");
    QTest::qWait(0);
    EXPECT_FALSE(mView->ActionOf("Next"));
    EXPECT_TRUE(mView->ActionOf("Copy"));
}

TEST_F(DockViewTest, TheClientFillsWhatTheToolbarsLeave) {
    int resizes = 0;
    auto tie = mDock->Events.ClientResize.Connect([&] { ++resizes; });
    Open();
    EXPECT_GT(resizes, 0);
    const Bounds client = mDock->GetClientRectangle();
    EXPECT_GE(client.Top, 24);
    EXPECT_EQ(client.Top + client.Height, mView->height());
    EXPECT_EQ(mTree->GetWidth(), mView->width());
    mDock->GetToolbar(1)->SetVisible(false);
    QTest::qWait(10);
    EXPECT_EQ(mDock->GetClientRectangle().Top, 0);
}

} // namespace
} // namespace paperkite
