#pragma once

#include "foundation/Ref.h"
#include "widgets/TreeNode.h"

#include <cstdint>
#include <functional>
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
    Ref<TreeNode> Add(const Ref<TreeNode>& relative, TreeRelationship relationship, std::string key,
                      std::string text, const std::string& image = {});

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

    /// Where the node of a key stands in mSlots: an open hash table of a power of two entries,
    /// never more than three in four of them taken. An entry keeps its key's hash, so that growing
    /// looks at no node.
    class KeyTable {
    public:
        static constexpr std::uint32_t kNoSlot = 0xFFFFFFFF;

        static std::uint32_t HashOf(std::string_view key) {
            const std::size_t hash = std::hash<std::string_view>{}(key);
            return static_cast<std::uint32_t>(hash ^ (hash >> 32));
        }

        /// The slot whose node `isWanted`, or kNoSlot.
        template <class Test>
        std::uint32_t Find(std::uint32_t hash, const Test& isWanted) const;
        void Insert(std::uint32_t hash, std::uint32_t slot);
        void Erase(std::uint32_t hash, std::uint32_t slot);
        template <class Map>
        void Renumber(const Map& newSlot);
        void Clear() { *this = {}; }

    private:
        struct Entry {
            std::uint32_t Hash = 0;
            std::uint32_t Slot = kNoSlot;
        };

        std::size_t Mask() const { return mEntries.size() - 1; }
        void Place(Entry entry);
        void Grow();

        std::vector<Entry> mEntries;
        std::size_t mCount = 0;
    };

    Ref<TreeNode> RefOf(const TreeNode* node) const;
    const std::string* Shared(const std::string& text, const std::string*& last);
    void CheckRelative(const Ref<TreeNode>& relative) const;
    void Link(TreeNode& node, TreeNode* relative, TreeRelationship relationship);
    void LinkAt(TreeNode& node, TreeNode* parent, TreeNode* previous);
    void Unlink(TreeNode& node);
    void DetachSubtree(TreeNode& node);
    void Detach(TreeNode& node);
    void DetachAll();
    std::uint32_t SlotOf(std::string_view key) const;
    std::uint32_t SlotOf(std::string_view key, std::uint32_t hash) const;
    void Sweep() const;
    std::size_t PositionOf(const TreeNode& node) const;

    TreeControl& mTree;
    // Deleted nodes leave a gap until the next look-up by position.
    mutable std::vector<Ref<TreeNode>> mSlots;
    mutable KeyTable mByKey;
    std::unordered_set<std::string> mSharedTexts;
    const std::string* mLastTag = nullptr;
    const std::string* mLastImage = nullptr;
    std::size_t mCount = 0;
    mutable std::size_t mWalks = 0;
    TreeNode* mFirstTop = nullptr;
    TreeNode* mLastTop = nullptr;
    std::uint32_t mTopCount = 0;
};

} // namespace paperkite
