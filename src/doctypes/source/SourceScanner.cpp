#include "doctypes/source/SourceScanner.h"

#include "doctypes/source/ByteWriter.h"
#include "doctypes/source/ParallelWork.h"
#include "doctypes/source/ScanInProgress.h"

namespace paperkite {

SourceScanner::SourceScanner(std::string folder, std::string projectName)
    : mFolder(std::move(folder)), mProjectName(std::move(projectName)), mProcessCount(CoreCount()) {
}

void SourceScanner::SetCache(std::string folder, std::string owner) {
    mCacheFolder = std::move(folder);
    mCacheOwner = std::move(owner);
}

void SourceScanner::SetParts(TakePart take, PartPace pace) {
    mTakePart = std::move(take);
    mPartPace = pace;
}

std::string SourceScanner::Place() const {
    std::error_code ignored;
    ByteWriter place;
    place.Text(std::filesystem::weakly_canonical(mFolder, ignored).native());
    place.Text(mProjectName);
    place.Text(mCacheOwner);
    for (const std::string& pattern : mExclusions) {
        place.Text(pattern);
    }
    return place.Take();
}

ScanResult SourceScanner::Scan(const Progress& progress) const {
    return ScanInProgress(*this, progress).Run();
}

std::optional<ScanResult> SourceScanner::LastKnown() const {
    const ScanCacheFolder folder(mCacheFolder);
    const std::string place = Place();
    const auto cache =
        folder.IsThere() ? ScanCacheReader::Open(folder.FileFor(place), place) : nullptr;
    auto index = cache ? cache->Index() : std::nullopt;
    if (!index) {
        return std::nullopt;
    }
    ScanResult result;
    result.Index = std::move(index);
    result.Digest = cache->Digest();
    result.Warnings = cache->Scan().Warnings;
    for (const CachedFile& file : cache->Scan().Files) {
        result.FileCount += file.LeftOut.empty();
        result.BadLineCount += file.BadLineCount;
    }
    return result;
}

SourceScanner::Yardstick SourceScanner::CtagsAlone() const {
    return ScanInProgress(*this, {}).Prepared();
}

} // namespace paperkite
