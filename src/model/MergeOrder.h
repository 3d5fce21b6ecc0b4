#pragma once

#include "model/MergeKeys.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace paperkite {

/// The order in which a merge writes what it keeps, each entry known by the number of a key of its
/// own.
///
/// Entries of the base stand as in the side that put them in another order, or as in the base.
/// What a side added stands behind the same neighbour as there; where both added something, the
/// keys decide, so that exchanging the sides changes nothing.
std::vector<std::size_t> MergeOrder(const MergeKeys& keys, const std::vector<std::size_t>& base,
                                    const std::vector<std::size_t>& ours,
                                    const std::vector<std::size_t>& theirs,
                                    const std::function<bool(std::size_t)>& isKept);

} // namespace paperkite
