#include "itemtree/ProjectViewFixture.h"

namespace paperkite::test {
namespace {

class ProjectViewCommandsTest : public ProjectViewFixture {
protected:
    void Click(const std::string& name) { mView.Dock->UserClick(name); }
    bool Checked(const std::string& name) {
        return mView.Dock->Commands.CheckItem(name)->GetChecked() == 1;
    }
    void LogEvents() {
        const auto log = [this](const char* name) { return [=, this] { mEvents.Add(name); }; };
        auto& events = mView.Events;
        mEvents.Keep(events.AfterCommand.Connect(log("after")));
        mEvents.Keep(events.CopyCommentsRequested.Connect(log("copy")));
        mEvents.Keep(events.PasteCommentsRequested.Connect(log("paste")));
        mEvents.Keep(events.PropertiesRequested.Connect(log("properties")));
        mEvents.Keep(events.NodesCleared.Connect(log("cleared")));
    }
    EventLog mEvents;
};

TEST_F(ProjectViewCommandsTest, TheToolbarHoldsTheCommandsWithTheirTexts) {
    EXPECT_EQ(mView.Dock->GetName(), "Dock");
    ASSERT_EQ(mView.Dock->GetToolbarCount(), 1u);
    std::string text;
    for (const auto& control : *mView.Dock->GetToolbar("Main")) {
        const auto& command = *control.Command;
        text += command.GetName() + "|" + command.GetToolTipText() + "|" + command.GetStatusText() +
                (control.Command->GetName() == "ShowProtected" ? "" : "|" + command.GetCaption()) +
                (dynamic_cast<const DockCheckCommand*>(&command) ? "|check\n" : "\n");
    }
    EXPECT_EQ(
        text,
        "Previous|Move to the previous undocumented item (Ctrl-Shift-P)|Move to the previous "
        "undocumented item|Previous\n"
        "Next|Move to the next undocumented item (Ctrl-Shift-N)|Move to the next undocumented "
        "item|Next\n"
        "Properties|Show the properties of this comment file||Properties\n"
        "Copy|Copy the comments from the selected item to the clipboard||Copy\n"
        "Paste|Paste any comments on the clipboard to the selected item||Paste\n"
        "ShowFriend|Click this button to show/hide friend members||Show Friend|check\n"
        "ShowPrivate|Click this button to show/hide private members||Show Private|check\n"
        "ShowInherited|Click this button to show/hide inherited members||Show Inherited|check\n"
        "AutoExpand|Automtically expand nodes when clicked to show children||Auto Expand|check\n"
        "ShowProtected|Click this button to show/hide protected members||check\n"
        "Grouped|Click this button to logically group members||Grouped|check\n");
}

TEST_F(ProjectViewCommandsTest, AppNameBringsTheCheckCommandsInStep) {
    mView.SetShowPrivate(true);
    mView.SetShowFriend(true);
    mView.SetShowProtected(false);
    mView.SetShowInherited(true);
    mView.SetAutoExpandChildren(true);
    mView.SetGrouped(true);
    mView.SetAppName("Kite");
    EXPECT_EQ(mAppName, "Kite");
    EXPECT_EQ(mView.GetAppName(), "Kite");
    for (const char* name : {"ShowPrivate", "ShowFriend", "ShowInherited", "AutoExpand", "Grouped"})
        EXPECT_TRUE(Checked(name)) << name;
    EXPECT_FALSE(Checked("ShowProtected"));
}

TEST_F(ProjectViewCommandsTest, RequestsAreRaisedAndThenAfterCommand) {
    Load();
    LogEvents();
    for (const char* name : {"Properties", "Copy", "Paste"}) {
        Command(name)->SetEnabled(true);
        Click(name);
    }
    EXPECT_EQ(mEvents.Take(), "properties after copy after paste after");
}

TEST_F(ProjectViewCommandsTest, TheMoveCommandsLookForUndocumentedItems) {
    Load();
    Open("P");
    Node("P~B")->SetBold(true);
    mView.SelectItem("P~A");
    LogEvents();
    Click("Next");
    EXPECT_EQ(Selected(), "P~C");
    Click("Previous");
    EXPECT_EQ(Selected(), "P~A");
    EXPECT_EQ(mEvents.Take(), "after after");
}

TEST_F(ProjectViewCommandsTest, ScopeCommandsTurnTheOptionAndRebuildTheTree) {
    Load();
    mView.SetAppName("Kite");
    LogEvents();
    Click("ShowPrivate");
    EXPECT_TRUE(mView.GetShowPrivate() && Checked("ShowPrivate"));
    Click("ShowFriend");
    EXPECT_TRUE(mView.GetShowFriend() && Checked("ShowFriend"));
    Click("ShowInherited");
    EXPECT_TRUE(mView.GetShowInherited() && Checked("ShowInherited"));
    Click("ShowProtected");
    EXPECT_FALSE(mView.GetShowProtected() || Checked("ShowProtected"));
    // One root: the tree is cleared before the roots are loaded, and again by the load.
    std::string wanted;
    for (int command = 0; command < 4; ++command)
        wanted += std::string(command ? " " : "") + "cleared cleared after";
    EXPECT_EQ(mEvents.Take(), wanted);
}

TEST_F(ProjectViewCommandsTest, GroupedKeepsTheSelectionThroughTheTreePath) {
    mModel.Def("Test:Method")->GroupInEditing = true;
    Load();
    mView.SetAppName("Kite");
    mView.SelectItem("P~A~Stop");
    Click("Grouped");
    EXPECT_TRUE(mView.GetGrouped());
    EXPECT_TRUE(Has("P~A_Test:Method"));
    EXPECT_EQ(Selected(), "P~A~Stop");
}

TEST_F(ProjectViewCommandsTest, UngroupingKeepsTheSelectionOfAnItemInAGroup) {
    mModel.Def("Test:Method")->GroupInEditing = true;
    mView.SetGrouped(true);
    Load();
    mView.SetAppName("Kite");
    Open("P");
    Open("P~A");
    mView.SelectItem("P~A~Stop");
    Click("Grouped");
    EXPECT_FALSE(Has("P~A_Test:Method"));
    EXPECT_EQ(Selected(), "P~A~Stop");
}

TEST_F(ProjectViewCommandsTest, AutoExpandDoesNotRebuildTheTree) {
    Load();
    LogEvents();
    Click("AutoExpand");
    EXPECT_TRUE(mView.GetAutoExpandChildren());
    EXPECT_TRUE(Checked("AutoExpand"));
    EXPECT_EQ(mEvents.Take(), "after");
}

TEST_F(ProjectViewCommandsTest, HidingTheEditButtonsLeavesTheCheckCommands) {
    mView.HideEditButtons();
    std::string shown;
    for (const auto& command : mView.Dock->Commands)
        if (command->GetVisible()) shown += command->GetName() + " ";
    EXPECT_EQ(shown, "ShowFriend ShowPrivate ShowInherited AutoExpand ShowProtected Grouped ");
}

TEST_F(ProjectViewCommandsTest, CopyAndPasteAreSwitchedByTheirCommands) {
    for (const bool value : {false, true}) {
        mView.SetCopyCommentsEnabled(value);
        mView.SetPasteCommentsEnabled(!value);
        EXPECT_EQ(Command("Copy")->GetEnabled(), value);
        EXPECT_EQ(Command("Paste")->GetEnabled(), !value);
        EXPECT_EQ(mView.GetCopyCommentsEnabled(), value);
        EXPECT_EQ(mView.GetPasteCommentsEnabled(), !value);
    }
}

TEST_F(ProjectViewCommandsTest, ACommandThatTheHostTookAwayIsReportedAndDoesNotEscape) {
    mView.Dock->Commands.Remove("Paste");
    EXPECT_NO_THROW(mView.SetPasteCommentsEnabled(true));
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.PasteCommentsEnabled (5)\n");
    EXPECT_FALSE(mView.GetPasteCommentsEnabled());
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.PasteCommentsEnabled (5)\n");
    EXPECT_NO_THROW(mView.HideEditButtons());
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.HideEditButtons (5)\n");
}

TEST_F(ProjectViewCommandsTest, AnEmptyBagGivesTheDefaults) {
    mView.SetSupportsSelection(true);
    mView.SetHighlightCommentedItems(false);
    mView.SetAppearance(0);
    mView.SetBorderStyle(0);
    mView.SetEnabled(false);
    mView.SetHideSelection(false);
    mView.SetIndentation(3);
    mView.SetLineStyle(0);
    mView.SetStyle(2);
    mView.tvwProject->SetScroll(false);
    mView.UserControl_ReadProperties({});
    EXPECT_EQ(mView.GetAppearance(), 1);
    EXPECT_EQ(mView.GetBorderStyle(), 1);
    EXPECT_TRUE(mView.GetEnabled());
    EXPECT_TRUE(mView.GetHideSelection());
    EXPECT_EQ(mView.GetIndentation(), 20);
    EXPECT_EQ(mView.GetLineStyle(), 1);
    EXPECT_TRUE(mView.tvwProject->GetScroll());
    EXPECT_EQ(mView.GetStyle(), 7);
    EXPECT_FALSE(mView.GetSupportsSelection());
    EXPECT_TRUE(mView.GetHighlightCommentedItems());
    EXPECT_TRUE(mView.Dock->GetToolbar(1)->GetVisible());
}

TEST_F(ProjectViewCommandsTest, PropertiesGoThroughTheBagAndBack) {
    mView.SetAppearance(0);
    mView.SetBorderStyle(0);
    mView.SetEnabled(false);
    mView.SetHideSelection(false);
    mView.SetIndentation(3);
    mView.SetLineStyle(0);
    mView.SetStyle(2);
    mView.tvwProject->SetScroll(false);
    mView.SetSupportsSelection(true);
    mView.SetHighlightCommentedItems(false);
    PropertyBag bag;
    mView.UserControl_WriteProperties(bag);
    ProjectView other;
    other.UserControl_ReadProperties(bag);
    EXPECT_EQ(other.GetAppearance(), 0);
    EXPECT_EQ(other.GetBorderStyle(), 0);
    EXPECT_FALSE(other.GetEnabled());
    EXPECT_FALSE(other.GetHideSelection());
    EXPECT_EQ(other.GetIndentation(), 3);
    EXPECT_EQ(other.GetLineStyle(), 0);
    EXPECT_EQ(other.GetStyle(), 2);
    EXPECT_FALSE(other.tvwProject->GetScroll());
    EXPECT_TRUE(other.GetSupportsSelection());
    EXPECT_FALSE(other.GetHighlightCommentedItems());
    EXPECT_FALSE(other.Dock->GetToolbar(1)->GetVisible());
}

TEST_F(ProjectViewCommandsTest, ATreeThatBeginsWithCheckBoxesHasNoToolbar) {
    mView.UserControl_InitProperties();
    EXPECT_TRUE(mView.Dock->GetToolbar(1)->GetVisible());
    mView.tvwProject->SetSupportsSelection(true);
    mView.UserControl_InitProperties();
    EXPECT_FALSE(mView.Dock->GetToolbar(1)->GetVisible());
}

TEST_F(ProjectViewCommandsTest, FontAndPointerPictureGoThroughTheBag) {
    const FontDescription font{"Noto Sans", 11.5, true, false};
    mView.SetFont(font);
    mView.tvwProject->SetMouseIcon({{}, "/icons/pointer.ico", {}});
    PropertyBag bag;
    mView.UserControl_WriteProperties(bag);
    ProjectView other;
    other.UserControl_ReadProperties(bag);
    EXPECT_EQ(other.GetFont(), font);
    EXPECT_EQ(other.tvwProject->GetMouseIcon().Path, "/icons/pointer.ico");
    other.UserControl_ReadProperties({});
    EXPECT_EQ(other.GetFont(), FontDescription());
    EXPECT_TRUE(other.tvwProject->GetMouseIcon().IsEmpty());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewCommandsTest, AnUnreadableStoredPropertyIsReportedOnce) {
    PropertyBag bag;
    bag.WriteProperty("Indentation", Value(Value::Null()));
    mView.UserControl_ReadProperties(bag);
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.UserControl_ReadProperties (13)\n");
}

TEST_F(ProjectViewCommandsTest, TheToolbarStyleGoesThroughTheHelper) {
    struct Helper : ModelControlHelper {
        void ApplyToolbarStyle(DockHost& dock, int style) override {
            Asked += dock.GetName() + std::to_string(style) + " ";
            ModelControlHelper::ApplyToolbarStyle(dock, style);
        }
        std::string Asked;
    };
    const auto helper = std::make_shared<Helper>();
    CurrentServices().ControlHelper = helper;
    mView.SetToolbarStyle(2);
    EXPECT_EQ(mView.Dock->GetToolbarStyle(), ToolbarStyle::TextUnderIcons);
    mView.SetToolbarStyle(99);
    EXPECT_EQ(mView.Dock->GetToolbarStyle(), ToolbarStyle::TextUnderIcons);
    EXPECT_EQ(helper->Asked, "Dock2 Dock99 ");
    CurrentServices().ControlHelper = nullptr;
    mView.SetToolbarStyle(1);
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.ToolbarStyle (429)\n");
}

TEST_F(ProjectViewCommandsTest, LabelEditsArePassedOnAndAnswered) {
    Load();
    bool refuse = false;
    std::string heard;
    EventLog log;
    log.Keep(mView.Events.BeforeLabelEdit.Connect([&](bool& cancel) { cancel = refuse; }));
    log.Keep(mView.Events.AfterLabelEdit.Connect([&](bool& cancel, std::string& text) {
        heard += text + " ";
        cancel = text == "bad";
        text += "!";
    }));
    ASSERT_TRUE(mView.tvwProject->UserBeginLabelEdit(Node("P")));
    mView.tvwProject->UserEndLabelEdit("new");
    EXPECT_EQ(Node("P")->GetText(), "new!");
    ASSERT_TRUE(mView.tvwProject->UserBeginLabelEdit(Node("P")));
    mView.tvwProject->UserEndLabelEdit("bad");
    EXPECT_EQ(Node("P")->GetText(), "new!");
    refuse = true;
    EXPECT_FALSE(mView.tvwProject->UserBeginLabelEdit(Node("P")));
    EXPECT_EQ(heard, "new bad ");
}

TEST_F(ProjectViewCommandsTest, AFailingHandlerOfAPropertyChangeIsReportedOnce) {
    const auto tie = mView.Events.PropertyChanged.Connect(
        [](const std::string&) { RaiseError(ErrorNumber::InvalidCall); });
    EXPECT_NO_THROW(mView.SetIndentation(7));
    EXPECT_EQ(mView.GetIndentation(), 7);
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.PropertyChanged (5)\n");
}

TEST_F(ProjectViewCommandsTest, SettersNoteTheChangeForTheHost) {
    std::string changed;
    const auto tie = mView.Events.PropertyChanged.Connect(
        [&](const std::string& name) { changed += name + " "; });
    mView.SetHighlightCommentedItems(false);
    mView.SetIndentation(5);
    mView.SetStyle(1);
    EXPECT_EQ(changed, "HighlightCommentedItems Indentation Style ");
}

TEST_F(ProjectViewCommandsTest, TheTreeTakesTheClientRectangleOfTheDock) {
    mView.Dock->Move(0, 0, 300, 400);
    mView.Dock->UserClientResize({0, 30, 300, 370});
    EXPECT_EQ(mView.tvwProject->GetBounds(), (Bounds{0, 30, 300, 370}));
}

TEST_F(ProjectViewCommandsTest, WidgetEventsArePassedOn) {
    Load();
    EventLog log;
    auto& events = mView.Events;
    const auto node = [&log](const char* name) {
        return [&log, name](const Ref<TreeNode>& n) { log.Add(name + n->GetKey()); };
    };
    log.Keep(events.Expand.Connect(node("expand:")));
    log.Keep(events.Collapse.Connect(node("collapse:")));
    log.Keep(events.NodeDblClick.Connect(node("dbl:")));
    log.Keep(events.Click.Connect([&] { log.Add("click"); }));
    log.Keep(events.DblClick.Connect([&] { log.Add("dblclick"); }));
    log.Keep(events.KeyDown.Connect([&](int& key, int) { key = 0; }));
    log.Keep(events.MouseDown.Connect([&](int, int, int, int) { log.Add("never"); }));
    Open("P");
    Node("P")->SetExpanded(false);
    mView.tvwProject->UserClick(Node("P~A"));
    mView.tvwProject->UserDblClick(Node("P~A"));
    mView.tvwProject->UserMouseDown(1, 0, 1, 1);
    EXPECT_EQ(log.Take(), "expand:P collapse:P click dblclick dbl:P~A");
    EXPECT_EQ(mView.tvwProject->UserKeyDown(65, 0), 0);
}

TEST_F(ProjectViewCommandsTest, AnIconComesFromTheImageListOfTheTree) {
    const auto images = MakeRef<ImageList>();
    images->Add("Class", Picture{"code-class", "", "class"});
    mView.SetImageList(images);
    EXPECT_EQ(mView.Icon("Class").Name, "code-class");
    EXPECT_TRUE(mView.Icon("None").IsEmpty());
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.Icon (5)\n");
}

} // namespace
} // namespace paperkite::test
