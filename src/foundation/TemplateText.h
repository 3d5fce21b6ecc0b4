#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A text of a page template that its layouts use by name: a phrase, which is plain text in the
/// template's language, or a scrap, which is HTML and may hold elements itself.
struct TemplateText : Object {
    std::string TypeName() const override { return "TemplateText"; }
    Value Get(std::string_view member) const override;

    std::string Name;
    std::string Text;
};

} // namespace paperkite
