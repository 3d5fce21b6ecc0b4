#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace paperkite {

// What is needed of Unicode: characters out of UTF-8 and back, and letters of the scripts with two
// cases that authors use (Latin, Greek, Cyrillic).

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// The character at `at`, which then stands behind it. Bytes that are no UTF-8 give U+FFFD, one for
/// each stretch that cannot belong to one character. `at` must be inside the text.
char32_t NextCharacter(std::string_view text, std::size_t& at);
/// The character that ends before `at`, which then stands in front of it; `at` must not be 0.
char32_t PreviousCharacter(std::string_view text, std::size_t& at);

/// Whether a byte is not the first one of its character.
inline bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// A text that is longer than `most` bytes, cut where a character begins and with "…" behind it.
std::string Shortened(std::string_view text, std::size_t most);

/// Characters that have no UTF-8 form (surrogates, above U+10FFFF) become U+FFFD.
void AppendCharacter(std::string& text, char32_t character);

/// The text with everything that is no UTF-8 replaced by U+FFFD.
std::string AsUtf8(std::string_view text);
/// Whether AsUtf8 would change nothing.
bool HoldsOnlyUtf8(std::string_view text);

/// Letters, combining marks and digits of all scripts, by their ranges; the underscore is none.
bool IsLetterOrDigit(char32_t character);
bool IsDigit(char32_t character);
/// White space, the non-breaking kinds included.
bool IsWhiteSpace(char32_t character);

/// The same for a letter in either case (Latin with its accents, Greek, Cyrillic, Armenian); other
/// characters are themselves.
char32_t FoldCase(char32_t character);
bool IsUpperCase(char32_t character);
bool IsLowerCase(char32_t character);

} // namespace paperkite
