#pragma once

#include <string>
#include <string_view>

namespace paperkite {

/// True when the text is well-formed UTF-8: no overlong forms, no surrogates, nothing above
/// U+10FFFF.
bool IsValidUtf8(std::string_view text);

/// The text fit for a message: what is not UTF-8 and control characters become U+FFFD.
std::string PrintableUtf8(std::string_view text);

} // namespace paperkite
