#include "doctypes/source/ScanInProgress.h"

#include <algorithm>

namespace paperkite {

void ScanInProgress::BeginParts() {
    mOpenGroups.reset();
    mHasNewPart = false;
    if (!mScanner.mTakePart || mCache) {
        return;
    }
    mOpenGroups.emplace();
    const bool areTold = std::all_of(mFiles.begin(), mFiles.end(), [&](const File& file) {
        return mOpenGroups->Open(file.Found.Path);
    });
    if (!areTold) {
        mOpenGroups.reset();
        return;
    }
    mFirstPart = std::chrono::steady_clock::now() + mScanner.mPartPace.First;
    mNextPartSize = 0;
}

void ScanInProgress::NoteRead(std::uint32_t number) {
    if (mOpenGroups) {
        mOpenGroups->Close(mFiles[number].Found.Path);
        mHasNewPart = true;
    }
}

// Asked behind each file, and while a slow one is waited for.
void ScanInProgress::OfferPart() {
    if (!mHasNewPart) {
        return;
    }
    const bool isLast = mDone == mFiles.size();
    const std::size_t size = mBuilder->Size();
    if (isLast || size < mNextPartSize || std::chrono::steady_clock::now() < mFirstPart) {
        return;
    }
    mHasNewPart = false;
    if (mOpenGroups->IsOpen(OpenGroups::Root)) { // nothing is settled, which costs nothing to see
        return;
    }
    mNextPartSize = static_cast<std::size_t>(static_cast<double>(size) * mScanner.mPartPace.Growth);
    const auto goOn = [&] { return Report(ScanPhase::ReadingFiles, mDone); };
    if (auto index = mBuilder->Settled(*mOpenGroups, goOn)) {
        mScanner.mTakePart({std::move(*index), mResult.FileCount});
    }
}

} // namespace paperkite
