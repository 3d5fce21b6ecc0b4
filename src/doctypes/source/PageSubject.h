#pragma once

#include "doctypes/source/SourceNamespaceProvider.h"

#include <cstddef>
#include <string>

namespace paperkite {

/// What an element of a page speaks of: an entity of an index, without an item being made of it.
struct PageSubject {
    SourceNamespaceProvider* Provider = nullptr;
    std::size_t Root = 0;
    SourceIndex::Id Entity = SourceIndex::Nothing;

    const SourceIndex& Index() const { return Provider->GetIndex(Root); }
    SourceKind Kind() const { return Index().Kind(Entity); }
    std::string QualifiedName() const { return Index().QualifiedName(Entity); }
    /// "kite.source:Class"
    std::string Level() const {
        return std::string(kSourceMoniker).append(":").append(KindText(Kind()));
    }
    PageSubject With(SourceIndex::Id entity) const { return {Provider, Root, entity}; }
    bool IsSomething() const { return Provider && Entity != SourceIndex::Nothing; }
};

} // namespace paperkite
