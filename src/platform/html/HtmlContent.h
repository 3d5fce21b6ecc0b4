#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace paperkite {

/// What an HTML text says, apart from how its source is laid out: to find out whether something was
/// lost by writing it anew. Takes linear time.
///
/// Blanks count as one where they show, and not at all at the edges of blocks; exactly in "pre",
/// "textarea", scripts and styles, apart from those at the ends.
class HtmlContent {
public:
    explicit HtmlContent(std::string_view html);

    /// Whether the other text has the same words and comments in the same order, and at least the
    /// same elements and attributes.
    bool IsKeptBy(const HtmlContent& other) const;
    /// How many start tags of that name there are; in lower case.
    std::size_t CountOf(const std::string& element) const;
    const std::unordered_map<std::string, std::size_t>& Elements() const { return mElements; }

private:
    class Reader;

    std::uint64_t mText = 14695981039346656037U;
    std::unordered_map<std::string, std::size_t> mElements;
    std::unordered_map<std::uint64_t, std::size_t> mAttributes;
};

} // namespace paperkite
