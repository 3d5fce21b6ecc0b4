#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What stands in a page layout's start tag: name="value", name='value', name=value, or a name
/// alone, whose value is "true", parted by white space. In values `&quot;`, `&apos;`, `&lt;`,
/// `&gt;`, `&amp;` and characters by number (`&#45;`, `&#x2D;`) are read; any other "&" stands for
/// itself.
namespace paperkite::TemplateAttributes {

using List = std::vector<std::pair<std::string, std::string>>;

/// What is wrong, in two sentences that also say how to mend it, and where in the text.
struct Mistake {
    std::size_t Offset = 0;
    std::string What;
};

/// Reads a start tag's text; with a mistake `list` holds what stands before it.
std::optional<Mistake> Read(std::string_view text, List& list);

/// The text of a start tag, each value in double quotes. No value holds "--", and nothing in it
/// ends the HTML comment that a tag is.
std::string Write(const List& list);

} // namespace paperkite::TemplateAttributes
