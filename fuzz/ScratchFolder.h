#pragma once

#include <filesystem>
#include <string>

#include <unistd.h>

namespace paperkite::fuzz {

/// A path for a file or folder of this process alone; in memory where there is such a place, as
/// much of what is tried flushes every write. The next input finds what the one before left there.
inline std::string Scratch(const std::string& name) {
    static const struct Folder {
        Folder() {
            const std::filesystem::path memory = "/dev/shm";
            const bool hasMemory = std::filesystem::exists(memory);
            Path = (hasMemory ? memory : std::filesystem::temp_directory_path()) /
                   ("paperkite-fuzz-" + std::to_string(::getpid()));
            std::filesystem::create_directories(Path);
        }
        ~Folder() {
            std::error_code ignored;
            std::filesystem::remove_all(Path, ignored);
        }
        std::filesystem::path Path;
    } folder;
    return (folder.Path / name).string();
}

} // namespace paperkite::fuzz
