#include "widgets/TreeControl.h"

namespace paperkite {

TreeControl::TreeControl(std::string name) : Control(std::move(name)) {}

TreeControl::~TreeControl() = default;

Ref<TreeNode> TreeControl::GetSelectedItem() const {
    return Nodes.RefOf(mSelected);
}

void TreeControl::SetSelectedItem(const Ref<TreeNode>& node) {
    if (!Select(node)) return;
    if (node && node->IsAttached() && mSelected == node.get()) Events.NodeClick.Raise(node);
}

// A handler of SelectionChange may select another node, whose own NodeClick has then been raised.
bool TreeControl::Select(const Ref<TreeNode>& node) {
    if (node && &node->Tree() != this)
        RaiseError(ErrorNumber::InvalidCall, "The node stands in another tree");
    if (mSelected == node.get()) return false;
    mSelected = node.get();
    TellSelectionChanged();
    Events.SelectionChange.Raise();
    return true;
}

bool TreeControl::HasSelectionBelow(const TreeNode& node) const {
    for (const TreeNode* walk = mSelected; walk; walk = walk->mParent)
        if (walk == &node) return true;
    return false;
}

void TreeControl::SelectionLost() {
    mSelected = nullptr;
    TellSelectionChanged();
    Events.SelectionChange.Raise();
}

void TreeControl::Open(const Ref<TreeNode>& node) {
    Events.Expanding.Raise(node);
    if (!node->IsAttached() || node->mExpanded || node->mChildCount == 0) return;
    node->mExpanded = true;
    TellExpansionChanged(*node);
    Events.Expand.Raise(node);
}

void TreeControl::Close(const Ref<TreeNode>& node) {
    node->mExpanded = false;
    TellExpansionChanged(*node);
    Events.Collapse.Raise(node);
}

void TreeControl::StartLabelEdit() {
    if (!mSelected) return;
    const Ref<TreeNode> node = GetSelectedItem();
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.LabelEditWanted(node); });
}

bool TreeControl::IsOwn(const Ref<TreeNode>& node) const {
    return node && node->mTree == this;
}

} // namespace paperkite
