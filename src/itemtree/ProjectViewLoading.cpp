#include "itemtree/ProjectView.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Services.h"
#include "foundation/Settings.h"
#include "foundation/Text.h"
#include "foundation/Utilities.h"

namespace paperkite {

namespace {

constexpr std::string_view kPlaceholderEnding = "_dummy";
constexpr const char* kUnscopedFilter = "IgnoreNamespaceIncludeFlag=true,includeall=true";
constexpr std::uint32_t kGrey = 0x808080;

void SetScreenPointer(MousePointer pointer) {
    if (CurrentServices().Screen) CurrentServices().Screen->SetMousePointer(pointer);
}

std::string QualifiedNameOf(const Ref<Object>& item) {
    return item->Get("QualifiedName").ToText();
}

} // namespace

bool IsPlaceholderKey(std::string_view key) {
    return key.ends_with(kPlaceholderEnding);
}

bool IsGroupNode(const TreeNode& node) {
    return node.GetTag().empty();
}

void ProjectView::LoadFromNamespaceDefs(const Ref<paperkite::NamespaceDefs>& NamespaceDefs,
                                        const std::string& Moniker, bool Clear) {
    Procedure(*this, "LoadFromNamespaceDefs", [&](Frame& frame) {
        Watch watchDefs(frame, "NamespaceDefs", NamespaceDefs);
        Watch watchMoniker(frame, "Moniker", Moniker);
        Watch watchClear(frame, "Clear", Clear);
        const Ref<Object> RootItem = GetRootItem(GetKiteProject(), NamespaceDefs, Moniker);
        LoadFromNamespaceRootItem(NamespaceDefs, RootItem, Clear);
    });
}

void ProjectView::LoadFromNamespaceRootItem(const Ref<paperkite::NamespaceDefs>& NamespaceDefs,
                                            const Ref<Object>& RootItem, bool Clear) {
    Procedure(*this, "LoadFromNamespaceRootItem", [&](Frame& frame) {
        Watch watchDefs(frame, "NamespaceDefs", NamespaceDefs);
        Watch watchRoot(frame, "RootItem", RootItem);
        Watch watchClear(frame, "Clear", Clear);
        // A refresh hands over this control's own collections, which clearing replaces.
        const Ref<paperkite::NamespaceDefs> given = NamespaceDefs;
        const Ref<Object> root = RootItem;
        LockTreeView();
        if (Clear) {
            this->Clear();
            mNamespaceDefs = given;
        } else {
            zMergeNamespaceDefs(*given);
        }
        Ref<NamespaceDef> nd = given->Item(1);
        zShowScopeCommands(nd->GetParentDefs()->GetScopeFlags());
        PrepNamespaceDef(nd);
        GetKiteProject()->NamespaceProvider(nd->Moniker);
        const std::string key = QualifiedNameOf(root);
        if (Utilities::ContainsObject(*mRootItems, key)) mRootItems->Remove(key);
        mRootItems->Add(root, key);
        AddNamespaceItem(nd, root, nullptr);
        UnlockTreeView();
    });
}

void ProjectView::zMergeNamespaceDefs(const paperkite::NamespaceDefs& given) {
    if (!mNamespaceDefs) mNamespaceDefs = MakeRef<paperkite::NamespaceDefs>();
    for (const auto& definition : given)
        if (!Utilities::ContainsObject(*mNamespaceDefs, definition->Name))
            mNamespaceDefs->Add(definition, definition->Name);
}

void ProjectView::zShowScopeCommands(const std::string& scopeFlags) {
    const auto show = [&](const char* command, const char* letter) {
        Dock->Commands.Item(command)->SetVisible(ContainsIgnoringCase(scopeFlags, letter));
    };
    show("ShowPrivate", "p");
    show("ShowInherited", "i");
    show("ShowFriend", "f");
    show("ShowProtected", "t");
}

void ProjectView::AddNamespaceItem(Ref<NamespaceDef>& nd, const Ref<Object>& Item,
                                   const Ref<TreeNode>& ParentNode) {
    Procedure(*this, "AddNamespaceItem", [&](Frame& frame) {
        Watch watchDef(frame, "nd", nd);
        Watch watchItem(frame, "Item", Item);
        Watch watchParent(frame, "ParentNode", ParentNode);
        LockTreeView();
        if (IsType(Item, "CodeProject")) zPrepareCodeProject(Item);
        std::string text = zNodeText(nd, Item, ParentNode);
        const Ref<TreeNode> node = zAddNode(nd, Item, std::move(text), ParentNode);
        if (node) {
            node->SetTag(nd->ItemType);
            zDecorate(node, Item);
            zSetTick(node, nd, ParentNode);
            if (zAddPlaceholder(node, nd)) zLoadEagerly(node, nd);
        }
        UnlockTreeView();
    });
}

void ProjectView::zPrepareCodeProject(const Ref<Object>& Item) {
    if (!GetSupportsSelection() && Item->Get("VBProjectGroup").ToObject()) {
        Item->Call("Prepare", {});
        Item->Call("Load", {Value(true)});
    }
    const Ref<Object> modules = Item->Get("Modules").ToObject();
    modules->Enumerate([](const Value& module) {
        module.ToObject()->Set("Analysed", true);
        return true;
    });
}

std::string ProjectView::zNodeText(Ref<NamespaceDef>& nd, const Ref<Object>& Item,
                                   const Ref<TreeNode>& ParentNode) {
    if (nd->ItemTextTemplate.empty()) return Item->Get("Name").ToText();
    const auto provider = GetKiteProject()->NamespaceProvider(nd->Moniker);
    const auto dp = provider->GetDataProvider();
    const std::string itemType = nd->ItemType;
    if (!ParentNode) {
        // A root is not parsed: it shows no text.
        dp->SetCurrentItem(nd, Item, itemType, nullptr);
        return {};
    }
    const Ref<Object> parentItem = provider->GetItem(ParentNode->GetKey());
    if (!ParentNode->GetParent()) dp->SetCurrentRootItem(parentItem);
    dp->SetCurrentItem(nd, Item, itemType, parentItem);
    return dp->ParseForProperties(nd->ItemTextTemplate);
}

bool ProjectView::zIsGroupWanted(const Ref<NamespaceDef>& nd) const {
    if (!GetGrouped()) return false;
    return GetSupportsSelection() ? nd->GroupInSelection : nd->GroupInEditing;
}

Ref<TreeNode> ProjectView::zGroupNode(const Ref<NamespaceDef>& nd,
                                      const Ref<TreeNode>& ParentNode) {
    if (zIsGroupOf(mLastGroup, ParentNode, nd->Name)) return mLastGroup;
    const std::string key = ParentNode->GetKey() + "_" + nd->Name;
    Ref<TreeNode> group = GetNodes().Find(key);
    if (!group)
        Ignoring([&] {
            group = GetNodes().Add(ParentNode, TreeRelationship::Child, key, nd->GroupCaption,
                                   "Closed");
            group->SetExpandedImage("Open");
            SetIsNodeChecked(group, true);
        });
    mLastGroup = group;
    return group;
}

// Neighbours mostly go into the same group, which need not be looked up each time.
bool ProjectView::zIsGroupOf(const Ref<TreeNode>& group, const Ref<TreeNode>& ParentNode,
                             const std::string& name) {
    if (!group || !group->IsAttached() || group->GetParent() != ParentNode) return false;
    const std::string& above = ParentNode->GetKey();
    const std::string& key = group->GetKey();
    return key.size() == above.size() + 1 + name.size() && key.starts_with(above) &&
           key[above.size()] == '_' && key.ends_with(name);
}

Ref<TreeNode> ProjectView::zAddNode(const Ref<NamespaceDef>& nd, const Ref<Object>& Item,
                                    std::string text, const Ref<TreeNode>& ParentNode) {
    Ref<TreeNode> node;
    Ref<TreeNode> relative;
    if (ParentNode) {
        relative = zIsGroupWanted(nd) ? zGroupNode(nd, ParentNode) : ParentNode;
        if (!relative) return node;
    }
    const auto where = relative ? TreeRelationship::Child : TreeRelationship::Last;
    // An item that the tree shows already is left where it stands, one without a name left out.
    Ignoring([&] {
        node =
            GetNodes().Add(relative, where, QualifiedNameOf(Item), std::move(text), nd->ImageKey);
    });
    return node;
}

void ProjectView::zDecorate(const Ref<TreeNode>& node, const Ref<Object>& Item) {
    Ignoring([&] {
        if (EqualIgnoringCase(Item->Get("Access").ToText(), "PRIVATE")) node->SetForeColor(kGrey);
    });
    Ignoring([&] {
        if (GetSupportsSelection()) {
            node->SetBold(Item->Get("RootFlag").ToBoolean());
        } else if (mHighlightCommentedItems) {
            const auto comments = Item->Get("TaggedComments").ToObject();
            node->SetBold(comments->Get("Count").ToInteger() > 0);
        }
    });
}

void ProjectView::zSetTick(const Ref<TreeNode>& node, const Ref<NamespaceDef>& nd,
                           const Ref<TreeNode>& ParentNode) {
    const bool isBelowUnticked = ParentNode && !ParentNode->GetChecked();
    node->SetChecked(!nd->Excludable || (!isBelowUnticked && !zIsExcluded(node->GetKey())));
    NodeChecked(node);
}

bool ProjectView::zIsExcluded(const std::string& qName) const {
    // A host that brought no collection excludes nothing.
    return mExclusions && Utilities::ContainsKey(*mExclusions, qName);
}

bool ProjectView::zAddPlaceholder(const Ref<TreeNode>& node, const Ref<NamespaceDef>& nd) {
    const auto children = nd->GetChildDefs();
    bool possible = children->Count() > 0 && !GetSupportsSelection();
    for (const auto& child : *children)
        if (child->Selectable) possible = true;
    if (!possible) return false;
    return Ignoring([&] {
        GetNodes().Add(node, TreeRelationship::Child,
                       node->GetKey() + std::string(kPlaceholderEnding), {});
    });
}

void ProjectView::zLoadEagerly(const Ref<TreeNode>& node, const Ref<NamespaceDef>& nd) {
    if (nd->AutoExpandOnLoad) {
        NodeExpanded(node);
    } else if (nd->PreloadChildren || (GetSupportsSelection() && nd->PreloadChildrenInSelection)) {
        NodeExpanded(node);
        node->SetExpanded(false);
        const Ref<TreeNode> parent = node->GetParent();
        if (parent && parent->GetImage() == "Closed") parent->SetExpanded(false);
    }
}

void ProjectView::AddChildNamespaceItems(const Ref<NamespaceDef>& nd, const Ref<Object>& ParentItem,
                                         const Ref<TreeNode>& ParentNode) {
    Procedure(*this, "AddChildNamespaceItems", [&](Frame& frame) {
        Watch watchDef(frame, "nd", nd);
        Watch watchItem(frame, "ParentItem", ParentItem);
        Watch watchNode(frame, "ParentNode", ParentNode);
        if (!ParentItem) return;
        const auto childDefs = nd->GetChildDefs();
        for (const auto& definition : *childDefs) {
            // The provider and the parser may put another definition in its place.
            Ref<NamespaceDef> cnd = definition;
            const std::string& flags = cnd->TreeFlags;
            if (OnlyTopicItems && flags.find('f') == std::string::npos) continue;
            if (flags.find('t') != std::string::npos) continue;
            const Ref<ObjectCollection> items = zChildItems(cnd, ParentItem);
            if (items) zAddItems(cnd, items, ParentNode);
        }
    });
}

Ref<ObjectCollection> ProjectView::zChildItems(Ref<NamespaceDef>& cnd,
                                               const Ref<Object>& ParentItem) {
    PrepNamespaceDef(cnd);
    const auto provider = GetKiteProject()->NamespaceProvider(cnd->Moniker);
    if (!provider) return {};
    if (GetSupportsSelection() && !cnd->Selectable) return {};
    const std::string filter = GetFilter();
    return provider->GetItems(cnd, ParentItem, filter.empty() ? kUnscopedFilter : filter);
}

void ProjectView::zAddItems(Ref<NamespaceDef>& cnd, const Ref<ObjectCollection>& items,
                            const Ref<TreeNode>& ParentNode) {
    for (const auto& item : *items) {
        if (!GetSupportsSelection() && IsType(item, "CodeModule") && !GetShowPrivate() &&
            UpperCase(item->Get("Access").ToText()) != "PUBLIC")
            continue;
        AddNamespaceItem(cnd, item, ParentNode);
    }
}

void ProjectView::NodeExpanded(const Ref<TreeNode>& Node) {
    Procedure(*this, "NodeExpanded", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        if (Node->GetChildren().Count() != 1 || !IsPlaceholderKey(Node->GetChild()->GetKey()))
            return;
        const Ref<NamespaceDef> nd = zDefinitionOf(Node);
        PrepNamespaceDef(nd);
        const auto project = GetKiteProject();
        const auto provider = project->NamespaceProvider(nd->Moniker);
        const std::string key = Node->GetKey();
        Local watchKey(frame, "key", key);
        const Ref<TreeNode> placeholder = Node->GetChild();
        SetScreenPointer(MousePointer::Hourglass);
        if (!GetSupportsSelection()) {
            project->SetIncludePrivate(GetShowPrivate());
            project->SetIncludeFriend(GetShowFriend());
            project->SetIncludeProtected(GetShowProtected());
            project->SetIncludeProtectedFriend(project->GetIncludeProtected());
        }
        LockTreeView();
        AddChildNamespaceItems(nd, zItemOfNode(key, provider), Node);
        UnlockTreeView();
        SetScreenPointer(MousePointer::Default);
        placeholder->Delete();
        if (!Node->GetExpanded() && Node->GetIsExpandable()) Node->SetExpanded(true);
    });
}

