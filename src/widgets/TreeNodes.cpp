#include "widgets/TreeNodes.h"

#include "widgets/TreeControl.h"

#include <utility>

namespace paperkite {

template <class Test>
std::uint32_t TreeNodes::KeyTable::Find(std::uint32_t hash, const Test& isWanted) const {
    if (mEntries.empty()) return kNoSlot;
    for (std::size_t at = hash & Mask(); mEntries[at].Slot != kNoSlot; at = (at + 1) & Mask())
        if (mEntries[at].Hash == hash && isWanted(mEntries[at].Slot)) return mEntries[at].Slot;
    return kNoSlot;
}

void TreeNodes::KeyTable::Insert(std::uint32_t hash, std::uint32_t slot) {
    if (4 * (mCount + 1) > 3 * mEntries.size()) Grow();
    Place({hash, slot});
    ++mCount;
}

void TreeNodes::KeyTable::Place(Entry entry) {
    std::size_t at = entry.Hash & Mask();
    while (mEntries[at].Slot != kNoSlot)
        at = (at + 1) & Mask();
    mEntries[at] = entry;
}

void TreeNodes::KeyTable::Grow() {
    const auto old = std::exchange(mEntries, {});
    mEntries.resize(old.empty() ? 64 : 2 * old.size());
    for (const Entry& entry : old)
        if (entry.Slot != kNoSlot) Place(entry);
}

template <class Map>
void TreeNodes::KeyTable::Renumber(const Map& newSlot) {
    for (Entry& entry : mEntries)
        if (entry.Slot != kNoSlot) entry.Slot = newSlot(entry.Slot);
}

void TreeNodes::KeyTable::Erase(std::uint32_t hash, std::uint32_t slot) {
    std::size_t at = hash & Mask();
    while (mEntries[at].Slot != slot)
        at = (at + 1) & Mask();
    // What follows closes the gap, unless it would then stand before its own place.
    for (std::size_t next = (at + 1) & Mask(); mEntries[next].Slot != kNoSlot;
         next = (next + 1) & Mask()) {
        const std::size_t home = mEntries[next].Hash & Mask();
        if (((next - home) & Mask()) < ((next - at) & Mask())) continue;
        mEntries[at] = mEntries[next];
        at = next;
    }
    mEntries[at] = {};
    --mCount;
}

TreeNodes::TreeNodes(TreeControl& tree) : mTree(tree) {}

TreeNodes::~TreeNodes() {
    DetachAll();
}

Ref<TreeNode> TreeNodes::Add(const Ref<TreeNode>& relative, TreeRelationship relationship,
                             std::string key, std::string text, const std::string& image) {
    CheckRelative(relative);
    const std::uint32_t hash = KeyTable::HashOf(key);
    if (SlotOf(key, hash) != KeyTable::kNoSlot)
        RaiseError(ErrorNumber::KeyAlreadyThere, "The key \"" + key + "\" is already in the tree");
    Ref<TreeNode> node = MakeRef<TreeNode>();
    const bool hasKey = !key.empty();
    node->mKey = std::move(key);
    node->mText = std::move(text);
    node->mImage = Shared(image, mLastImage);
    node->mSlot = static_cast<std::uint32_t>(mSlots.size());
    mSlots.push_back(node);
    if (hasKey) mByKey.Insert(hash, node->mSlot);
    ++mCount;
    Link(*node, relative.get(), relationship);
    mTree.TellCame(*node);
    return node;
}

void TreeNodes::CheckRelative(const Ref<TreeNode>& relative) const {
    if (!relative) return;
    if (&relative->Tree() != &mTree)
        RaiseError(ErrorNumber::InvalidCall, "The relative is a node of another tree");
}

void TreeNodes::Link(TreeNode& node, TreeNode* relative, TreeRelationship relationship) {
    if (!relative) {
        LinkAt(node, nullptr, mLastTop);
        return;
    }
    TreeNode* const parent = relative->mParent;
    switch (relationship) {
    case TreeRelationship::Child:
        LinkAt(node, relative, relative->mLastChild);
        break;
    case TreeRelationship::First:
        LinkAt(node, parent, nullptr);
        break;
    case TreeRelationship::Last:
        LinkAt(node, parent, parent ? parent->mLastChild : mLastTop);
        break;
    case TreeRelationship::Next:
        LinkAt(node, parent, relative);
        break;
    case TreeRelationship::Previous:
        LinkAt(node, parent, relative->mPrevious);
        break;
    }
}

void TreeNodes::LinkAt(TreeNode& node, TreeNode* parent, TreeNode* previous) {
    mTree.TellComing(parent, previous);
    TreeNode*& first = parent ? parent->mFirstChild : mFirstTop;
    TreeNode*& last = parent ? parent->mLastChild : mLastTop;
    TreeNode* const next = previous ? previous->mNext : first;
    node.mTree = &mTree;
    node.mParent = parent;
    node.mPrevious = previous;
    node.mNext = next;
    (previous ? previous->mNext : first) = &node;
    (next ? next->mPrevious : last) = &node;
    ++(parent ? parent->mChildCount : mTopCount);
}

void TreeNodes::Unlink(TreeNode& node) {
    TreeNode* const parent = node.mParent;
    TreeNode*& first = parent ? parent->mFirstChild : mFirstTop;
    TreeNode*& last = parent ? parent->mLastChild : mLastTop;
    (node.mPrevious ? node.mPrevious->mNext : first) = node.mNext;
    (node.mNext ? node.mNext->mPrevious : last) = node.mPrevious;
    --(parent ? parent->mChildCount : mTopCount);
    if (parent && parent->mChildCount == 0) parent->mExpanded = false;
    node.mPrevious = nullptr;
    node.mNext = nullptr;
}

void TreeNodes::DetachSubtree(TreeNode& top) {
    // Without recursion, since a tree may be deeper than the stack.
    TreeNode* node = &top;
    while (node) {
        if (node->mFirstChild) {
            node = node->mFirstChild;
            continue;
        }
        TreeNode* const next = node->mNext;
        TreeNode* const parent = node->mParent;
        const bool last = node == &top;
        if (!last) parent->mFirstChild = next;
        if (!node->mKey.empty()) mByKey.Erase(KeyTable::HashOf(node->mKey), node->mSlot);
        const Ref<TreeNode> kept = std::move(mSlots[node->mSlot]);
        --mCount;
        Detach(*node);
        node = last ? nullptr : next ? next : parent;
    }
    // Mass deletion must not leave a list of gaps behind.
    if (mWalks == 0 && mSlots.size() > 2 * mCount + 64) Sweep();
}

void TreeNodes::Detach(TreeNode& node) {
    node.mTree = nullptr;
    node.mParent = node.mFirstChild = node.mLastChild = node.mNext = node.mPrevious = nullptr;
    node.mTag = node.mImage = node.mExpandedImage = nullptr;
    node.mChildCount = 0;
    node.mExpanded = false;
}

void TreeNodes::DetachAll() {
    mByKey.Clear();
    for (const auto& node : mSlots)
        if (node) Detach(*node);
    mSlots.clear();
    mCount = 0;
    mTopCount = 0;
    mFirstTop = mLastTop = nullptr;
    mSharedTexts.clear();
    mLastTag = mLastImage = nullptr;
}

void TreeNodes::Clear() {
    if (mCount == 0) return;
    mTree.TellClearing();
    const bool hadSelection = mTree.mSelected != nullptr;
    DetachAll();
    mTree.TellCleared();
    if (hadSelection) mTree.SelectionLost();
}

void TreeNodes::Remove(const std::string& key) {
    Item(key)->Delete();
}

Ref<TreeNode> TreeNodes::Item(const std::string& key) const {
    Ref<TreeNode> node = Find(key);
    if (!node) RaiseError(ErrorNumber::InvalidCall, "The tree has no node \"" + key + "\"");
    return node;
}

Ref<TreeNode> TreeNodes::Item(std::size_t position) const {
    if (position < 1 || position > mCount) RaiseError(ErrorNumber::SubscriptOutOfRange);
    if (mSlots.size() != mCount && mWalks == 0) Sweep();
    if (mSlots.size() == mCount) return mSlots[position - 1];
    // A walk is under way, so that the slots must stay where they are.
    std::size_t slot = 0;
    for (;; ++slot)
        if (mSlots[slot] && --position == 0) return mSlots[slot];
}

std::size_t TreeNodes::PositionOf(const TreeNode& node) const {
    if (mSlots.size() != mCount && mWalks == 0) Sweep();
    std::size_t position = 1;
    if (mSlots.size() == mCount) return node.mSlot + position;
    for (std::size_t slot = 0; slot < node.mSlot; ++slot)
        if (mSlots[slot]) ++position;
    return position;
}

void TreeNodes::Sweep() const {
    std::uint32_t slot = 0;
    for (const auto& node : mSlots)
        if (node) node->mSlot = slot++;
    mByKey.Renumber([this](std::uint32_t old) { return mSlots[old]->mSlot; });
    std::erase_if(mSlots, [](const Ref<TreeNode>& node) { return !node; });
}

std::uint32_t TreeNodes::SlotOf(std::string_view key) const {
    return SlotOf(key, KeyTable::HashOf(key));
}

std::uint32_t TreeNodes::SlotOf(std::string_view key, std::uint32_t hash) const {
    if (key.empty()) return KeyTable::kNoSlot;
    return mByKey.Find(hash, [&](std::uint32_t slot) { return mSlots[slot]->mKey == key; });
}

Ref<TreeNode> TreeNodes::Find(std::string_view key) const {
    const std::uint32_t slot = SlotOf(key);
    return slot == KeyTable::kNoSlot ? Ref<TreeNode>() : mSlots[slot];
}

bool TreeNodes::Contains(std::string_view key) const {
    return SlotOf(key) != KeyTable::kNoSlot;
}

Ref<TreeNode> TreeNodes::GetFirst() const {
    return RefOf(mFirstTop);
}

Ref<TreeNode> TreeNodes::GetLast() const {
    for (auto node = mSlots.rbegin(); node != mSlots.rend(); ++node)
        if (*node) return *node;
    return nullptr;
}

Ref<TreeNode> TreeNodes::RefOf(const TreeNode* node) const {
    return node ? mSlots[node->mSlot] : Ref<TreeNode>();
}

const std::string* TreeNodes::Shared(const std::string& text, const std::string*& last) {
    if (text.empty()) return nullptr;
    // Neighbours mostly bear the same image and tag.
    if (!last || *last != text) last = &*mSharedTexts.insert(text).first;
    return last;
}

TreeNodes::Walk::Walk(const TreeNodes& nodes, std::size_t slot) : mNodes(&nodes), mSlot(slot) {
    ++mNodes->mWalks;
    SkipGaps();
}

TreeNodes::Walk::Walk(const Walk& other) : mNodes(other.mNodes), mSlot(other.mSlot) {
    ++mNodes->mWalks;
}

TreeNodes::Walk::~Walk() {
    --mNodes->mWalks;
}

TreeNodes::Walk& TreeNodes::Walk::operator++() {
    ++mSlot;
    SkipGaps();
    return *this;
}

bool TreeNodes::Walk::operator==(const Walk& other) const {
    return (AtEnd() && other.AtEnd()) || mSlot == other.mSlot;
}

void TreeNodes::Walk::SkipGaps() {
    while (!AtEnd() && !mNodes->mSlots[mSlot])
        ++mSlot;
}

} // namespace paperkite
