#include "itemtree/ProjectView.h"

#include "foundation/Services.h"
#include "foundation/Settings.h"
#include "foundation/Text.h"
#include "widgets/ListHelpers.h"

namespace paperkite {

namespace {

struct CommandText {
    const char* Name;
    const char* Caption;
    const char* ToolTip;
    const char* Status;
    bool IsCheck;
    bool BeginsGroup;
};

constexpr CommandText kCommands[] = {
    {"Previous", "Previous", "Move to the previous undocumented item (Ctrl-Shift-P)",
     "Move to the previous undocumented item", false, false},
    {"Next", "Next", "Move to the next undocumented item (Ctrl-Shift-N)",
     "Move to the next undocumented item", false, false},
    {"Properties", "Properties", "Show the properties of this comment file", "", false, true},
    {"Copy", "Copy", "Copy the comments from the selected item to the clipboard", "", false, true},
    {"Paste", "Paste", "Paste any comments on the clipboard to the selected item", "", false,
     false},
    {"ShowFriend", "Show Friend", "Click this button to show/hide friend members", "", true, true},
    {"ShowPrivate", "Show Private", "Click this button to show/hide private members", "", true,
     false},
    {"ShowInherited", "Show Inherited", "Click this button to show/hide inherited members", "",
     true, false},
    {"AutoExpand", "Auto Expand", "Automtically expand nodes when clicked to show children", "",
     true, false},
    {"ShowProtected", "Show Protected", "Click this button to show/hide protected members", "",
     true, false},
    {"Grouped", "Grouped", "Click this button to logically group members", "", true, false},
};

/// The check commands and the properties that they stand for.
struct Option {
    const char* Command;
    bool (ProjectView::*Get)() const;
    void (ProjectView::*Set)(bool);
    bool RebuildsTree;
};

constexpr Option kOptions[] = {
    {"AutoExpand", &ProjectView::GetAutoExpandChildren, &ProjectView::SetAutoExpandChildren, false},
    {"ShowPrivate", &ProjectView::GetShowPrivate, &ProjectView::SetShowPrivate, true},
    {"ShowFriend", &ProjectView::GetShowFriend, &ProjectView::SetShowFriend, true},
    {"ShowProtected", &ProjectView::GetShowProtected, &ProjectView::SetShowProtected, true},
    {"ShowInherited", &ProjectView::GetShowInherited, &ProjectView::SetShowInherited, true},
    {"Grouped", &ProjectView::GetGrouped, &ProjectView::SetGrouped, true},
};

/// A font in one text: name, size, bold and italic, separated by commas; empty for the ambient one.
std::string FontToText(const FontDescription& font) {
    if (font == FontDescription()) return {};
    return font.Name + "," + NumberText(font.Size) + "," + (font.Bold ? "1" : "0") + "," +
           (font.Italic ? "1" : "0");
}

FontDescription FontFromText(const std::string& text) {
    return {Token(text, ",", 1), LeadingNumber(Token(text, ",", 2)), Token(text, ",", 3) == "1",
            Token(text, ",", 4) == "1"};
}

} // namespace

ProjectView::ProjectView() {
    Procedure(*this, "UserControl_Initialize", [&](Frame&) {
        zMakeCommands();
        Dock->SetClient(tvwProject);
        tvwProject->SetAccessibleName("Items");
        zConnect();
        zPassOnEvents();
    });
}

ProjectView::~ProjectView() {
    Terminate();
}

void ProjectView::DumpVariables(VariableDump& dump) const {
    dump.Add("mKiteProject", mKiteProject)
        .Add("mShowAllPropertyBlocks", mShowAllPropertyBlocks)
        .Add("mShowInherited", mShowInherited)
        .Add("mNamespaceDefs", mNamespaceDefs)
        .Add("mExclusions", mExclusions)
        .Add("CheckNode", CheckNode)
        .Add("ReverseCheck", ReverseCheck)
        .Add("ReverseCheckNode", ReverseCheckNode)
        .Add("mRootItems", mRootItems)
        .Add("mHighlightCommentedItems", mHighlightCommentedItems)
        .Add("mFilter", mFilter)
        .Add("mTreeViewLockCount", mTreeViewLockCount)
        .Add("mTreePath", mTreePath)
        .Add("OnlyTopicItems", OnlyTopicItems);
}

void ProjectView::zMakeCommands() {
    const auto toolbar = Dock->AddToolbar("Main");
    for (const CommandText& text : kCommands) {
        Ref<DockCommand> command;
        if (text.IsCheck)
            command = Dock->Commands.AddCheck(text.Name, text.Caption);
        else
            command = Dock->Commands.Add(text.Name, text.Caption);
        command->SetToolTipText(text.ToolTip);
        command->SetStatusText(text.Status);
        toolbar->Add(command, text.BeginsGroup);
    }
}

void ProjectView::zConnect() {
    mConnections.push_back(Dock->Events.CommandClick.Connect(
        [this](const auto& command) { Dock_CommandClick(command); }));
    mConnections.push_back(Dock->Events.ClientResize.Connect([this] { Dock_ClientResize(); }));
    auto& tree = tvwProject->Events;
    mConnections.push_back(
        tree.Expanding.Connect([this](const auto& node) { tvwProject_Expanding(node); }));
    mConnections.push_back(
        tree.NodeClick.Connect([this](const auto& node) { tvwProject_NodeClick(node); }));
    mConnections.push_back(
        tree.NodeCheck.Connect([this](const auto& node) { tvwProject_NodeCheck(node); }));
    mConnections.push_back(
        tree.KeyUp.Connect([this](int& key, int shift) { tvwProject_KeyUp(key, shift); }));
}

void ProjectView::zPassOnEvents() {
    const auto passOn = [this]<class... A>(Event<A...>& from, Event<A...>& to, const char* name) {
        mConnections.push_back(from.Connect([this, &to, name](A... arguments) {
            Procedure(*this, name, [&](Frame&) { to.Raise(arguments...); });
        }));
    };
    auto& tree = tvwProject->Events;
    passOn(tree.AfterLabelEdit, Events.AfterLabelEdit, "tvwProject_AfterLabelEdit");
    passOn(tree.BeforeLabelEdit, Events.BeforeLabelEdit, "tvwProject_BeforeLabelEdit");
    passOn(tree.Click, Events.Click, "tvwProject_Click");
    passOn(tree.Collapse, Events.Collapse, "tvwProject_Collapse");
    passOn(tree.DblClick, Events.DblClick, "tvwProject_DblClick");
    passOn(tree.Expand, Events.Expand, "tvwProject_Expand");
    passOn(tree.KeyDown, Events.KeyDown, "tvwProject_KeyDown");
    passOn(tree.KeyPress, Events.KeyPress, "tvwProject_KeyPress");
    passOn(tree.MouseMove, Events.MouseMove, "tvwProject_MouseMove");
    passOn(tree.NodeDblClick, Events.NodeDblClick, "tvwProject_NodeDblClick");
}

void ProjectView::Dock_CommandClick(const Ref<DockCommand>& Command) {
    Procedure(*this, "Dock_CommandClick", [&](Frame& frame) {
        Watch watchCommand(frame, "Command", Command);
        const std::string& name = Command->GetName();
        if (name == "Previous")
            MoveToPreviousItem(true);
        else if (name == "Next")
            MoveToNextItem(true);
        else if (name == "Properties")
            Events.PropertiesRequested.Raise();
        else if (name == "Copy")
            Events.CopyCommentsRequested.Raise();
        else if (name == "Paste")
            Events.PasteCommentsRequested.Raise();
        else if (!zToggle(Command))
            return;
        Events.AfterCommand.Raise();
    });
}

bool ProjectView::zToggle(const Ref<DockCommand>& Command) {
    for (const Option& option : kOptions) {
        if (Command->GetName() != option.Command) continue;
        const auto check = Dock->Commands.CheckItem(option.Command);
        SetCommandChecked(*check, !GetCommandChecked(*check));
        (this->*option.Set)(GetCommandChecked(*check));
        if (option.RebuildsTree) Refresh();
        return true;
    }
    return false;
}

void ProjectView::Dock_ClientResize() {
    Procedure(*this, "Dock_ClientResize",
              [&](Frame&) { tvwProject->Move(Dock->GetClientRectangle()); });
}

const std::string& ProjectView::GetAppName() const {
    return mAppName;
}

void ProjectView::SetAppName(const std::string& value) {
    Procedure(*this, "AppName", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        mAppName = value;
        for (const Option& option : kOptions)
            SetCommandChecked(*Dock->Commands.CheckItem(option.Command), (this->*option.Get)());
    });
}

