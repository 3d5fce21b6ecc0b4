#pragma once

#include "doctypes/source/FileStamp.h"
#include "doctypes/source/ScanOutcome.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// What one file of source code declares, or why it is left out.
struct ReadFile {
    std::string Declarations; ///< as EncodeDeclarations makes them
    std::string LeftOut;      ///< the reason, as the end of a sentence; empty when it was read
    std::uint64_t ContentHash = 0;
    std::uint32_t BadLineCount = 0; ///< lines of ctags that could not be understood
    bool IsKeepable = false;        ///< the same file will give the same again
    bool DefeatedCtags = false;     ///< it was left out because ctags crashed or took too long
};

/// Reads files with several processes of ctags at once and hands out what they declare in the order
/// in which the files were given, whoever read them. A file that makes ctags crash, or that takes
/// it too long, is left out alone.
///
/// What was read and not yet fetched is bounded: who does not fetch makes the processes wait.
class ParallelReader {
public:
    struct Job {
        std::string Path; ///< relative to the folder
        FileStamp Stamp;
    };

    struct Settings {
        std::string Folder;
        std::string Program;
        std::vector<std::string> Options;
        unsigned ProcessCount = 1;
        std::chrono::milliseconds FileTimeLimit{30000};
    };

    ParallelReader(Settings settings, std::vector<Job> jobs);
    /// Kills what still runs.
    ~ParallelReader();
    ParallelReader(const ParallelReader&) = delete;
    ParallelReader& operator=(const ParallelReader&) = delete;

    /// The next file's, in the order of the jobs; nothing when it was not there in that time. To be
    /// called once for each job, and no more after a failure.
    std::optional<ReadFile> Next(std::chrono::milliseconds wait);

    /// Done, or why ctags cannot be used at all.
    ScanOutcome Outcome() const;

private:
    class Worker;

    /// The number of the next job. Nothing when there is none, or when enough is waiting to be
    /// fetched; then `isLast` tells which.
    std::optional<std::size_t> Take(bool& isLast);
    void Deliver(std::size_t job, ReadFile file);
    void Fail(ScanOutcome outcome);
    bool IsStopped() const;
    void WaitForRoom();

    const Settings mSettings;
    const std::vector<Job> mJobs;
    std::vector<std::size_t> mOrder; ///< in which jobs are taken: the largest first

    mutable std::mutex mMutex;
    std::condition_variable mChange;
    std::size_t mTaken = 0;   ///< in mOrder
    std::size_t mFetched = 0; ///< in mJobs
    std::vector<bool> mIsTaken;
    std::unordered_map<std::size_t, ReadFile> mWaiting;
    std::size_t mWaitingBytes = 0;
    bool mIsStopped = false;
    ScanOutcome mOutcome;
    bool mWasAnyRead = false;
    int mDefeats = 0; ///< files that defeated ctags while none was ever read
    std::vector<std::thread> mWorkers;
};

} // namespace paperkite
