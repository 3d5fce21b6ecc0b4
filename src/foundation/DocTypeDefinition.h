#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// What is fixed about a document type, for every project.
struct DocTypeDefinition : Object {
    std::string TypeName() const override { return "DocTypeDefinition"; }

    std::string Name;
    bool HasPlugIn = false;
};

} // namespace paperkite
