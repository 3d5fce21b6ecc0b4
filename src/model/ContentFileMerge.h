#pragma once

#include "model/XmlReader.h"
#include "model/XmlTreeMerge.h"

#include <cstddef>

namespace paperkite {

/// Attributes of a comment that one side of a merge wrote and the other side changed or deleted.
inline constexpr const char* kConflictAttribute = "conflict";         ///< "ours" or "theirs"
inline constexpr const char* kConflictIdAttribute = "conflictid";     ///< the Id that both had
inline constexpr const char* kConflictBaseAttribute = "conflictbase"; ///< the text before both

/// Merges the comments of Content Files. A comment is the same on both sides when its item and its
/// Id are, or when only one with that Id went and came: then it was moved to another item.
class ContentFileMerge {
public:
    XmlFile Merge(const ThreeVersions<XmlFile>& versions);

    std::size_t GetConflicts() const { return mConflicts; }

private:
    struct Entry;
    class Side;

    void MergeComment(const ThreeVersions<Entry>& versions, std::vector<Entry>& result);
    bool MergeFields(const ThreeVersions<Entry>& versions, Entry& result) const;
    void KeepBoth(const ThreeVersions<Entry>& versions, std::vector<Entry>& result);

    std::size_t mConflicts = 0;
};

} // namespace paperkite
