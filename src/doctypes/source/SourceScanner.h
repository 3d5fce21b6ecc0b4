#pragma once

#include "doctypes/source/ScanOutcome.h"
#include "doctypes/source/SourceIndex.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
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
    std::size_t FileCount = 0;         ///< files that the index is made of
    std::size_t ReadCount = 0;         ///< those of them that ctags had to read for it
    std::size_t BadLineCount = 0;      ///< lines of ctags that could not be understood
    std::uint64_t Digest = 0;          ///< equal indexes have equal digests
};

/// What a scan that goes on knows already: the part of its index that will stay as it is. Each item
/// has the qualified name and the kind that it will have in the whole index; more will be beside
/// and below them.
struct ScanPart {
    SourceIndex Index;
    std::size_t FileCount = 0; ///< files that were read for it
};

/// When the parts of a scan come. Each costs as much as what is known by then, so that they have to
/// come at growing distances.
struct PartPace {
    std::chrono::milliseconds First{500}; ///< behind the begin of reading
    double Growth = 2;                    ///< of what is known, until the next one
};

/// Scans a folder of source code.
///
///     SourceScanner scanner("/home/me/leveldb", "leveldb");
///     scanner.Exclude("third_party");
///     ScanResult result = scanner.Scan();
///     if (result.Outcome.IsDone()) { ... result.Index->Children(SourceIndex::Root) ... }
///
/// With a cache a scan keeps what it found, and the next one has ctags read only what changed since
/// then. The index is the same as that of a scan without one.
class SourceScanner {
public:
    /// False ends the scan, which then says so. Called in the thread of the scan only.
    using Progress = std::function<bool(const ScanProgress&)>;

    /// Files that are larger are left out with a warning: they are made, not written, and a few of
    /// them would cost more memory and time than all the rest.
    static constexpr std::uint64_t LargestFile = 16u << 20;

    /// The folder and the name of the project, the first step of all qualified names.
    SourceScanner(std::string folder, std::string projectName);

    /// See PathGlob.
    void Exclude(std::string pattern) { mExclusions.push_back(std::move(pattern)); }

    /// The program to run; empty stands for "ctags" wherever the PATH finds it.
    void SetCtagsProgram(std::string program) { mProgram = std::move(program); }

    /// Keeps scans in the folder, which is made when it is not there; empty, as at first, keeps
    /// none. `owner` says which build of which program keeps them: one of another is not used.
    void SetCache(std::string folder, std::string owner);

    /// How many processes of ctags work at once; at first as many as the machine has cores.
    void SetProcessCount(unsigned count) { mProcessCount = count; }

    /// A file that ctags works at for longer is left out with a warning; at first 30 seconds.
    void SetFileTimeLimit(std::chrono::milliseconds limit) { mFileTimeLimit = limit; }

    /// Gives the parts of a first scan while it goes on, in the thread of the scan. There are none
    /// when something is kept of an earlier scan, and when one of the files is in a language in
    /// which its path does not tell where its names stand: there a later file may change the names
    /// of what is known. See GroupOfFile.
    using TakePart = std::function<void(ScanPart part)>;
    void SetParts(TakePart take, PartPace pace = {});

    /// Bad source code is never a failure. Fails when the folder or ctags cannot be used.
    ScanResult Scan(const Progress& progress = {}) const;

    /// What the last scan found, without a look at the files; nothing when no scan is kept. May be
    /// out of date.
    std::optional<ScanResult> LastKnown() const;

    /// The command that has ctags alone read the same files with the same options: a yardstick.
    /// The names go to its standard input, and its working folder is that of the source code.
    struct Yardstick {
        std::vector<std::string> Command;
        std::string FileList; ///< a name in each line
    };

    Yardstick CtagsAlone() const;

private:
    friend class ScanInProgress;

    std::string Place() const;

    std::string mFolder;
    std::string mProjectName;
    std::string mProgram;
    std::vector<std::string> mExclusions;
    std::string mCacheFolder;
    std::string mCacheOwner;
    unsigned mProcessCount;
    std::chrono::milliseconds mFileTimeLimit{30000};
    TakePart mTakePart;
    PartPace mPartPace;
};

} // namespace paperkite
