#include "model/TreePath.h"

#include "foundation/Text.h"
#include "model/StoredText.h"

#include <algorithm>
#include <unordered_set>

namespace paperkite {

namespace {

constexpr std::string_view kOpen = "open:";
constexpr std::string_view kSelected = "selected:";

void Append(std::string& text, std::string_view what, const std::vector<std::string>& keys) {
    for (const std::string& key : keys) {
        text += what;
        text += StoredText::EncodeAttribute(key);
        text += '\n';
    }
}

} // namespace

TreePath TreePath::Of(const TreeControl& tree) {
    TreePath path;
    // Nodes are walked in the order in which they came, parents before children.
    for (const Ref<TreeNode> node : tree.Nodes)
        if (node->GetExpanded() && !node->GetKey().empty()) path.mOpen.push_back(node->GetKey());
    for (Ref<TreeNode> node = tree.GetSelectedItem(); node; node = node->GetParent())
        path.mSelected.push_back(node->GetKey());
    std::reverse(path.mSelected.begin(), path.mSelected.end());
    return path;
}

TreePath TreePath::FromText(std::string_view text) {
    TreePath path;
    for (const std::string& line : Split(text, "\n")) {
        if (line.starts_with(kOpen))
            path.mOpen.push_back(StoredText::Decode(line.substr(kOpen.size())));
        else if (line.starts_with(kSelected))
            path.mSelected.push_back(StoredText::Decode(line.substr(kSelected.size())));
    }
    return path;
}

std::string TreePath::ToText() const {
    std::string text;
    Append(text, kOpen, mOpen);
    Append(text, kSelected, mSelected);
    return text;
}

void TreePath::Apply(TreeControl& tree) const {
    if (mOpen.empty() && mSelected.empty()) return;
    Open(tree);
    CloseOthers(tree);
    if (const Ref<TreeNode> node = FindSelected(tree)) tree.SetSelectedItem(node);
}

void TreePath::Open(TreeControl& tree) const {
    for (const std::string& key : mOpen) {
        const Ref<TreeNode> node = tree.Nodes.Find(key);
        // One node that cannot bring its children keeps no other from opening.
        if (node && !node->GetExpanded()) Ignoring([&node] { node->SetExpanded(true); });
    }
}

void TreePath::CloseOthers(TreeControl& tree) const {
    const std::unordered_set<std::string> open(mOpen.begin(), mOpen.end());
    for (const Ref<TreeNode> node : tree.Nodes)
        if (node->GetExpanded() && !open.contains(node->GetKey())) node->SetExpanded(false);
}

Ref<TreeNode> TreePath::FindSelected(TreeControl& tree) const {
    Ref<TreeNode> found;
    for (const std::string& key : mSelected) {
        Ref<TreeNode> node = tree.Nodes.Find(key);
        if (!node && found && !found->GetExpanded()) {
            // Its parent was closed and has not brought it yet.
            Ignoring([&found] {
                found->SetExpanded(true);
                found->SetExpanded(false);
            });
            node = tree.Nodes.Find(key);
        }
        // A group may be gone while its items stand right under their parent.
        if (node) found = node;
    }
    return found;
}

} // namespace paperkite
