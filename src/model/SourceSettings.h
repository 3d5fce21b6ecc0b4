#pragma once

#include <string>
#include <vector>

namespace paperkite {

/// One folder of code that a project documents.
struct SourceSettings {
    /// Names the provider that serves it.
    std::string Moniker = "kite.source";
    /// The first step of the qualified names of all its items.
    std::string RootName;
    /// The whole path.
    std::string Folder;
    /// The folder as the project file has it, kept while it still means the same; may be empty.
    std::string WrittenFolder;
    /// Globs for files and folders that are left out, relative to the folder.
    std::vector<std::string> Excludes;
};

} // namespace paperkite