Ref<Object> ProjectView::zItemOfNode(const std::string& key,
                                     const Ref<NamespaceProvider>& provider) const {
    // The host may hold a root that no provider would return by name.
    if (Utilities::ContainsObject(*mRootItems, key)) return mRootItems->Item(key);
    return provider->GetItem(key);
}

void ProjectView::tvwProject_Expanding(const Ref<TreeNode>& Node) {
    Procedure(*this, "tvwProject_Expanding", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        NodeExpanded(Node);
    });
}

void ProjectView::Refresh() {
    Procedure(*this, "Refresh", [&](Frame&) {
        mTreePath.clear();
        if (GetSelectedItem())
            mTreePath = Required(CurrentServices().ControlHelper).GetTreePath(*tvwProject);
        const auto project = GetKiteProject();
        project->SetIncludePrivate(GetShowPrivate());
        project->SetIncludeFriend(GetShowFriend());
        project->SetIncludeProtected(GetShowProtected());
        project->SetIncludeProtectedFriend(GetShowProtected());
        SetScreenPointer(MousePointer::Hourglass);
        const Ref<ObjectCollection> rootItems = mRootItems;
        mRootItems = MakeRef<ObjectCollection>();
        Clear();
        for (const auto& item : *rootItems)
            LoadFromNamespaceRootItem(mNamespaceDefs, item, true);
        if (!mTreePath.empty())
            Required(CurrentServices().ControlHelper).SetTreePath(*tvwProject, mTreePath);
        if (!GetSelectedItem()) GetNodes().GetFirst()->SetSelected(true);
        SetScreenPointer(MousePointer::Default);
    });
}

