#include "model/ProjectWords.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace paperkite {
namespace {

class ProjectWordsTest : public testing::Test {
protected:
    std::string Bytes() const {
        std::ifstream stream(mFolder / "zoo.words", std::ios::binary);
        std::ostringstream bytes;
        bytes << stream.rdbuf();
        return bytes.str();
    }

    test::TemporaryFolder mFolder;
    ProjectWords mWords{mFolder / "zoo.kiteproject"};
};

TEST_F(ProjectWordsTest, NoFileMeansNoWordsAndIsNotMade) {
    EXPECT_FALSE(mWords.Read());
    EXPECT_TRUE(mWords.GetLearnt().empty());
    EXPECT_FALSE(std::filesystem::exists(mWords.GetPath()));
}

TEST_F(ProjectWordsTest, WordsStandSortedALineEach) {
    EXPECT_FALSE(mWords.Learn("okapi"));
    EXPECT_FALSE(mWords.Ignore("gnu"));
    EXPECT_FALSE(mWords.Learn("axolotl"));
    const std::string bytes = Bytes();
    EXPECT_EQ(bytes.substr(bytes.find('\n') + 1), "axolotl\n!gnu\nokapi\n");
    EXPECT_EQ(bytes[0], '#');
    ProjectWords again(mFolder / "zoo.kiteproject");
    EXPECT_FALSE(again.Read());
    EXPECT_EQ(again.GetLearnt(), (std::set<std::string>{"axolotl", "okapi"}));
    EXPECT_EQ(again.GetIgnored(), std::set<std::string>{"gnu"});
}

TEST_F(ProjectWordsTest, WhatSomebodyElseAddedStaysAndRemarksToo) {
    EXPECT_FALSE(mWords.Read());
    mFolder.Write("zoo.words", "# Ours\r\nzebra\r\n");
    EXPECT_FALSE(mWords.Learn("ape"));
    EXPECT_EQ(Bytes(), "# Ours\nape\nzebra\n");
}

TEST_F(ProjectWordsTest, AnUnfinishedMergeKeepsBothSides) {
    mFolder.Write("zoo.words", "<<<<<<< ours\nape\n=======\nbear\n>>>>>>> theirs\nape\n");
    EXPECT_FALSE(mWords.Read());
    EXPECT_EQ(mWords.GetLearnt(), (std::set<std::string>{"ape", "bear"}));
}

TEST_F(ProjectWordsTest, AWordThatIsThereIsNotWrittenAgain) {
    mFolder.Write("zoo.words", "zebra\nape\n");
    EXPECT_FALSE(mWords.Learn("ape"));
    EXPECT_FALSE(mWords.Ignore("ape"));
    EXPECT_EQ(Bytes(), "zebra\nape\n");
}

TEST_F(ProjectWordsTest, AFileThatCannotBeReadIsAProblemAndStays) {
    std::filesystem::create_directory(mWords.GetPath());
    const auto problem = mWords.Learn("ape");
    ASSERT_TRUE(problem);
    EXPECT_NE(problem->Message().find("zoo.words"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_directory(mWords.GetPath()));
}

TEST_F(ProjectWordsTest, AChangeOfTheFileIsNoticed) {
    EXPECT_TRUE(mWords.HasChanged()) << "nobody read it yet";
    EXPECT_FALSE(mWords.Read());
    EXPECT_FALSE(mWords.HasChanged());
    mFolder.Write("zoo.words", "okapi\n");
    EXPECT_TRUE(mWords.HasChanged());
    EXPECT_FALSE(mWords.Read());
    EXPECT_FALSE(mWords.HasChanged());
    std::filesystem::remove(mWords.GetPath());
    EXPECT_TRUE(mWords.HasChanged());
}

TEST_F(ProjectWordsTest, WordsOfAnotherProjectAreTakenIn) {
    mFolder.Write("other.words", "# Theirs.\nokapi\n!gnu\n");
    EXPECT_FALSE(mWords.TakeFrom(mFolder / "other.kiteproject"));
    EXPECT_EQ(Bytes(), "# Theirs.\n!gnu\nokapi\n");
    mFolder.Write("zoo.words", "# Ours.\naxolotl\n");
    EXPECT_FALSE(mWords.TakeFrom(mFolder / "other.kiteproject"));
    EXPECT_EQ(Bytes(), "# Ours.\naxolotl\n!gnu\nokapi\n");
    EXPECT_FALSE(mWords.TakeFrom(mFolder / "none.kiteproject"));
    EXPECT_EQ(Bytes(), "# Ours.\naxolotl\n!gnu\nokapi\n");
}

TEST_F(ProjectWordsTest, WordsThatCannotBeTakenInAreAProblem) {
    mFolder.Write("other.words", "okapi\n");
    mFolder.Write("zoo.words/stands.here", "");
    const auto problem = mWords.TakeFrom(mFolder / "other.kiteproject");
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->File, mFolder / "zoo.words");
}

} // namespace
} // namespace paperkite