bool ProjectView::GetPasteCommentsEnabled() const {
    return zIsEnabled("PasteCommentsEnabled", "Paste");
}

void ProjectView::SetPasteCommentsEnabled(bool value) {
    zEnable("PasteCommentsEnabled", "Paste", value);
}

bool ProjectView::GetCopyCommentsEnabled() const {
    return zIsEnabled("CopyCommentsEnabled", "Copy");
}

void ProjectView::SetCopyCommentsEnabled(bool value) {
    zEnable("CopyCommentsEnabled", "Copy", value);
}

bool ProjectView::zIsEnabled(const char* property, const char* command) const {
    return Procedure<bool>(*this, property, [&](bool& result, Frame&) {
        result = Dock->Commands.Item(command)->GetEnabled();
    });
}

void ProjectView::zEnable(const char* property, const char* command, bool value) {
    Procedure(*this, property, [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        Dock->Commands.Item(command)->SetEnabled(value);
    });
}

void ProjectView::SetToolbarStyle(int value) {
    Procedure(*this, "ToolbarStyle", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        Required(CurrentServices().ControlHelper).ApplyToolbarStyle(*Dock, value);
    });
}

void ProjectView::HideEditButtons() {
    Procedure(*this, "HideEditButtons", [&](Frame&) {
        for (const char* name : {"Copy", "Paste", "Previous", "Next", "Properties"})
            Dock->Commands.Item(name)->SetVisible(false);
    });
}

