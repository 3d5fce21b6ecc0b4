#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A file that is copied into the output.
struct AdditionalFile : Object {
    std::string TypeName() const override { return "AdditionalFile"; }

    /// The whole path.
    std::string FileName;
};

} // namespace paperkite
