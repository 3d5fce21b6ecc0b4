#pragma once

#include "host/SourceReading.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace paperkite {

/// A reading of source code in a thread of its own. Whoever has it asks how far it is, takes the
/// parts that are known before its end, and at last what it brought.
///
///     RunningReading reading(sources, RunningReading::Parts::Wanted);
///     while (!reading.IsFinished()) {
///         reading.WaitForNews();
///         if (auto part = reading.TakePart()) { ... }
///     }
///     SourceReading all = reading.TakeResult();
class RunningReading {
public:
    enum class Parts { Unwanted, Wanted };

    /// Begins at once. How soon a part comes, see SourceScanner::SetParts.
    RunningReading(std::vector<SourceSettings> sources, Parts parts);
    /// Ends it and waits for the thread.
    ~RunningReading();
    RunningReading(const RunningReading&) = delete;
    RunningReading& operator=(const RunningReading&) = delete;

    /// Whether it tells parts, if the code allows it.
    bool WantsParts() const { return mParts == Parts::Wanted; }
    /// It ends soon, and its result says that it was cancelled.
    void Cancel() { mCancelled = true; }
    bool IsFinished() const { return mFinished; }
    /// Without the file.
    ScanProgress Now() const;

    /// Returns when a part is there or the end, or after a twentieth of a second.
    void WaitForNews();
    bool HasPart();
    /// The last part, unless it was taken before.
    std::optional<SourceReading> TakePart();
    /// What the reading brought; once, and not before it is finished.
    SourceReading TakeResult();

private:
    void Read(const std::vector<SourceSettings>& sources);
    void KeepPart(SourceReading part);

    const Parts mParts;
    std::atomic<bool> mCancelled = false;
    std::atomic<bool> mFinished = false;
    std::atomic<ScanPhase> mPhase = ScanPhase::FindingFiles;
    std::atomic<std::size_t> mDone = 0;
    std::atomic<std::size_t> mTotal = 0;
    /// The thread's, until mFinished is set.
    SourceReading mResult;
    std::mutex mMutex;
    std::condition_variable mNews;
    std::optional<SourceReading> mPart; ///< guarded by mMutex
    std::thread mThread;
};

} // namespace paperkite
