#include "itemtree/ProjectView.h"

#include "foundation/Settings.h"
#include "foundation/Text.h"
#include "widgets/Keys.h"

namespace paperkite {

Ref<NamespaceDef> ProjectView::zDefinitionOf(const Ref<TreeNode>& node) const {
    return FirstDefinitionForType(mNamespaceDefs, node->GetTag());
}

Ref<NamespaceProvider> ProjectView::zProviderOf(const Ref<TreeNode>& node) const {
    const Ref<NamespaceDef> nd = zDefinitionOf(node);
    PrepNamespaceDef(nd);
    return GetKiteProject()->NamespaceProvider(nd->Moniker);
}

bool ProjectView::GetIsNodeChecked(const Ref<TreeNode>& Node) const {
    return Procedure<bool>(*this, "IsNodeChecked", [&](bool& result, Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        result = Node->GetChecked();
    });
}

void ProjectView::SetIsNodeChecked(const Ref<TreeNode>& Node, bool value) {
    Procedure(*this, "IsNodeChecked", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        Watch watchValue(frame, "value", value);
        Node->SetChecked(value);
    });
}

void ProjectView::zExclude(const std::string& qName) {
    Ignoring([&] { mExclusions->Add(qName, qName); });
}

void ProjectView::zInclude(const std::string& qName) {
    Ignoring([&] { mExclusions->Remove(qName); });
}

void ProjectView::tvwProject_NodeCheck(const Ref<TreeNode>& Node) {
    Procedure(*this, "tvwProject_NodeCheck", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        Events.NodeCheck.Raise(Node);
        NodeChecked(Node);
    });
}

bool ProjectView::NodeChecked(const Ref<TreeNode>& Node) {
    return Procedure<bool>(*this, "NodeChecked", [&](bool& result, Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        if (!Node) return;
        if (IsGroupNode(*Node)) {
            if (!Node->GetExpanded()) NodeExpanded(Node);
            result = SetChildrenChecked(Node, GetIsNodeChecked(Node));
            return;
        }
        if (!GetSupportsSelection()) return;
        const Ref<TreeNode> n = Node;
        const Ref<NamespaceDef> nd = zDefinitionOf(n);
        const auto provider = zProviderOf(n);
        const std::string qName = n->GetKey();
        const Ref<TreeNode> parent = n->GetParent();
        if (parent) zCheckUpward(provider, n);
        if (!nd->Excludable && !GetIsNodeChecked(n)) {
            SetIsNodeChecked(n, true);
            return;
        }
        const bool ticked = GetIsNodeChecked(n);
        const Ref<Object> obj = provider->GetItem(qName);
        obj->Set("IncludeFlag", ticked);
        obj->Set("ExcludeFlag", !ticked);
        if (ticked) {
            zInclude(qName);
            result = SetChildrenChecked(n, true);
        } else if (parent && !GetIsNodeChecked(parent) && !IsGroupNode(*parent)) {
            // Excluded through its parent: an entry of its own is superfluous.
            zInclude(qName);
        } else {
            zExclude(qName);
        }
    });
}

void ProjectView::zCheckUpward(const Ref<NamespaceProvider>& provider, const Ref<TreeNode>& n) {
    const Ref<TreeNode> p = n->GetParent();
    if (GetIsNodeChecked(p) || !GetIsNodeChecked(n)) return;
    if (!IsGroupNode(*p)) SetItemExcludeValue(provider, p->GetKey(), false);
    SetIsNodeChecked(p, true);
    if (!IsGroupNode(*p)) ExcludeSiblingNodes(provider, n);
}

bool ProjectView::SetChildrenChecked(const Ref<TreeNode>& Node, bool Value) {
    return Procedure<bool>(*this, "SetChildrenChecked", [&](bool& result, Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        Watch watchValue(frame, "Value", Value);
        for (const auto& cn : Node->GetChildren()) {
            SetIsNodeChecked(cn, Value);
            const bool handedOn = NodeChecked(cn);
            if (Value || (!GetIsNodeChecked(Node) && !IsGroupNode(*Node)))
                zInclude(cn->GetKey());
            else
                zExclude(cn->GetKey());
            // A second time would change nothing, and cost twice as much at each level.
            if (!handedOn && cn->GetChildren().Count() > 0) SetChildrenChecked(cn, Value);
        }
        result = true;
    });
}

