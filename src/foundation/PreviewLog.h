#pragma once

#include "foundation/Object.h"

#include <string>
#include <vector>

namespace paperkite {

/// What was to be told while pages were made, a sentence each. Pages that are only looked at get a
/// log of their own, so that nothing of it appears among the messages of a publication.
class PreviewLog : public Object {
public:
    std::string TypeName() const override { return "PreviewLog"; }

    std::vector<std::string> Messages;
};

} // namespace paperkite