Picture ProjectView::Icon(const std::string& Name) const {
    return Procedure<Picture>(*this, "Icon", [&](Picture& result, Frame& frame) {
        Watch watchName(frame, "Name", Name);
        const auto images = GetImageList();
        result = images->Item(Name);
    });
}

void ProjectView::zNoteChange(const char* property) {
    Procedure(*this, "PropertyChanged", [&](Frame&) { Events.PropertyChanged.Raise(property); });
}

void ProjectView::SetSupportsSelection(bool value) {
    tvwProject->SetSupportsSelection(value);
    zNoteChange("SupportsSelection");
}

void ProjectView::SetAppearance(int value) {
    tvwProject->SetAppearance(value);
    zNoteChange("Appearance");
}

void ProjectView::SetBorderStyle(int value) {
    tvwProject->SetBorderStyle(value);
    zNoteChange("BorderStyle");
}

void ProjectView::SetEnabled(bool value) {
    tvwProject->SetEnabled(value);
    zNoteChange("Enabled");
}

void ProjectView::SetFont(const FontDescription& value) {
    tvwProject->SetFont(value);
    zNoteChange("Font");
}

void ProjectView::SetHideSelection(bool value) {
    tvwProject->SetHideSelection(value);
    zNoteChange("HideSelection");
}

void ProjectView::SetImageList(const Ref<ImageList>& value) {
    tvwProject->SetImageList(value);
    zNoteChange("ImageList");
}

void ProjectView::SetIndentation(int value) {
    tvwProject->SetIndentation(value);
    zNoteChange("Indentation");
}

void ProjectView::SetLabelEdit(LabelEditMode value) {
    tvwProject->SetLabelEdit(value);
    zNoteChange("LabelEdit");
}

void ProjectView::SetLineStyle(int value) {
    tvwProject->SetLineStyle(value);
    zNoteChange("LineStyle");
}

void ProjectView::SetStyle(int value) {
    tvwProject->SetStyle(value);
    zNoteChange("Style");
}

void ProjectView::StartLabelEdit() {
    Procedure(*this, "StartLabelEdit", [&](Frame&) { tvwProject->StartLabelEdit(); });
}

void ProjectView::UserControl_InitProperties() {
    Procedure(*this, "UserControl_InitProperties", [&](Frame&) { zHideToolbarOfCheckedTree(); });
}

void ProjectView::UserControl_ReadProperties(const PropertyBag& PropBag) {
    Procedure(*this, "UserControl_ReadProperties", [&](Frame&) {
        const auto number = [&](const char* name, std::int32_t byDefault) {
            return PropBag.ReadProperty(name, byDefault).ToInteger();
        };
        const auto flag = [&](const char* name, bool byDefault) {
            return PropBag.ReadProperty(name, byDefault).ToBoolean();
        };
        const auto text = [&](const char* name) { return PropBag.ReadProperty(name, {}).ToText(); };
        tvwProject->SetAppearance(number("Appearance", 1));
        tvwProject->SetBorderStyle(number("BorderStyle", 1));
        tvwProject->SetEnabled(flag("Enabled", true));
        tvwProject->SetFont(FontFromText(text("Font")));
        tvwProject->SetHideSelection(flag("HideSelection", true));
        tvwProject->SetIndentation(number("Indentation", 20));
        tvwProject->SetLineStyle(number("LineStyle", 1));
        tvwProject->SetMouseIcon({{}, text("MouseIcon"), {}});
        tvwProject->SetScroll(flag("Scroll", true));
        tvwProject->SetStyle(number("Style", 7));
        tvwProject->SetSupportsSelection(flag("SupportsSelection", false));
        mHighlightCommentedItems = flag("HighlightCommentedItems", true);
        zHideToolbarOfCheckedTree();
    });
}

void ProjectView::UserControl_WriteProperties(PropertyBag& PropBag) const {
    Procedure(*this, "UserControl_WriteProperties", [&](Frame&) {
        PropBag.WriteProperty("Appearance", tvwProject->GetAppearance());
        PropBag.WriteProperty("BorderStyle", tvwProject->GetBorderStyle());
        PropBag.WriteProperty("Enabled", tvwProject->GetEnabled());
        PropBag.WriteProperty("Font", FontToText(tvwProject->GetFont()));
        PropBag.WriteProperty("HideSelection", tvwProject->GetHideSelection());
        PropBag.WriteProperty("Indentation", tvwProject->GetIndentation());
        PropBag.WriteProperty("LineStyle", tvwProject->GetLineStyle());
        PropBag.WriteProperty("MouseIcon", tvwProject->GetMouseIcon().Path);
        PropBag.WriteProperty("Scroll", tvwProject->GetScroll());
        PropBag.WriteProperty("Style", tvwProject->GetStyle());
        PropBag.WriteProperty("SupportsSelection", tvwProject->GetSupportsSelection());
        PropBag.WriteProperty("HighlightCommentedItems", mHighlightCommentedItems);
    });
}

void ProjectView::zHideToolbarOfCheckedTree() {
    // A tree with check boxes has no commands at all.
    if (GetSupportsSelection()) Dock->GetToolbar(1)->SetVisible(false);
}

} // namespace paperkite
