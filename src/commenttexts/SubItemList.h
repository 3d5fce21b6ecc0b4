#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Parts of an item that have no comments of their own, each with a name and what there is to say
/// about it: the values of a text parameter, the columns of a table, the entries of a settings
/// file.
///
/// The text is a definition list of HTML, a line for each part:
///
///     <dl>
///     <dt>fast</dt><dd>Leaves the order alone.</dd>
///     <dt>safe</dt><dd>Flushes after each write.</dd>
///     </dl>
class SubItemList {
public:
    /// Plain texts; "\n" breaks a line of the text.
    struct SubItem {
        std::string Name;
        std::string Text;

        bool operator==(const SubItem&) const = default;
    };

    /// Nothing for a text that is something else, or has other elements in it.
    static std::optional<SubItemList> Read(std::string_view html);
    /// Empty when there are no parts.
    std::string Write() const;

    std::vector<SubItem> Items;
};

} // namespace paperkite
