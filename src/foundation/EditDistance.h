#pragma once

#include <cstddef>
#include <string_view>

namespace paperkite {

/// How many letters must be inserted, removed or replaced to make one text of the other; `limit`
/// + 1 stands for anything above the limit.
std::size_t EditDistance(std::string_view left, std::string_view right, std::size_t limit);

} // namespace paperkite
