#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// That an item is an example, what it shows, and of which other items.
///
///     Counts the words of a file
///     of: leveldb~DB~Get
///     of: leveldb~DB~Put
struct ExampleNote {
    /// In one line; may be empty.
    std::string Title;
    /// Qualified names, each once.
    std::vector<std::string> Items;

    bool operator==(const ExampleNote&) const = default;

    /// Nothing for a text that is no such note.
    static std::optional<ExampleNote> Read(std::string_view text);
    std::string Write() const;
};

} // namespace paperkite
