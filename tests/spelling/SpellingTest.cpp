#include "platform/spelling/SpellServices.h"

#include "foundation/Text.h"
#include "support/EnvironmentChange.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace paperkite {
namespace {

using test::EnvironmentChange;
using test::TemporaryFolder;

std::string BytesOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

/// A small dictionary of its own; that of the system where a test asks for real English.
class SpellingTest : public testing::Test {
protected:
    SpellingTest() {
        mFolder.Write("dicts/xx_XX.aff", "SET UTF-8\nTRY esianrtolcdugmphbyfvkwz\n");
        mFolder.Write("dicts/xx_XX.dic", "3\nbread\nbutter\nfl\xC3\xBCgel\n");
        mPlaces.Folders = {mFolder / "dicts"};
        mPlaces.Language = "xx_XX";
        mPlaces.CustomFile = mFolder / "data/custom.words";
    }
    Ref<SpellEngine> Engine() const { return MakeSpelling(mPlaces); }

    TemporaryFolder mFolder;
    SpellingPlaces mPlaces;
};

TEST_F(SpellingTest, WordsOfTheDictionaryAreRight) {
    const auto engine = Engine();
    EXPECT_EQ(engine->GetProblem(), "");
    EXPECT_TRUE(engine->Check("bread"));
    EXPECT_TRUE(engine->Check("Bread"));
    EXPECT_TRUE(engine->Check("fl\xC3\xBCgel"));
    EXPECT_FALSE(engine->Check("brad"));
    EXPECT_FALSE(engine->Check("brad")) << "the second answer is the first";
    const auto suggestions = engine->Suggest("buter");
    EXPECT_TRUE(std::find(suggestions.begin(), suggestions.end(), "butter") != suggestions.end());
}

TEST_F(SpellingTest, DictionariesInOtherEncodingsTakeUtf8) {
    mFolder.Write("dicts/yy_YY.aff", "SET ISO8859-1\nTRY aeu\n");
    mFolder.Write("dicts/yy_YY.dic", "1\nfl\xFCgel\n");
    mPlaces.Language = "yy_YY";
    const auto engine = Engine();
    EXPECT_TRUE(engine->Check("fl\xC3\xBCgel"));
    EXPECT_FALSE(engine->Check("\xD0\xBC\xD0\xB8\xD1\x80")) << "what it cannot write";
    EXPECT_EQ(engine->Suggest("fl\xC3\xBCgl"), std::vector<std::string>{"fl\xC3\xBCgel"});
}

TEST_F(SpellingTest, TheRealDictionaryKnowsEnglish) {
    const auto engine = MakeSpelling({{"/usr/share/hunspell"}, "en_US", {}});
    ASSERT_EQ(engine->GetProblem(), "");
    for (const char* word : {"colour's", "documentation", "Don't", "reads"})
        EXPECT_EQ(engine->Check(word), std::string(word) != "colour's") << word;
    const auto suggestions = engine->Suggest("documantation");
    ASSERT_FALSE(suggestions.empty());
    EXPECT_EQ(suggestions.front(), "documentation");
}

TEST_F(SpellingTest, AMissingDictionaryIsToldAndMarksNothing) {
    mPlaces.Folders = {mFolder / "nowhere"};
    const auto engine = Engine();
    EXPECT_TRUE(engine->Check("qzxv"));
    EXPECT_TRUE(engine->Suggest("qzxv").empty());
    const std::string problem = engine->GetProblem();
    EXPECT_NE(problem.find("xx_XX"), std::string::npos) << problem;
    EXPECT_NE(problem.find(mFolder / "nowhere"), std::string::npos) << problem;
    EXPECT_NE(problem.find("Install"), std::string::npos) << problem;
}

TEST_F(SpellingTest, AChosenDictionaryThatIsGoneIsToldByItsName) {
    const auto engine = Engine();
    engine->Set("MainDictFile", Value(mFolder / "gone.dic"));
    EXPECT_TRUE(engine->Check("qzxv"));
    EXPECT_NE(engine->GetProblem().find("gone.dic"), std::string::npos);
    engine->Set("MainDictFile", Value(std::string("C:\\Common\\Old.dct")));
    EXPECT_EQ(engine->GetProblem(), "") << "a dictionary of another kind";
    EXPECT_FALSE(engine->Check("qzxv"));
    mFolder.Write("alone.dic", "1\nbread\n");
    engine->Set("MainDictFile", Value(mFolder / "alone.dic"));
    EXPECT_NE(engine->GetProblem().find("alone.aff"), std::string::npos) << "without its rules";
}

TEST_F(SpellingTest, AnotherCountrysDictionaryAndThenEnglishServe) {
    mPlaces.Language = "xx_YY";
    EXPECT_TRUE(EndsWithIgnoringCase(mPlaces.FindDictionary(), "xx_XX.dic"));
    mPlaces.Language = "zz_ZZ";
    EXPECT_EQ(mPlaces.FindDictionary(), "");
    mFolder.Write("dicts/en_US.aff", "SET UTF-8\n");
    mFolder.Write("dicts/en_US.dic", "1\nbread\n");
    EXPECT_TRUE(EndsWithIgnoringCase(mPlaces.FindDictionary(), "en_US.dic"));
}

TEST_F(SpellingTest, TheSystemSaysLanguageAndFolders) {
    const EnvironmentChange all("LC_ALL", "de_AT.UTF-8");
    const EnvironmentChange path("DICPATH", "/one:/two");
    const EnvironmentChange data("XDG_DATA_HOME", "/data");
    const auto places = SpellingPlaces::OfSystem();
    EXPECT_EQ(places.Language, "de_AT");
    ASSERT_GE(places.Folders.size(), 4u);
    EXPECT_EQ(places.Folders[0], "/one");
    EXPECT_EQ(places.Folders[2], "/data/hunspell");
    EXPECT_EQ(places.CustomFile, "/data/paperkite/custom.words");
    const EnvironmentChange none("LC_ALL", "C.UTF-8");
    EXPECT_EQ(SpellingPlaces::OfSystem().Language, "en_US");
}

TEST_F(SpellingTest, LearntWordsAreKeptInTheCustomDictionary) {
    const auto engine = Engine();
    int changes = 0;
    const auto tie = engine->Events.WordsChanged.Connect([&] { ++changes; });
    EXPECT_FALSE(engine->Check("memtable"));
    engine->AddToCustomDictionary("memtable");
    engine->AddToCustomDictionary("LevelDB");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(BytesOf(mFolder / "data/custom.words"), "LevelDB\nmemtable\n");
    EXPECT_TRUE(engine->Check("memtable"));
    EXPECT_TRUE(engine->Check("Memtable"));
    EXPECT_TRUE(engine->Check("memtable's"));
    EXPECT_TRUE(engine->Check("LevelDB"));
    EXPECT_FALSE(engine->Check("leveldb")) << "taught with capitals only";
    EXPECT_TRUE(Engine()->Check("memtable")) << "another engine reads it";
    EXPECT_EQ(engine->Suggest("memtabel").front(), "memtable");
}

TEST_F(SpellingTest, WordsThatAnotherProgramAddedStay) {
    const auto engine = Engine();
    mFolder.Write("data/custom.words", "other\n");
    engine->AddToCustomDictionary("mine");
    EXPECT_EQ(BytesOf(mFolder / "data/custom.words"), "mine\nother\n");
}

TEST_F(SpellingTest, WithoutACustomDictionaryLearningIsAnError) {
    const auto engine = Engine();
    SpellOptions options = engine->GetOptions();
    options.CustomDictionaryFile.clear();
    engine->SetOptions(options);
    try {
        engine->AddToCustomDictionary("mine");
        FAIL() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.GetNumber(), 75);
        EXPECT_NE(std::string(error.what()).find("mine"), std::string::npos);
    }
}

