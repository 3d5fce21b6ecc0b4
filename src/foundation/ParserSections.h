#pragma once

#include "foundation/Collection.h"
#include "foundation/Object.h"
#include "foundation/ParserSection.h"

namespace paperkite {

/// The sections of a template; the first is the document itself.
class ParserSections : public Object, public Collection<Ref<ParserSection>> {
public:
    std::string TypeName() const override { return "ParserSections"; }
};

} // namespace paperkite
