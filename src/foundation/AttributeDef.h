#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// One attribute that a template element takes.
struct AttributeDef : Object {
    std::string TypeName() const override { return "AttributeDef"; }

    std::string Name;
    std::string Description;
    bool Required = false;
    /// "list", "date", "color", "number", "boolean", "file"; anything else is plain text.
    std::string AttributeType;
    /// For a list, what fills it: "taggedcommentdefs", "variables", "values", "scraps", "phrases",
    /// "namespaces", "childnamespaces".
    std::string ValueSource;
    /// Separated by commas; "text:value" shows the one and stores the other.
    std::string Values;
};

} // namespace paperkite
