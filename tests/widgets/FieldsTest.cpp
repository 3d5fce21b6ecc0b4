#include "widgets/Button.h"
#include "widgets/CheckBox.h"
#include "widgets/ComboBox.h"
#include "widgets/EventLog.h"
#include "widgets/FramePanel.h"
#include "widgets/OptionButton.h"
#include "widgets/SplitPanel.h"
#include "widgets/StackPanel.h"
#include "widgets/TextBox.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

TEST(TextBoxTest, ANewTextRaisesChangeWhoeverWroteIt) {
    TextBox box("txt");
    int changes = 0;
    auto tie = box.Events.Change.Connect([&] { ++changes; });
    box.SetText("a");
    box.SetText("a");
    box.UserType("b");
    EXPECT_EQ(changes, 2);
    box.SetLocked(true);
    box.UserType("c");
    EXPECT_EQ(box.GetText(), "b");
}

TEST(TextBoxTest, TheSelectionStaysInsideTheText) {
    TextBox box;
    box.SetText("hello");
    box.SetSelStart(1);
    box.SetSelLength(99);
    EXPECT_EQ(box.GetSelText(), "ello");
    box.SetSelText("i");
    EXPECT_EQ(box.GetText(), "hi");
    EXPECT_EQ(box.GetSelStart(), 2u);
    EXPECT_EQ(box.GetSelLength(), 0u);
}

TEST(CheckBoxTest, ANewValueRaisesClickWhoeverWroteIt) {
    CheckBox box;
    int clicks = 0;
    auto tie = box.Events.Click.Connect([&] { ++clicks; });
    box.SetValue(1);
    box.SetValue(1);
    box.UserClick();
    EXPECT_EQ(clicks, 2);
    EXPECT_FALSE(box.GetChecked());
    EXPECT_EQ(ErrorNumberOf([&] { box.SetValue(3); }), 5);
    box.SetEnabled(false);
    box.UserClick();
    EXPECT_EQ(clicks, 2);
}

TEST(OptionButtonTest, ChoosingOneTakesTheChoiceFromItsGroup) {
    Container page;
    auto a = page.Controls.Make<OptionButton>("a");
    auto b = page.Controls.Make<OptionButton>("b");
    auto elsewhere = page.Controls.Make<OptionButton>("c");
    elsewhere->SetGroup("second");
    elsewhere->SetValue(true);
    std::string clicks;
    auto tieA = a->Events.Click.Connect([&] { clicks += "a"; });
    auto tieB = b->Events.Click.Connect([&] { clicks += "b"; });
    a->SetValue(true);
    b->UserClick();
    EXPECT_FALSE(a->GetValue());
    EXPECT_TRUE(b->GetValue());
    EXPECT_TRUE(elsewhere->GetValue());
    EXPECT_EQ(clicks, "ab");
}

TEST(ComboBoxTest, AnEntryIsChosenByIndexOrByItsText) {
    ComboBox box;
    box.AddItem("one");
    box.AddItem("two");
    int clicks = 0;
    auto tie = box.Events.Click.Connect([&] { ++clicks; });
    box.SetListIndex(1);
    EXPECT_EQ(box.GetText(), "two");
    box.SetText("one");
    EXPECT_EQ(box.GetListIndex(), 0);
    box.SetListIndex(0);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(ErrorNumberOf([&] { box.SetText("three"); }), 5);
    EXPECT_EQ(ErrorNumberOf([&] { box.SetListIndex(2); }), 9);
    box.SetEditable(true);
    box.UserType("three");
    EXPECT_EQ(box.GetListIndex(), -1);
    EXPECT_EQ(box.GetText(), "three");
}

TEST(ContainerTest, AControlStandsInOneContainerAtATime) {
    Container first;
    Container second;
    auto box = first.Controls.Make<TextBox>("txt");
    second.Controls.Add(box);
    EXPECT_EQ(first.Controls.Count(), 0u);
    EXPECT_EQ(box->GetParent(), &second);
    EXPECT_EQ(ErrorNumberOf([&] { second.Controls.Make<TextBox>("txt"); }), 457);
    EXPECT_EQ(ErrorNumberOf([&] { second.Controls.Item<CheckBox>("txt"); }), 13);
    second.Controls.Remove("txt");
    EXPECT_EQ(box->GetParent(), nullptr);
}

TEST(ContainerTest, ResizeIsRaisedForANewSizeOnly) {
    FramePanel frame("fra");
    int resizes = 0;
    auto tie = frame.ControlEvents.Resize.Connect([&](int, int) { ++resizes; });
    frame.Move(0, 0, 10, 10);
    frame.Move(5, 5, 10, 10);
    frame.SetHeight(-4);
    EXPECT_EQ(frame.GetHeight(), 0);
    EXPECT_EQ(resizes, 2);
}

TEST(ControlTest, TheFocusIsInOnePlace) {
    Button a;
    Button b;
    std::string log;
    auto lost = a.ControlEvents.LostFocus.Connect([&] { log += "lost "; });
    auto got = b.ControlEvents.GotFocus.Connect([&] { log += "got"; });
    a.SetFocus();
    EXPECT_TRUE(a.HasFocus());
    b.SetFocus();
    EXPECT_FALSE(a.HasFocus());
    EXPECT_EQ(log, "lost got");
    a.SetEnabled(false);
    a.SetFocus();
    EXPECT_TRUE(b.HasFocus());
}

TEST(StackPanelTest, SurfacesShareOneRectangleAndTheFrontOneIsSeen) {
    StackPanel panel;
    auto list = panel.Controls.Make<FramePanel>("list");
    auto page = panel.Controls.Make<FramePanel>("page");
    panel.Move(0, 0, 300, 200);
    EXPECT_EQ(list->GetBounds(), (Bounds{0, 0, 300, 200}));
    list->BringToFront();
    EXPECT_EQ(panel.GetFrontControl(), list);
    list->SetVisible(false);
    EXPECT_EQ(panel.GetFrontControl(), page);
}

TEST(SplitPanelTest, TheShareDividesTheRoomAndOnlyADragIsRaised) {
    SplitPanel split;
    auto first = MakeRef<FramePanel>();
    auto second = MakeRef<FramePanel>();
    split.SetFirstPane(first);
    split.SetSecondPane(second);
    int drags = 0;
    auto tie = split.Events.AfterDrag.Connect([&] { ++drags; });
    split.Move(0, 0, 200, 100);
    split.SetPercentage(40);
    EXPECT_EQ(first->GetBounds(), (Bounds{0, 0, 80, 100}));
    EXPECT_EQ(second->GetBounds(), (Bounds{80, 0, 120, 100}));
    EXPECT_EQ(drags, 0);
    split.UserDrag(250);
    EXPECT_EQ(split.GetPercentage(), 100);
    EXPECT_EQ(drags, 1);
    split.SetSecondPane(nullptr);
    EXPECT_EQ(first->GetWidth(), 200);
}

} // namespace
} // namespace paperkite
