#include "doctypes/source/ScanInProgress.h"

#include "doctypes/source/CtagsConversation.h"
#include "doctypes/source/CtagsOptions.h"
#include "doctypes/source/DeclarationCodec.h"
#include "doctypes/source/SourceIndexStorage.h"
#include "foundation/Utf8.h"

#include <unordered_map>
#include <utility>

namespace paperkite {

namespace {

constexpr std::size_t mostWarnings = 1000;
constexpr std::chrono::milliseconds wait{50};

} // namespace

ScanInProgress::ScanInProgress(const SourceScanner& scanner,
                               const SourceScanner::Progress& progress)
    : mScanner(scanner), mProgress(progress), mCacheFolder(scanner.mCacheFolder),
      mCtags(scanner.mProgram) {}

ScanResult ScanInProgress::Run() {
    OpenCache();
    mResult.Outcome = Steps();
    if (mIsCacheDamaged) { // what is damaged was found out late: once more without it
        mCache.reset();
        mWriter.reset();
        mFiles.clear();
        mRecords.clear();
        mSurvey = {};
        mDone = 0;
        mResult = {};
        mUntoldWarnings = 0;
        mIsCacheDamaged = false;
        mResult.Outcome = Steps();
    }
    if (!mResult.Outcome.IsDone()) {
        mResult.Index.reset();
    }
    if (mUntoldWarnings > 0) {
        mResult.Warnings.push_back(std::to_string(mUntoldWarnings) +
                                   " more files were left out for reasons like these.");
    }
    return std::move(mResult);
}

ScanOutcome ScanInProgress::Steps() {
    using Step = ScanOutcome (ScanInProgress::*)();
    using Self = ScanInProgress;
    for (const Step step : {&Self::FindFiles, &Self::CheckCtags, &Self::SettleDoubts}) {
        if (ScanOutcome outcome = (this->*step)(); !outcome.IsDone()) {
            return outcome;
        }
    }
    if (TakeLastIndex()) {
        return {};
    }
    for (const Step step :
         {&Self::Survey, &Self::FollowDefinitions, &Self::ReadFiles, &Self::BuildIndex}) {
        if (ScanOutcome outcome = (this->*step)(); !outcome.IsDone()) {
            return outcome;
        }
    }
    return {};
}

SourceScanner::Yardstick ScanInProgress::Prepared() {
    SourceScanner::Yardstick yardstick;
    for (const auto step :
         {&ScanInProgress::FindFiles, &ScanInProgress::CheckCtags, &ScanInProgress::Survey}) {
        if (!(this->*step)().IsDone()) {
            return yardstick;
        }
    }
    yardstick.Command = {mCtags.Program()};
    const auto options = CtagsOptions(mSurvey);
    yardstick.Command.insert(yardstick.Command.end(), options.begin(), options.end());
    yardstick.Command.insert(yardstick.Command.end(), {"-L", "-", "-f", "-"});
    for (const File& file : mFiles) {
        if (CtagsConversation::CanAsk(file.Found.Path) && !IsTooLarge(file)) {
            yardstick.FileList += "./" + file.Found.Path + "\n";
        }
    }
    return yardstick;
}

ScanOutcome ScanInProgress::Cancelled() const {
    return ScanOutcome::Cancellation("The scan of the source code was cancelled.");
}

bool ScanInProgress::Report(ScanPhase phase, std::size_t done, std::string_view file) {
    const std::size_t total = phase == ScanPhase::FindingFiles ? 0 : mFiles.size();
    mIsCancelled = mIsCancelled || (mProgress && !mProgress({phase, done, total, file}));
    return !mIsCancelled;
}

bool ScanInProgress::Stand(ScanPhase phase) {
    return Report(phase, mDone);
}

void ScanInProgress::Warn(const std::string& file, const std::string& reason) {
    if (mResult.Warnings.size() >= mostWarnings) {
        ++mUntoldWarnings;
        return;
    }
    mResult.Warnings.push_back("The file \"" + PrintableUtf8(file) + "\" " + reason +
                               " and was left out.");
}

ScanOutcome ScanInProgress::FindFiles() {
    SourceFileFinder finder(mScanner.mFolder);
    for (const std::string& pattern : mScanner.mExclusions) {
        finder.Exclude(pattern);
    }
    finder.SetFilter(IsSourceFileName);
    std::unordered_map<std::string_view, const CachedFile*> known;
    if (mCache) {
        for (const CachedFile& file : mCache->Scan().Files) {
            known.emplace(file.Path, &file);
        }
    }
    const auto knownAs = [&](const std::string& path) {
        const auto at = known.find(path);
        return at == known.end() ? nullptr : at->second;
    };
    finder.SetKnown([&](const std::string& path, const FileStamp& stamp) {
        const CachedFile* file = knownAs(path);
        return file != nullptr && file->Stamp == stamp;
    });
    FoundFiles found = finder.Find([&](std::size_t count) {
        mDone = count;
        return Stand(ScanPhase::FindingFiles);
    });
    mResult.Warnings = std::move(found.Warnings);
    if (!found.Outcome.IsDone()) {
        return found.Outcome;
    }
    for (FoundFile& file : found.Files) {
        const CachedFile* before = knownAs(file.Path);
        mFiles.push_back({std::move(file), before, false, 0, {}});
    }
    mDone = mFiles.size();
    return Stand(ScanPhase::FindingFiles) ? ScanOutcome() : Cancelled();
}

ScanOutcome ScanInProgress::CheckCtags() {
    ScanOutcome outcome = mCtags.Check([&] { return Stand(ScanPhase::FindingFiles); });
    if (outcome.IsDone()) {
        CompareWithCache();
    }
    return outcome.Status == ScanStatus::Cancelled ? Cancelled() : outcome;
}

bool ScanInProgress::TakeLastIndex() {
    if (!mCache || mCache->Scan().Files.size() != mFiles.size()) {
        return false;
    }
    for (const File& file : mFiles) {
        if (!file.IsSame) {
            return false;
        }
    }
    auto index = mCache->Index([&] { return Report(ScanPhase::BuildingIndex, mFiles.size()); });
    if (!index) {
        return false;
    }
    mResult.Index = std::move(index);
    mResult.Digest = mCache->Digest();
    for (const File& file : mFiles) {
        mRecords.push_back(*file.Known);
        mRecords.back().Stamp = file.Found.Stamp;
        mResult.BadLineCount += file.Known->BadLineCount;
        mResult.FileCount += file.Known->LeftOut.empty();
        if (!file.Known->LeftOut.empty()) {
            Warn(file.Found.Path, file.Known->LeftOut);
        }
    }
    if (mHadDoubts) { // next time there are none
        mHeadersAreCpp = mCache->Scan().HeadersAreCpp;
        mDefinitions = mCache->Scan().Definitions;
        mWriter = std::make_unique<ScanCacheWriter>(mCachePath);
        mWriter->CopyFrom(*mCache);
        KeepScan();
    }
    return true;
}

ScanOutcome ScanInProgress::ReadFiles() {
    mDone = 0;
    mBuilder.emplace(mScanner.mProjectName);
    std::vector<ParallelReader::Job> jobs;
    for (const File& file : mFiles) {
        mBuilder->AddFile(file.Found.Path);
        if (!file.IsSame && !IsTooLarge(file)) {
            jobs.push_back({file.Found.Path, file.Found.Stamp});
        }
    }
    mResult.ReadCount = jobs.size();
    if (!Stand(ScanPhase::ReadingFiles)) {
        return Cancelled();
    }
    BeginParts();
    if (mCacheFolder.IsThere()) {
        mWriter = std::make_unique<ScanCacheWriter>(mCachePath);
    }
    ParallelReader reader({mScanner.mFolder, mCtags.Program(), CtagsOptions(mSurvey),
                           mScanner.mProcessCount, mScanner.mFileTimeLimit},
                          std::move(jobs));
    for (std::uint32_t i = 0; i < mFiles.size(); ++i) {
        if (mFiles[i].IsSame) {
            if (!AddKnown(i)) {
                mIsCacheDamaged = true;
                return Cancelled();
            }
        } else if (IsTooLarge(mFiles[i])) {
            ReadFile none;
            none.LeftOut =
                "is larger than " + std::to_string(SourceScanner::LargestFile >> 20) + " MB";
            none.IsKeepable = true;
            Add(i, std::move(none));
        } else {
            std::optional<ReadFile> read;
            while (!(read = reader.Next(wait))) {
                if (ScanOutcome outcome = reader.Outcome(); !outcome.IsDone()) {
                    return outcome.Status == ScanStatus::Cancelled ? Cancelled() : outcome;
                }
                OfferPart();
                if (!Report(ScanPhase::ReadingFiles, mDone, mFiles[i].Found.Path)) {
                    return Cancelled();
                }
            }
            Add(i, std::move(*read));
        }
        mDone = i + 1;
        NoteRead(i);
        OfferPart();
        if (!Report(ScanPhase::ReadingFiles, mDone, mFiles[i].Found.Path)) {
            return Cancelled();
        }
    }
    return {};
}

bool ScanInProgress::AddKnown(std::uint32_t number) {
    const CachedFile& known = *mFiles[number].Known;
    auto declarations = mCache->Declarations(known);
    if (!declarations) {
        return false;
    }
    ReadFile read;
    read.Declarations = std::move(*declarations);
    read.LeftOut = known.LeftOut;
    read.ContentHash = known.ContentHash;
    read.BadLineCount = known.BadLineCount;
    read.IsKeepable = true;
    return Add(number, std::move(read));
}

bool ScanInProgress::Add(std::uint32_t number, ReadFile read) {
    File& file = mFiles[number];
    if (!DecodeDeclarations(read.Declarations, number, [&](const SourceDeclaration& declaration) {
            mBuilder->Add(declaration);
        })) {
        return false;
    }
    mResult.BadLineCount += read.BadLineCount;
    mResult.FileCount += read.LeftOut.empty();
    if (!read.LeftOut.empty()) {
        Warn(file.Found.Path, read.LeftOut);
    }
    if (!mWriter) {
        return true;
    }
    CachedFile record;
    record.Path = file.Found.Path;
    if (read.IsKeepable) {
        record.Stamp = file.Found.Stamp;
        record.ContentHash = read.ContentHash;
    }
    record.Survey = std::move(file.Survey);
    record.LeftOut = std::move(read.LeftOut);
    record.BadLineCount = read.BadLineCount;
    mWriter->AddDeclarations(read.Declarations, record);
    mRecords.push_back(std::move(record));
    return true;
}

ScanOutcome ScanInProgress::BuildIndex() {
    const auto goOn = [&] { return Report(ScanPhase::BuildingIndex, mFiles.size()); };
    mResult.Index = mBuilder->Finish(goOn);
    mBuilder.reset();
    if (!mResult.Index || !goOn()) {
        return Cancelled();
    }
    if (!mWriter) {
        mResult.Digest = SourceIndexStorage::DigestOf(*mResult.Index);
        return {};
    }
    mResult.Digest = mWriter->AddIndex(*mResult.Index);
    KeepScan();
    return {};
}

void ScanInProgress::KeepScan() {
    CachedScan scan;
    scan.Place = mScanner.Place();
    scan.Reader = ReaderText();
    scan.Moment = mMoment;
    scan.HeadersAreCpp = mHeadersAreCpp;
    scan.Definitions = mDefinitions;
    scan.Warnings = mResult.Warnings;
    scan.Files = std::move(mRecords);
    mWriter->Commit(scan);
    mWriter.reset();
    mCacheFolder.Prune(mCachePath, {});
}

} // namespace paperkite
