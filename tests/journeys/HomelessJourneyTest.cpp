#include "journeys/CommandLineTest.h"
#include "model/ProjectLock.h"

namespace paperkite::test {

namespace {

/// Comments on a class, its method and a function; then the class is renamed, the method among
/// them, and the function gets an overload.
class HomelessJourneyTest : public CommandLineTest {
protected:
    HomelessJourneyTest() {
        mFolder.Write("zoo/animals.h", "class Dog {\npublic:\n    void Bark(int times);\n"
                                       "    int Age() const;\n};\nvoid Feed(int meals);\n");
        Do({"new", Project(), "--source", mFolder / "zoo"});
        Do({"comment", Project(), "Dog", "--tag", "##", "--text", "Guards."});
        Do({"comment", Project(), "Dog::Bark", "--tag", "##", "--text", "Loud."});
        Do({"comment", Project(), "Feed", "--tag", "##", "--text", "Daily."});
    }
    std::string Project() const { return mFolder / "zoo.kiteproject"; }
    void Rename() {
        mFolder.Write("zoo/animals.h", "class Hound {\npublic:\n    void Bark(int times);\n"
                                       "    int Age() const;\n};\n"
                                       "void Feed(int meals);\nvoid Feed(const char* meal);\n");
    }
};

TEST_F(HomelessJourneyTest, NothingIsHomelessAsLongAsNothingMoved) {
    EXPECT_EQ(Do({"homeless", Project()}), "Every comment has its item.\n");
    EXPECT_EQ(DoJson({"homeless", Project()}), Json::parse(R"({"homeless": []})"));
}

TEST_F(HomelessJourneyTest, WhatIsGoneIsListedWithItsLikeliestHomes) {
    Rename();
    const std::string list = Do({"homeless", Project()});
    EXPECT_TRUE(Contains(list, "zoo~Dog  1 comment\n")) << list;
    EXPECT_TRUE(Contains(list, "zoo~Dog~Bark  1 comment\n    zoo~Hound~Bark  ")) << list;
    EXPECT_TRUE(Contains(list, "zoo~Feed  1 comment\n    zoo~Feed(int)  ")) << list;
    EXPECT_TRUE(Contains(list, "same name and place, another signature")) << list;
}

TEST_F(HomelessJourneyTest, TheListAsJsonCarriesKindReasonAndLikeness) {
    Rename();
    const Json list = DoJson({"homeless", Project()})["homeless"];
    ASSERT_EQ(list.size(), 3u);
    const Json feed = list[2];
    EXPECT_EQ(feed["qualifiedName"], "zoo~Feed");
    EXPECT_EQ(feed["comments"], 1);
    EXPECT_EQ(feed["homes"][0]["qualifiedName"], "zoo~Feed(int)");
    EXPECT_EQ(feed["homes"][0]["kind"], "Function");
    EXPECT_EQ(feed["homes"][0]["reason"], "same name and place, another signature");
    EXPECT_GT(feed["homes"][0]["likeness"], 50);
}

TEST_F(HomelessJourneyTest, AdoptingMovesTheCommentsWithThoseBelow) {
    Rename();
    const std::string moved = Do({"homeless", Project(), "--adopt", "zoo~Dog", "Hound"});
    EXPECT_EQ(moved, "Moved the comments of zoo~Dog to zoo~Hound.\n"
                     "Moved the comments of zoo~Dog~Bark to zoo~Hound~Bark.\n");
    EXPECT_TRUE(Contains(Do({"comments", Project(), "Hound"}), "Guards."));
    EXPECT_TRUE(Contains(Do({"comments", Project(), "Hound::Bark"}), "Loud."));
    EXPECT_EQ(DoJson({"homeless", Project()})["homeless"].size(), 1u);
}

TEST_F(HomelessJourneyTest, ColonsStandForStepsOnBothSides) {
    Rename();
    Do({"homeless", Project(), "--adopt", "zoo::Dog::Bark", "Hound::Age"});
    EXPECT_TRUE(Contains(Do({"comments", Project(), "Hound::Age"}), "Loud."));
}

TEST_F(HomelessJourneyTest, AnUnknownItemThatIsGoneIsRefusedWithTheNearest) {
    Rename();
    const std::string message = Refused({"homeless", Project(), "--adopt", "zoo~Dogg", "Hound"});
    EXPECT_TRUE(Contains(message, "No comments of \"zoo~Dogg\" are homeless.")) << message;
    EXPECT_TRUE(Contains(message, "Did you mean zoo~Dog")) << message;
}

TEST_F(HomelessJourneyTest, AnItemThatIsThereHasNoHomelessComments) {
    const std::string message = Refused({"homeless", Project(), "--adopt", "zoo~Dog", "Feed"});
    EXPECT_TRUE(Contains(message, "No comments of \"zoo~Dog\" are homeless.")) << message;
}

TEST_F(HomelessJourneyTest, AnUnknownHomeIsRefusedWithTheNearest) {
    Rename();
    const std::string message = Refused({"homeless", Project(), "--adopt", "zoo~Dog", "Houn"});
    EXPECT_TRUE(Contains(message, "Houn")) << message;
    EXPECT_TRUE(Contains(message, "zoo~Hound")) << message;
}

TEST_F(HomelessJourneyTest, AdoptingNeedsBothNames) {
    const std::string message = Refused({"homeless", Project(), "--adopt", "zoo~Dog"});
    EXPECT_TRUE(Contains(message, "--adopt")) << message;
}

TEST_F(HomelessJourneyTest, AProjectThatAWindowHasOpenIsWrittenAndTheWindowTold) {
    Rename();
    std::optional<ProjectLock::Holder> other;
    const auto lock = ProjectLock::Take(Project(), ProjectLock::Purpose::Open, other);
    ASSERT_TRUE(lock);
    const ProgramResult result =
        mProgram.Run({"homeless", Project(), "--adopt", "zoo~Feed", "zoo~Feed(int)"});
    EXPECT_EQ(result.ExitCode, 0) << result.Err;
    EXPECT_TRUE(Contains(result.Err, "which will take the change up.")) << result.Err;
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "zoo~Feed(int)"));
}

} // namespace

} // namespace paperkite::test