void ProjectView::CheckAll() {
    Procedure(*this, "CheckAll", [&](Frame&) {
        for (const auto& node : GetNodes()) {
            if (node->GetParent()) continue;
            SetChildrenChecked(node, true);
            zInclude(node->GetKey());
        }
    });
}

void ProjectView::UnCheckAll() {
    Procedure(*this, "UnCheckAll", [&](Frame&) {
        for (const auto& node : GetNodes())
            if (!node->GetParent()) SetChildrenChecked(node, false);
    });
}

void ProjectView::CheckByAccess(const std::string& Access) {
    Procedure(*this, "CheckByAccess", [&](Frame& frame) {
        Watch watchAccess(frame, "Access", Access);
        for (const auto& n : GetNodes()) {
            if (IsGroupNode(*n)) continue;
            const Ref<Object> obj = zProviderOf(n)->GetItem(n->GetKey());
            std::string access;
            if (!Ignoring([&] { access = obj->Get("Access").ToText(); })) continue;
            SetIsNodeChecked(n, EqualIgnoringCase(access, Access));
            NodeChecked(n);
        }
    });
}

void ProjectView::ExcludeSiblingNodes(const Ref<NamespaceProvider>& provider,
                                      const Ref<TreeNode>& Node) {
    Procedure(*this, "ExcludeSiblingNodes", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        for (const auto& child : Node->GetParent()->GetChildren())
            if (child != Node) SetItemExcludeValue(provider, child->GetKey(), true);
    });
}

void ProjectView::SetItemExcludeValue(const Ref<NamespaceProvider>& provider,
                                      const std::string& qName, bool Value) {
    Procedure(*this, "SetItemExcludeValue", [&](Frame& frame) {
        Watch watchName(frame, "qName", qName);
        Watch watchValue(frame, "Value", Value);
        const Ref<Object> obj = provider->GetItem(qName);
        if (Value)
            zExclude(qName);
        else
            zInclude(qName);
        Ignoring([&] { obj->Set("IncludeFlag", !Value); });
        Ignoring([&] { obj->Set("ExcludeFlag", Value); });
    });
}

bool ProjectView::CanSetRoot(const Ref<TreeNode>& Node) {
    return Procedure<bool>(*this, "CanSetRoot", [&](bool& result, Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        if (IsGroupNode(*Node)) return;
        result = zDefinitionOf(Node)->TreeFlags.find('r') != std::string::npos;
    });
}

void ProjectView::SetRoot(const Ref<TreeNode>& Node, bool IsRoot) {
    Procedure(*this, "SetRoot", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        Watch watchRoot(frame, "IsRoot", IsRoot);
        Ref<TreeNode> Parent;
        if (Node) {
            Parent = Node->GetParent();
            if (zDefinitionOf(Node)->TreeFlags.find('r') == std::string::npos) return;
        }
        const TreeChildren siblings = Parent ? Parent->GetChildren() : tvwProject->GetTopLevel();
        for (const auto& n : siblings) {
            const Ref<Object> obj = zProviderOf(n)->GetItem(n->GetKey());
            Ignoring([&] { obj->Set("RootFlag", n == Node && IsRoot); });
            n->SetBold(n == Node);
        }
    });
}

void ProjectView::tvwProject_KeyUp(int& KeyCode, int Shift) {
    Procedure(*this, "tvwProject_KeyUp", [&](Frame& frame) {
        Watch watchKey(frame, "KeyCode", KeyCode);
        Watch watchShift(frame, "Shift", Shift);
        if (ReverseCheck) SetIsNodeChecked(ReverseCheckNode, !GetIsNodeChecked(ReverseCheckNode));
        if ((Shift & ShiftControl) != 0 && KeyCode == KeyN) {
            KeyCode = KeyNone;
            return;
        }
        Events.KeyUp.Raise(KeyCode, Shift);
    });
}

} // namespace paperkite
