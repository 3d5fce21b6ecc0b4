#pragma once

#include "foundation/Collection.h"
#include "foundation/Object.h"
#include "foundation/ParserElement.h"

namespace paperkite {

class ParserTemplate;

/// The elements of one section of a template, in document order.
class ParserSection : public Object {
public:
    std::string TypeName() const override { return "ParserSection"; }

    Collection<Ref<ParserElement>> Elements;
    /// The template that owns this section.
    WeakRef<ParserTemplate> Template;
};

} // namespace paperkite
