#pragma once

#include "foundation/Collection.h"
#include "foundation/ElementAttribute.h"
#include "foundation/Object.h"

#include <string>

namespace paperkite {

class ParserSection;

inline constexpr int kParserLiteralText = 0;
inline constexpr int kParserTagElement = 2;

/// One piece of a parsed template: a stretch of literal text, or a tag with attributes and a text.
class ParserElement : public Object {
public:
    std::string TypeName() const override { return "ParserElement"; }

    int ElementType = kParserLiteralText;
    /// The literal text, or what stands between the tags.
    std::string Text;
    /// By name.
    Collection<Ref<ElementAttribute>> Attributes{KeyComparison::IgnoringCase};
    /// The section that owns this element.
    WeakRef<ParserSection> Section;
    /// The element as it stands in the template, tags included.
    std::string SourceText;
};

} // namespace paperkite
