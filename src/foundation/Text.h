#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

// The few text operations that everything uses. Text is UTF-8; letters outside ASCII keep their
// case.

std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);

bool EqualIgnoringCase(std::string_view left, std::string_view right);
/// Negative, 0 or positive, by the bytes of the lower-case texts.
int CompareIgnoringCase(std::string_view left, std::string_view right);
/// Where `wanted` begins in `text` at or behind `from`, or npos.
std::size_t FindIgnoringCase(std::string_view text, std::string_view wanted, std::size_t from = 0);
bool ContainsIgnoringCase(std::string_view text, std::string_view wanted);
bool EndsWithIgnoringCase(std::string_view text, std::string_view ending);

/// Without the blanks at both ends; other white space stays.
std::string TrimBlanks(std::string_view text);
/// Without any white space at both ends.
std::string TrimWhiteSpace(std::string_view text);

/// The number that a text begins with: blanks are skipped, an optional sign, digits, a point and an
/// exponent are read. A text that begins with something else reads 0.
double LeadingNumber(std::string_view text);

std::string ReplaceAll(std::string_view text, std::string_view wanted,
                       std::string_view replacement);
std::string ReplaceAllIgnoringCase(std::string_view text, std::string_view wanted,
                                   std::string_view replacement);

/// The field of that number, counted from 1, of a text cut at a separator; empty when there is
/// none.
std::string Token(std::string_view text, std::string_view separator, std::size_t index);
/// All fields; an empty text has none.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& fields, std::string_view separator);

/// The part before the first ":"; the whole text when it holds none.
std::string BeforeColon(std::string_view text);
/// The part behind the first ":"; empty when there is none.
std::string AfterColon(std::string_view text);

/// The shortest decimal form of a number that reads back as the same number.
std::string NumberText(double value);

} // namespace paperkite
