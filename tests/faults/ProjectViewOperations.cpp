#include "doctypes/source/SourceNamespaceDefs.h"
#include "faults/WalkedOperations.h"

namespace paperkite::test {

namespace {

constexpr const char* kOwner = "ProjectView";
constexpr const char* kA = "demo~app~A";
constexpr const char* kRun = "demo~app~A~Run";

WalkedOperation Operation(std::string name, std::function<void(ProjectView&, WalkScene&)> run) {
    WalkedOperation operation;
    operation.Owner = kOwner;
    operation.Name = std::move(name);
    operation.Run = [run = std::move(run)](WalkScene& scene) { run(scene.Tree(), scene); };
    return operation;
}

/// With check boxes, everything loaded and one item unticked.
WalkedOperation Ticked(std::string name, std::function<void(ProjectView&, WalkScene&)> run) {
    WalkedOperation operation = Operation(std::move(name), std::move(run));
    operation.Prepare = [](WalkScene& scene) {
        scene.Tree().SetSupportsSelection(true);
        scene.Load();
        scene.Tree().SelectItem(kA);
        scene.Node(kA)->SetExpanded(true);
        scene.Tree().SetIsNodeChecked(scene.Node("demo~app~B"), false);
    };
    return operation;
}

template <class Getter>
WalkedOperation Reads(const char* name, Getter getter) {
    return Operation(name, [getter](ProjectView& view, WalkScene&) { (view.*getter)(); });
}

template <class Setter, class Value>
WalkedOperation Writes(const char* name, Setter setter, Value value) {
    return Operation(name,
                     [setter, value](ProjectView& view, WalkScene&) { (view.*setter)(value); });
}

template <class Getter, class Setter, class Value>
void Property(std::vector<WalkedOperation>& list, const std::string& name, Getter getter,
              Setter setter, Value value) {
    list.push_back(Reads(("Get" + name).c_str(), getter));
    list.push_back(Writes(("Set" + name).c_str(), setter, value));
}

void AddProperties(std::vector<WalkedOperation>& list) {
    using V = ProjectView;
    Property(list, "Filter", &V::GetFilter, &V::SetFilter, std::string("x=1,"));
    Property(list, "ShowPrivate", &V::GetShowPrivate, &V::SetShowPrivate, true);
    Property(list, "ShowFriend", &V::GetShowFriend, &V::SetShowFriend, true);
    Property(list, "ShowProtected", &V::GetShowProtected, &V::SetShowProtected, true);
    Property(list, "AutoExpandChildren", &V::GetAutoExpandChildren, &V::SetAutoExpandChildren,
             true);
    Property(list, "Grouped", &V::GetGrouped, &V::SetGrouped, true);
    Property(list, "FolderView", &V::GetFolderView, &V::SetFolderView, true);
    Property(list, "ShowInherited", &V::GetShowInherited, &V::SetShowInherited, true);
    Property(list, "ShowAllPropertyBlocks", &V::GetShowAllPropertyBlocks,
             &V::SetShowAllPropertyBlocks, true);
    Property(list, "HighlightCommentedItems", &V::GetHighlightCommentedItems,
             &V::SetHighlightCommentedItems, false);
    Property(list, "AppName", &V::GetAppName, &V::SetAppName, std::string("Other"));
    Property(list, "PasteCommentsEnabled", &V::GetPasteCommentsEnabled, &V::SetPasteCommentsEnabled,
             true);
    Property(list, "CopyCommentsEnabled", &V::GetCopyCommentsEnabled, &V::SetCopyCommentsEnabled,
             false);
    Property(list, "SupportsSelection", &V::GetSupportsSelection, &V::SetSupportsSelection, true);
    Property(list, "Appearance", &V::GetAppearance, &V::SetAppearance, 0);
    Property(list, "BorderStyle", &V::GetBorderStyle, &V::SetBorderStyle, 0);
    Property(list, "Enabled", &V::GetEnabled, &V::SetEnabled, false);
    Property(list, "Font", &V::GetFont, &V::SetFont, FontDescription{"Sans", 12, true, false});
    Property(list, "HideSelection", &V::GetHideSelection, &V::SetHideSelection, false);
    Property(list, "Indentation", &V::GetIndentation, &V::SetIndentation, 10);
    Property(list, "LabelEdit", &V::GetLabelEdit, &V::SetLabelEdit, LabelEditMode::Automatic);
    Property(list, "LineStyle", &V::GetLineStyle, &V::SetLineStyle, 0);
    Property(list, "Style", &V::GetStyle, &V::SetStyle, 1);
    list.push_back(Reads("GetImageList", &V::GetImageList));
    list.push_back(Operation("SetImageList",
                             [](V& view, WalkScene&) { view.SetImageList(MakeSourceImages()); }));
    list.push_back(Reads("GetSpecificFilter", &V::GetSpecificFilter));
    list.push_back(Reads("GetKiteProject", &V::GetKiteProject));
    list.push_back(Operation(
        "SetKiteProject", [](V& view, WalkScene& scene) { view.SetKiteProject(scene.Project); }));
    list.push_back(Reads("GetExclusions", &V::GetExclusions));
    list.push_back(Operation("SetExclusions", [](V& view, WalkScene&) {
        view.SetExclusions(MakeRef<TextCollection>());
    }));
    list.push_back(Reads("GetNamespaceDefs", &V::GetNamespaceDefs));
    list.push_back(Reads("GetCurrentRootItem", &V::GetCurrentRootItem));
    list.push_back(Reads("GetNodes", &V::GetNodes));
    list.push_back(Reads("GetSelectedItem", &V::GetSelectedItem));
    list.push_back(Reads("GetHWnd", &V::GetHWnd));
    list.push_back(Reads("ModuleName", &V::ModuleName));
}

void AddLoading(std::vector<WalkedOperation>& list) {
    list.push_back(Operation("LoadFromNamespaceDefs", [](ProjectView& view, WalkScene& scene) {
        view.LoadFromNamespaceDefs(scene.Scanned.Definitions, kSourceMoniker, true);
    }));
    list.push_back(Operation("LoadFromNamespaceDefs", [](ProjectView& view, WalkScene& scene) {
        view.LoadFromNamespaceDefs(scene.Scanned.Definitions, kSourceMoniker);
    }));
    list.push_back(Operation("LoadFromNamespaceRootItem", [](ProjectView& view, WalkScene& scene) {
        view.LoadFromNamespaceRootItem(
            scene.Scanned.Definitions,
            scene.Project->GetProvider()->Wrapped(scene.Scanned.Provider->GetItem(kA)), true);
    }));
    list.push_back(Operation("Refresh", [](ProjectView& view, WalkScene&) { view.Refresh(); }));
    list.push_back(Ticked("Refresh", [](ProjectView& view, WalkScene&) { view.Refresh(); }));
    list.push_back(Operation("Clear", [](ProjectView& view, WalkScene&) { view.Clear(); }));
    list.push_back(Operation("Terminate", [](ProjectView& view, WalkScene&) { view.Terminate(); }));
    list.back().IsLast = true;
}

void AddChecking(std::vector<WalkedOperation>& list) {
    list.push_back(Ticked("GetIsNodeChecked", [](ProjectView& view, WalkScene& scene) {
        view.GetIsNodeChecked(scene.Node(kA));
    }));
    list.push_back(Ticked("SetIsNodeChecked", [](ProjectView& view, WalkScene& scene) {
        view.SetIsNodeChecked(scene.Node(kA), false);
    }));
    list.push_back(Ticked("CheckAll", [](ProjectView& view, WalkScene&) { view.CheckAll(); }));
    list.push_back(Ticked("UnCheckAll", [](ProjectView& view, WalkScene&) { view.UnCheckAll(); }));
    list.push_back(Ticked("CheckByAccess",
                          [](ProjectView& view, WalkScene&) { view.CheckByAccess("Private"); }));
    list.push_back(Ticked("SetRoot", [](ProjectView& view, WalkScene& scene) {
        view.SetRoot(scene.Node(kA), true);
    }));
    list.push_back(
        Ticked("SetRoot", [](ProjectView& view, WalkScene&) { view.SetRoot(nullptr, false); }));
    list.push_back(Ticked("CanSetRoot", [](ProjectView& view, WalkScene& scene) {
        view.CanSetRoot(scene.Node(kA));
    }));
}

void AddNavigation(std::vector<WalkedOperation>& list) {
    list.push_back(
        Operation("SelectItem", [](ProjectView& view, WalkScene&) { view.SelectItem(kRun); }));
    list.push_back(Operation("SelectItem", [](ProjectView& view, WalkScene&) {
        view.SelectItem("demo~app~B~Go:rest");
    }));
    list.push_back(
        Operation("NextItem", [](ProjectView& view, WalkScene&) { view.NextItem(false); }));
    list.push_back(
        Operation("PreviousItem", [](ProjectView& view, WalkScene&) { view.PreviousItem(false); }));
    list.back().Prepare = [](WalkScene& scene) { scene.Tree().SelectItem("demo~app~B"); };
    list.push_back(Operation("NextNode", [](ProjectView& view, WalkScene& scene) {
        view.NextNode(scene.Node("demo~app~B"));
    }));
    list.push_back(Operation("PreviousNode", [](ProjectView& view, WalkScene& scene) {
        view.PreviousNode(scene.Node("demo~app~B"));
    }));
    list.push_back(
        Operation("GetTreePath", [](ProjectView& view, WalkScene&) { view.GetTreePath(); }));
    list.push_back(Operation("SetTreePath", [](ProjectView& view, WalkScene& scene) {
        const std::string path =
            scene.Services.Helper->ModelControlHelper::GetTreePath(scene.TreeWidget());
        view.SetTreePath(path);
    }));
    list.push_back(Operation("GetObjectFromQualifiedName", [](ProjectView& view, WalkScene&) {
        view.GetObjectFromQualifiedName(kRun);
    }));
    list.push_back(Operation("HighlightCommentedNodes", [](ProjectView& view, WalkScene&) {
        view.HighlightCommentedNodes();
    }));
    list.push_back(Operation("SetSelectedItem", [](ProjectView& view, WalkScene& scene) {
        view.SetSelectedItem(scene.Node("demo~app~B"));
    }));
}

void AddCommands(std::vector<WalkedOperation>& list) {
    list.push_back(Writes("SetToolbarStyle", &ProjectView::SetToolbarStyle, 1));
    list.push_back(Operation("HideEditButtons",
                             [](ProjectView& view, WalkScene&) { view.HideEditButtons(); }));
    list.push_back(Operation("Icon", [](ProjectView& view, WalkScene&) { view.Icon("Class"); }));
    list.push_back(
        Operation("StartLabelEdit", [](ProjectView& view, WalkScene&) { view.StartLabelEdit(); }));
    list.push_back(Operation("DumpVariables", [](ProjectView& view, WalkScene&) {
        VariableDump dump;
        view.DumpVariables(dump);
    }));
    list.push_back(Operation("UserControl_InitProperties", [](ProjectView& view, WalkScene&) {
        view.UserControl_InitProperties();
    }));
    list.push_back(Operation("UserControl_ReadProperties", [](ProjectView& view, WalkScene&) {
        PropertyBag bag;
        bag.WriteProperty("SupportsSelection", true);
        view.UserControl_ReadProperties(bag);
    }));
    list.push_back(Operation("UserControl_WriteProperties", [](ProjectView& view, WalkScene&) {
        PropertyBag bag;
        view.UserControl_WriteProperties(bag);
    }));
}

} // namespace

std::vector<WalkedOperation> ProjectViewOperations() {
    std::vector<WalkedOperation> list;
    AddProperties(list);
    AddLoading(list);
    AddChecking(list);
    AddNavigation(list);
    AddCommands(list);
    return list;
}

} // namespace paperkite::test
