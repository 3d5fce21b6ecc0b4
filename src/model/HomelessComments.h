#pragma once

#include "model/CommentStore.h"
#include "model/CoverageSource.h"
#include "model/ItemDirectory.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

/// Comments whose item is gone from the code (renamed, moved, its signature changed), and the items
/// that are the likeliest new homes.
///
///     for (const auto& homeless : HomelessComments::Find(*store, *provider, *provider))
///         for (const auto& home : homeless.Homes) …
class HomelessComments {
public:
    /// An item that may be the one that is gone.
    struct Home {
        std::string QualifiedName;
        std::string Kind;
        /// Why it is likely ("same name in another place").
        std::string Reason;
        /// 0 to 100.
        int Likeness = 0;
    };

    /// An item that is gone.
    struct Entry {
        std::string QualifiedName;
        /// Tombstones not counted.
        std::size_t Comments = 0;
        /// At most three, the likeliest first; may be empty.
        std::vector<Home> Homes;
    };

    /// Who moves where.
    using Moves = std::vector<std::pair<std::string, std::string>>;
    /// Asked now and then during a long search; false ends it.
    using GoOn = std::function<bool()>;

    /// The names alone, sorted. The cost grows with the number of comments, not with that of items.
    static std::vector<std::string> Names(const CommentStore& store, const CoverageSource& source);

    /// Sorted by name; nothing when the search was ended. The cost grows with the number of items,
    /// and not with that of the homeless.
    static std::vector<Entry> Find(const CommentStore& store, const CoverageSource& source,
                                   const ItemDirectory& items, const GoOn& goOn = {});

    /// What Adopt would move; moves nothing.
    static Moves Plan(const CommentStore& store, const CoverageSource& source,
                      const std::string& gone, const std::string& home);

    /// Moves the comments of an item that is gone to another one, with those of what stood below
    /// it, where the other has the like. Gives who moved where; nothing when there was nothing to
    /// move.
    static Moves Adopt(CommentStore& store, const CoverageSource& source, const std::string& gone,
                       const std::string& home);
};

} // namespace paperkite
