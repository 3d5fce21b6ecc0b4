#include "widgets/TreeNode.h"

#include "widgets/TreeControl.h"

namespace paperkite {

const std::string& TreeNode::None() {
    static const std::string none;
    return none;
}

void TreeNode::RaiseDetached() {
    RaiseError(ErrorNumber::ObjectNotSet, "The tree node was deleted");
}

Ref<TreeNode> TreeNode::Self() const {
    return Tree().Nodes.RefOf(this);
}

void TreeNode::SetText(const std::string& value) {
    TreeControl& tree = Tree();
    if (mText == value) return;
    mText = value;
    tree.TellNodeChanged(*this);
}

void TreeNode::SetTag(const std::string& value) {
    TreeNodes& nodes = Tree().Nodes;
    mTag = nodes.Shared(value, nodes.mLastTag);
}

void TreeNode::SetImage(const std::string& value) {
    TreeControl& tree = Tree();
    if (GetImage() == value) return;
    mImage = tree.Nodes.Shared(value, tree.Nodes.mLastImage);
    tree.TellNodeChanged(*this);
}

void TreeNode::SetExpandedImage(const std::string& value) {
    TreeControl& tree = Tree();
    if (GetExpandedImage() == value) return;
    mExpandedImage = tree.Nodes.Shared(value, tree.Nodes.mLastImage);
    tree.TellNodeChanged(*this);
}

Ref<TreeNode> TreeNode::GetParent() const {
    return Tree().Nodes.RefOf(mParent);
}

Ref<TreeNode> TreeNode::GetChild() const {
    return Tree().Nodes.RefOf(mFirstChild);
}

Ref<TreeNode> TreeNode::GetLastChild() const {
    return Tree().Nodes.RefOf(mLastChild);
}

Ref<TreeNode> TreeNode::GetNext() const {
    return Tree().Nodes.RefOf(mNext);
}

Ref<TreeNode> TreeNode::GetPrevious() const {
    return Tree().Nodes.RefOf(mPrevious);
}

TreeChildren TreeNode::GetChildren() const {
    return TreeChildren(Tree(), this);
}

void TreeNode::SetExpanded(bool value) {
    TreeControl& tree = Tree();
    if (mExpanded == value) return;
    if (value)
        tree.Open(Self());
    else
        tree.Close(Self());
}

bool TreeNode::GetSelected() const {
    return Tree().mSelected == this;
}

void TreeNode::SetSelected(bool value) {
    if (GetSelected() == value) return;
    mTree->SetSelectedItem(value ? Self() : Ref<TreeNode>());
}

void TreeNode::SetBold(bool value) {
    SetFlag(mBold, value);
}

Colour TreeNode::GetForeColor() const {
    Tree();
    return mHasForeColor ? Colour(mForeColor) : Colour();
}

void TreeNode::SetForeColor(const Colour& value) {
    if (GetForeColor() == value) return;
    mHasForeColor = value.has_value();
    mForeColor = value.value_or(0);
    mTree->TellNodeChanged(*this);
}

void TreeNode::SetChecked(bool value) {
    SetFlag(mChecked, value);
}

void TreeNode::SetFlag(bool& flag, bool value) {
    TreeControl& tree = Tree();
    if (flag == value) return;
    flag = value;
    tree.TellNodeChanged(*this);
}

std::size_t TreeNode::GetIndex() const {
    return Tree().Nodes.PositionOf(*this);
}

void TreeNode::Delete() {
    TreeControl& tree = Tree();
    const Ref<TreeNode> self = Self();
    const Ref<TreeNode> parent = GetParent();
    tree.TellGoing(*this);
    if (!mTree) return;
    const bool hadSelection = tree.HasSelectionBelow(*this);
    tree.Nodes.Unlink(*this);
    tree.Nodes.DetachSubtree(*this);
    // Views ask for the selection when they are told.
    if (hadSelection) tree.mSelected = nullptr;
    tree.TellWent(parent.get());
    if (hadSelection) tree.SelectionLost();
}

void TreeNode::EnsureVisible() {
    const Ref<TreeNode> self = Self();
    std::vector<Ref<TreeNode>> ancestors;
    for (Ref<TreeNode> node = GetParent(); node; node = node->GetParent())
        ancestors.push_back(node);
    for (auto ancestor = ancestors.rbegin(); ancestor != ancestors.rend(); ++ancestor)
        if ((*ancestor)->IsAttached()) (*ancestor)->SetExpanded(true);
    if (mTree) mTree->TellWantsToBeSeen(self);
}

std::size_t TreeChildren::Count() const {
    if (!mParent) return mTree->Nodes.mTopCount;
    mParent->Tree();
    return mParent->mChildCount;
}

Ref<TreeNode> TreeChildren::Item(std::size_t position) const {
    if (position < 1 || position > Count()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    const TreeNode* node = mParent ? mParent->mFirstChild : mTree->Nodes.mFirstTop;
    for (; position > 1; --position)
        node = node->mNext;
    return mTree->Nodes.RefOf(node);
}

TreeChildren::Walk TreeChildren::begin() const {
    return Walk(mParent ? mParent->GetChild() : mTree->Nodes.GetFirst());
}

TreeChildren::Walk& TreeChildren::Walk::operator++() {
    mNode = mNode->IsAttached() ? mNode->GetNext() : Ref<TreeNode>();
    return *this;
}

} // namespace paperkite
