#pragma once

#include "doctypes/source/ScanOutcome.h"
#include "doctypes/source/SourceIndex.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

enum class ScanPhase { FindingFiles, SurveyingFiles, ReadingFiles, BuildingIndex };

/// How far a scan is. While files are sought, their total is not known and 0.
struct ScanProgress {
    ScanPhase Phase = ScanPhase::FindingFiles;
    std::size_t FilesDone = 0;
    std::size_t FilesTotal = 0;
    std::string_view CurrentFile; ///< relative; valid during the call
};

/// What a scan brought. With an outcome that is not done there is no index.
struct ScanResult {
    ScanOutcome Outcome;
    std::optional<SourceIndex> Index;
    std::vector<std::string> Warnings; ///< what was left out, and why
    std::size_t FileCount = 0;         ///< files that were read
    std::size_t BadLineCount = 0;      ///< lines of ctags that could not be understood
};

/// Scans a folder of source code.
///
///     SourceScanner scanner("/home/me/leveldb", "leveldb");
///     scanner.Exclude("third_party");
///     ScanResult result = scanner.Scan();
///     if (result.Outcome.IsDone()) { ... result.Index->Children(SourceIndex::Root) ... }
class SourceScanner {
public:
    /// False ends the scan, which then says so.
    using Progress = std::function<bool(const ScanProgress&)>;

    /// The folder and the name of the project, the first step of all qualified names.
    SourceScanner(std::string folder, std::string projectName);

    /// See PathGlob.
    void Exclude(std::string pattern) { mExclusions.push_back(std::move(pattern)); }

    /// The program to run; empty stands for "ctags" wherever the PATH finds it.
    void SetCtagsProgram(std::string program) { mProgram = std::move(program); }

    /// Bad source code is never a failure. Fails when the folder or ctags cannot be used.
    ScanResult Scan(const Progress& progress = {}) const;

private:
    std::string mFolder;
    std::string mProjectName;
    std::string mProgram;
    std::vector<std::string> mExclusions;
};

} // namespace paperkite
