#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Where a user finds a command: the steps through the menus, and the keys that do the same.
///
///     File > Export > As PDF…
///     keys: Ctrl+Shift+E
struct MenuPath {
    std::vector<std::string> Steps;
    /// As they are written on the menu; empty for none.
    std::string Keys;

    bool operator==(const MenuPath&) const = default;

    /// Nothing for a text that is no menu path, such as HTML.
    static std::optional<MenuPath> Read(std::string_view text);
    /// Empty without steps and keys.
    std::string Write() const;

    /// The steps of a path as somebody types it: ">", "->", "|" or "→" between them.
    static std::vector<std::string> StepsOf(std::string_view typed);
    /// The steps in one line.
    std::string PathText() const;
};

} // namespace paperkite
