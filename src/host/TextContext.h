#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace paperkite {

/// A piece of a text in its line, for lists of what was found.
struct TextContext {
    /// One line; long ones are cut at both ends, with "…" in place of what is left out.
    std::string Line;
    /// Where the piece stands in it, in bytes.
    std::size_t At = 0;
    std::size_t Length = 0;

    /// The line around the bytes from `from` up to `to`.
    static TextContext Of(std::string_view text, std::size_t from, std::size_t to);
    /// The line with another piece in its place.
    std::string With(std::string_view replacement) const;
};

} // namespace paperkite
