#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Event.h"
#include "foundation/KiteProject.h"
#include "foundation/Procedure.h"
#include "foundation/PropertyBag.h"
#include "widgets/DockHost.h"
#include "widgets/TreeControl.h"

#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The lazy tree of model items, with a toolbar above it.
///
/// It serves two masters, told apart by SupportsSelection: with check boxes, where an author ticks
/// what goes into the output, and without, beside the comment editor, where commented items are
/// bold. The host owns the project and its items and calls Terminate before it lets go.
///
///     ProjectView view;
///     view.SetAppName("Paperkite");
///     view.SetKiteProject(project);
///     view.LoadFromNamespaceDefs(definitions, "kite.source", true);
///
/// Node keys are the contract of the tree: an item's node has the item's QualifiedName, a group its
/// parent's key, "_" and the definition's name, and the placeholder of children that were not
/// fetched yet the item's name followed by "_dummy".
///
/// Failures of the model and of handlers end the operation, are reported, and never reach the
/// caller.
class ProjectView : public Shielded {
public:
    ProjectView();
    ~ProjectView() override;
    ProjectView(const ProjectView&) = delete;
    ProjectView& operator=(const ProjectView&) = delete;

    const char* ModuleName() const override { return "ProjectView"; }
    void DumpVariables(VariableDump& dump) const override;

    // Loading

    /// Nothing when none was set, or when its owner has let go of it.
    Ref<KiteProject> GetKiteProject() const { return mKiteProject.GetObject(); }
    void SetKiteProject(const Ref<KiteProject>& value) { mKiteProject.SetObject(value); }

    /// Loads the root item that the provider of the first definition gives for a moniker.
    void LoadFromNamespaceDefs(const Ref<NamespaceDefs>& NamespaceDefs, const std::string& Moniker,
                               bool Clear = false);
    /// Loads one root item. Without Clear it joins what is shown; a root that is there already is
    /// replaced and moves to the end.
    void LoadFromNamespaceRootItem(const Ref<NamespaceDefs>& NamespaceDefs,
                                   const Ref<Object>& RootItem, bool Clear = false);
    /// Rebuilds the tree and keeps the expansion path. Of several roots only the last remains.
    void Refresh();
    /// Empties the tree and forgets the root items.
    void Clear();
    /// Releases the model. The host calls it before it drops the control.
    void Terminate();

    /// Reads as the whole filter string of item queries; what was written is its prefix.
    std::string GetFilter() const;
    void SetFilter(const std::string& value) { mFilter = value; }
    const std::string& GetSpecificFilter() const { return mFilter; }

    /// The qualified names that are unticked, each under itself as key; the host may bring its own.
    const Ref<TextCollection>& GetExclusions() const { return mExclusions; }
    void SetExclusions(const Ref<TextCollection>& value) { mExclusions = value; }

    /// Only definitions flagged "f" are listed as children.
    bool OnlyTopicItems = false;

    // These are shared by every tree of the process.
    bool GetShowPrivate() const;
    void SetShowPrivate(bool value);
    bool GetShowFriend() const;
    void SetShowFriend(bool value);
    bool GetShowProtected() const;
    void SetShowProtected(bool value);
    bool GetAutoExpandChildren() const;
    void SetAutoExpandChildren(bool value);
    bool GetGrouped() const;
    void SetGrouped(bool value);
    /// A second name for Grouped.
    bool GetFolderView() const { return GetGrouped(); }
    void SetFolderView(bool value) { SetGrouped(value); }

    bool GetShowInherited() const { return mShowInherited; }
    void SetShowInherited(bool value) { mShowInherited = value; }
    bool GetShowAllPropertyBlocks() const { return mShowAllPropertyBlocks; }
    void SetShowAllPropertyBlocks(bool value) { mShowAllPropertyBlocks = value; }

    const Ref<paperkite::NamespaceDefs>& GetNamespaceDefs() const { return mNamespaceDefs; }
    /// The item of the top node above the selection; nothing without a selection.
    Ref<Object> GetCurrentRootItem() const;
    TreeNodes& GetNodes() const { return tvwProject->Nodes; }

    // Checking

    bool GetIsNodeChecked(const Ref<TreeNode>& Node) const;
    void SetIsNodeChecked(const Ref<TreeNode>& Node, bool value);
    void CheckAll();
    /// The top-level nodes keep their tick.
    void UnCheckAll();
    /// Ticks the loaded items of that access and unticks the others; letter case ignored.
    void CheckByAccess(const std::string& Access);
    /// Marks a node's item as a root of the output, the only one among its siblings.
    void SetRoot(const Ref<TreeNode>& Node, bool IsRoot);
    bool CanSetRoot(const Ref<TreeNode>& Node);

    // Navigation

