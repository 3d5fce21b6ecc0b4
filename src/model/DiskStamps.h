#pragma once

#include <string>
#include <unordered_map>

namespace paperkite {

/// Knows of files whether they are on the disk what they were, without reading them each time.
class DiskStamps {
public:
    /// Whether the file is there and holds other bytes. The bytes are read only when the disk says
    /// that the file was written since the last look.
    bool Differs(const std::string& path, const std::string& bytes);

private:
    std::unordered_map<std::string, std::string> mStamps;
};

} // namespace paperkite
