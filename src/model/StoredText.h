#pragma once

#include <string>
#include <string_view>

namespace paperkite::StoredText {

// Any bytes as text that an XML file can hold, an editor can keep and a person can read, and back
// without a change. The escape character is the backslash:
//
//   \\  a backslash             \s  a blank at the end of a line    \xHH  any other byte
//   \r  a carriage return       \t  a tabulator there               \>    the end of "]]>"
//   \n  a line feed, in attributes
//   \ at the end of a line: the line goes on, its break is only there for reading
//
// HTML is broken behind the tags that end a paragraph, an entry or a row, and long lines behind
// each sentence, so that a change of one sentence is a change of one line.

/// For the content of an element; several lines begin and end with a line break of their own.
std::string EncodeContent(std::string_view text);

/// For an attribute: always one line.
std::string EncodeAttribute(std::string_view text);

/// Reads both forms. A backslash before any other character stands for itself.
std::string Decode(std::string_view stored);
std::string DecodeContent(std::string_view stored);

} // namespace paperkite::StoredText
