#include "widgets/TreeControl.h"

// What a tree tells its views, and how it holds that back while the redraw is off.

namespace paperkite {

void TreeControl::SetRedraw(bool value) {
    if (mRedraw == value) return;
    mRedraw = value;
    if (value) TellTouchedParents();
}

void TreeControl::TellTouchedParents() {
    const auto parents = std::exchange(mTouchedParents, {});
    const bool topLevel = std::exchange(mTopLevelTouched, false);
    const bool selection = std::exchange(mSelectionTouched, false);
    for (const auto& parent : parents)
        parent->mChildrenTouched = false;
    const auto tell = [&](const Ref<TreeNode>& parent) {
        Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.ChildrenChanged(parent); });
    };
    if (topLevel) tell(nullptr);
    for (const auto& parent : parents)
        if (parent->IsAttached()) tell(parent);
    if (selection) TellSelectionChanged();
}

void TreeControl::TouchChildrenOf(TreeNode* parent) {
    if (!parent) {
        mTopLevelTouched = true;
        return;
    }
    if (parent->mChildrenTouched) return;
    parent->mChildrenTouched = true;
    mTouchedParents.push_back(parent->Self());
}

void TreeControl::TellComing(TreeNode* parent, TreeNode* previous) {
    if (!mRedraw || !HasObservers()) return;
    const Ref<TreeNode> above = Nodes.RefOf(parent);
    const Ref<TreeNode> before = Nodes.RefOf(previous);
    Tell<TreeControlObserver>(
        [&](TreeControlObserver& view) { view.NodeAboutToCome(above, before); });
}

void TreeControl::TellCame(TreeNode& node) {
    if (!mRedraw) {
        TouchChildrenOf(node.mParent);
        return;
    }
    if (!HasObservers()) return;
    const Ref<TreeNode> self = node.Self();
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.NodeCame(self); });
}

void TreeControl::TellGoing(TreeNode& node) {
    if (mEditedNode) UserCancelLabelEdit();
    if (!mRedraw) {
        TouchChildrenOf(node.mParent);
        return;
    }
    if (!HasObservers()) return;
    const Ref<TreeNode> self = node.Self();
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.NodeAboutToGo(self); });
}

void TreeControl::TellWent(TreeNode* parent) {
    if (!mRedraw || !HasObservers()) return;
    const Ref<TreeNode> above = Nodes.RefOf(parent);
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.NodeWent(above); });
}

void TreeControl::TellClearing() {
    mEditedNode = nullptr;
    mTouchedParents.clear();
    if (!mRedraw) mTopLevelTouched = true;
}

void TreeControl::TellCleared() {
    // Views ask for the selection when they are told, and its node is gone by now.
    mSelected = nullptr;
    if (!mRedraw) return;
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.ChildrenChanged(nullptr); });
}

void TreeControl::TellNodeChanged(TreeNode& node) {
    if (!mRedraw) {
        TouchChildrenOf(node.mParent);
        return;
    }
    if (!HasObservers()) return;
    const Ref<TreeNode> self = node.Self();
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.NodeChanged(self); });
}

void TreeControl::TellExpansionChanged(TreeNode& node) {
    if (!mRedraw) {
        TouchChildrenOf(node.mParent);
        return;
    }
    const Ref<TreeNode> self = node.Self();
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.NodeExpansionChanged(self); });
}

void TreeControl::TellSelectionChanged() {
    if (!mRedraw) {
        mSelectionTouched = true;
        return;
    }
    Tell<TreeControlObserver>([](TreeControlObserver& view) { view.SelectionChanged(); });
}

void TreeControl::TellWantsToBeSeen(const Ref<TreeNode>& node) {
    if (!mRedraw) return;
    Tell<TreeControlObserver>([&](TreeControlObserver& view) { view.NodeWantsToBeSeen(node); });
}

} // namespace paperkite
