#pragma once

#include "model/FileProblem.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace paperkite {

/// Reads whole files, and writes them so that at every moment either the old or the new content is
/// there: into a temporary file of the same folder, which is flushed to the disk and then put in
/// the old one's place. Permissions are kept, symbolic links followed.
class SafeFile {
public:
    /// Nothing when all went well; otherwise `bytes` is as it was.
    static std::optional<FileProblem> Read(const std::string& path, std::string& bytes);

    /// Nothing when all went well; otherwise the old file is as it was and no other file is left.
    static std::optional<FileProblem> Write(const std::string& path, std::string_view bytes);

    /// Takes away the temporary files that a program which was killed while it wrote this file left
    /// beside it. Those that a program is writing stay.
    static void CleanUp(const std::string& path);

    /// Where a write stands.
    enum class Step { Made, Written, Flushed, Closed, Renamed, FolderFlushed };
    /// Called behind each step, behind `Written` for each part; for tests that end the program
    /// there.
    inline static std::function<void(Step step)> StepDone;

    /// The file that a path means after symbolic links, also one that is not there yet.
    static std::string Resolve(const std::string& path);
};

} // namespace paperkite
