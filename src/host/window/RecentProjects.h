#pragma once

#include <string>
#include <vector>

namespace paperkite {

/// The projects that were opened last, latest first, kept in the user's settings.
class RecentProjects {
public:
    static constexpr std::size_t kMost = 8;

    std::vector<std::string> Load() const;
    /// Puts a project in front.
    void Add(const std::string& path) const;
    void Remove(const std::string& path) const;

private:
    void Store(const std::vector<std::string>& paths) const;
};

} // namespace paperkite
