#pragma once

#include <string_view>

namespace paperkite {

/// 1 when a text begins with the scheme of an address ("http:", "mailto:", "ms-its:"), else 0. Only
/// the form counts, not whether anybody knows the scheme; a single letter is a drive.
int PathIsURL(std::string_view path);

} // namespace paperkite
