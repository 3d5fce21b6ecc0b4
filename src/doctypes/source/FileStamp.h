#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace paperkite {

/// What the file system says of a file without its being read. Times are nanoseconds since 1970.
struct FileStamp {
    std::uint64_t Size = 0;
    std::int64_t Modified = 0; ///< the content
    std::int64_t Changed = 0;  ///< the content, the name or the permissions
    std::uint64_t Number = 0;  ///< of the file in its file system

    bool operator==(const FileStamp&) const = default;

    /// Of what a link leads to; nothing when there is no such file.
    static std::optional<FileStamp> Of(const std::string& path);

    /// The present moment by the clock that files are stamped with.
    static std::int64_t Now();
};

} // namespace paperkite
