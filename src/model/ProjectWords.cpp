#include "model/ProjectWords.h"

#include "foundation/Text.h"
#include "model/SafeFile.h"

#include <filesystem>

namespace paperkite {

namespace {

constexpr const char* kRemarks =
    "# Words of this project, a line each. \"!\" before a word: passed over, never suggested.\n";

bool IsConflictMark(const std::string& line) {
    return line.starts_with("<<<<<<<") || line.starts_with("=======") ||
           line.starts_with(">>>>>>>") || line.starts_with("|||||||");
}

/// Of a file that is not there an empty text.
std::string StampOf(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code failed;
    const auto time = fs::last_write_time(path, failed);
    if (failed) return {};
    const auto size = fs::file_size(path, failed);
    return std::to_string(time.time_since_epoch().count()) + " " +
           (failed ? std::string("none") : std::to_string(size));
}

} // namespace

ProjectWords::ProjectWords(const std::string& projectFile)
    : mPath(std::filesystem::path(projectFile).replace_extension(".words").string()) {}

std::optional<FileProblem> ProjectWords::Read() {
    mStamp = StampOf(mPath);
    return ReadFile();
}

bool ProjectWords::HasChanged() const {
    return mStamp != StampOf(mPath);
}

std::optional<FileProblem> ProjectWords::ReadFile() {
    std::string bytes;
    std::error_code ignored;
    if (std::filesystem::exists(mPath, ignored))
        if (auto problem = SafeFile::Read(mPath, bytes)) return problem;
    Parse(bytes);
    return std::nullopt;
}

void ProjectWords::Parse(const std::string& bytes) {
    mLearnt.clear();
    mIgnored.clear();
    mRemarks.clear();
    for (const std::string& given : Split(bytes, "\n")) {
        const std::string line = TrimWhiteSpace(given);
        // Every line is a word of its own: both sides of a conflict count.
        if (line.empty() || IsConflictMark(line)) continue;
        if (line[0] == '#')
            mRemarks += line + "\n";
        else if (line[0] != '!')
            mLearnt.insert(line);
        else if (line.size() > 1)
            mIgnored.insert(line.substr(1));
    }
}

std::string ProjectWords::Text() const {
    std::string text = mRemarks.empty() ? kRemarks : mRemarks;
    std::set<std::string> all = mLearnt;
    all.insert(mIgnored.begin(), mIgnored.end());
    for (const std::string& word : all)
        text += (mLearnt.contains(word) ? "" : "!") + word + "\n";
    return text;
}

std::optional<FileProblem> ProjectWords::Learn(const std::string& word) {
    return Add(word, false);
}

std::optional<FileProblem> ProjectWords::Ignore(const std::string& word) {
    return Add(word, true);
}

std::optional<FileProblem> ProjectWords::Add(const std::string& word, bool isIgnored) {
    if (auto problem = ReadFile()) return problem;
    const bool isThere = mLearnt.contains(word) || (isIgnored && mIgnored.contains(word));
    if (isThere || word.empty()) return std::nullopt;
    (isIgnored ? mIgnored : mLearnt).insert(word);
    return SafeFile::Write(mPath, Text());
}

std::optional<FileProblem> ProjectWords::TakeFrom(const std::string& projectFile) {
    ProjectWords other(projectFile);
    if (other.Read() || (other.mLearnt.empty() && other.mIgnored.empty())) return std::nullopt;
    if (auto problem = ReadFile()) return problem;
    const std::size_t before = mLearnt.size() + mIgnored.size();
    if (mRemarks.empty()) mRemarks = other.mRemarks;
    mLearnt.merge(other.mLearnt);
    mIgnored.merge(other.mIgnored);
    if (mLearnt.size() + mIgnored.size() == before) return std::nullopt;
    return SafeFile::Write(mPath, Text());
}

} // namespace paperkite
