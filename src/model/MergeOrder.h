#pragma once

#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// The order in which a merge writes what it keeps, each entry known by a key of its own.
///
/// Entries of the base stand as in the side that put them in another order, or as in the base.
/// What a side added stands behind the same neighbour as there; where both added something, the
/// keys decide, so that exchanging the sides changes nothing.
std::vector<std::string> MergeOrder(const std::vector<std::string>& base,
                                    const std::vector<std::string>& ours,
                                    const std::vector<std::string>& theirs,
                                    const std::function<bool(const std::string&)>& isKept);

} // namespace paperkite
