#include "itemtree/ProjectView.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "foundation/Utilities.h"

#include <functional>

namespace paperkite {

namespace {

constexpr const char* kClosedGroup = "Closed";
constexpr const char* kOpenGroup = "Open";

using Step = Ref<TreeNode> (TreeNode::*)() const;

/// Selects the first sibling in a direction that is no group and, where wanted, not bold.
void MoveAmongSiblings(const Ref<TreeNode>& from, Step step, bool skipBold) {
    if (!from) return;
    for (Ref<TreeNode> nn = ((*from).*step)(); nn; nn = ((*nn).*step)()) {
        if ((nn->GetBold() && skipBold) || nn->GetImage() == kClosedGroup) continue;
        nn->SetSelected(true);
        return;
    }
}

} // namespace

bool ProjectView::SelectItem(const std::string& QualifiedName) {
    return Procedure<bool>(*this, "SelectItem", [&](bool& result, Frame& frame) {
        Watch watchName(frame, "QualifiedName", QualifiedName);
        if (Utilities::ContainsObject(GetNodes(), QualifiedName)) {
            GetNodes().Item(QualifiedName)->SetSelected(true);
            result = true;
            return;
        }
        const auto a = Split(Utilities::Token(QualifiedName, ":", 1), "~");
        std::string sTmp;
        Local watchTmp(frame, "sTmp", sTmp);
        Ref<TreeNode> node;
        for (const std::string& step : a) {
            if (!sTmp.empty()) sTmp += "~";
            sTmp += step;
            node = GetNodes().Find(sTmp);
            if (!node) return;
            if (!node->GetExpanded()) node->SetExpanded(true);
        }
        if (!node) return;
        tvwProject->SetSelectedItem(node);
        result = true;
    });
}

void ProjectView::NextItem(bool UnCommented) {
    Procedure(*this, "NextItem", [&](Frame& frame) {
        Watch watchUnCommented(frame, "UnCommented", UnCommented);
        MoveToNextItem(UnCommented);
    });
}

void ProjectView::PreviousItem(bool UnCommented) {
    Procedure(*this, "PreviousItem", [&](Frame& frame) {
        Watch watchUnCommented(frame, "UnCommented", UnCommented);
        MoveToPreviousItem(UnCommented);
    });
}

void ProjectView::MoveToNextItem(bool SkipBold) {
    Procedure(*this, "MoveToNextItem", [&](Frame& frame) {
        Watch watchSkipBold(frame, "SkipBold", SkipBold);
        MoveAmongSiblings(GetSelectedItem(), &TreeNode::GetNext, SkipBold);
    });
}

void ProjectView::MoveToPreviousItem(bool OnlyNonBold) {
    Procedure(*this, "MoveToPreviousItem", [&](Frame& frame) {
        Watch watchOnlyNonBold(frame, "OnlyNonBold", OnlyNonBold);
        MoveAmongSiblings(GetSelectedItem(), &TreeNode::GetPrevious, OnlyNonBold);
    });
}

Ref<TreeNode> ProjectView::NextNode(const Ref<TreeNode>& n, bool NotToChild) {
    return Procedure<Ref<TreeNode>>(*this, "NextNode", [&](Ref<TreeNode>& result, Frame& frame) {
        Watch watchNode(frame, "n", n);
        Watch watchNotToChild(frame, "NotToChild", NotToChild);
        Ref<TreeNode> from = n;
        for (bool descend = !NotToChild; from; from = from->GetParent(), descend = false) {
            if (!from->GetExpanded()) {
                // Opening loads what the node has not loaded yet.
                from->SetExpanded(true);
                from->SetExpanded(false);
            }
            result = descend ? from->GetChild() : Ref<TreeNode>();
            if (!result) result = from->GetNext();
            if (result) return;
        }
    });
}

Ref<TreeNode> ProjectView::PreviousNode(const Ref<TreeNode>& n) {
    return Procedure<Ref<TreeNode>>(*this, "PreviousNode",
                                    [&](Ref<TreeNode>& result, Frame& frame) {
                                        Watch watchNode(frame, "n", n);
                                        if (!n) return;
                                        const Ref<TreeNode> sibling = n->GetPrevious();
                                        if (!sibling)
                                            result = n->GetParent();
                                        else if (sibling->GetChild())
                                            result = LastChild(sibling->GetChild());
                                        else
                                            result = sibling;
                                    });
}

Ref<TreeNode> ProjectView::LastChild(const Ref<TreeNode>& n) {
    return Procedure<Ref<TreeNode>>(*this, "LastChild", [&](Ref<TreeNode>& result, Frame& frame) {
        Watch watchNode(frame, "n", n);
        result = n;
        while (true) {
            if (const Ref<TreeNode> parent = result->GetParent())
                result = parent->GetLastChild();
            else
                while (const Ref<TreeNode> next = result->GetNext())
                    result = next;
            const Ref<TreeNode> child = result->GetChild();
            if (!child) return;
            result = child;
        }
    });
}

std::string ProjectView::GetTreePath() {
    return Procedure<std::string>(*this, "GetTreePath", [&](std::string& result, Frame&) {
        result = Required(CurrentServices().ControlHelper).GetTreePath(*tvwProject);
    });
}

void ProjectView::SetTreePath(const std::string& Path) {
    Procedure(*this, "SetTreePath", [&](Frame& frame) {
        Watch watchPath(frame, "Path", Path);
        Required(CurrentServices().ControlHelper).SetTreePath(*tvwProject, Path);
    });
}

Ref<Object> ProjectView::GetObjectFromQualifiedName(const std::string& QualifiedName) const {
    return Procedure<Ref<Object>>(
        *this, "GetObjectFromQualifiedName", [&](Ref<Object>& result, Frame& frame) {
            Watch watchName(frame, "QualifiedName", QualifiedName);
            const Ref<NamespaceDef> nd = mNamespaceDefs->Item(1);
            result = GetKiteProject()->NamespaceProvider(nd->Moniker)->GetItem(QualifiedName);
        });
}

void ProjectView::HighlightCommentedNodes() {
    Procedure(*this, "HighlightCommentedNodes", [&](Frame&) {
        if (!mHighlightCommentedItems) return;
        for (const auto& n : GetNodes()) {
            if (IsPlaceholderKey(n->GetKey()) || n->GetBold()) continue;
            if (n->GetImage() == kClosedGroup || n->GetImage() == kOpenGroup) continue;
            const Ref<Object> obj = GetObjectFromQualifiedName(n->GetKey());
            if (!obj) continue;
            const Ref<Object> comments = obj->Get("TaggedComments").ToObject();
            n->SetBold(comments->Get("UnDeletedCount").ToInteger() > 0);
        }
    });
}

void ProjectView::SetSelectedItem(const Ref<TreeNode>& value) {
    Procedure(*this, "SelectedItem", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        tvwProject->SetSelectedItem(value);
    });
}

void ProjectView::SetHighlightCommentedItems(bool value) {
    mHighlightCommentedItems = value;
    zNoteChange("HighlightCommentedItems");
}

void ProjectView::tvwProject_NodeClick(const Ref<TreeNode>& Node) {
    Procedure(*this, "tvwProject_NodeClick", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        if (!Node) return;
        if (GetAutoExpandChildren()) Node->SetExpanded(true);
        const Ref<TreeNode> selected = GetSelectedItem();
        Dock->Commands.Item("Next")->SetEnabled(selected != GetNodes().GetLast());
        Dock->Commands.Item("Previous")->SetEnabled(selected != GetNodes().GetFirst());
        Events.NodeClick.Raise(Node);
    });
}

} // namespace paperkite