TEST_F(SpellingTest, ACustomDictionaryThatCannotBeReadIsTold) {
    mFolder.Write("data/custom.words/stands.here", "");
    const auto engine = Engine();
    EXPECT_NE(engine->GetProblem().find("custom.words"), std::string::npos) << engine->GetProblem();
    EXPECT_FALSE(engine->Check("qzxv")) << "the dictionary itself is there";
    engine->Set("CustomDictFile", Value(mFolder / "own.txt"));
    EXPECT_EQ(engine->GetProblem(), "");
}

TEST_F(SpellingTest, WordsArePassedOver) {
    const auto engine = Engine();
    EXPECT_FALSE(engine->Check("qzxv"));
    engine->AddIgnoreAll("qzxv");
    EXPECT_TRUE(engine->Check("qzxv"));
    SpellOptions options = engine->GetOptions();
    options.IgnoreWordList = "foo bar\nbaz";
    engine->SetOptions(options);
    EXPECT_TRUE(engine->Check("foo") && engine->Check("bar") && engine->Check("baz"));
}

TEST_F(SpellingTest, AProjectAddsItsWordsAndTakesNewOnes) {
    const auto engine = Engine();
    EXPECT_FALSE(engine->Check("declared"));
    std::string learnt;
    engine->SetProject({[](const std::string& word) { return word == "declared"; },
                        {"taught"},
                        {"ignored"},
                        [&](const std::string& word) { learnt += word + ";"; }});
    EXPECT_TRUE(engine->Check("declared") && engine->Check("taught") && engine->Check("ignored"));
    engine->AddToCustomDictionary("mine");
    EXPECT_EQ(learnt, "mine;");
    EXPECT_TRUE(engine->Check("mine"));
    EXPECT_FALSE(std::filesystem::exists(mFolder / "data/custom.words"));
    engine->SetProject({});
    EXPECT_FALSE(engine->Check("declared") || engine->Check("mine"));
}

TEST_F(SpellingTest, OptionsAreSetByName) {
    const auto engine = Engine();
    int changes = 0;
    const auto tie = engine->Events.WordsChanged.Connect([&] { ++changes; });
    engine->Set("OptionBtnCaption", Value(std::string("Options...")));
    EXPECT_EQ(engine->Get("OptionBtnCaption").ToText(), "Options...");
    EXPECT_TRUE(engine->Check("QZXV"));
    engine->Set("IgnoreInUpperCase", Value(0.0));
    EXPECT_FALSE(engine->Check("QZXV"));
    engine->Set("IgnoreWithNumbers", Value(0.0));
    EXPECT_FALSE(engine->Check("qz8"));
    engine->Set("IgnoreInMixedCase", Value(1.0));
    EXPECT_TRUE(engine->Check("qzXv"));
    engine->Set("Suggest", Value(0.0));
    EXPECT_FALSE(engine->GetOptions().Suggest);
    engine->Set("Suggest", Value(0.0));
    EXPECT_EQ(changes, 4) << "the same again changes nothing";
    engine->Set("CustomDictFile", Value(std::string("\\Custom.dct")));
    EXPECT_EQ(engine->Get("CustomDictFile").ToText(), mPlaces.CustomFile);
    engine->Set("CustomDictFile", Value(mFolder / "own.txt"));
    EXPECT_EQ(engine->Get("CustomDictFile").ToText(), mFolder / "own.txt");
    EXPECT_THROW(engine->Set("Nonsense", Value(1.0)), Error);
}

} // namespace
} // namespace paperkite
