#pragma once

#include "host/CommentSearch.h"
#include "host/Workspace.h"

#include <string>

namespace paperkite {

struct Output;

/// Finds a text in all comments of a project, and replaces it.
struct FindCommand {
    SearchOptions Search;
    std::string ReplaceWith;
    bool Replace = false;
    /// With Replace: shows what would change, and writes nothing.
    bool DryRun = false;

    int Run(const std::string& project, Output& output) const;

private:
    int Find(Workspace& workspace, Output& output) const;
    void Print(const std::vector<CommentSearch::Hit>& hits, Output& output) const;
};

} // namespace paperkite
