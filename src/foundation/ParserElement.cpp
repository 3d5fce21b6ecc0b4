#include "foundation/ParserElement.h"

#include "foundation/ParserSection.h"
#include "foundation/ParserTemplate.h"

namespace paperkite {

std::string ParserElement::GetSourceText() const {
    const Ref<ParserSection> section = Section.Lock();
    const Ref<ParserTemplate> owner = section ? section->Template.Lock() : nullptr;
    return owner ? owner->SourceOf(*this) : SourceText;
}

} // namespace paperkite
