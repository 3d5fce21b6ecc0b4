#pragma once

#include <QString>

#include <cstddef>
#include <string>

namespace paperkite {

// What the window says of comments whose item is gone.

/// A qualified name as people read it: "zoo ~ animals ~ Dog".
QString ShownName(const std::string& qualifiedName);
/// "1 comment", "2 comments".
QString CommentsText(std::size_t count);
/// "3 items with comments are gone"
QString GoneText(std::size_t items);
/// What was moved to where; `below`: how many items below it went with it.
QString MovedText(const std::string& gone, const std::string& home, std::size_t count,
                  std::size_t below);
/// A comment's text without its HTML, its paragraphs in lines of their own.
QString ReadableText(const std::string& text);

} // namespace paperkite
