#pragma once

#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// The items from which another one takes its comments, one behind the other.
struct CommentsFromChain {
    /// The qualified name that an item refers to, or an empty text.
    using Reference = std::function<std::string(const std::string& qualifiedName)>;

    /// Qualified names: the one that is referred to, the one that this refers to, and so on. Ends
    /// before a name comes for the second time.
    std::vector<std::string> Names;
    /// They lead back to one of themselves, or to `from`.
    bool IsCircle = false;

    /// What begins at an item that refers to `first`.
    static CommentsFromChain Follow(const std::string& from, const std::string& first,
                                    const Reference& reference);
};

} // namespace paperkite
