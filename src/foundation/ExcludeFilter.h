#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A wildcard for the names of members that are left out of the documentation.
struct ExcludeFilter : Object {
    std::string TypeName() const override { return "ExcludeFilter"; }

    std::string Text;
};

} // namespace paperkite
