#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Comments that are plain text, and their way into HTML and back.
namespace paperkite::PlainText {

/// Whether a text has no tags or comments of HTML in it.
bool IsPlain(std::string_view text);

/// The lines of a text, without the blanks at their ends; empty ones stay, but for those behind the
/// last.
std::vector<std::string> Lines(std::string_view text);

/// Those of the lines that are not empty.
std::vector<std::string> FilledLines(std::string_view text);

/// Plain text as the content of an HTML element or of an attribute in double quotes.
std::string Escaped(std::string_view text);

/// HTML text without tags as plain text: entities are decoded.
std::string Decoded(std::string_view html);

/// A text in one line: breaks become blanks, blanks at the ends go.
std::string OneLine(std::string_view text);

} // namespace paperkite::PlainText
