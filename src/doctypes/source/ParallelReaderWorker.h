#pragma once

#include "doctypes/source/CtagsConversation.h"
#include "doctypes/source/CtagsTagReader.h"
#include "doctypes/source/LanguageRefiner.h"
#include "doctypes/source/ParallelReader.h"

#include <chrono>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace paperkite {

/// One of the threads of a ParallelReader, with its process of ctags.
class ParallelReader::Worker {
public:
    explicit Worker(ParallelReader& reader) : mReader(reader), mSettings(reader.mSettings) {}

    void Run();

private:
    using Clock = std::chrono::steady_clock;
    using Event = CtagsConversation::Event;

    const Job& JobAt(std::size_t number) const { return mReader.mJobs[number]; }

    void AskForMore();
    void AskAgain();
    void Listen();
    void ReadAlone(std::size_t job);
    void TakeLine(std::string_view line);
    void FinishFile(std::size_t job);
    ReadFile Refined(const Job& job);
    void TakeEnd(std::size_t job, bool wasTooLong);
    void LeaveOut(std::size_t job, std::string reason);
    bool IsTooLong() const { return Clock::now() - mFileBegan > mSettings.FileTimeLimit; }
    std::unique_ptr<CtagsConversation> NewConversation() const;
    void FailToStart(int error);

    ParallelReader& mReader;
    const Settings& mSettings;
    std::unique_ptr<CtagsConversation> mTalk;
    std::deque<std::size_t> mOpen; ///< jobs that were asked for, oldest first
    std::uint64_t mOpenBytes = 0;
    bool mIsLast = false; ///< there are no more jobs to take
    Clock::time_point mFileBegan;
    int mCrashes = 0; ///< of the oldest open job

    CtagsTagReader mTagReader;
    TaggedFile mFile;
    std::uint32_t mBadLines = 0;
    bool mHasTooMany = false;
};

} // namespace paperkite
