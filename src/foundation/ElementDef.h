#pragma once

#include "foundation/AttributeDef.h"
#include "foundation/Collection.h"
#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A kind of element that page layouts of a namespace may hold.
struct ElementDef : Object {
    std::string TypeName() const override { return "ElementDef"; }

    /// The "type" attribute of such an element.
    std::string Name;
    /// The group that it is offered in; empty: "Other"; "{blank}": at the top level.
    std::string Category;
    std::string Description;
    /// By name.
    Collection<Ref<AttributeDef>> AttributeDefs{KeyComparison::IgnoringCase};
};

} // namespace paperkite