void ProjectView::Clear() {
    Procedure(*this, "Clear", [&](Frame&) {
        ClearNodes();
        mRootItems = MakeRef<ObjectCollection>();
    });
}

void ProjectView::ClearNodes() {
    Procedure(*this, "ClearNodes", [&](Frame&) {
        // The references go first, so that no later key event touches a dead node.
        CheckNode = nullptr;
        ReverseCheckNode = nullptr;
        mLastGroup = nullptr;
        GetNodes().Clear();
        Events.NodesCleared.Raise();
    });
}

void ProjectView::LockTreeView() {
    if (mTreeViewLockCount == 0) tvwProject->SetRedraw(false);
    ++mTreeViewLockCount;
}

void ProjectView::UnlockTreeView() {
    --mTreeViewLockCount;
    if (mTreeViewLockCount == 0) tvwProject->SetRedraw(true);
}

void ProjectView::Terminate() {
    Ignoring([&] {
        mNamespaceDefs = nullptr;
        mExclusions = nullptr;
        CheckNode = nullptr;
        ReverseCheckNode = nullptr;
        mLastGroup = nullptr;
        mRootItems = nullptr;
    });
}

std::string ProjectView::GetFilter() const {
    std::string scope = "public";
    if (GetShowPrivate()) {
        scope = "private+public+friend+protected";
    } else {
        if (GetShowFriend()) scope += "+friend";
        if (GetShowProtected()) scope += "+protected";
    }
    return mFilter + "IgnoreNamespaceIncludeFlag=true,scope=" + scope +
           ",IncludeInherited=" + (mShowInherited ? "True" : "False");
}

