#include "designers/ItemTree.h"

#include "foundation/ObjectCollection.h"

namespace paperkite {

namespace {

/// Stands below a node that can be opened until it is; no qualified name ends so.
constexpr const char* kNotYet = "~";

Value MemberOf(const Ref<Object>& item, const char* member) {
    Value value;
    Ignoring([&] { value = item->Get(member); });
    return value;
}

Ref<Object> RootOf(Ref<Object> item) {
    while (item) {
        const Value parent = MemberOf(item, "Parent");
        if (!parent.IsObject() || !parent.ToObject()) break;
        item = parent.ToObject();
    }
    return item;
}

} // namespace

std::string TextOfItem(const Ref<Object>& item, const char* member) {
    std::string text;
    Ignoring([&] { text = item->Get(member).ToText(); });
    return text;
}

ItemTree::ItemTree(const Ref<TreeControl>& tree) : mTree(tree) {
    mExpanding = tree->Events.Expanding.Connect(
        [this](const Ref<TreeNode>& node) { Ignoring([&] { FillNode(node); }); });
}

void ItemTree::ShowAround(const Ref<Object>& item) {
    const Ref<Object> root = RootOf(item);
    if (root == mRoot) return;
    mRoot = root;
    mTree->Nodes.Clear();
    if (!root) return;
    AddNode(nullptr, root);
    if (const auto first = mTree->Nodes.GetFirst()) first->SetExpanded(true);
}

void ItemTree::AddNode(const Ref<TreeNode>& parent, const Ref<Object>& item) {
    const std::string key = TextOfItem(item, "QualifiedName");
    if (key.empty() || mTree->Nodes.Contains(key)) return;
    const auto node = mTree->Nodes.Add(
        parent, parent ? TreeRelationship::Child : TreeRelationship::Last, key,
        TextOfItem(item, "Name") + TextOfItem(item, "Overload"), TextOfItem(item, "ImageKey"));
    bool hasItems = false;
    Ignoring([&] { hasItems = item->Get("HasItems").ToBoolean(); });
    if (hasItems) mTree->Nodes.Add(node, TreeRelationship::Child, key + kNotYet, "…");
}

void ItemTree::FillNode(const Ref<TreeNode>& node) {
    const auto waiting = mTree->Nodes.Find(node->GetKey() + kNotYet);
    if (!waiting) return;
    Ref<Object> item = mRoot;
    // Items are found from the root down, as no provider is at hand here.
    for (std::string path = node->GetKey(); item && TextOfItem(item, "QualifiedName") != path;) {
        Ref<Object> next;
        const auto items = MemberOf(item, "Items");
        if (!items.IsObject()) break;
        items.ToObject()->Enumerate([&](const Value& child) {
            const std::string name = TextOfItem(child.ToObject(), "QualifiedName");
            if (path == name || path.starts_with(name + "~")) next = child.ToObject();
            return !next;
        });
        item = next;
    }
    if (item)
        if (const auto items = MemberOf(item, "Items"); items.IsObject())
            items.ToObject()->Enumerate([&](const Value& child) {
                AddNode(node, child.ToObject());
                return true;
            });
    waiting->Delete();
}

bool ItemTree::Reveal(const std::string& qualifiedName) {
    for (std::size_t cut = qualifiedName.find('~'); cut != qualifiedName.npos;
         cut = qualifiedName.find('~', cut + 1))
        if (const auto node = mTree->Nodes.Find(qualifiedName.substr(0, cut)))
            node->SetExpanded(true);
    const auto node = mTree->Nodes.Find(qualifiedName);
    if (!node) return false;
    node->SetSelected(true);
    node->EnsureVisible();
    return true;
}

std::string ItemTree::GetChosen() const {
    const auto node = mTree->GetSelectedItem();
    return node && !node->GetKey().ends_with(kNotYet) ? node->GetKey() : std::string();
}

} // namespace paperkite
