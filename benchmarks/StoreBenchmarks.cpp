#include "BenchmarkCode.h"
#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "model/ProjectDocument.h"
#include "model/SafeFile.h"

#include <filesystem>
#include <memory>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

namespace paperkite::bench {

namespace {

namespace fs = std::filesystem;

constexpr int kCommentsOfItem = 3;
const std::vector<std::int64_t> kSizes{1'000, 10'000, 100'000};

/// A saved project of that many comments, in a folder that goes with it. It is made by a process of
/// its own: an author's program does not open a project in the remains of another one.
class StoredProject {
public:
    explicit StoredProject(std::int64_t comments)
        : mFolder(fs::temp_directory_path() / ("paperkite-bench-" + std::to_string(::getpid()) +
                                               "-" + std::to_string(comments))) {
        fs::create_directories(mFolder);
        const pid_t child = ::fork();
        if (child == 0) ::_exit(Make(comments) ? 0 : 1);
        int status = 1;
        if (child < 0 || ::waitpid(child, &status, 0) < 0 || status != 0)
            throw std::runtime_error("the project in " + mFolder.string() + " was not made");
    }
    ~StoredProject() {
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
    }
    StoredProject(const StoredProject&) = delete;
    StoredProject& operator=(const StoredProject&) = delete;

    std::string Path() const { return (mFolder / "code.kiteproject").string(); }
    std::string ContentPath() const { return (mFolder / "code.ktc").string(); }
    std::string CopyPath() const { return (mFolder / "copy.xml").string(); }

private:
    bool Make(std::int64_t comments) const {
        const auto made = ProjectDocument::New(Path());
        for (std::int64_t number = 0; number < comments; ++number)
            AddComment(*made.Project->GetComments(), number);
        made.Project->SetDirty(true);
        return !made.Project->Save(ProjectDocument::Overwriting::Allowed);
    }

    static void AddComment(CommentStore& store, std::int64_t number) {
        static constexpr const char* kTags[] = {"##", "##remarks", "##returns"};
        const std::int64_t item = number / kCommentsOfItem;
        const std::string name = "engine~storage" + std::to_string(item / 1000) + "~TableReader" +
                                 std::to_string(item / 20 % 50) + "~fetchRecord" +
                                 std::to_string(item % 20) + "(const Slice&, int)";
        auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(kTags[number % kCommentsOfItem]);
        comment->SetXMLCommentType("summary");
        comment->SetText("<p>Fetches record " + std::to_string(number) +
                         " of the table. The value is only touched when the key is there.</p>"
                         "<p>Readers may call this <i>at the same time</i>.</p>");
        store.Load(name, comment, {});
    }

    fs::path mFolder;
};

const StoredProject& Stored(std::int64_t comments) {
    return MadeOnce(comments,
                    [](std::int64_t size) { return std::make_unique<StoredProject>(size); });
}

void LoadOurs(benchmark::State& state, std::int64_t comments) {
    const std::string path = Stored(comments).Path();
    for (auto _ : state) {
        state.PauseTiming();
        ForgetFreeMemory();
        state.ResumeTiming();
        auto opened = ProjectDocument::Open(path);
        if (opened.Problem || opened.Project->GetComments()->Count() != std::size_t(comments))
            return state.SkipWithError("the comments were not read");
        state.PauseTiming();
        opened.Project = {};
        state.ResumeTiming();
    }
}

void LoadYardstick(benchmark::State& state, std::int64_t comments) {
    const std::string path = Stored(comments).ContentPath();
    for (auto _ : state) {
        state.PauseTiming();
        ForgetFreeMemory();
        state.ResumeTiming();
        auto document = std::make_unique<pugi::xml_document>();
        if (!document->load_file(path.c_str())) return state.SkipWithError("the file was not read");
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}

void SaveOurs(benchmark::State& state, std::int64_t comments) {
    const StoredProject& stored = Stored(comments);
    auto opened = ProjectDocument::Open(stored.Path());
    const std::string name = opened.Project->GetComments()->QualifiedNames().front();
    const auto item = MakeRef<TaggedComment>();
    int change = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto of = opened.Project->GetComments()->Find(name);
        of->Item(std::size_t{1})->SetText("<p>Change " + std::to_string(++change) + ".</p>");
        opened.Project->SetDirty(true);
        state.ResumeTiming();
        if (opened.Project->Save()) return state.SkipWithError("the project was not saved");
    }
}

void SaveYardstick(benchmark::State& state, std::int64_t comments) {
    const StoredProject& stored = Stored(comments);
    pugi::xml_document document;
    document.load_file(stored.ContentPath().c_str());
    for (auto _ : state)
        if (!document.save_file(stored.CopyPath().c_str()))
            return state.SkipWithError("the file was not written");
}

} // namespace

void AddStoreRows(std::vector<Row>& rows) {
    rows.push_back({"store.load", "load a project of 100,000 comments", LoadOurs,
                    "pugixml parsing the same file", LoadYardstick, kSizes, Judged::TimeRatio,
                    1.5});
    rows.push_back({"store.save", "save it with one comment changed", SaveOurs,
                    "pugixml writing the same file, unsynchronised", SaveYardstick, kSizes,
                    Judged::TimeRatio, 2});
}

} // namespace paperkite::bench
