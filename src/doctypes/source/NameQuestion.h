#pragma once

#include "doctypes/source/NameSearch.h"
#include "doctypes/source/SourceIndex.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// What somebody types to find an item: a part of its name, and before it parts of the names around
/// it, outermost first, with "::", "~" or "." between them, and behind it the beginning of its
/// parameters. Letter case is ignored.
///
///     NameQuestion::Of("hun::spell(const char").IsMeant(index, entity)
struct NameQuestion {
    /// In small letters; each is held by a name further in than the one before it.
    std::vector<std::string> Scopes;
    std::string Name;
    /// From "(" on, in small letters and without blanks; empty for any.
    std::string Parameters;

    static NameQuestion Of(std::string_view text);

    /// Whether it asks for anything at all.
    bool IsEmpty() const { return Scopes.empty() && Name.empty(); }
    /// Whether what stands around an entity bears the names that are asked for.
    bool IsIn(const SourceIndex& index, SourceIndex::Id entity) const;
    bool HasParameters(const SourceIndex& index, SourceIndex::Id entity) const;
};

/// Entities whose own names hold the text first, as NameSearch gives them, then those that are
/// meant by it as a question. The indexes are those whose names are searched, by their roots.
std::vector<NameSearch::Place>
FindByQuestion(const NameSearch& names,
               const std::function<const SourceIndex&(std::size_t root)>& indexes,
               std::string_view text, std::size_t most);

} // namespace paperkite
