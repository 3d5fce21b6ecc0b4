#pragma once

#include "doctypes/source/SourceIndex.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Finds entities by a part of their own names, letter case ignored, quickly enough to be asked at
/// every key: it holds the names in small letters one behind the other, and a question takes one
/// scan of them at most. Takes a byte and a number more than the names' own bytes for each name.
/// It copies what it needs; the indexes may go.
///
///     NameSearch names;
///     names.Add(index);
///     for (const NameSearch::Place& place : names.Find("get", 50)) … index.Name(place.Entity) …
class NameSearch {
public:
    struct Place {
        std::size_t Root = 0; ///< counted from 0 in the order in which they were added
        SourceIndex::Id Entity = SourceIndex::Nothing;

        bool operator==(const Place&) const = default;
    };

    /// Adds the names of all entities of a further root.
    void Add(const SourceIndex& index);

    /// Those whose names are the text, then those that begin with it, then the others that hold it;
    /// each in the order in which they were added, at most so many in all. An empty text is held by
    /// every name. Of those that a filter refuses none is given; it is asked in the order in which
    /// they were added, about those alone that would be given without it.
    using Filter = std::function<bool(const Place& place)>;
    std::vector<Place> Find(std::string_view text, std::size_t most,
                            const Filter& filter = {}) const;

    /// Whether any name holds the text.
    bool Holds(std::string_view text) const;

    /// How many names there are.
    std::size_t Size() const { return mStarts.size(); }
    /// The memory that it takes, in bytes.
    std::size_t Bytes() const;

private:
    class Finding;

    /// The entry whose name stands at an offset; it is that one or a later one.
    std::size_t EntryAt(std::size_t offset, std::size_t first) const;
    std::size_t EndOf(std::size_t entry) const;
    Place PlaceOf(std::size_t entry) const;

    /// Each name between two bytes of zero.
    std::string mNames = std::string(1, '\0');
    /// Where each begins.
    std::vector<std::uint32_t> mStarts;
    /// The entry of each root's first name.
    std::vector<std::size_t> mRoots;
};

} // namespace paperkite
