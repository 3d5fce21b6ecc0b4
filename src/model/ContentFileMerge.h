#pragma once

#include "model/MergeEntry.h"
#include "model/XmlReader.h"
#include "model/XmlTreeMerge.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace paperkite {

class MergeKeys;

/// Attributes of a comment that one side of a merge wrote and the other side changed or deleted.
inline constexpr const char* kConflictAttribute = "conflict";         ///< "ours" or "theirs"
inline constexpr const char* kConflictIdAttribute = "conflictid";     ///< what joins the two
inline constexpr const char* kConflictBaseAttribute = "conflictbase"; ///< the text before both
/// Behind the Id of a comment that both had, in the version of theirs.
inline constexpr const char* kTheirsSuffix = "-theirs";

/// Merges the comments of Content Files, in time that grows with the files. A comment is the same
/// on both sides when its item and its Id are, or when only one with that Id went and came: then it
/// was moved to another item. What both sides added is looked at by AddedOnBothSides.
class ContentFileMerge {
public:
    /// Takes the files' parts for the result.
    XmlFile Merge(XmlFile base, XmlFile ours, XmlFile theirs);

    /// Puts two versions of a comment together, without `base` where it is nullptr; nothing where
    /// both wrote another value for the same thing.
    static std::optional<MergeEntry> MergeFields(const MergeEntry* base, const MergeEntry& ours,
                                                 const MergeEntry& theirs);

    std::size_t GetConflicts() const { return mConflicts; }

private:
    class Side;
    /// One comment; what is not there is nullptr.
    struct Versions {
        const MergeEntry* Base;
        MergeEntry* Ours;
        MergeEntry* Theirs;
    };
    using Entries = std::vector<MergeEntry>;

    Entries MergeComments(const Side& base, Side& ours, Side& theirs, const MergeKeys& keys);
    void MergeComment(const Versions& versions, Entries& result);
    void KeepBoth(const Versions& versions, Entries& result);

    std::size_t mConflicts = 0;
};

} // namespace paperkite
