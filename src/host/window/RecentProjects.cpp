#include "host/window/RecentProjects.h"

#include "foundation/Settings.h"

namespace paperkite {

namespace {

constexpr const char* kPath = "Recent";

std::string NameOf(std::size_t position) {
    return "Project" + std::to_string(position);
}

} // namespace

std::vector<std::string> RecentProjects::Load() const {
    std::vector<std::string> paths;
    for (std::size_t position = 1; position <= kMost; ++position) {
        const std::string path = GetAppValue(NameOf(position), "", kConvertToText, kPath).ToText();
        if (!path.empty()) paths.push_back(path);
    }
    return paths;
}

void RecentProjects::Add(const std::string& path) const {
    auto paths = Load();
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    Store(paths);
}

void RecentProjects::Remove(const std::string& path) const {
    auto paths = Load();
    std::erase(paths, path);
    Store(paths);
}

void RecentProjects::Store(const std::vector<std::string>& paths) const {
    for (std::size_t position = 1; position <= kMost; ++position)
        SetAppValue(NameOf(position),
                    position <= paths.size() ? paths[position - 1] : std::string(), kPath);
}

} // namespace paperkite
