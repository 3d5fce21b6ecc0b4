#include "BenchmarkCode.h"
#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "doctypes/source/NameQuestion.h"
#include "host/LinkCheck.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace paperkite::bench {

namespace {

constexpr std::size_t kMostMatches = 50;

/// What authors look for: what is everywhere, what is nearly nowhere, and what is nowhere.
constexpr std::array<const char*, 6> kWords{"fetchRecord", "recordCount48", "TableReader99",
                                            "storage9999", "kwaggaHerd",    "rd1"};

/// And where it stands: scopes that are everywhere, in one place and nowhere.
constexpr std::array<const char*, 4> kQuestions{"storage1~fetchRecord", "TableReader99~recordCount",
                                                "engine~storage9~TableReader99~fetch", "kwagga~rd"};

std::size_t CountHits(const std::string& names, const std::string& key) {
    std::size_t hits = 0;
    const char* const end = names.data() + names.size();
    for (const char* name = names.data(); name < end; name += std::strlen(name) + 1)
        hits += strcasestr(name, key.c_str()) != nullptr;
    return hits;
}

/// The names of an index as it has them, each behind the other and ended by zero; the qualified
/// ones as well.
struct Names {
    explicit Names(SourceIndex made) : Index(std::move(made)) {
        Search.Add(Index);
        for (SourceIndex::Id entity = 0; entity < Index.Size(); ++entity) {
            Text.append(Index.Name(entity)).push_back('\0');
            Qualified.append(Index.QualifiedName(entity)).push_back('\0');
        }
        Worst = FindWorst(kWords, Text);
        WorstQuestion = FindWorst(kQuestions, Qualified);
    }

    std::size_t Ours(const std::string& key) const {
        std::size_t bytes = 0;
        const auto index = [this](std::size_t) -> const SourceIndex& { return Index; };
        for (const NameSearch::Place& place : FindByQuestion(Search, index, key, kMostMatches))
            bytes += Index.QualifiedName(place.Entity).size();
        return bytes;
    }

