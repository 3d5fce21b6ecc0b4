#include "journeys/CommandLineTest.h"
#include "model/CommentJournal.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

class MergeJourneyTest : public CommandLineTest {
protected:
    MergeJourneyTest() {
        mFolder.Write("zoo/animals.h", "class Dog {\npublic:\n    void Bark();\n};\n"
                                       "class Cat {\npublic:\n    void Purr();\n};\n");
    }

    std::string Project() const { return mFolder / "zoo.kiteproject"; }
    void Write(const std::string& item, const std::string& text) {
        Do({"comment", Project(), item, "--tag", "##", "--text", text});
    }

    /// Runs git in the folder, and gives its exit code.
    int Git(const std::string& arguments) const {
        const std::string line = "cd '" + mFolder.Path() +
                                 "' && git -c user.name=me -c user.email=me@here "
                                 "-c init.defaultBranch=main " +
                                 arguments + " > '" + (mAside / "git.log") + "' 2>&1";
        return WEXITSTATUS(std::system(line.c_str()));
    }
    void MakeRepository() {
        Do({"new", Project(), "--source", mFolder / "zoo"});
        Write("Dog", "A dog.");
        Write("Cat", "A cat.");
        mFolder.Write(".gitattributes", "*.ktc merge=paperkite\n*.kiteproject merge=paperkite\n");
        ASSERT_EQ(Git("init"), 0);
        ASSERT_EQ(Git("config merge.paperkite.driver "
                      "'\"" PAPERKITE_BINARY_DIR "/bin/paperkite\" merge %O %A %B'"),
                  0);
        Commit("begin");
        ASSERT_EQ(Git("branch other"), 0);
    }
    void Commit(const std::string& message) {
        ASSERT_EQ(Git("add -A"), 0);
        ASSERT_EQ(Git("commit -m " + message), 0) << mAside.Read("git.log");
    }
    std::string TextOf(const std::string& item) const {
        std::string texts;
        const Json json = DoJson({"comments", Project(), item});
        for (const auto& comment : json["comments"])
            texts += comment["text"].get<std::string>() + ";";
        return texts;
    }
};

TEST_F(MergeJourneyTest, BranchesThatCommentOnDifferentItemsMergeByThemselves) {
    MakeRepository();
    Write("Dog", "A good dog.");
    Write("Dog::Bark", "Barks.");
    Commit("ours");
    ASSERT_EQ(Git("checkout other"), 0);
    Write("Cat", "A quiet cat.");
    Write("Cat::Purr", "Purrs.");
    Commit("theirs");
    ASSERT_EQ(Git("checkout main"), 0);
    EXPECT_EQ(Git("merge other"), 0) << mAside.Read("git.log");
    EXPECT_EQ(TextOf("Dog"), "A good dog.;");
    EXPECT_EQ(TextOf("Dog::Bark"), "Barks.;");
    EXPECT_EQ(TextOf("Cat"), "A quiet cat.;");
    EXPECT_EQ(TextOf("Cat::Purr"), "Purrs.;");
}

TEST_F(MergeJourneyTest, ACommentThatBothBranchesChangedIsAConflictThatOpens) {
    MakeRepository();
    Write("Dog", "Ours.");
    Commit("ours");
    ASSERT_EQ(Git("checkout other"), 0);
    Write("Dog", "Theirs.");
    Write("Cat", "A quiet cat.");
    Commit("theirs");
    ASSERT_EQ(Git("checkout main"), 0);
    EXPECT_EQ(Git("merge other"), 1);
    EXPECT_TRUE(Contains(mAside.Read("git.log"), "Both sides changed zoo~Dog ##."))
        << mAside.Read("git.log");
    EXPECT_EQ(TextOf("Dog"), "Ours.;Theirs.;");
    EXPECT_EQ(TextOf("Cat"), "A quiet cat.;");
    EXPECT_FALSE(Contains(mFolder.Read("zoo.ktc"), "<<<<<<<"));
}

