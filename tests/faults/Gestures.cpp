#include "faults/WalkedOperations.h"
#include "widgets/Keys.h"

#include <ostream>

namespace paperkite::test {

namespace {

constexpr const char* kA = "demo~app~A";
constexpr const char* kB = "demo~app~B";

using Run = std::function<void(WalkScene&)>;

void Add(
    std::vector<WalkedOperation>& list, const char* owner, const char* name, Run run,
    Run prepare = [](WalkScene&) {}) {
    WalkedOperation operation;
    operation.Owner = owner;
    operation.Name = name;
    operation.Run = std::move(run);
    operation.Prepare = std::move(prepare);
    list.push_back(std::move(operation));
}

void WithCheckBoxes(WalkScene& scene) {
    scene.Tree().SetSupportsSelection(true);
    scene.Load();
    scene.Tree().SelectItem(kA);
}

void AddTreeGestures(std::vector<WalkedOperation>& list) {
    const auto add = [&](
                         const char* name, Run run, Run prepare = [](WalkScene&) {}) {
        Add(list, "TreeControl", name, std::move(run), std::move(prepare));
    };
    add("UserClick", [](WalkScene& s) { s.TreeWidget().UserClick(s.Node(kB)); });
    add(
        "UserClick", [](WalkScene& s) { s.TreeWidget().UserClick(s.Node(kB)); },
        [](WalkScene& s) { s.RewriteNote(); });
    add(
        "UserClick", [](WalkScene& s) { s.TreeWidget().UserClick(s.Node(kB)); },
        [](WalkScene& s) { s.Tree().SetAutoExpandChildren(true); });
    add("UserSelect", [](WalkScene& s) { s.TreeWidget().UserSelect(s.Node(kB)); });
    add("UserDblClick", [](WalkScene& s) { s.TreeWidget().UserDblClick(s.Node(kA)); });
    add("UserToggle", [](WalkScene& s) { s.TreeWidget().UserToggle(s.Node(kA)); });
    add(
        "UserToggle", [](WalkScene& s) { s.TreeWidget().UserToggle(s.Node(kA)); },
        [](WalkScene& s) {
            s.Tree().SetGrouped(true);
            s.Load();
            s.Tree().SelectItem(kB);
        });
    add(
        "UserToggle", [](WalkScene& s) { s.TreeWidget().UserToggle(s.Node(kB)); }, WithCheckBoxes);
    add(
        "UserCheck", [](WalkScene& s) { s.TreeWidget().UserCheck(s.Node(kA)); }, WithCheckBoxes);
    // Brings the unticked parent in, without its other children.
    add(
        "UserCheck", [](WalkScene& s) { s.TreeWidget().UserCheck(s.Node(kA)); },
        [](WalkScene& s) {
            WithCheckBoxes(s);
            s.TreeWidget().UserCheck(s.Node("demo~app"));
        });
    add("UserKeyDown", [](WalkScene& s) { s.TreeWidget().UserKeyDown(KeyReturn, 0); });
    add("UserKeyPress", [](WalkScene& s) { s.TreeWidget().UserKeyPress('x'); });
    add("UserKeyUp", [](WalkScene& s) { s.TreeWidget().UserKeyUp(KeyN, 0); });
    add("UserMouseDown", [](WalkScene& s) { s.TreeWidget().UserMouseDown(1, 0, 2, 3); });
    add("UserMouseMove", [](WalkScene& s) { s.TreeWidget().UserMouseMove(0, 0, 2, 3); });
    add("UserMouseUp", [](WalkScene& s) { s.TreeWidget().UserMouseUp(1, 0, 2, 3); });
    add("UserBeginLabelEdit", [](WalkScene& s) {
        s.TreeWidget().UserBeginLabelEdit(s.Node(kA));
        s.TreeWidget().UserCancelLabelEdit();
    });
    add(
        "UserEndLabelEdit", [](WalkScene& s) { s.TreeWidget().UserEndLabelEdit("renamed"); },
        [](WalkScene& s) { s.TreeWidget().UserBeginLabelEdit(s.Node(kA)); });
    add(
        "UserCancelLabelEdit", [](WalkScene& s) { s.TreeWidget().UserCancelLabelEdit(); },
        [](WalkScene& s) { s.TreeWidget().UserBeginLabelEdit(s.Node(kA)); });
}

void AddToolbarGestures(std::vector<WalkedOperation>& list) {
    for (const char* command :
         {"Previous", "Next", "Properties", "Copy", "ShowFriend", "ShowPrivate", "ShowInherited",
          "AutoExpand", "ShowProtected", "Grouped"})
        Add(list, "DockHost", "UserClick",
            [command](WalkScene& s) { s.Tree().Dock->UserClick(command); });
    Add(
        list, "DockHost", "UserClick", [](WalkScene& s) { s.Tree().Dock->UserClick("Paste"); },
        [](WalkScene& s) {
            s.Tree().Dock->UserClick("Copy");
            s.Tree().SelectItem(kB);
        });
    Add(list, "DockHost", "UserClientResize", [](WalkScene& s) {
        s.Tree().Dock->UserClientResize({0, 20, 300, 400});
    });
}

void AddListGestures(std::vector<WalkedOperation>& list) {
    const auto add = [&](
                         const char* name, Run run, Run prepare = [](WalkScene&) {}) {
        Add(list, "PropertiesList", name, std::move(run), std::move(prepare));
    };
    const Run offered = [](WalkScene& s) { s.Tags().SetSelectedItem(s.Offer("#note")); };
    const Run noted = [](WalkScene& s) { s.SelectNote(); };
    const Run edited = [](WalkScene& s) { s.RewriteNote(); };
    add("UserClick", [](WalkScene& s) { s.Tags().UserClick(s.Offer("#note")); });
    add(
        "UserClick", [](WalkScene& s) { s.Tags().UserClick(s.Offer("#note")); }, edited);
    add("UserSelect", [](WalkScene& s) { s.Tags().UserSelect(s.Tags().Item("a-note")); });
    add("UserDblClick", [](WalkScene& s) { s.Tags().UserDblClick(s.Offer("#note")); });
    add(
        "UserClickButton", [](WalkScene& s) { s.Tags().UserClickButton("AddButton"); }, offered);
    add(
        "UserClickButton", [](WalkScene& s) { s.Tags().UserClickButton("DeleteButton"); }, noted);
    add("UserCheck", [](WalkScene& s) { s.Flags().UserCheck(s.Flags().Item("#old")); });
    add("UserCheck", [](WalkScene& s) { s.Flags().UserCheck(s.Flags().Item("#todo")); });
    add("UserToggle", [](WalkScene& s) { s.Tags().UserToggle(s.Tags().Item(1)); });
    add(
        "UserType", [](WalkScene& s) { s.Tags().UserType("typed"); }, edited);
    add(
        "UserExtendedEdit", [](WalkScene& s) { s.Tags().UserExtendedEdit(); }, noted);
    add(
        "UserKeyDown", [](WalkScene& s) { s.Tags().UserKeyDown(KeyReturn, 0); }, offered);
    add(
        "UserKeyDown", [](WalkScene& s) { s.Tags().UserKeyDown(KeyReturn, 0); }, edited);
    add(
        "UserKeyDown", [](WalkScene& s) { s.Tags().UserKeyDown(KeyEscape, 0); }, edited);
    add(
        "UserKeyDown", [](WalkScene& s) { s.Tags().UserKeyDown(KeyDelete, 0); }, noted);
    add(
        "UserKeyDown", [](WalkScene& s) { s.Tags().UserKeyDown(KeyDelete, 0); },
        [](WalkScene& s) { s.Tags().SetSelectedItem(nullptr); });
    add(
        "UserKeyUp", [](WalkScene& s) { s.Tags().UserKeyUp(KeyReturn, 0); }, noted);
    add(
        "UserBrowse", [](WalkScene& s) { s.Tags().UserBrowse(); }, noted);
    add(
        "UserClear", [](WalkScene& s) { s.Tags().UserClear(); }, noted);
    add("UserResizeDescription", [](WalkScene& s) { s.Tags().UserResizeDescription(90); });
}

/// Clicks the box of a flag; behind the end there is none.
void ClickFlag(WalkScene& scene, const std::string& tag) {
    const auto item = scene.Comments().eb->GetGroup("flags")->Item("checkboxcontainer");
    const auto frame = item->GetControl().As<Container>();
    if (!frame) return;
    for (const auto& control : frame->Controls)
        if (control->GetTag() == tag) return control.As<CheckBox>()->UserClick();
}

void AddBarGestures(std::vector<WalkedOperation>& list) {
    Add(list, "CheckBox", "UserClick", [](WalkScene& s) { ClickFlag(s, "#old"); });
    Add(list, "CheckBox", "UserClick", [](WalkScene& s) { ClickFlag(s, "#todo"); });
    Add(list, "ExplorerBar", "UserClick", [](WalkScene& s) {
        s.Comments().eb->UserClick(s.Comments().eb->GetGroup("other")->Item("other"));
    });
    Add(list, "ExplorerBar", "UserToggle",
        [](WalkScene& s) { s.Comments().eb->UserToggle(s.Comments().eb->GetGroup("flags")); });
    Add(list, "SplitPanel", "UserDrag", [](WalkScene& s) { s.Screen().splitMain->UserDrag(45); });
    Add(list, "SplitPanel", "UserDrag", [](WalkScene& s) { s.Comments().splitMain->UserDrag(45); });
}

/// What the surfaces of a comment report.
void AddSurfaceEvents(std::vector<WalkedOperation>& list) {
    for (const char* link :
         {"http://example.org/a%20b", "file:///x/#", "file:///x/#mark", "file:///x/demo~app~B.html",
          "file:///x/demo~app~A_page.html", "file:///x/nowhere.html"})
        Add(list, "Surface", "HyperlinkClick",
            [link](WalkScene& s) { s.Comments().Events.HyperlinkClick.Raise(link); });
    Add(list, "Surface", "DocumentComplete",
        [](WalkScene& s) { s.Comments().Events.DocumentComplete.Raise(); });
}

} // namespace

std::vector<WalkedOperation> Gestures() {
    std::vector<WalkedOperation> list;
    AddTreeGestures(list);
    AddToolbarGestures(list);
    AddListGestures(list);
    AddBarGestures(list);
    AddSurfaceEvents(list);
    return list;
}

std::vector<WalkedOperation> AllOperations() {
    std::vector<WalkedOperation> all;
    for (const auto& part :
         {ProjectViewOperations(), CommentEditorOperations(), ProjectEditorOperations(), Gestures(),
          PageOperations(), ElementOperations(), LayoutOperations(), LinkOperations()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

void PrintTo(const WalkedOperation& operation, std::ostream* stream) {
    *stream << operation.Title();
}

} // namespace paperkite::test
