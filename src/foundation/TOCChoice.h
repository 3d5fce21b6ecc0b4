#pragma once

#include "foundation/TOCDefinition.h"

#include <string>

namespace paperkite {

/// Which contents definition a document type is published with.
struct TOCChoice {
    enum ChoiceKind : int { Default = 0, Custom = 1, Named = 2 };

    /// Anything but custom and named reads as the default.
    int Kind = Default;
    /// Of a named one.
    std::string Name;
    /// Of a custom one.
    Ref<TOCDefinition> Definition;
};

} // namespace paperkite
