#include "model/DiskStamps.h"

#include "model/SafeFile.h"

#include <sys/stat.h>

namespace paperkite {

namespace {

/// What the disk says of a file without reading it; empty when there is none.
std::string StampOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return {};
    std::string stamp;
    for (const auto number :
         {static_cast<long long>(status.st_ino), //
          static_cast<long long>(status.st_size), static_cast<long long>(status.st_mtim.tv_sec),
          static_cast<long long>(status.st_mtim.tv_nsec)})
        stamp += std::to_string(number) + " ";
    return stamp;
}

} // namespace

bool DiskStamps::Differs(const std::string& path, const std::string& bytes) {
    const std::string stamp = StampOf(path);
    if (stamp.empty()) return false;
    const auto known = mStamps.find(path);
    if (known != mStamps.end() && known->second == stamp) return false;
    std::string present;
    if (SafeFile::Read(path, present) || present != bytes) return true;
    mStamps[path] = stamp;
    return false;
}

} // namespace paperkite
