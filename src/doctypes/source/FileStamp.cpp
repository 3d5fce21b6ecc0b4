#include "doctypes/source/FileStamp.h"

#include <ctime>
#include <sys/stat.h>

namespace paperkite {

namespace {

std::int64_t Nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

} // namespace

std::optional<FileStamp> FileStamp::Of(const std::string& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return FileStamp{static_cast<std::uint64_t>(status.st_size), Nanoseconds(status.st_mtim),
                     Nanoseconds(status.st_ctim), static_cast<std::uint64_t>(status.st_ino)};
}

std::int64_t FileStamp::Now() {
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return Nanoseconds(now);
}

} // namespace paperkite
