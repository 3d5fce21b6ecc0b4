#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// The value that a project gives to a variable of its templates.
struct Variable : Object {
    std::string TypeName() const override { return "Variable"; }

    std::string Name;
    std::string Value;
};

} // namespace paperkite
