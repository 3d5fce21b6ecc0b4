#pragma once

#include "foundation/Collection.h"
#include "foundation/NodeDef.h"
#include "foundation/Object.h"
#include "foundation/PageTemplate.h"

namespace paperkite {

/// A contents definition: a flat list of nodes by their keys. Who stands under whom is said by
/// NodeDef::Parent, the order among siblings is the order of the list.
struct TOCDefinition : Object {
    std::string TypeName() const override { return "TOCDefinition"; }

    std::string Name;
    Collection<Ref<NodeDef>> Nodes;
    /// The template that the definition belongs to, which owns it.
    WeakRef<paperkite::PageTemplate> PageTemplate;
};

} // namespace paperkite
