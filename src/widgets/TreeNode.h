#pragma once

#include "foundation/Ref.h"
#include "widgets/Control.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace paperkite {

class TreeChildren;
class TreeControl;
class TreeNodes;

/// One node of a TreeControl; made by TreeNodes::Add, owned by its tree.
///
/// A node that was deleted, or cleared with its tree, or whose tree is gone, is detached: using it
/// raises run-time error 91. Only IsAttached may be asked of it.
class TreeNode {
public:
    TreeNode() = default;
    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    bool IsAttached() const { return mTree != nullptr; }

    /// Unique in the tree, compared exactly; empty for a node that has none.
    const std::string& GetKey() const { return Attached().mKey; }

    const std::string& GetText() const { return Attached().mText; }
    void SetText(const std::string& value);

    /// Anything that the component wants to keep with the node.
    const std::string& GetTag() const { return TextOr(Attached().mTag); }
    void SetTag(const std::string& value);

    /// Key into the tree's image list.
    const std::string& GetImage() const { return TextOr(Attached().mImage); }
    void SetImage(const std::string& value);

    /// Key of the image that an expanded node shows; empty for the same as Image.
    const std::string& GetExpandedImage() const { return TextOr(Attached().mExpandedImage); }
    void SetExpandedImage(const std::string& value);

    /// Nothing for a top-level node.
    Ref<TreeNode> GetParent() const;
    /// The first child, or nothing.
    Ref<TreeNode> GetChild() const;
    Ref<TreeNode> GetLastChild() const;
    /// The neighbours among the siblings, or nothing.
    Ref<TreeNode> GetNext() const;
    Ref<TreeNode> GetPrevious() const;
    TreeChildren GetChildren() const;

    /// Whether the node has children, so that the author can open it.
    bool GetIsExpandable() const { return Attached().mChildCount > 0; }

    bool GetExpanded() const { return Attached().mExpanded; }
    /// Opening raises Expanding before and Expand after, closing raises Collapse after. A handler
    /// of Expanding may add and delete nodes; if it opened, deleted or emptied the node itself,
    /// nothing more happens. A node without children does not open; its Expanding is still raised,
    /// since a handler may bring the children.
    void SetExpanded(bool value);

    bool GetSelected() const;
    /// True makes it the tree's selected node; False takes the selection away if it has it.
    void SetSelected(bool value);

    bool GetBold() const { return Attached().mBold; }
    void SetBold(bool value);

    Colour GetForeColor() const;
    void SetForeColor(const Colour& value);

    bool GetChecked() const { return Attached().mChecked; }
    /// Raises nothing: only the author's own click raises NodeCheck.
    void SetChecked(bool value);

    /// Position in TreeNodes, from 1.
    std::size_t GetIndex() const;

    /// Takes the node with all below it out of the tree. A selection among them becomes nothing,
    /// which raises SelectionChange.
    void Delete();

    /// Opens all ancestors (raising as SetExpanded does) and scrolls the node into sight.
    void EnsureVisible();

private:
    friend class TreeChildren;
    friend class TreeControl;
    friend class TreeNodes;

    const TreeNode& Attached() const {
        if (!mTree) RaiseDetached();
        return *this;
    }

    static const std::string& TextOr(const std::string* shared) {
        return shared ? *shared : None();
    }

    static const std::string& None();
    [[noreturn]] static void RaiseDetached();
    TreeControl& Tree() const { return *Attached().mTree; }
    Ref<TreeNode> Self() const;
    void SetFlag(bool& flag, bool value);

    // Lean on purpose, since a tree may hold a million: image keys and tags are shared texts of the
    // tree, and the key stands only here (the look-up table holds hashes and slots).
    TreeControl* mTree = nullptr;
    TreeNode* mParent = nullptr;
    TreeNode* mFirstChild = nullptr;
    TreeNode* mLastChild = nullptr;
    TreeNode* mNext = nullptr;
    TreeNode* mPrevious = nullptr;
    const std::string* mTag = nullptr;
    const std::string* mImage = nullptr;
    const std::string* mExpandedImage = nullptr;
    std::string mKey;
    std::string mText;
    std::uint32_t mSlot = 0;
    std::uint32_t mChildCount = 0;
    std::uint32_t mForeColor = 0;
    bool mHasForeColor = false;
    bool mExpanded = false;
    bool mBold = false;
    bool mChecked = false;
    bool mChildrenTouched = false;
};

/// The children of one node, or the top-level nodes: a look at them, which holds none.
class TreeChildren {
public:
    TreeChildren(const TreeControl& tree, const TreeNode* parent) : mTree(&tree), mParent(parent) {}

    std::size_t Count() const;
    /// From 1, in order; takes as long as the position is high. Error 9 outside.
    Ref<TreeNode> Item(std::size_t position) const;

    class Walk {
    public:
        explicit Walk(Ref<TreeNode> node) : mNode(std::move(node)) {}

        const Ref<TreeNode>& operator*() const { return mNode; }

        /// The walk ends when its node was deleted under way.
        Walk& operator++();

        bool operator==(const Walk& other) const { return mNode == other.mNode; }

    private:
        Ref<TreeNode> mNode;
    };

    Walk begin() const;

    Walk end() const { return Walk(nullptr); }

private:
    const TreeControl* mTree;
    const TreeNode* mParent;
};

} // namespace paperkite
