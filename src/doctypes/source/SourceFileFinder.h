#pragma once

#include "doctypes/source/FileStamp.h"
#include "doctypes/source/PathGlob.h"
#include "doctypes/source/ScanOutcome.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// A file as the walk through its folder saw it.
struct FoundFile {
    std::string Path; ///< relative to the folder, joined by '/'; its bytes may be no text
    FileStamp Stamp;
};

/// What a walk through a folder found. The order of the files depends on the names alone.
struct FoundFiles {
    ScanOutcome Outcome;
    std::vector<FoundFile> Files;
    std::vector<std::string> Warnings; ///< what was left out though the author may expect it
};

/// Finds the files of a folder that may be source code.
///
/// Left out: what an exclusion matches, and files that hold zero bytes. Links to folders are never
/// entered: what they lead to is read where it stands, and a link out of the folder gets a warning;
/// so no circle of links does harm. Links to files are followed. Never entered either:
///   - what tools keep: .git, .hg, .svn, CVS, .bzr, _darcs, .jj, .cache, .tox, .nox, .venv, .idea,
///     .vs, .gradle, .eggs, __pycache__, .mypy_cache, .pytest_cache, .ruff_cache;
///   - installed packages: node_modules, bower_components;
///   - build outputs: CMakeFiles, and any folder with CMakeCache.txt, meson-private, pyvenv.cfg or
///     a CACHEDIR.TAG in it; "target" beside Cargo.toml or pom.xml, "build" beside build.gradle,
///     build.gradle.kts, setup.py or pyproject.toml, "bin" and "obj" beside a project of C#.
class SourceFileFinder {
public:
    /// Called now and then, also while nothing is found, with the count of files found so far;
    /// false ends the walk as cancelled.
    using Progress = std::function<bool(std::size_t filesFound)>;

    /// A file name (with or without folders) decides whether a file is of interest at all.
    using Filter = std::function<bool(const std::string& relativePath)>;

    /// Whether a file is known to be text, so that the walk need not look into it.
    using Known = std::function<bool(const std::string& relativePath, const FileStamp& stamp)>;

    explicit SourceFileFinder(std::filesystem::path folder);

    /// Leaves out what the pattern matches, see PathGlob; a matching folder with all it holds.
    void Exclude(std::string_view pattern);

    void SetFilter(Filter filter) { mFilter = std::move(filter); }

    void SetKnown(Known known) { mKnown = std::move(known); }

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
    void VisitFolder(Walk& walk, const std::filesystem::directory_entry& entry,
                     const std::string& relative) const;
    void VisitFile(Walk& walk, const std::filesystem::path& file,
                   const std::string& relative) const;
    bool IsInside(const std::filesystem::path& path) const;
    bool IsExcluded(const std::string& relative) const;

    std::filesystem::path mFolder;
    std::vector<PathGlob> mExclusions;
    Filter mFilter;
    Known mKnown;
};

} // namespace paperkite
