#pragma once

#include "doctypes/source/CodeSurvey.h"
#include "doctypes/source/CtagsProcess.h"
#include "doctypes/source/ParallelReader.h"
#include "doctypes/source/ScanCacheFile.h"
#include "doctypes/source/ScanCacheFolder.h"
#include "doctypes/source/SourceFileFinder.h"
#include "doctypes/source/SourceIndexBuilder.h"
#include "doctypes/source/SourceScanner.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// One scan on its way: find the files, see which of them changed since the scan that was kept,
/// survey and read those, build the index, keep it.
class ScanInProgress {
public:
    ScanInProgress(const SourceScanner& scanner, const SourceScanner::Progress& progress);

    ScanResult Run();

    /// The files and options as they stand before ctags reads the files.
    SourceScanner::Yardstick Prepared();

private:
    /// A file with what is known of it.
    struct File {
        FoundFile Found;
        const CachedFile* Known = nullptr; ///< from the cache
        bool IsSame = false;               ///< as it was then: nothing of it need be read
        std::uint64_t ContentHash = 0;
        std::string Survey; ///< CodeSurvey::Encoded; empty when it was not surveyed
    };

    // ScanInProgress.cpp: the steps
    ScanOutcome Steps();
    ScanOutcome FindFiles();
    ScanOutcome CheckCtags();
    bool TakeLastIndex();
    ScanOutcome ReadFiles();
    ScanOutcome BuildIndex();
    bool Add(std::uint32_t number, ReadFile read);
    bool AddKnown(std::uint32_t number);
    void KeepScan();
    bool Report(ScanPhase phase, std::size_t done, std::string_view file = {});
    bool Stand(ScanPhase phase);
    ScanOutcome Cancelled() const;
    std::string PathOf(const File& file) const { return mScanner.mFolder + "/" + file.Found.Path; }
    void Warn(const std::string& file, const std::string& reason);

    // ScanInProgressChanges.cpp: what has to be read
    void OpenCache();
    void CompareWithCache();
    bool IsInDoubt(const File& file) const;
    ScanOutcome SettleDoubts();
    ScanOutcome Survey();
    ScanOutcome FollowDefinitions();
    bool IsTooLarge(const File& file) const;
    std::string ReaderText() const;

    // ScanInProgressParts.cpp: what is told before the end
    void BeginParts();
    void NoteRead(std::uint32_t number);
    void OfferPart();

    const SourceScanner& mScanner;
    const SourceScanner::Progress& mProgress;
    const std::int64_t mMoment = FileStamp::Now();
    ScanCacheFolder mCacheFolder;
    std::string mCachePath;
    std::unique_ptr<ScanCacheReader> mCache;
    std::unique_ptr<ScanCacheWriter> mWriter;
    bool mIsCacheDamaged = false;
    bool mIsCancelled = false; ///< once said, it stays
    std::atomic<bool> mHadDoubts = false;

    CtagsProcess mCtags;
    CodeSurvey mSurvey;
    bool mHeadersAreCpp = false;           ///< what the survey says
    std::vector<std::string> mDefinitions; ///< what the survey says, sorted
    std::vector<File> mFiles;
    std::vector<CachedFile> mRecords;
    std::optional<SourceIndexBuilder> mBuilder;
    std::optional<OpenGroups> mOpenGroups; ///< only while parts are told
    std::chrono::steady_clock::time_point mFirstPart;
    std::size_t mNextPartSize = 0;
    bool mHasNewPart = false; ///< a file was read since a part was last looked for
    ScanResult mResult;
    std::size_t mDone = 0;
    std::size_t mUntoldWarnings = 0;
};

} // namespace paperkite
