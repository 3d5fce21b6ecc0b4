#pragma once

#include <optional>
#include <string>

namespace paperkite {

/// What an author did to one comment and has not saved, as a journal keeps it.
struct JournalEntry {
    /// The qualified name of the item, and the Id of the comment among those of the item.
    std::string Item;
    std::string Id;
    std::string Tag;
    std::string Qualifier;
    std::string XmlTag;
    /// Nothing: the author deleted the comment.
    std::optional<std::string> Text;
    /// What is stored, as far as it is known; nothing for a new comment.
    std::optional<std::string> Stored;

    bool operator==(const JournalEntry&) const = default;
};

} // namespace paperkite