    /// Selects the node of an item, opening its ancestors on the way. False when a step is missing.
    bool SelectItem(const std::string& QualifiedName);
    /// Moves among the siblings of the selected node, groups left out; with UnCommented only to
    /// items that are not bold. At the end nothing happens.
    void NextItem(bool UnCommented);
    void PreviousItem(bool UnCommented);
    /// The node behind another one, depth first, loading what is not loaded; or nothing.
    Ref<TreeNode> NextNode(const Ref<TreeNode>& n, bool NotToChild = false);
    Ref<TreeNode> PreviousNode(const Ref<TreeNode>& n);
    /// Which nodes are open and which is selected, for the host to keep.
    std::string GetTreePath();
    void SetTreePath(const std::string& Path);
    /// The model item, as the provider of the first definition knows it, or nothing.
    Ref<Object> GetObjectFromQualifiedName(const std::string& QualifiedName) const;
    /// Makes items bold that have comments by now; never takes boldness away.
    void HighlightCommentedNodes();

    Ref<TreeNode> GetSelectedItem() const { return tvwProject->GetSelectedItem(); }
    void SetSelectedItem(const Ref<TreeNode>& value);
    bool GetHighlightCommentedItems() const { return mHighlightCommentedItems; }
    /// Takes effect on nodes that are added later and on HighlightCommentedNodes.
    void SetHighlightCommentedItems(bool value);

    // Commands and properties

    const std::string& GetAppName() const;
    /// The name under which settings are kept, process-wide; also brings the check commands in step
    /// with the options that they stand for.
    void SetAppName(const std::string& value);
    bool GetPasteCommentsEnabled() const;
    void SetPasteCommentsEnabled(bool value);
    bool GetCopyCommentsEnabled() const;
    void SetCopyCommentsEnabled(bool value);
    void SetToolbarStyle(int value);
    /// Hides the commands that move, copy, paste and show properties.
    void HideEditButtons();
    /// The picture of the tree's image list; an unknown name is reported and gives none.
    Picture Icon(const std::string& Name) const;

    /// The check box switch, which tells the two modes apart.
    bool GetSupportsSelection() const { return tvwProject->GetSupportsSelection(); }
    void SetSupportsSelection(bool value);
    std::uintptr_t GetHWnd() const { return tvwProject->GetHWnd(); }
    int GetAppearance() const { return tvwProject->GetAppearance(); }
    void SetAppearance(int value);
    int GetBorderStyle() const { return tvwProject->GetBorderStyle(); }
    void SetBorderStyle(int value);
    bool GetEnabled() const { return tvwProject->GetEnabled(); }
    void SetEnabled(bool value);
    const FontDescription& GetFont() const { return tvwProject->GetFont(); }
    void SetFont(const FontDescription& value);
    bool GetHideSelection() const { return tvwProject->GetHideSelection(); }
    void SetHideSelection(bool value);
    const Ref<ImageList>& GetImageList() const { return tvwProject->GetImageList(); }
    void SetImageList(const Ref<ImageList>& value);
    int GetIndentation() const { return tvwProject->GetIndentation(); }
    void SetIndentation(int value);
    LabelEditMode GetLabelEdit() const { return tvwProject->GetLabelEdit(); }
    void SetLabelEdit(LabelEditMode value);
    int GetLineStyle() const { return tvwProject->GetLineStyle(); }
    void SetLineStyle(int value);
    int GetStyle() const { return tvwProject->GetStyle(); }
    void SetStyle(int value);
    void StartLabelEdit();

    /// Design properties from and to the host's bag; Init sets their defaults.
    void UserControl_InitProperties();
    void UserControl_ReadProperties(const PropertyBag& PropBag);
    void UserControl_WriteProperties(PropertyBag& PropBag) const;

    struct {
        Event<> NodesCleared;
        // Never raised by this control; hosts may bind them.
        Event<> Reloaded;
        Event<int, int, int, int> MouseDown;
        Event<int, int, int, int> MouseUp;
        Event<> Change;

        Event<const Ref<TreeNode>&> NodeClick;
        Event<const Ref<TreeNode>&> NodeCheck; ///< before the tick is processed
        Event<> AfterCommand;
        Event<> CopyCommentsRequested;
        Event<> PasteCommentsRequested;
        Event<> PropertiesRequested;
        Event<const std::string&> PropertyChanged; ///< a stored property, for the host's bag

        Event<bool&, std::string&> AfterLabelEdit;
        Event<bool&> BeforeLabelEdit;
        Event<> Click;
        Event<const Ref<TreeNode>&> Collapse;
        Event<> DblClick;
        Event<const Ref<TreeNode>&> Expand;
        Event<int&, int> KeyDown;
        Event<int&> KeyPress;
        Event<int&, int> KeyUp;
        Event<int, int, int, int> MouseMove;
        Event<const Ref<TreeNode>&> NodeDblClick;
    } Events;

    // The widgets, for views and hosts.

