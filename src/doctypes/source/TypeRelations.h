#pragma once

#include "doctypes/source/SourceIndex.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// Which types of a code base derive from which, as far as the base types stand in it. A base that
/// the source names is looked for by the last part of its name among all types; of several the one
/// counts that is named more fully, or stands nearest to the deriving type.
class TypeRelations {
public:
    using Id = SourceIndex::Id;

    /// A base type as the source names it.
    struct Base {
        std::string Name;
        Id Entity = SourceIndex::Nothing; ///< Nothing when the code base does not have it
    };

    /// The index outlives this. Takes time in proportion to its size.
    explicit TypeRelations(const SourceIndex& index);

    /// In the order of the source.
    const std::vector<Base>& BasesOf(Id type) const;
    const std::vector<Id>& DerivedFrom(Id type) const;

private:
    Id Find(Id type, std::string_view name) const;
    std::size_t Likeness(Id type, Id candidate, const std::vector<std::string>& steps) const;

    const SourceIndex& mIndex;
    std::unordered_map<std::string_view, std::vector<Id>> mByName;
    std::unordered_map<Id, std::vector<Base>> mBases;
    std::unordered_map<Id, std::vector<Id>> mDerived;
};

} // namespace paperkite
