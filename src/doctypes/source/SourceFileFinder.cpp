#include "doctypes/source/SourceFileFinder.h"

#include "doctypes/source/Utf8.h"

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
    bool isCancelled = false;
};

namespace {

constexpr std::array<std::string_view, 12> skippedFolders = {
    ".git",   ".hg",         ".svn", "CVS",   ".bzr",        "node_modules",
    ".cache", "__pycache__", ".tox", ".venv", ".mypy_cache", "CMakeFiles"};

bool IsSkippedFolder(const fs::path& folder, std::string_view name) {
    if (std::find(skippedFolders.begin(), skippedFolders.end(), name) != skippedFolders.end()) {
        return true;
    }
    std::error_code ignored;
    return fs::exists(folder / "CMakeCache.txt", ignored);
}

bool IsUsableName(std::string_view name) {
    return IsValidUtf8(name) && std::none_of(name.begin(), name.end(),
                                             [](unsigned char c) { return c < 0x20 || c == 0x7F; });
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
    if (::access(mFolder.c_str(), R_OK | X_OK) != 0) {
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
        if (walk.isCancelled) {
            return;
        }
        VisitEntry(walk, entry, prefix + entry.path().filename().native());
    }
}

void SourceFileFinder::VisitEntry(Walk& walk, const fs::directory_entry& entry,
                                  const std::string& relative) const {
    const std::string name = entry.path().filename().native();
    if (!IsUsableName(name)) {
        walk.found.Warnings.push_back(
            "\"" + PrintableUtf8(relative) +
            "\" was left out because its name is not valid UTF-8 or holds control characters. "
            "Rename it to have it scanned.");
        return;
    }
    if (IsExcluded(relative)) {
        return;
    }
    std::error_code error;
    const fs::file_status status = entry.status(error);
    if (status.type() == fs::file_type::directory) {
        if (!IsSkippedFolder(entry.path(), name)) {
            WalkFolder(walk, entry.path(), relative + "/");
        }
        return;
    }
    if (status.type() != fs::file_type::regular || (mFilter && !mFilter(relative)) ||
        IsBinary(entry.path())) {
        return;
    }
    if (::access(entry.path().c_str(), R_OK) != 0) {
        walk.found.Warnings.push_back("The file \"" + relative +
                                      "\" cannot be read and was left out. Check its permissions.");
        return;
    }
    walk.found.Files.push_back(relative);
    if (*walk.progress && walk.found.Files.size() % 64 == 1) {
        walk.isCancelled = !(*walk.progress)(walk.found.Files.size());
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
