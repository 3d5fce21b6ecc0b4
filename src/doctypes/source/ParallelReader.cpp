#include "doctypes/source/ParallelReader.h"

#include "doctypes/source/CtagsProcess.h"
#include "doctypes/source/ParallelReaderWorker.h"

#include <algorithm>
#include <numeric>

namespace paperkite {

namespace {

constexpr std::uint64_t largeFile = 1 << 20;
constexpr std::size_t mostWaitingBytes = 32 << 20;
constexpr std::size_t mostWaitingFiles = 8192;

} // namespace

ParallelReader::ParallelReader(Settings settings, std::vector<Job> jobs)
    : mSettings(std::move(settings)), mJobs(std::move(jobs)), mOrder(mJobs.size()),
      mIsTaken(mJobs.size()) {
    std::iota(mOrder.begin(), mOrder.end(), std::size_t{0});
    // a large file at the end would leave one core alone with it
    const auto weight = [&](std::size_t job) {
        return mJobs[job].Stamp.Size < largeFile ? 0 : mJobs[job].Stamp.Size;
    };
    std::stable_sort(mOrder.begin(), mOrder.end(),
                     [&](std::size_t a, std::size_t b) { return weight(a) > weight(b); });
    const std::size_t count =
        std::min<std::size_t>(std::max(1u, mSettings.ProcessCount), mJobs.size());
    for (std::size_t i = 0; i < count; ++i) {
        mWorkers.emplace_back([this] { Worker(*this).Run(); });
    }
}

ParallelReader::~ParallelReader() {
    {
        const std::lock_guard lock(mMutex);
        mIsStopped = true;
    }
    mChange.notify_all();
    for (std::thread& worker : mWorkers) {
        worker.join();
    }
}

bool ParallelReader::IsStopped() const {
    const std::lock_guard lock(mMutex);
    return mIsStopped;
}

ScanOutcome ParallelReader::Outcome() const {
    const std::lock_guard lock(mMutex);
    return mOutcome;
}

// the file that is fetched next must always be taken, or all would wait for each other
std::optional<std::size_t> ParallelReader::Take(bool& isLast) {
    const std::lock_guard lock(mMutex);
    isLast = mTaken == mOrder.size();
    const bool isFull = mWaitingBytes > mostWaitingBytes || mWaiting.size() > mostWaitingFiles;
    if (isLast || mIsStopped || (isFull && mIsTaken[mFetched])) {
        return std::nullopt;
    }
    const std::size_t job = mOrder[mTaken++];
    mIsTaken[job] = true;
    return job;
}

void ParallelReader::WaitForRoom() {
    constexpr std::chrono::milliseconds wait{20};
    std::unique_lock lock(mMutex);
    mChange.wait_for(lock, wait);
}

void ParallelReader::Deliver(std::size_t job, ReadFile file) {
    constexpr int mostDefeats = 20;
    bool isNext = false;
    {
        const std::lock_guard lock(mMutex);
        mWasAnyRead = mWasAnyRead || file.LeftOut.empty();
        mDefeats += file.DefeatedCtags;
        if (!mWasAnyRead && mDefeats > mostDefeats && mOutcome.IsDone()) {
            mOutcome = ScanOutcome::Failure(
                "The program \"" + mSettings.Program +
                "\" that reads source code failed on each of the first files; the last one " +
                file.LeftOut + ".");
        }
        mWaitingBytes += file.Declarations.size();
        mWaiting.emplace(job, std::move(file));
        isNext = job == mFetched || !mOutcome.IsDone();
    }
    if (isNext) {
        mChange.notify_all();
    }
}

void ParallelReader::Fail(ScanOutcome outcome) {
    {
        const std::lock_guard lock(mMutex);
        mOutcome = mOutcome.IsDone() ? std::move(outcome) : mOutcome;
        mIsStopped = true;
    }
    mChange.notify_all();
}

std::optional<ReadFile> ParallelReader::Next(std::chrono::milliseconds wait) {
    std::unique_lock lock(mMutex);
    mChange.wait_for(lock, wait, [&] { return mWaiting.contains(mFetched) || !mOutcome.IsDone(); });
    const auto found = mWaiting.find(mFetched);
    if (found == mWaiting.end() || !mOutcome.IsDone()) {
        return std::nullopt;
    }
    ReadFile file = std::move(found->second);
    mWaiting.erase(found);
    mWaitingBytes -= file.Declarations.size();
    ++mFetched;
    return file;
}

} // namespace paperkite
