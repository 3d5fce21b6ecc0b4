#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace paperkite {

/// The folder where scans are kept, one file for each scanned folder.
class ScanCacheFolder {
public:
    /// An empty path stands for none.
    explicit ScanCacheFolder(std::string path = {}) : mPath(std::move(path)) {}

    bool IsThere() const { return !mPath.empty(); }

    /// The file of what is told apart by this text.
    std::string FileFor(const std::string& place) const;

    struct Limits {
        std::chrono::hours Age{90 * 24};     ///< since the last use
        std::chrono::hours TemporaryAge{24}; ///< of what a writer left behind that broke off
        std::uint64_t TotalSize = std::uint64_t{2} << 30;
    };

    /// Removes what is too old, then what was not used for longest until the rest is small enough.
    /// Touches no file but those of scans. The given one stays.
    void Prune(const std::string& kept, const Limits& limits) const;

private:
    std::string mPath;
};

} // namespace paperkite
