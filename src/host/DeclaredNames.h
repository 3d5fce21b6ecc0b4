#pragma once

#include "doctypes/source/SourceIndex.h"

#include <string>
#include <string_view>
#include <unordered_set>

namespace paperkite {

/// The names that code declares, for spell checks: those of its items, what their signatures and
/// types mention, and the words that all these are made of ("fetchRecord" makes "fetch" and
/// "record" known).
class DeclaredNames {
public:
    /// Those of one more index.
    void Add(const SourceIndex& index);

    /// Whole names as they are written, words in any case.
    bool Knows(const std::string& word) const;

private:
    void AddNames(std::string_view code);
    void AddName(std::string_view name);

    std::unordered_set<std::string> mNames;
    std::unordered_set<std::string> mWords;
};

} // namespace paperkite
