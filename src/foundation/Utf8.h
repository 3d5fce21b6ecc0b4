#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace paperkite {

/// True when the text is well-formed UTF-8: no overlong forms, no surrogates, nothing above
/// U+10FFFF.
bool IsValidUtf8(std::string_view text);

/// Bytes of the well-formed character that begins the text, or 0 when there is none.
std::size_t Utf8CharacterLength(std::string_view text);

/// True when the text is UTF-8 without control characters.
bool IsPrintableUtf8(std::string_view text);

/// The text fit for a message: what is not UTF-8 and control characters become U+FFFD.
std::string PrintableUtf8(std::string_view text);

} // namespace paperkite