    Ref<DockHost> Dock = MakeRef<DockHost>("Dock");
    Ref<TreeControl> tvwProject = MakeRef<TreeControl>("tvwProject");

private:
    // Loading
    void AddNamespaceItem(Ref<NamespaceDef>& nd, const Ref<Object>& Item,
                          const Ref<TreeNode>& ParentNode);
    void AddChildNamespaceItems(const Ref<NamespaceDef>& nd, const Ref<Object>& ParentItem,
                                const Ref<TreeNode>& ParentNode);
    void NodeExpanded(const Ref<TreeNode>& Node);
    void ClearNodes();
    void LockTreeView();
    void UnlockTreeView();
    void tvwProject_Expanding(const Ref<TreeNode>& Node);
    void zMergeNamespaceDefs(const paperkite::NamespaceDefs& given);
    void zShowScopeCommands(const std::string& scopeFlags);
    void zPrepareCodeProject(const Ref<Object>& Item);
    std::string zNodeText(Ref<NamespaceDef>& nd, const Ref<Object>& Item,
                          const Ref<TreeNode>& ParentNode);
    Ref<TreeNode> zAddNode(const Ref<NamespaceDef>& nd, const Ref<Object>& Item, std::string text,
                           const Ref<TreeNode>& ParentNode);
    Ref<TreeNode> zGroupNode(const Ref<NamespaceDef>& nd, const Ref<TreeNode>& ParentNode);
    static bool zIsGroupOf(const Ref<TreeNode>& group, const Ref<TreeNode>& ParentNode,
                           const std::string& name);
    bool zIsGroupWanted(const Ref<NamespaceDef>& nd) const;
    void zDecorate(const Ref<TreeNode>& node, const Ref<Object>& Item);
    void zSetTick(const Ref<TreeNode>& node, const Ref<NamespaceDef>& nd,
                  const Ref<TreeNode>& ParentNode);
    bool zIsExcluded(const std::string& qName) const;
    bool zAddPlaceholder(const Ref<TreeNode>& node, const Ref<NamespaceDef>& nd);
    void zLoadEagerly(const Ref<TreeNode>& node, const Ref<NamespaceDef>& nd);
    void zAddItems(Ref<NamespaceDef>& cnd, const Ref<ObjectCollection>& items,
                   const Ref<TreeNode>& ParentNode);
    Ref<ObjectCollection> zChildItems(Ref<NamespaceDef>& cnd, const Ref<Object>& ParentItem);
    Ref<Object> zItemOfNode(const std::string& key, const Ref<NamespaceProvider>& provider) const;

    // Checking
    /// Whether the node's tick was handed on to all that is below it.
    bool NodeChecked(const Ref<TreeNode>& Node);
    /// Whether it came to its end.
    bool SetChildrenChecked(const Ref<TreeNode>& Node, bool Value);
    void ExcludeSiblingNodes(const Ref<NamespaceProvider>& provider, const Ref<TreeNode>& Node);
    void SetItemExcludeValue(const Ref<NamespaceProvider>& provider, const std::string& qName,
                             bool Value);
    void tvwProject_NodeCheck(const Ref<TreeNode>& Node);
    void tvwProject_KeyUp(int& KeyCode, int Shift);
    void zCheckUpward(const Ref<NamespaceProvider>& provider, const Ref<TreeNode>& n);
    void zExclude(const std::string& qName);
    void zInclude(const std::string& qName);
    Ref<NamespaceDef> zDefinitionOf(const Ref<TreeNode>& node) const;
    Ref<NamespaceProvider> zProviderOf(const Ref<TreeNode>& node) const;

    // Navigation
    void MoveToNextItem(bool SkipBold);
    void MoveToPreviousItem(bool OnlyNonBold);
    Ref<TreeNode> LastChild(const Ref<TreeNode>& n);
    void tvwProject_NodeClick(const Ref<TreeNode>& Node);

    // Commands and properties
    void zMakeCommands();
    void zConnect();
    void zPassOnEvents();
    void zNoteChange(const char* property);
    bool zToggle(const Ref<DockCommand>& Command);
    bool zIsEnabled(const char* property, const char* command) const;
    void zEnable(const char* property, const char* command, bool value);
    void Dock_CommandClick(const Ref<DockCommand>& Command);
    void Dock_ClientResize();
    void zHideToolbarOfCheckedTree();

    InstanceCount mInstanceCount{"ProjectView", ComponentType::Control};
    ObjectHolder<KiteProject> mKiteProject;
    bool mShowAllPropertyBlocks = false;
    bool mShowInherited = false;
    Ref<paperkite::NamespaceDefs> mNamespaceDefs;
    Ref<TextCollection> mExclusions = MakeRef<TextCollection>();
    Ref<TreeNode> CheckNode;
    bool ReverseCheck = false;
    Ref<TreeNode> ReverseCheckNode;
    Ref<ObjectCollection> mRootItems = MakeRef<ObjectCollection>();
    bool mHighlightCommentedItems = true;
    std::string mFilter;
    std::int32_t mTreeViewLockCount = 0;
    std::string mTreePath;
    Ref<TreeNode> mLastGroup;
    std::vector<Connection> mConnections;
};

/// Whether a key is that of a placeholder.
bool IsPlaceholderKey(std::string_view key);
/// Whether a node stands for a group of items.
bool IsGroupNode(const TreeNode& node);

} // namespace paperkite
