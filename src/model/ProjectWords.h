#pragma once

#include "model/FileProblem.h"

#include <optional>
#include <set>
#include <string>

namespace paperkite {

/// The words that the authors of a project had learnt or pass over, in a file beside the project
/// that travels with it: "leveldb.words" for "leveldb.kiteproject". Each change reads the file
/// first, so that nobody's words are lost; docs/file-formats.md describes it.
///
///     ProjectWords words(project.GetPath());
///     if (const auto problem = words.Read()) Tell(*problem);
///     if (const auto problem = words.Learn("memtable")) Tell(*problem);
class ProjectWords {
public:
    explicit ProjectWords(const std::string& projectFile);

    const std::string& GetPath() const { return mPath; }
    /// No file is no problem: then there are no words.
    std::optional<FileProblem> Read();
    /// Whether the file is another one than at the last Read, or nobody read it yet.
    bool HasChanged() const;
    /// Without the words that are passed over.
    const std::set<std::string>& GetLearnt() const { return mLearnt; }
    const std::set<std::string>& GetIgnored() const { return mIgnored; }

    /// What is in the file already is not written again. After a problem the file is as it was.
    std::optional<FileProblem> Learn(const std::string& word);
    std::optional<FileProblem> Ignore(const std::string& word);
    /// Takes in what another project's file holds. Where that cannot be read it stays there.
    std::optional<FileProblem> TakeFrom(const std::string& projectFile);

private:
    std::optional<FileProblem> ReadFile();
    std::optional<FileProblem> Add(const std::string& word, bool isIgnored);
    void Parse(const std::string& bytes);
    std::string Text() const;

    std::string mPath;
    std::set<std::string> mLearnt;
    std::set<std::string> mIgnored;
    /// The lines that begin with "#", as they are.
    std::string mRemarks;
    /// What the disk said of the file at the last Read.
    std::optional<std::string> mStamp;
};

} // namespace paperkite
