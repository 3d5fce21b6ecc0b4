#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A procedure whose references are left out of diagrams.
struct IgnoredRelationship : Object {
    std::string TypeName() const override { return "IgnoredRelationship"; }

    /// The qualified name of the module, or "<All>.<All>".
    std::string Module;
    std::string ProcedureName;
};

} // namespace paperkite
