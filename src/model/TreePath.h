#pragma once

#include "widgets/TreeControl.h"

#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Which nodes of a tree are open and which is selected, by their keys, so that it survives a
/// rebuild of the tree. As text: one line a node, "open:" or "selected:" and the key, the selected
/// node's ancestors before it.
class TreePath {
public:
    static TreePath Of(const TreeControl& tree);
    static TreePath FromText(std::string_view text);
    std::string ToText() const;

    /// Opens what was open, from the top down, so that nodes which bring their children when they
    /// open are found; closes the rest; selects what was selected, or its nearest ancestor that is
    /// still there. With nothing recorded the tree is left as it is.
    void Apply(TreeControl& tree) const;

private:
    void Open(TreeControl& tree) const;
    void CloseOthers(TreeControl& tree) const;
    Ref<TreeNode> FindSelected(TreeControl& tree) const;

    // A parent comes before its children.
    std::vector<std::string> mOpen;
    // From the top down; the last is the selected node.
    std::vector<std::string> mSelected;
};

} // namespace paperkite
