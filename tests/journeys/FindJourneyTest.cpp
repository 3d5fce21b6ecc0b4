#include "journeys/CommandLineTest.h"

namespace paperkite::test {

namespace {

class FindJourneyTest : public CommandLineTest {
protected:
    FindJourneyTest() {
        mFolder.Write("zoo/animals.h", "class Dog {\npublic:\n    void Bark(int times);\n};\n");
        Do({"new", Project(), "--source", mFolder / "zoo"});
        WriteComments("Colour me lowd.");
    }
    void WriteComments(const std::string& remarks) {
        mFolder.Write("zoo.ktc",
                      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">\n"
                      "  <comment item=\"zoo~Dog\" tag=\"##\" id=\"a\"><![CDATA[<p>Guards the "
                      "<b>colour</b>ed house.</p>]]></comment>\n"
                      "  <comment item=\"zoo~Dog~Bark\" tag=\"##remarks\" id=\"b\">" +
                          remarks + "</comment>\n</contentfile>\n");
    }
    std::string Project() const { return mFolder / "zoo.kiteproject"; }
};

TEST_F(FindJourneyTest, HitsAreListedWithItemTagAndLine) {
    EXPECT_EQ(Do({"find", Project(), "colour"}),
              "zoo~Dog: General Description: Guards the coloured house.\n"
              "zoo~Dog~Bark: Remarks: Colour me lowd.\n"
              "Found 2 times in 2 comments of 2 items.\n");
    EXPECT_EQ(Do({"find", Project(), "colour", "--whole-word", "--case"}),
              "No comment holds \"colour\".\n");
    const Json hits = DoJson({"find", Project(), "colour"})["hits"];
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits[0]["qualifiedName"], "zoo~Dog");
    EXPECT_EQ(hits[0]["tag"], "##");
    EXPECT_EQ(hits[0]["at"], 11);
    EXPECT_EQ(hits[0]["length"], 6);
}

TEST_F(FindJourneyTest, ADryRunShowsWhatWouldChangeAndWritesNothing) {
    const auto before = FilesBelow(mFolder.Path());
    const std::string shown = Do({"find", Project(), "colour", "--replace", "color", "--dry-run"});
    EXPECT_TRUE(Contains(shown, "    becomes: Guards the colored house.\n")) << shown;
    EXPECT_TRUE(Contains(shown, "Would replace it 2 times in 2 comments of 2 items.")) << shown;
    EXPECT_EQ(FilesBelow(mFolder.Path()), before);
    EXPECT_EQ(DoJson({"find", Project(), "colour", "--replace", "x", "--dry-run"})["written"],
              false);
}

TEST_F(FindJourneyTest, ReplacingIsSavedAndKeepsTheMarkup) {
    const std::string shown = Do({"find", Project(), "colour", "--replace", "color"});
    EXPECT_TRUE(Contains(shown, "Replaced it 2 times in 2 comments of 2 items.")) << shown;
    EXPECT_TRUE(Contains(Do({"comments", Project(), "Dog"}), "<b>color</b>ed house"));
    EXPECT_TRUE(Contains(Do({"comments", Project(), "Dog::Bark"}), "color me lowd."));
    Do({"find", Project(), "colour", "--replace", "color"});
}

TEST_F(FindJourneyTest, WrongUseIsRefusedWithWords) {
    EXPECT_TRUE(Contains(Refused({"find", Project(), ""}), "the text is empty"));
    EXPECT_TRUE(Contains(Refused({"find", Project(), "x", "--dry-run"}), "--replace"));
    EXPECT_TRUE(Contains(Refused({"find", mFolder / "none.kiteproject", "x"}), "none"));
}

TEST_F(FindJourneyTest, MisspeltWordsAreListedWithSuggestions) {
    const ProgramResult result = mProgram.Run({"spell", Project()});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(result.Err, "");
    EXPECT_TRUE(Contains(result.Out, "zoo~Dog~Bark: Remarks: Colour me lowd.\n    lowd: "))
        << result.Out;
    EXPECT_TRUE(Contains(result.Out, "lowed")) << result.Out;
    const Json json = Json::parse(mProgram.Run({"spell", Project(), "Dog::Bark", "--json"}).Out);
    ASSERT_FALSE(json["misspelt"].empty());
    EXPECT_EQ(json["misspelt"].back()["word"], "lowd");
    EXPECT_TRUE(json["misspelt"].back()["suggestions"].is_array());
}

TEST_F(FindJourneyTest, WordsOfTheProjectAndItsCodeAreRight) {
    mFolder.Write("zoo.words", "lowd\ncolour\ncoloured\n");
    WriteComments("Colour the times lowd, as in Bark.");
    EXPECT_EQ(Do({"spell", Project()}), "No word is misspelt.\n");
    EXPECT_EQ(DoJson({"spell", Project()})["misspelt"], Json::array());
}

TEST_F(FindJourneyTest, AFileOfWordsThatCannotBeReadIsTold) {
    std::filesystem::create_directory(mFolder / "zoo.words");
    EXPECT_TRUE(Contains(Refused({"spell", Project()}), "zoo.words"));
}

TEST_F(FindJourneyTest, TheHtmlItselfIsSearchedWhereThatIsAsked) {
    EXPECT_EQ(Do({"find", Project(), "<b>colour"}), "No comment holds \"<b>colour\".\n");
    EXPECT_EQ(Do({"find", Project(), "<b>colour", "--in-html"}),
              "zoo~Dog: General Description: <p>Guards the <b>colour</b>ed house.</p>\n"
              "Found 1 time in 1 comment of 1 item.\n");
    Do({"find", Project(), "<b>colour</b>", "--in-html", "--replace", "<i>x</i>"});
    EXPECT_TRUE(
        Contains(Do({"comments", Project(), "Dog"}), "<p>Guards the <i>x</i>ed house.</p>"));
}

TEST_F(FindJourneyTest, ReplacingByNothingTakesTheTextOut) {
    EXPECT_TRUE(Contains(Do({"find", Project(), " me lowd", "--replace", ""}),
                         "    becomes: Colour.\nReplaced it 1 time"));
    EXPECT_TRUE(Contains(Do({"comments", Project(), "Dog::Bark"}), "Colour."));
}

TEST_F(FindJourneyTest, WhatWasReplacedIsToldAsJsonToo) {
    const Json json = DoJson({"find", Project(), "colour", "--replace", "color"});
    EXPECT_EQ(json["written"], true);
    ASSERT_EQ(json["hits"].size(), 2u);
    EXPECT_EQ(json["hits"][0]["becomes"], "Guards the colored house.");
    EXPECT_EQ(json["hits"][1]["becomes"], "color me lowd.");
    const Json again = DoJson({"find", Project(), "colour", "--replace", "color"});
    EXPECT_EQ(again["written"], false);
    EXPECT_EQ(again["hits"], Json::array());
}

TEST_F(FindJourneyTest, AChosenDictionaryThatIsGoneIsTold) {
    mAside.Write("settings/paperkite/registry.ini",
                 "[Software]\nBrindlewick\\Paperkite\\Spelling\\PrimaryDictionary=" +
                     (mFolder / "gone.dic") + "\n");
    EXPECT_TRUE(Contains(Refused({"spell", Project()}), "gone.dic"));
}

TEST_F(FindJourneyTest, AnItemThatIsNotThereIsTold) {
    EXPECT_TRUE(Contains(Refused({"spell", Project(), "Dgo"}), "Dgo"));
}

TEST_F(FindJourneyTest, WordsThatTheProjectPassesOverAreNotListed) {
    mFolder.Write("zoo.words", "!lowd\n!colour\n!coloured\n");
    EXPECT_EQ(Do({"spell", Project()}), "No word is misspelt.\n");
}

} // namespace
} // namespace paperkite::test
