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

} // namespace

ProjectWords::ProjectWords(const std::string& projectFile)
    : mPath(std::filesystem::path(projectFile).replace_extension(".words").string()) {}

std::optional<FileProblem> ProjectWords::Read() {
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
    if (auto problem = Read()) return problem;
    const bool isThere = mLearnt.contains(word) || (isIgnored && mIgnored.contains(word));
    if (isThere || word.empty()) return std::nullopt;
    (isIgnored ? mIgnored : mLearnt).insert(word);
    return SafeFile::Write(mPath, Text());
}

} // namespace paperkite
