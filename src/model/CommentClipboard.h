#pragma once

#include "foundation/Object.h"

#include <cstddef>
#include <string>
#include <vector>

namespace paperkite {

/// The comments that an author copied from one item, as they were at that moment.
class CommentClipboard {
public:
    /// Takes the item's comments, tombstones left out; without an item nothing changes.
    void Copy(const Ref<Object>& item);

    /// Adds the comments to an item's, as new ones with identities of their own. A flag or a
    /// general description that the item has already is left out; a qualifier that named the item
    /// they came from names this one. Gives how many were added.
    std::size_t Paste(const Ref<Object>& item) const;

    bool IsEmpty() const { return mEntries.empty(); }
    const std::string& GetItemType() const { return mItemType; }
    const std::string& GetQualifiedName() const { return mQualifiedName; }

    /// The comments as plain text for other programs: a line with each tag's name, then its text.
    std::string AsText() const;

private:
    struct Entry {
        std::string TagIdentifier;
        std::string Qualifier;
        std::string Text;
        std::string XMLCommentType;
    };

    std::vector<Entry> mEntries;
    std::string mItemType;
    std::string mItemName;
    std::string mQualifiedName;
};

} // namespace paperkite
