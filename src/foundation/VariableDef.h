#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A variable that a template offers to its projects.
struct VariableDef : Object {
    std::string TypeName() const override { return "VariableDef"; }

    std::string Name;
    /// The editor that a row of this variable gets: the number of a property list's item kind.
    int ItemType = 0;
    std::string Caption;
    std::string DefaultValue;
};

} // namespace paperkite