TEST_F(MergeJourneyTest, BothBranchesMayAddTheFirstComments) {
    mFolder.Write("empty", "");
    mFolder.Write("ours.ktc", "<contentfile version='1'><comment item='a' tag='##' id='1'>x"
                              "</comment></contentfile>");
    mFolder.Write("theirs.ktc", "<contentfile version='1'><comment item='b' tag='##' id='2'>y"
                                "</comment></contentfile>");
    EXPECT_EQ(Do({"merge", mFolder / "empty", mFolder / "ours.ktc", mFolder / "theirs.ktc"}), "");
    EXPECT_TRUE(Contains(mFolder.Read("ours.ktc"), "item=\"a\""));
    EXPECT_TRUE(Contains(mFolder.Read("ours.ktc"), "item=\"b\""));
}

TEST_F(MergeJourneyTest, WhatCannotBeReadLeavesOursAlone) {
    mFolder.Write("good.ktc", "<contentfile version='1'/>");
    mFolder.Write("bad.ktc", "<contentfile version='1'>");
    EXPECT_TRUE(Contains(
        Refused({"merge", mFolder / "good.ktc", mFolder / "good.ktc", mFolder / "bad.ktc"}),
        "bad.ktc:1"));
    EXPECT_TRUE(Contains(
        Refused({"merge", mFolder / "none.ktc", mFolder / "good.ktc", mFolder / "good.ktc"}),
        "There is no such file"));
}

// Beside each other

TEST_F(MergeJourneyTest, CommandsThatWriteSideBySideAllCount) {
    Do({"new", Project(), "--source", mFolder / "zoo"});
    std::vector<std::thread> writers;
    for (const char* item : {"Dog", "Cat", "Dog::Bark", "Cat::Purr"})
        writers.emplace_back([this, item] {
            const Program program(mAside / std::to_string(std::hash<std::string>()(item)));
            const auto result = program.Run(
                {"comment", Project(), item, "--tag", "##", "--text", std::string("of ") + item});
            EXPECT_EQ(result.ExitCode, 0) << result.Err;
        });
    for (auto& writer : writers)
        writer.join();
    for (const char* item : {"Dog", "Cat", "Dog::Bark", "Cat::Purr"})
        EXPECT_EQ(TextOf(item), std::string("of ") + item + ";");
}

TEST_F(MergeJourneyTest, UnsavedWorkOfAnotherRunIsToldAndStays) {
    Do({"new", Project(), "--source", mFolder / "zoo"});
    const std::string folder = mAside / "state/paperkite/unsaved";
    {
        CommentJournal journal(folder, Project());
        ASSERT_FALSE(journal.Write({{"zoo~Dog", "1", "##", {}, {}, "typed", {}}}));
    }
    const auto before = FilesBelow(folder);
    ASSERT_EQ(before.size(), 1u);
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"tree", Project()},
          {"comment", Project(), "Cat", "--tag", "##", "--text", "A cat."}}) {
        const auto result = mProgram.Run(command);
        EXPECT_EQ(result.ExitCode, 0);
        EXPECT_TRUE(Contains(result.Err, "left unsaved comments of this project")) << result.Err;
        EXPECT_EQ(FilesBelow(folder), before);
    }
}

TEST_F(MergeJourneyTest, AMissingContentFileIsToldAndTheCommandGoesOn) {
    Do({"new", Project(), "--source", mFolder / "zoo"});
    fs::remove(mFolder / "zoo.ktc");
    const auto result = mProgram.Run({"tree", Project()});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_TRUE(Contains(result.Err, "zoo.ktc: This Content File of the project is missing"));
    EXPECT_TRUE(Contains(result.Out, "Dog"));
    EXPECT_FALSE(fs::exists(mFolder / "zoo.ktc"));
}

} // namespace

} // namespace paperkite::test
