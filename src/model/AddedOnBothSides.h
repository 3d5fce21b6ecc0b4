#pragma once

#include "model/MergeEntry.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace paperkite {

/// What becomes of comments of one item and tag that each side of a merge added for itself, under
/// Ids of their own. Of two that say the same, one is enough. Two general descriptions of an item
/// that had none are a conflict; of other tags an item may have several.
class AddedOnBothSides {
public:
    AddedOnBothSides();

    /// The comments of a merge in the order of their items and tags; what is not needed goes.
    void Settle(std::vector<MergeEntry>& entries);

    std::size_t GetConflicts() const { return mConflicts; }

private:
    bool IsGeneral(const std::string& tag) const;
    void SettleRun(MergeEntry* begin, MergeEntry* end);

    std::set<std::string> mGeneralTags;
    std::size_t mConflicts = 0;
};

} // namespace paperkite
