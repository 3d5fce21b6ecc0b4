#pragma once

#include "host/Commands.h"

#include <string>

namespace paperkite {

/// Merges a file as version control asks for it: `git config merge.paperkite.driver "paperkite
/// merge %O %A %B"`.
struct MergeCommand {
    std::string Base;
    std::string Ours;
    std::string Theirs;

    /// Writes the result in place of ours: 0 without conflicts, 1 with conflicts, which are marked
    /// in the file; 2, and ours stays as it is, when one of the files cannot be read.
    int Run(Output& output) const;
};

} // namespace paperkite
