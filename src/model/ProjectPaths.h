#pragma once

#include <string>

namespace paperkite::ProjectPaths {

// Files keep paths with "/", relative to the folder of the project file where the two have more in
// common than the root of the disk; so a project can move together with its sources.

/// A path as a file of the project keeps it.
std::string ToStored(const std::string& projectFile, const std::string& path);

/// The whole path that a stored one means.
std::string FromStored(const std::string& projectFile, const std::string& stored);

/// Absolute, without "." and "..", without a slash at its end.
std::string Normal(const std::string& path);

std::string FolderOf(const std::string& path);
/// The file's name without folder and extension.
std::string BaseName(const std::string& path);

} // namespace paperkite::ProjectPaths
