#include "doctypes/source/SourceFileFinder.h"

#include "foundation/Utf8.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace paperkite {

namespace fs = std::filesystem;

struct SourceFileFinder::Walk {
    FoundFiles found;
    std::set<std::pair<dev_t, ino_t>> visitedFolders;
    const Progress* progress = nullptr;
    std::size_t visited = 0;
    bool isCancelled = false;
};

namespace {

constexpr std::array<std::string_view, 22> skippedFolders = {
    ".git",        ".hg",          ".svn",
    "CVS",         ".bzr",         "_darcs",
    ".jj",         ".cache",       ".tox",
    ".nox",        ".venv",        ".idea",
    ".vs",         ".gradle",      ".eggs",
    "__pycache__", ".mypy_cache",  ".pytest_cache",
    ".ruff_cache", "node_modules", "bower_components",
    "CMakeFiles"};

/// As opening it would say, whoever started the program.
bool MayUse(const char* path, int how) {
    return ::faccessat(AT_FDCWD, path, how, AT_EACCESS) == 0;
}

/// What shows by its being in a folder that the folder was made by a tool.
constexpr std::array<std::string_view, 4> markers = {"CMakeCache.txt", "meson-private",
                                                     "pyvenv.cfg", "CACHEDIR.TAG"};

struct Output {
    std::string_view Folder;
    std::string_view Sibling; ///< what stands beside it; with a leading dot: how that ends
};

constexpr std::array<Output, 8> outputs = {{{"target", "Cargo.toml"},
                                            {"target", "pom.xml"},
                                            {"build", "build.gradle"},
                                            {"build", "build.gradle.kts"},
                                            {"build", "setup.py"},
                                            {"build", "pyproject.toml"},
                                            {"bin", ".csproj"},
                                            {"obj", ".csproj"}}};

bool HasBeside(const fs::path& folder, std::string_view sibling) {
    std::error_code error;
    if (!sibling.starts_with(".")) {
        return fs::exists(folder / sibling, error);
    }
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (at->path().native().ends_with(sibling)) {
            return true;
        }
    }
    return false;
}

bool IsSkippedFolder(const fs::path& folder, std::string_view name) {
    std::error_code ignored;
    return std::find(skippedFolders.begin(), skippedFolders.end(), name) != skippedFolders.end() ||
           std::any_of(markers.begin(), markers.end(),
                       [&](std::string_view mark) { return fs::exists(folder / mark, ignored); }) ||
           std::any_of(outputs.begin(), outputs.end(), [&](const Output& output) {
               return output.Folder == name && HasBeside(folder.parent_path(), output.Sibling);
           });
}

} // namespace

SourceFileFinder::SourceFileFinder(fs::path folder) : mFolder(std::move(folder)) {}

void SourceFileFinder::Exclude(std::string_view pattern) {
    if (!pattern.empty()) {
        mExclusions.emplace_back(pattern);
    }
}

ScanOutcome SourceFileFinder::CheckFolder() const {
    const std::string shown = "\"" + PrintableUtf8(mFolder.string()) + "\"";
    if (mFolder.empty()) {
        return ScanOutcome::Failure("No source folder is given. Choose the folder that holds the "
                                    "source code.");
    }
    std::error_code error;
    const fs::file_status status = fs::status(mFolder, error);
    if (status.type() == fs::file_type::not_found) {
        return ScanOutcome::Failure("The source folder " + shown +
                                    " does not exist. Choose a folder that does.");
    }
    if (error) {
        return ScanOutcome::Failure("The source folder " + shown +
                                    " cannot be reached: " + error.message() +
                                    ". Check the permissions of the folders above it.");
    }
    if (status.type() != fs::file_type::directory) {
        return ScanOutcome::Failure(shown + " is not a folder. Choose the folder that holds the "
                                            "source code.");
    }
    if (!MayUse(mFolder.c_str(), R_OK | X_OK)) {
        return ScanOutcome::Failure("The source folder " + shown +
                                    " cannot be read. Check its permissions.");
    }
    return {};
}