Ref<Object> ProjectView::GetCurrentRootItem() const {
    return Procedure<Ref<Object>>(*this, "CurrentRootItem", [&](Ref<Object>& result, Frame&) {
        Ref<TreeNode> node = GetSelectedItem();
        if (!node) return;
        while (const Ref<TreeNode> parent = node->GetParent())
            node = parent;
        result = GetObjectFromQualifiedName(node->GetKey());
    });
}

bool ProjectView::GetShowPrivate() const {
    return GlobalConfig().ProjectViewOptions.ShowPrivate;
}

void ProjectView::SetShowPrivate(bool value) {
    GlobalConfig().ProjectViewOptions.ShowPrivate = value;
}

bool ProjectView::GetShowFriend() const {
    return GlobalConfig().ProjectViewOptions.ShowFriend;
}

void ProjectView::SetShowFriend(bool value) {
    GlobalConfig().ProjectViewOptions.ShowFriend = value;
}

bool ProjectView::GetShowProtected() const {
    return GlobalConfig().ProjectViewOptions.ShowProtected;
}

void ProjectView::SetShowProtected(bool value) {
    GlobalConfig().ProjectViewOptions.ShowProtected = value;
}

bool ProjectView::GetAutoExpandChildren() const {
    return GlobalConfig().ProjectViewOptions.AutoExpandChildren;
}

void ProjectView::SetAutoExpandChildren(bool value) {
    GlobalConfig().ProjectViewOptions.AutoExpandChildren = value;
}

bool ProjectView::GetGrouped() const {
    return GlobalConfig().ProjectViewOptions.Grouped;
}

void ProjectView::SetGrouped(bool value) {
    GlobalConfig().ProjectViewOptions.Grouped = value;
}

} // namespace paperkite
