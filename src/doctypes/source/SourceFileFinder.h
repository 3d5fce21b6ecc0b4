#pragma once

#include "doctypes/source/PathGlob.h"
#include "doctypes/source/ScanOutcome.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// What a walk through a folder found. Files are relative to the folder, joined by '/', in an order
/// that depends on the names alone.
struct FoundFiles {
    ScanOutcome Outcome;
    std::vector<std::string> Files;
    std::vector<std::string> Warnings; ///< what was left out though the author may expect it
};

/// Finds the files of a folder that may be source code.
///
/// Left out: what an exclusion matches, folders of version control, of installed packages and of
/// build outputs, files that are not text, and names that are not UTF-8 or hold control characters
/// (with a warning). A folder that is reached a second time through a link is entered once.
class SourceFileFinder {
public:
    /// Called now and then with the count of files found so far; false ends the walk as cancelled.
    using Progress = std::function<bool(std::size_t filesFound)>;

    /// A file name (with or without folders) decides whether a file is of interest at all.
    using Filter = std::function<bool(const std::string& relativePath)>;

    explicit SourceFileFinder(std::filesystem::path folder);

    /// Leaves out what the pattern matches, see PathGlob; a matching folder with all it holds.
    void Exclude(std::string_view pattern);

    void SetFilter(Filter filter) { mFilter = std::move(filter); }

    FoundFiles Find(const Progress& progress = {}) const;

    /// True when the beginning of the file holds a zero byte; an unreadable file is not binary.
    static bool IsBinary(const std::filesystem::path& file);

private:
    struct Walk;

    ScanOutcome CheckFolder() const;
    void WalkFolder(Walk& walk, const std::filesystem::path& folder,
                    const std::string& prefix) const;
    void VisitEntry(Walk& walk, const std::filesystem::directory_entry& entry,
                    const std::string& relative) const;
    bool IsExcluded(const std::string& relative) const;

    std::filesystem::path mFolder;
    std::vector<PathGlob> mExclusions;
    Filter mFilter;
};

} // namespace paperkite
