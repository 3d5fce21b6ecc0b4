#pragma once

#include "foundation/Object.h"
#include "widgets/TreeControl.h"

#include <string>

namespace paperkite {

/// Lets an author choose an item of the code in a tree, whose levels come when they are opened. It
/// needs of an item: QualifiedName and Name, and, where it has them, Overload, Parent, HasItems,
/// Items and ImageKey.
class ItemTree {
public:
    explicit ItemTree(const Ref<TreeControl>& tree);

    /// Shows the items from the root of this one on. The same root again changes nothing.
    void ShowAround(const Ref<Object>& item);
    /// Opens the tree down to an item and selects it; false when there is none of that name.
    bool Reveal(const std::string& qualifiedName);
    /// The qualified name of the selected item; empty for none.
    std::string GetChosen() const;

private:
    void AddNode(const Ref<TreeNode>& parent, const Ref<Object>& item);
    void FillNode(const Ref<TreeNode>& node);

    Ref<TreeControl> mTree;
    Ref<Object> mRoot;
    Connection mExpanding;
};

/// A member of an item as a text; empty where the item has no such member.
std::string TextOfItem(const Ref<Object>& item, const char* member);

} // namespace paperkite