FoundFiles SourceFileFinder::Find(const Progress& progress) const {
    Walk walk;
    walk.progress = &progress;
    walk.found.Outcome = CheckFolder();
    if (!walk.found.Outcome.IsDone()) {
        return std::move(walk.found);
    }
    WalkFolder(walk, mFolder, "");
    if (walk.isCancelled) {
        walk.found.Outcome =
            ScanOutcome::Cancellation("The search for source files was cancelled.");
        return std::move(walk.found);
    }
    // A folder that went during the walk would look like one from which all files were taken.
    walk.found.Outcome = CheckFolder();
    if (!walk.found.Outcome.IsDone()) {
        walk.found.Files.clear();
    }
    return std::move(walk.found);
}

void SourceFileFinder::WalkFolder(Walk& walk, const fs::path& folder,
                                  const std::string& prefix) const {
    struct stat identity = {};
    if (::stat(folder.c_str(), &identity) != 0 ||
        !walk.visitedFolders.emplace(identity.st_dev, identity.st_ino).second) {
        return;
    }
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        entries.push_back(*at);
    }
    if (error) {
        walk.found.Warnings.push_back("The folder \"" + PrintableUtf8(folder.string()) +
                                      "\" cannot be read and was left out: " + error.message() +
                                      ".");
    }
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return a.path().filename().native() < b.path().filename().native();
    });
    for (const fs::directory_entry& entry : entries) {
        if (*walk.progress && ++walk.visited % 64 == 1) {
            walk.isCancelled = !(*walk.progress)(walk.found.Files.size());
        }
        if (walk.isCancelled) {
            return;
        }
        VisitEntry(walk, entry, prefix + entry.path().filename().native());
    }
}

void SourceFileFinder::VisitEntry(Walk& walk, const fs::directory_entry& entry,
                                  const std::string& relative) const {
    if (IsExcluded(relative)) {
        return;
    }
    std::error_code error;
    const fs::file_status status = entry.status(error);
    if (status.type() == fs::file_type::directory) {
        VisitFolder(walk, entry, relative);
    } else if (status.type() == fs::file_type::regular && (!mFilter || mFilter(relative))) {
        VisitFile(walk, entry.path(), relative);
    }
}

bool SourceFileFinder::IsInside(const fs::path& path) const {
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    const fs::path home = error ? fs::path() : fs::canonical(mFolder, error);
    return !error && std::mismatch(home.begin(), home.end(), target.begin(), target.end()).first ==
                         home.end();
}

void SourceFileFinder::VisitFolder(Walk& walk, const fs::directory_entry& entry,
                                   const std::string& relative) const {
    std::error_code error;
    if (!entry.is_symlink(error)) {
        if (!IsSkippedFolder(entry.path(), entry.path().filename().native())) {
            WalkFolder(walk, entry.path(), relative + "/");
        }
    } else if (!IsInside(entry.path())) {
        walk.found.Warnings.push_back("The link \"" + PrintableUtf8(relative) +
                                      "\" leads out of the source folder and was left out. Make "
                                      "what it leads to a source folder of its own to have it "
                                      "scanned.");
    }
}

void SourceFileFinder::VisitFile(Walk& walk, const fs::path& file,
                                 const std::string& relative) const {
    const auto stamp = FileStamp::Of(file.native());
    if (!stamp) {
        return;
    }
    if (!MayUse(file.c_str(), R_OK)) {
        walk.found.Warnings.push_back("The file \"" + PrintableUtf8(relative) +
                                      "\" cannot be read and was left out. Check its permissions.");
        return;
    }
    if ((mKnown && mKnown(relative, *stamp)) || !IsBinary(file)) {
        walk.found.Files.push_back({relative, *stamp});
    }
}

bool SourceFileFinder::IsExcluded(const std::string& relative) const {
    return std::any_of(mExclusions.begin(), mExclusions.end(),
                       [&](const PathGlob& glob) { return glob.Matches(relative); });
}

bool SourceFileFinder::IsBinary(const fs::path& file) {
    const int handle = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (handle < 0) {
        return false;
    }
    std::array<char, 4096> head;
    const ssize_t count = ::read(handle, head.data(), head.size());
    ::close(handle);
    return count > 0 && std::find(head.begin(), head.begin() + count, '\0') != head.begin() + count;
}

} // namespace paperkite
