#include "model/ProjectPaths.h"

#include <filesystem>

namespace paperkite::ProjectPaths {

namespace fs = std::filesystem;

std::string Normal(const std::string& path) {
    if (path.empty()) return {};
    fs::path normal = fs::absolute(path).lexically_normal();
    if (!normal.has_filename() && normal.has_relative_path()) normal = normal.parent_path();
    return normal.generic_string();
}

std::string FolderOf(const std::string& path) {
    return fs::path(Normal(path)).parent_path().generic_string();
}

std::string BaseName(const std::string& path) {
    return fs::path(path).stem().string();
}

std::string ToStored(const std::string& projectFile, const std::string& path) {
    const fs::path folder = FolderOf(projectFile);
    const fs::path whole = Normal(path);
    const fs::path relative = whole.lexically_relative(folder);
    if (relative.empty()) return whole.generic_string();
    // As many steps up as the folder is deep: only the root of the disk is common.
    const fs::path steps = folder.relative_path();
    const std::ptrdiff_t depth = std::distance(steps.begin(), steps.end());
    std::ptrdiff_t up = 0;
    for (const fs::path& step : relative)
        if (step == "..") ++up;
    const bool onlyRootInCommon = up > 0 && up >= depth;
    return onlyRootInCommon ? whole.generic_string() : relative.generic_string();
}

std::string FromStored(const std::string& projectFile, const std::string& stored) {
    if (stored.empty()) return {};
    return Normal((fs::path(FolderOf(projectFile)) / stored).string());
}

} // namespace paperkite::ProjectPaths
