#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// One attribute of a template element.
struct ElementAttribute : Object {
    std::string TypeName() const override { return "ElementAttribute"; }

    std::string Name;
    std::string Value;
};

} // namespace paperkite
