#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace paperkite {

/// A character as HTML writes it: "&eacute;", "&#233;", "&#xE9;".
struct HtmlEntity {
    char32_t Character;
    /// Bytes that it takes, the "&" included.
    std::size_t Length;
};

/// The entity that begins with the "&" at that place. Known are the names of HTML 4, "&apos;" and
/// those of ASCII signs; any other name is nothing, and stands for itself.
std::optional<HtmlEntity> ReadEntity(std::string_view text, std::size_t at,
                                     bool inAttribute = false);

} // namespace paperkite
