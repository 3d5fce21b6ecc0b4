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
    /// A tag element exactly as it was read, tags included; empty for literal text and for elements
    /// that an author made.
    std::string SourceText;

    /// The element as it is written now: as it was read while nobody changed its attributes or
    /// text, otherwise put together from them.
    std::string GetSourceText() const;
};

} // namespace paperkite
