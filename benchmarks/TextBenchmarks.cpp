#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "foundation/SpellWords.h"
#include "foundation/Unicode.h"
#include "host/CommentSearch.h"
#include "platform/spelling/SpellServices.h"

#include <cmath>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <hunspell/hunspell.hxx>

namespace paperkite::bench {

namespace {

const std::vector<std::int64_t> kSizes{1'000, 10'000, 100'000};
/// In no dictionary.
constexpr const char* kWanted = "kwagga";
constexpr const char* kDictionary = "/usr/share/hunspell/en_US.dic";
constexpr const char* kRules = "/usr/share/hunspell/en_US.aff";

/// Words of the dictionary, without their rules.
const std::vector<std::string>& DictionaryWords() {
    static const std::vector<std::string> words = [] {
        std::ifstream file(kDictionary);
        std::vector<std::string> all;
        std::string line;
        std::getline(file, line); // how many there are
        while (std::getline(file, line)) {
            std::string word = line.substr(0, line.find_first_of("/\t\r"));
            if (word.size() > 1 && HoldsOnlyUtf8(word) &&
                word.find_first_of("'.-0123456789") == std::string::npos)
                all.push_back(std::move(word));
        }
        if (all.empty()) throw std::runtime_error(std::string("No words in ") + kDictionary);
        return all;
    }();
    return words;
}

/// Texts as authors write them: few words often, many seldom, one in fifty misspelt.
class Author {
public:
    std::string Word() {
        const auto& words = DictionaryWords();
        const double share = std::pow(mShare(mRandom), 3.0);
        std::string word = words[static_cast<std::size_t>(share * double(words.size() - 1))];
        if (mShare(mRandom) < 0.02) word.insert(word.size() / 2, "q");
        return word;
    }
    std::string Sentence(int words) {
        std::string text = Word();
        while (--words > 0)
            text += " " + Word();
        return text + ".";
    }

private:
    std::mt19937 mRandom{12345};
    std::uniform_real_distribution<double> mShare{0, 1};
};

/// The comments of a project in memory, and the same texts in a row.
struct Comments {
    Ref<CommentStore> Store = MakeRef<CommentStore>();
    std::vector<std::string> Texts;
};

const Comments& CommentsOf(std::int64_t count) {
    return MadeOnce(count, [](std::int64_t size) {
        auto made = std::make_unique<Comments>();
        Author author;
        for (std::int64_t number = 0; number < size; ++number) {
            auto comment = MakeRef<TaggedComment>();
            comment->SetTagIdentifier("##remarks");
            comment->SetText("<p>" + author.Sentence(12) + " " + author.Sentence(9) +
                             " See <code>fetchRecord</code> for more.</p><p>" +
                             author.Sentence(14) + "</p>" +
                             (number % 1000 == 0 ? "<p>The <b>kwag</b>ga of old.</p>" : ""));
            made->Texts.push_back(comment->GetText());
            made->Store->Load("engine~storage~item" + std::to_string(number), comment, {});
        }
        return made;
    });
}

void FindOurs(benchmark::State& state, std::int64_t count) {
    const Comments& comments = CommentsOf(count);
    const CommentSearch search({kWanted});
    for (auto _ : state)
        if (search.Find(*comments.Store).size() != static_cast<std::size_t>(count / 1000))
            return state.SkipWithError("the hits were not found");
}

void FindYardstick(benchmark::State& state, std::int64_t count) {
    const Comments& comments = CommentsOf(count);
    for (auto _ : state) {
        std::size_t hits = 0;
        for (const std::string& text : comments.Texts)
            hits += text.find(kWanted) != std::string::npos;
        benchmark::DoNotOptimize(hits);
    }
}

/// Words in a text, and the same words one by one.
struct Words {
    std::string Text;
    std::vector<std::string> All;
};

const Words& WordsOf(std::int64_t count) {
    return MadeOnce(count, [](std::int64_t size) {
        auto made = std::make_unique<Words>();
        Author author;
        for (std::int64_t number = 0; number < size; ++number) {
            made->All.push_back(author.Word());
            made->Text += made->All.back() + (number % 12 == 11 ? ".\n" : " ");
        }
        return made;
    });
}

void SpellOurs(benchmark::State& state, std::int64_t count) {
    const Words& words = WordsOf(count);
    const auto engine = MakeSpelling({{"/usr/share/hunspell"}, "en_US", {}});
    if (!engine->GetProblem().empty()) return state.SkipWithError("there is no dictionary");
    SpellOptions options = engine->GetOptions();
    for (auto _ : state) {
        state.PauseTiming();
        // What was checked before is forgotten with the options.
        options.IgnoreWordList += "x ";
        engine->SetOptions(options);
        state.ResumeTiming();
        benchmark::DoNotOptimize(SpellWords::FindMisspelt(words.Text, *engine));
    }
}

void SpellYardstick(benchmark::State& state, std::int64_t count) {
    const Words& words = WordsOf(count);
    Hunspell dictionary(kRules, kDictionary);
    for (auto _ : state) {
        std::size_t wrong = 0;
        for (const std::string& word : words.All)
            wrong += !dictionary.spell(word);
        benchmark::DoNotOptimize(wrong);
    }
}

} // namespace

void AddTextRows(std::vector<Row>& rows) {
    rows.push_back({"text.find", "find through 100,000 comments, in any case, over tags", FindOurs,
                    "a plain scan of the same texts, byte by byte", FindYardstick, kSizes,
                    Judged::TimeRatio, 3});
    rows.push_back({"text.spell",
                    "spell check of a text of 200,000 words",
                    SpellOurs,
                    "Hunspell called on the same words",
                    SpellYardstick,
                    {2'000, 20'000, 200'000},
                    Judged::TimeRatio,
                    1.5});
}

} // namespace paperkite::bench
