#include "host/RunningReading.h"

#include <exception>
#include <utility>

namespace paperkite {

namespace {

constexpr std::chrono::milliseconds kWait{50};

} // namespace

RunningReading::RunningReading(std::vector<SourceSettings> sources, Parts parts)
    : mParts(parts), mThread([this, given = std::move(sources)] { Read(given); }) {}

RunningReading::~RunningReading() {
    Cancel();
    if (mThread.joinable()) mThread.join();
}

void RunningReading::Read(const std::vector<SourceSettings>& sources) {
    const auto progress = [this](const ScanProgress& now) {
        mPhase = now.Phase;
        mDone = now.FilesDone;
        mTotal = now.FilesTotal;
        return !mCancelled;
    };
    TakeReadingPart take;
    if (WantsParts()) take = [this](SourceReading part) { KeepPart(std::move(part)); };
    try {
        mResult = ReadSources(sources, progress, take);
    } catch (const std::exception& exception) {
        mResult = {};
        mResult.Problem = exception.what();
    }
    const std::lock_guard lock(mMutex);
    mFinished = true;
    mNews.notify_all();
}

void RunningReading::KeepPart(SourceReading part) {
    const std::lock_guard lock(mMutex);
    mPart = std::move(part);
    mNews.notify_all();
}

ScanProgress RunningReading::Now() const {
    return {mPhase, mDone, mTotal, {}};
}

void RunningReading::WaitForNews() {
    std::unique_lock lock(mMutex);
    mNews.wait_for(lock, kWait, [this] { return mFinished || mPart.has_value(); });
}

bool RunningReading::HasPart() {
    const std::lock_guard lock(mMutex);
    return mPart.has_value();
}

std::optional<SourceReading> RunningReading::TakePart() {
    const std::lock_guard lock(mMutex);
    return std::exchange(mPart, std::nullopt);
}

SourceReading RunningReading::TakeResult() {
    if (mThread.joinable()) mThread.join();
    return std::move(mResult);
}

} // namespace paperkite
