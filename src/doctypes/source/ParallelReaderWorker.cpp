#include "doctypes/source/ParallelReaderWorker.h"

#include "doctypes/source/ContentHash.h"
#include "doctypes/source/CtagsProcess.h"
#include "doctypes/source/DeclarationCodec.h"
#include "doctypes/source/ParameterList.h"
#include "foundation/Utf8.h"

#include <cstring>
#include <exception>
#include <utility>

namespace paperkite {

namespace {

constexpr std::size_t mostOpenFiles = 16;
constexpr std::uint64_t mostOpenBytes = 128 * 1024;
constexpr std::size_t mostTags = 250'000;
constexpr int waitMilliseconds = 20;

std::string NameFor(const std::string& path) {
    return "./" + path;
}

// what moc adds to a C++ file may come first
const std::string& LanguageNameOf(const TaggedFile& file) {
    static const std::string cpp = "C++";
    return file.Tags[0].Language == "QtMoc" ? cpp : file.Tags[0].Language;
}

} // namespace

std::unique_ptr<CtagsConversation> ParallelReader::Worker::NewConversation() const {
    return std::make_unique<CtagsConversation>(mSettings.Program, mSettings.Folder,
                                               mSettings.Options);
}

void ParallelReader::Worker::Run() {
    try {
        while (!mReader.IsStopped()) {
            AskForMore();
            if (!mOpen.empty()) {
                Listen();
            } else if (mIsLast) {
                return;
            } else {
                mReader.WaitForRoom();
            }
        }
    } catch (const std::exception& exception) {
        mReader.Fail(ScanOutcome::Failure(std::string("The source code cannot be read: ") +
                                          exception.what()));
    }
}

// one file more than the one at hand keeps ctags busy; many small ones are as good
void ParallelReader::Worker::AskForMore() {
    while (mOpen.size() < 2 || (mOpen.size() < mostOpenFiles && mOpenBytes < mostOpenBytes)) {
        const auto job = mReader.Take(mIsLast);
        if (!job) {
            return;
        }
        if (!CtagsConversation::CanAsk(JobAt(*job).Path)) {
            ReadAlone(*job);
            continue;
        }
        if (mOpen.empty()) {
            mFileBegan = Clock::now();
        }
        mOpen.push_back(*job);
        mOpenBytes += JobAt(*job).Stamp.Size;
        if (mTalk) {
            mTalk->Ask(NameFor(JobAt(*job).Path));
        } else {
            AskAgain();
        }
    }
}

// all that is open, of a new process
void ParallelReader::Worker::AskAgain() {
    mTalk.reset();
    mTalk = NewConversation();
    if (const int error = mTalk->Start(); error != 0) {
        FailToStart(error);
        return;
    }
    for (const std::size_t job : mOpen) {
        mTalk->Ask(NameFor(JobAt(job).Path));
    }
    mFileBegan = Clock::now();
}

void ParallelReader::Worker::FailToStart(int error) {
    mReader.Fail(ScanOutcome::Failure("The program \"" + PrintableUtf8(mSettings.Program) +
                                      "\" cannot be run in \"" + PrintableUtf8(mSettings.Folder) +
                                      "\": " + std::strerror(error) + "."));
}

void ParallelReader::Worker::Listen() {
    const std::size_t job = mOpen.front();
    const Event event =
        mTalk->Wait(waitMilliseconds, [&](std::string_view line) { TakeLine(line); });
    const bool isTooLong = event == Event::Nothing && IsTooLong();
    if (event == Event::Nothing && !isTooLong) {
        return;
    }
    if (event == Event::FileDone) {
        FinishFile(job);
    } else {
        if (isTooLong) {
            mTalk->Kill();
        }
        ++mCrashes;
        // the first time it may have been the files before
        if (isTooLong || mCrashes > 1) {
            TakeEnd(job, isTooLong);
        } else {
            mFile = {};
            mBadLines = 0;
            mHasTooMany = false;
            AskAgain();
            return;
        }
    }
    mCrashes = 0;
    mOpen.pop_front();
    mOpenBytes -= JobAt(job).Stamp.Size;
    mFileBegan = Clock::now();
    if (event != Event::FileDone) {
        mTalk.reset();
        if (!mOpen.empty()) {
            AskAgain();
        }
    }
}

void ParallelReader::Worker::TakeEnd(std::size_t job, bool wasTooLong) {
    const CtagsProcess ctags(mSettings.Program);
    const ScanOutcome outcome = ctags.CheckOptions(mSettings.Folder, mSettings.Options,
                                                   [&] { return !mReader.IsStopped(); });
    if (!outcome.IsDone()) {
        mReader.Fail(outcome);
        return;
    }
    LeaveOut(job, wasTooLong ? "took ctags longer than " +
                                   std::to_string(mSettings.FileTimeLimit.count() / 1000) +
                                   " seconds to read"
                             : "cannot be read by ctags, which " + mTalk->HowItEnded());
}

void ParallelReader::Worker::LeaveOut(std::size_t job, std::string reason) {
    ReadFile file;
    file.LeftOut = std::move(reason);
    file.DefeatedCtags = !mHasTooMany;
    const auto stamp = FileStamp::Of(mSettings.Folder + "/" + JobAt(job).Path);
    file.IsKeepable = stamp == JobAt(job).Stamp;
    mFile = {};
    mBadLines = 0;
    mHasTooMany = false;
    mReader.Deliver(job, std::move(file));
}

void ParallelReader::Worker::ReadAlone(std::size_t job) {
    const std::unique_ptr<CtagsConversation> talk = NewConversation();
    if (const int error = talk->StartFor(NameFor(JobAt(job).Path)); error != 0) {
        FailToStart(error);
        return;
    }
    // what the conversation has said of another file meanwhile stays where it is
    TaggedFile other = std::exchange(mFile, {});
    const std::uint32_t otherBadLines = std::exchange(mBadLines, 0);
    const bool otherHasTooMany = std::exchange(mHasTooMany, false);
    const Clock::time_point began = Clock::now();
    Event event = Event::Nothing;
    while (event == Event::Nothing && !mReader.IsStopped() &&
           Clock::now() - began <= mSettings.FileTimeLimit) {
        event = talk->Wait(waitMilliseconds, [&](std::string_view line) { TakeLine(line); });
    }
    if (event == Event::FileDone) {
        FinishFile(job);
    } else {
        LeaveOut(job, event == Event::Ended ? "cannot be read by ctags, which " + talk->HowItEnded()
                                            : "took ctags too long to read");
    }
    mFile = std::move(other);
    mBadLines = otherBadLines;
    mHasTooMany = otherHasTooMany;
    mFileBegan = Clock::now();
}

void ParallelReader::Worker::TakeLine(std::string_view line) {
    if (mHasTooMany) {
        return;
    }
    const auto read = mTagReader.Read(line, mFile.Tags.emplace_back());
    mBadLines += read == CtagsTagReader::Result::Bad;
    if (read != CtagsTagReader::Result::Tag) {
        mFile.Tags.pop_back();
    }
    mHasTooMany = mFile.Tags.size() > mostTags;
}

void ParallelReader::Worker::FinishFile(std::size_t job) {
    if (mHasTooMany) {
        LeaveOut(job, "declares more than " + std::to_string(mostTags) + " things");
        return;
    }
    ReadFile file;
    try {
        file = Refined(JobAt(job));
    } catch (const std::exception& exception) {
        file.LeftOut = std::string("cannot be understood: ") + exception.what();
    }
    file.BadLineCount = mBadLines;
    mFile = {};
    mBadLines = 0;
    mReader.Deliver(job, std::move(file));
}

ReadFile ParallelReader::Worker::Refined(const Job& job) {
    ReadFile file;
    const std::string path = mSettings.Folder + "/" + job.Path;
    const auto text = SourceText::Read(path);
    if (!text) {
        file.LeftOut = "is gone or cannot be read any more";
        return file;
    }
    file.ContentHash = ContentHash::Of(text->Text());
    file.IsKeepable = FileStamp::Of(path) == job.Stamp;
    if (mFile.Tags.empty()) {
        return file;
    }
    mFile.Path = job.Path;
    const LanguageRefiner& refiner = LanguageRefiner::For(LanguageOfName(LanguageNameOf(mFile)));
    auto declarations = refiner.Refine(mFile, *text);
    for (SourceDeclaration& declaration : declarations) {
        if (IsCallable(declaration.Kind)) {
            declaration.Types =
                ParameterList(declaration.Signature, declaration.Language).TypesText();
        }
    }
    file.Declarations = EncodeDeclarations(declarations);
    return file;
}

} // namespace paperkite
