#pragma once

#include <cstddef>
#include <string_view>

namespace paperkite {

/// How deep a text may nest. Browsers stop at 512; the parser's time grows with the depth.
inline constexpr std::size_t kDeepestNesting = 20'000;

/// Finds where a text begins to nest deeper than a bound, without parsing it: tags that HTML closes
/// by itself (paragraphs, items, cells) count as closed. Takes one pass. Gives the offset of the
/// tag, or npos.
std::size_t FindTooDeep(std::string_view html, std::size_t deepest = kDeepestNesting);

} // namespace paperkite
