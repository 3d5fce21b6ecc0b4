#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace paperkite {

/// Where the comments of each item stand in a Content File that is in the layout and order of the
/// ContentFileWriter, found without parsing them: most files are, and most comments are never
/// looked at.
///
/// It accepts nothing that the XmlReader would read otherwise, and refuses whatever is unusual (an
/// element or attribute that it does not know, another order, other blanks, Windows' line ends, a
/// missing attribute, broken markup): then the file is to be parsed as a whole.
class ContentFileIndex {
public:
    /// The comments of one item, one behind the other.
    struct Run {
        /// Valid until the next run.
        std::string_view Item;
        std::size_t Offset = 0; ///< of the line break before the first comment
        std::size_t Length = 0;
        std::size_t Count = 0;
    };
    using Visitor = std::function<void(const Run&)>;

    /// Tells the runs in order. False: the file is to be parsed as a whole, and what was told so
    /// far is void.
    static bool Scan(std::string_view bytes, std::string& relatedProject, const Visitor& visit);
};

} // namespace paperkite
