#pragma once

#include "host/Commands.h"

#include <string>
#include <vector>

namespace paperkite {

/// Lists the comments whose items are gone, with the likeliest new homes, or moves those of one
/// item to another one and saves.
struct HomelessCommand {
    /// Nothing, or the item that is gone and the one that gets its comments.
    std::vector<std::string> Adopt;

    int Run(const std::string& project, Output& output) const;

private:
    int List(Workspace& workspace, Output& output) const;
    int Move(Workspace& workspace, Output& output) const;
};

} // namespace paperkite
