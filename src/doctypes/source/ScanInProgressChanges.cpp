#include "doctypes/source/ScanInProgress.h"

#include "doctypes/source/ContentHash.h"
#include "doctypes/source/CtagsOptions.h"
#include "doctypes/source/ParallelWork.h"
#include "doctypes/source/SourceText.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace paperkite {

namespace {

/// How exactly file systems tell the time of a change, at worst.
constexpr std::int64_t coarsestStamp = 2'000'000'000;

/// The name in a definition, "NAME(x)=body".
std::string NameOfDefinition(const std::string& definition) {
    return definition.substr(0, definition.find_first_of("(="));
}

/// Whether one of the words stands in the text; they consist of letters, digits and underscores.
bool HasWordOf(std::string_view text, const std::unordered_set<std::string_view>& words) {
    const auto isWord = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
               c == '_';
    };
    for (auto at = text.begin(); at != text.end();) {
        at = std::find_if(at, text.end(), isWord);
        const auto end = std::find_if_not(at, text.end(), isWord);
        if (at != end && words.contains(std::string_view(at, end))) {
            return true;
        }
        at = end;
    }
    return false;
}

} // namespace

void ScanInProgress::OpenCache() {
    if (mCacheFolder.IsThere()) {
        const std::string place = mScanner.Place();
        mCachePath = mCacheFolder.FileFor(place);
        mCache = ScanCacheReader::Open(mCachePath, place);
    }
}

std::string ScanInProgress::ReaderText() const {
    std::string text = mCtags.Version();
    for (const std::string& option : CtagsOptions(CodeSurvey())) {
        text += "\n" + option;
    }
    return text;
}

bool ScanInProgress::IsTooLarge(const File& file) const {
    return file.Found.Stamp.Size > SourceScanner::LargestFile;
}

void ScanInProgress::CompareWithCache() {
    if (mCache && mCache->Scan().Reader != ReaderText()) {
        for (File& file : mFiles) {
            file.Known = nullptr;
        }
        mCache.reset();
    }
    for (File& file : mFiles) {
        file.IsSame =
            file.Known != nullptr && file.Known->Stamp == file.Found.Stamp && !IsInDoubt(file);
    }
}

// what was changed while it was being read may bear the stamp that it had before
bool ScanInProgress::IsInDoubt(const File& file) const {
    const FileStamp& stamp = file.Found.Stamp;
    return file.Known->Stamp != stamp ||
           std::max(stamp.Modified, stamp.Changed) > mCache->Scan().Moment - coarsestStamp;
}

ScanOutcome ScanInProgress::SettleDoubts() {
    std::vector<File*> doubtful;
    for (File& file : mFiles) {
        if (file.Known != nullptr && !file.IsSame && !IsTooLarge(file) &&
            file.Known->Stamp.Size == file.Found.Stamp.Size && file.Known->ContentHash != 0) {
            doubtful.push_back(&file);
        }
    }
    const auto settle = [&](std::size_t i) {
        if (const auto text = SourceText::ReadBytes(PathOf(*doubtful[i]))) {
            doubtful[i]->IsSame = ContentHash::Of(*text) == doubtful[i]->Known->ContentHash;
            mHadDoubts = true;
        }
    };
    const auto goOn = [&](std::size_t begun) { return Report(ScanPhase::SurveyingFiles, begun); };
    return WorkInParallel(doubtful.size(), mScanner.mProcessCount, settle, goOn) ? ScanOutcome()
                                                                                 : Cancelled();
}

ScanOutcome ScanInProgress::Survey() {
    std::vector<File*> fresh;
    for (File& file : mFiles) {
        if (file.IsSame) {
            file.Survey = file.Known->Survey;
            file.IsSame = file.Survey.empty() || mSurvey.MergeEncoded(file.Survey);
        }
        if (!file.IsSame && !IsTooLarge(file) && CodeSurvey::IsOfInterest(file.Found.Path)) {
            fresh.push_back(&file);
        }
    }
    if (!Report(ScanPhase::SurveyingFiles, 0)) {
        return Cancelled();
    }
    const auto look = [&](std::size_t i) {
        if (const auto text = SourceText::ReadBytes(PathOf(*fresh[i]))) {
            CodeSurvey survey;
            survey.Look(fresh[i]->Found.Path, *text);
            fresh[i]->Survey = survey.Encoded();
        }
    };
    const auto goOn = [&](std::size_t begun) { return Report(ScanPhase::SurveyingFiles, begun); };
    if (!WorkInParallel(fresh.size(), mScanner.mProcessCount, look, goOn)) {
        return Cancelled();
    }
    for (const File* file : fresh) {
        mSurvey.MergeEncoded(file->Survey);
    }
    const auto definitions = mSurvey.Definitions();
    mDefinitions.assign(definitions.begin(), definitions.end());
    mHeadersAreCpp = mSurvey.HeadersAreCpp();
    return {};
}

// A macro that is defined otherwise now may change what ctags makes of each file that names it,
// also of files that did not change.
ScanOutcome ScanInProgress::FollowDefinitions() {
    if (!mCache) {
        return {};
    }
    const std::vector<std::string>& before = mCache->Scan().Definitions;
    std::vector<std::string> changed;
    if (!std::is_sorted(before.begin(), before.end())) {
        mIsCacheDamaged = true;
        return Cancelled();
    }
    std::set_symmetric_difference(before.begin(), before.end(), mDefinitions.begin(),
                                  mDefinitions.end(), std::back_inserter(changed));
    for (std::string& definition : changed) {
        definition = NameOfDefinition(definition);
    }
    const std::unordered_set<std::string_view> names(changed.begin(), changed.end());
    const bool isOtherC = mCache->Scan().HeadersAreCpp != mHeadersAreCpp;
    std::vector<File*> concerned;
    for (File& file : mFiles) {
        if (isOtherC && file.Found.Path.ends_with(".h")) {
            file.IsSame = false;
        } else if (file.IsSame && !names.empty() && MayUseMacros(file.Found.Path)) {
            concerned.push_back(&file);
        }
    }
    const auto look = [&](std::size_t i) {
        const auto text = SourceText::ReadBytes(PathOf(*concerned[i]));
        concerned[i]->IsSame = text && !HasWordOf(*text, names);
    };
    const auto goOn = [&](std::size_t begun) { return Report(ScanPhase::SurveyingFiles, begun); };
    return WorkInParallel(concerned.size(), mScanner.mProcessCount, look, goOn) ? ScanOutcome()
                                                                                : Cancelled();
}

} // namespace paperkite
