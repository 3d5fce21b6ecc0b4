#pragma once

#include "foundation/Ref.h"
#include "widgets/TreeNode.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace paperkite {

/// Where a new node stands to the relative that TreeNodes::Add is given.
enum class TreeRelationship {
    First,    ///< before all siblings of the relative
    Last,     ///< behind all siblings of the relative
    Next,     ///< right behind the relative
    Previous, ///< right before the relative
    Child,    ///< last child of the relative
};

/// All nodes of a tree, in the order in which they were added, which is the order of positions
/// (from 1) and of walking. Adding, finding, deleting take constant time, positions too between
/// deletions. Adding and deleting while walking is safe.
class TreeNodes {
public:
    explicit TreeNodes(TreeControl& tree);
    TreeNodes(const TreeNodes&) = delete;
    TreeNodes& operator=(const TreeNodes&) = delete;
    ~TreeNodes();

    /// Adds a node; without a relative it goes to the end of the top level. A key that is already
    /// there raises error 457 and leaves nothing behind; a relative that is detached or of another
    /// tree raises error 91 or 5.
    Ref<TreeNode> Add(const Ref<TreeNode>& relative, TreeRelationship relationship,
                      const std::string& key, const std::string& text,
                      const std::string& image = {});

    /// Raises error 5 for a key, error 9 for a position that is not there.
    Ref<TreeNode> Item(const std::string& key) const;
    Ref<TreeNode> Item(std::size_t position) const;

    /// The node of that key, or nothing: a look-up that never raises.
    Ref<TreeNode> Find(std::string_view key) const;
    bool Contains(std::string_view key) const;

    std::size_t Count() const { return mCount; }

    /// Detaches all nodes. A selection becomes nothing, which raises SelectionChange.
    void Clear();
    void Remove(const std::string& key);

    /// The first of the top-level nodes, or nothing in an empty tree.
    Ref<TreeNode> GetFirst() const;
    /// The last node in the order of positions, that is, the one added last; or nothing.
    Ref<TreeNode> GetLast() const;

    class Walk {
    public:
        Walk(const TreeNodes& nodes, std::size_t slot);
        Walk(const Walk& other);
        Walk& operator=(const Walk&) = delete;
        ~Walk();

        Ref<TreeNode> operator*() const { return mNodes->mSlots[mSlot]; }

        Walk& operator++();

        /// All ends are equal, whatever came or went meanwhile.
        bool operator==(const Walk& other) const;

    private:
        void SkipGaps();

        bool AtEnd() const { return mSlot >= mNodes->mSlots.size(); }

        const TreeNodes* mNodes;
        std::size_t mSlot;
    };

    Walk begin() const { return Walk(*this, 0); }

    Walk end() const { return Walk(*this, static_cast<std::size_t>(-1)); }

private:
    friend class TreeChildren;
    friend class TreeControl;
    friend class TreeNode;

    struct KeyHash {
        using is_transparent = void;

        std::size_t operator()(std::string_view key) const {
            return std::hash<std::string_view>{}(key);
        }

        std::size_t operator()(const TreeNode* node) const { return (*this)(node->mKey); }
    };

    struct KeyEqual {
        using is_transparent = void;

        static std::string_view Of(std::string_view key) { return key; }

        static std::string_view Of(const TreeNode* node) { return node->mKey; }

        template <class Left, class Right>
        bool operator()(const Left& left, const Right& right) const {
            return Of(left) == Of(right);
        }
    };

    Ref<TreeNode> RefOf(const TreeNode* node) const;
    const std::string* Shared(const std::string& text);
    void CheckRelative(const Ref<TreeNode>& relative) const;
    void Link(TreeNode& node, TreeNode* relative, TreeRelationship relationship);
    void LinkAt(TreeNode& node, TreeNode* parent, TreeNode* previous);
    void Unlink(TreeNode& node);
    void DetachSubtree(TreeNode& node);
    void Detach(TreeNode& node);
    void DetachAll();
    void Sweep() const;
    std::size_t PositionOf(const TreeNode& node) const;

    TreeControl& mTree;
    // Deleted nodes leave a gap until the next look-up by position.
    mutable std::vector<Ref<TreeNode>> mSlots;
    std::unordered_set<TreeNode*, KeyHash, KeyEqual> mByKey;
    std::unordered_set<std::string> mSharedTexts;
    std::size_t mCount = 0;
    mutable std::size_t mWalks = 0;
    TreeNode* mFirstTop = nullptr;
    TreeNode* mLastTop = nullptr;
    std::uint32_t mTopCount = 0;
};

} // namespace paperkite