    SourceIndex Index;
    NameSearch Search;
    std::string Text;
    std::string Qualified;
    /// The keys that take longest beside the plain scan for the same.
    std::string Worst;
    std::string WorstQuestion;

private:
    template <class Work>
    static double LeastSeconds(const Work& work) {
        double least = std::numeric_limits<double>::max();
        for (int turn = 0; turn < 3; ++turn) {
            const auto begin = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(work());
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
            least = std::min(least, time.count());
        }
        return least;
    }
    /// A question that names a scope is asked from its first separator on.
    template <class Words>
    std::string FindWorst(const Words& words, const std::string& scanned) const {
        std::string worst;
        double most = 0;
        for (const std::string word : words) {
            const std::size_t separator = word.find('~');
            const std::size_t first = separator == std::string::npos ? 1 : separator + 1;
            for (std::size_t length = first; length <= word.size(); ++length) {
                const std::string key = word.substr(0, length);
                const double ratio = LeastSeconds([&] { return Ours(key); }) /
                                     LeastSeconds([&] { return CountHits(scanned, key); });
                if (ratio > most) worst = key;
                most = std::max(most, ratio);
            }
        }
        return worst;
    }
};

const Names& NamesOf(std::int64_t items) {
    return MadeOnce(
        items, [](std::int64_t size) { return std::make_unique<Names>(IndexOfClasses(size)); });
}

void KeyOurs(benchmark::State& state, std::int64_t items) {
    const Names& names = NamesOf(items);
    for (auto _ : state)
        benchmark::DoNotOptimize(names.Ours(names.Worst));
}

void KeyYardstick(benchmark::State& state, std::int64_t items) {
    const Names& names = NamesOf(items);
    for (auto _ : state)
        benchmark::DoNotOptimize(CountHits(names.Text, names.Worst));
}

void ScopesOurs(benchmark::State& state, std::int64_t items) {
    const Names& names = NamesOf(items);
    for (auto _ : state)
        benchmark::DoNotOptimize(names.Ours(names.WorstQuestion));
}

void ScopesYardstick(benchmark::State& state, std::int64_t items) {
    const Names& names = NamesOf(items);
    for (auto _ : state)
        benchmark::DoNotOptimize(CountHits(names.Qualified, names.WorstQuestion));
}

void FirstOurs(benchmark::State& state, std::int64_t items) {
    const Names& names = NamesOf(items);
    for (auto _ : state) {
        NameSearch search;
        search.Add(names.Index);
        ReportBytes(state, static_cast<double>(search.Bytes()));
        benchmark::DoNotOptimize(search);
    }
}

void FirstYardstick(benchmark::State& state, std::int64_t items) {
    const Names& names = NamesOf(items);
    for (auto _ : state)
        benchmark::DoNotOptimize(CountHits(names.Text, "kwaggaHerd"));
}

/// Comments of three paragraphs, one in ten with a link, one link in ten of those leading nowhere.
struct LinkedComments {
    Ref<CommentStore> Store = MakeRef<CommentStore>();
    std::vector<std::string> Texts;
};

const LinkedComments& CommentsOf(std::int64_t count) {
    return MadeOnce(count, [](std::int64_t size) {
        auto made = std::make_unique<LinkedComments>();
        for (std::int64_t number = 0; number < size; ++number) {
            std::string text = "<p>Reads the <b>next</b> record of the table, or nothing.</p>";
            if (number % 10 == 0)
                text += "<p>See <a href=\"engine~storage0~TableReader" +
                        std::to_string(number % 100 == 0 ? 1000 : number % 90) +
                        ".html\">the reader</a> for the rest.</p>";
            text += "<p>The <code>table</code> stays open; <i>close</i> it afterwards.</p>";
            auto comment = MakeRef<TaggedComment>();
            comment->SetTagIdentifier("##remarks");
            comment->SetText(text);
            made->Texts.push_back(std::move(text));
            made->Store->Load("engine~storage0~item" + std::to_string(number), comment, {});
        }
        return made;
    });
}

BenchmarkCode& LinkedCode() {
    return MadeOnce(
        1, [](std::int64_t) { return std::make_unique<BenchmarkCode>(IndexOfClasses(100'000)); });
}

void LinksOurs(benchmark::State& state, std::int64_t count) {
    const LinkedComments& comments = CommentsOf(count);
    const LinkCheck check(*LinkedCode().Provider);
    for (auto _ : state)
        if (CountNowhere(check.Check(*comments.Store)) != static_cast<std::size_t>(count / 100))
            return state.SkipWithError("the links were not found");
}

void LinksYardstick(benchmark::State& state, std::int64_t count) {
    const LinkedComments& comments = CommentsOf(count);
    for (auto _ : state) {
        std::size_t links = 0;
        for (const std::string& text : comments.Texts)
            links += strcasestr(text.c_str(), "<a ") != nullptr;
        benchmark::DoNotOptimize(links);
    }
}

} // namespace

void AddSearchRows(std::vector<Row>& rows) {
    rows.push_back({"search.key",
                    "search of 1,000,000 members at the slowest key of six words",
                    KeyOurs,
                    "a scan of the same names in a row (strcasestr)",
                    KeyYardstick,
                    {10'000, 100'000, 1'000'000},
                    Judged::TimeRatio,
                    2});
    rows.push_back({"search.scopes",
                    "the same with scopes asked for, at the slowest key of four questions",
                    ScopesOurs,
                    "a scan of the qualified names in a row (strcasestr)",
                    ScopesYardstick,
                    {10'000, 100'000, 1'000'000},
                    Judged::TimeRatio,
                    2});
    rows.push_back({"search.first",
                    "what the first key takes besides: copying 1,000,000 names",
                    FirstOurs,
                    "a scan of the same names in a row (strcasestr)",
                    FirstYardstick,
                    {10'000, 100'000, 1'000'000},
                    Judged::TimeRatio,
                    2});
    rows.push_back({"links.check",
                    "check the links in 100,000 comments, one in ten with a link",
                    LinksOurs,
                    "a scan of the same texts for \"<a\" (strcasestr)",
                    LinksYardstick,
                    {1'000, 10'000, 100'000},
                    Judged::TimeRatio,
                    5});
}

} // namespace paperkite::bench
