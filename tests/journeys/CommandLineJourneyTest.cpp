#include "journeys/CommandLineTest.h"

#include "foundation/Version.h"

#include <filesystem>
#include <unistd.h>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

/// A small project that is made by the program itself.
class CommandLineJourneyTest : public CommandLineTest {
protected:
    CommandLineJourneyTest() {
        mFolder.Write("zoo/animals.h", "namespace animals {\n"
                                       "class Dog {\n"
                                       "public:\n"
                                       "    void Bark(int times);\n"
                                       "    void Bark(double volume);\n"
                                       "    int Age() const;\n"
                                       "private:\n"
                                       "    int mAge;\n"
                                       "};\n"
                                       "}\n");
        mFolder.Write("zoo/keeper.py", "class Keeper:\n"
                                       "    def feed(self, animal):\n"
                                       "        pass\n");
        Do({"new", Project(), "--source", mFolder / "zoo", "--title", "Our Zoo"});
    }

    std::string Project() const { return mFolder / "zoo.kiteproject"; }
    Json Comments(const std::string& item) const {
        return DoJson({"comments", Project(), item})["comments"];
    }
    /// The texts of an item's comments, as "tag=text;".
    std::string Texts(const std::string& item) const {
        std::string texts;
        for (const Json& comment : Comments(item))
            texts +=
                comment["tag"].get<std::string>() + "=" + comment["text"].get<std::string>() + ";";
        return texts;
    }
};

TEST_F(CommandLineJourneyTest, NewSaysWhatItMade) {
    mFolder.Write("other/a.h", "class A {};\n");
    EXPECT_EQ(Do({"new", mFolder / "other", "--source", mFolder / "other"}),
              "Made " + (mFolder / "other.kiteproject") + " with 1 items from 1 files.\n");
}

TEST_F(CommandLineJourneyTest, NewLeavesOutWhatIsExcluded) {
    Do({"new", mFolder / "part", "--source", mFolder / "zoo", "--exclude", "*.py", "--exclude",
        "*.txt"});
    const std::string tree = Do({"tree", mFolder / "part", "--depth", "9"});
    EXPECT_TRUE(Contains(tree, "Dog")) << tree;
    EXPECT_FALSE(Contains(tree, "Keeper")) << tree;
}

TEST_F(CommandLineJourneyTest, TheTreeShowsKindAccessAndWhatIsDocumented) {
    Do({"comment", Project(), "Dog::Age", "--tag", "##", "--text", "In years."});
    EXPECT_EQ(Do({"tree", Project(), "animals", "--depth", "2"}), "- animals  [Namespace]\n"
                                                                  "  - Dog  [Class]\n"
                                                                  "    * Age  [Method]\n"
                                                                  "    - Bark(int)  [Method]\n"
                                                                  "    - Bark(double)  [Method]\n"
                                                                  "    - mAge  [Field, private]\n");
}

TEST_F(CommandLineJourneyTest, TheTreeStopsAtTheDepth) {
    EXPECT_EQ(Do({"tree", Project(), "animals", "--depth", "0"}), "- animals  [Namespace]\n");
    EXPECT_EQ(Do({"tree", Project(), "--depth", "0"}), "- zoo  [Project]\n");
}

TEST_F(CommandLineJourneyTest, TheTreeAsJsonCarriesPlaceAndSignature) {
    const Json dog = DoJson({"tree", Project(), "Dog", "--depth", "1"});
    EXPECT_EQ(dog["qualifiedName"], "zoo~animals~Dog");
    EXPECT_EQ(dog["kind"], "Class");
    EXPECT_EQ(dog["file"], "animals.h");
    EXPECT_EQ(dog["line"], 2);
    EXPECT_EQ(dog["documented"], false);
    ASSERT_EQ(dog["children"].size(), 4u);
    EXPECT_EQ(dog["children"][1]["signature"], "(int times)");
    EXPECT_EQ(dog["children"][2]["signature"], "(double volume)");
    EXPECT_NE(dog["children"][1]["qualifiedName"], dog["children"][2]["qualifiedName"]);
    EXPECT_EQ(dog["children"][3]["access"], "PRIVATE");
    EXPECT_FALSE(dog["children"][3].contains("children"));
}

TEST_F(CommandLineJourneyTest, ACommentIsThereWhenTheProjectIsOpenedAgain) {
    EXPECT_EQ(Do({"comments", Project(), "Dog"}), "zoo~animals~Dog has no comments yet.\n");
    EXPECT_EQ(Do({"comment", Project(), "Dog", "--tag", "Remarks", "--text", "Needs walks."}),
              "Wrote \"Remarks\" of zoo~animals~Dog.\n");
    EXPECT_EQ(Do({"comments", Project(), "Dog"}), "Remarks (##remarks)\n    Needs walks.\n");
}

TEST_F(CommandLineJourneyTest, WritingATagAgainReplacesItsText) {
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "First."});
    const Json first = Comments("Dog");
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "Second."});
    EXPECT_EQ(Texts("Dog"), "##=Second.;");
    EXPECT_EQ(Comments("Dog")[0]["id"], first[0]["id"]);
}

TEST_F(CommandLineJourneyTest, AddKeepsWhatIsThere) {
    Do({"comment", Project(), "Dog.Age", "--tag", "##seealso", "--text", "Birth"});
    Do({"comment", Project(), "Dog.Age", "--tag", "##seealso", "--text", "Death", "--add"});
    EXPECT_EQ(Texts("Dog.Age"), "##seealso=Birth;##seealso=Death;");
}

TEST_F(CommandLineJourneyTest, DeleteTakesAllOfATagAndNoneOfTheOthers) {
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "Stays."});
    Do({"comment", Project(), "Dog", "--tag", "seealso", "--text", "One"});
    Do({"comment", Project(), "Dog", "--tag", "seealso", "--text", "Two", "--add"});
    EXPECT_EQ(Do({"comment", Project(), "Dog", "--tag", "seealso", "--delete"}),
              "Deleted 2 comments of zoo~animals~Dog.\n");
    EXPECT_EQ(Texts("Dog"), "##=Stays.;");
    EXPECT_TRUE(Contains(Refused({"comment", Project(), "Dog", "--tag", "seealso", "--delete"}),
                         "has no comment \"See Also\""));
}

TEST_F(CommandLineJourneyTest, AFlagIsSetAndTakenAway) {
    Do({"comment", Project(), "Dog", "--tag", "deprecated", "--text", ""});
    Do({"comment", Project(), "Dog", "--tag", "deprecated", "--text", ""});
    EXPECT_EQ(Texts("Dog"), "##deprecated=;");
    Do({"comment", Project(), "Dog", "--tag", "deprecated", "--delete"});
    EXPECT_EQ(Texts("Dog"), "");
}

TEST_F(CommandLineJourneyTest, TextsOfAnyKindComeBackAsTheyWere) {
    for (const std::string text :
         {"Two\nlines, and\n\n  an indented one", "Smile 🙂 and 日本語",
          "<b>&amp; \"quoted\" ]]> 'text'", "--text", "\ttab and trailing blank "}) {
        Do({"comment", Project(), "Dog", "--tag", "##remarks", "--text=" + text});
        EXPECT_EQ(Texts("Dog"), "##remarks=" + text + ";");
    }
}

TEST_F(CommandLineJourneyTest, ATagThatDoesNotApplyIsRefused) {
    EXPECT_EQ(Refused({"comment", Project(), "Dog", "--tag", "returns", "--text", "x"}),
              "\"Return Value\" does not apply to a Class.\n");
}

TEST_F(CommandLineJourneyTest, CoverageCountsByKind) {
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "A dog."});
    Do({"comment", Project(), "Dog", "--tag", "##remarks", "--text", "Needs walks."});
    const Json coverage = DoJson({"coverage", Project()});
    EXPECT_EQ(coverage["all"]["documented"], 1);
    Json byKind;
    for (const Json& group : coverage["groups"])
        byKind[group["kind"].get<std::string>()] = {group["documented"], group["total"]};
    EXPECT_EQ(byKind["Class"], Json({1, 2}));
    EXPECT_EQ(byKind["Method"], Json({0, 4}));
    EXPECT_FALSE(byKind.contains("Field"));
    EXPECT_TRUE(Contains(Do({"coverage", Project()}), "All"));
}

TEST_F(CommandLineJourneyTest, CoverageCountsByFile) {
    Do({"comment", Project(), "Keeper", "--tag", "##", "--text", "Feeds."});
    const Json coverage = DoJson({"coverage", Project(), "--by", "file"});
    Json byFile;
    for (const Json& group : coverage["groups"])
        byFile[group["file"].get<std::string>()] = group["documented"];
    EXPECT_EQ(byFile["keeper.py"], 1);
    EXPECT_EQ(byFile["animals.h"], 0);
}

TEST_F(CommandLineJourneyTest, CoverageFailsUnderWhatIsAskedFor) {
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "A dog."});
    const ProgramResult low = mProgram.Run({"coverage", Project(), "--fail-under", "90"});
    EXPECT_EQ(low.ExitCode, 1);
    EXPECT_TRUE(Contains(low.Err, "less than the 90 % that are asked for")) << low.Err;
    EXPECT_TRUE(Contains(low.Out, "All"));
    EXPECT_EQ(mProgram.Run({"coverage", Project(), "--fail-under", "1"}).ExitCode, 0);
}

TEST_F(CommandLineJourneyTest, CommentsOfItemsThatAreGoneAreKeptAndTold) {
    Do({"comment", Project(), "Keeper", "--tag", "##", "--text", "Feeds."});
    fs::remove(mFolder / "zoo/keeper.py");
    const ProgramResult result = mProgram.Run({"coverage", Project()});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_TRUE(Contains(result.Err, "Comments are kept for zoo~keeper~Keeper, which"))
        << result.Err;
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "A dog."});
    mFolder.Write("zoo/keeper.py", "class Keeper:\n    pass\n");
    EXPECT_EQ(Texts("Keeper"), "##=Feeds.;");
}

TEST_F(CommandLineJourneyTest, NextWalksThroughWhatIsUndocumented) {
    const std::string first = Do({"next", Project()});
    EXPECT_TRUE(first.starts_with("zoo~")) << first;
    std::string item = "Dog";
    std::string walked;
    for (int step = 0; step < 3; ++step) {
        const std::string line = Do({"next", Project(), item});
        item = line.substr(0, line.find(' '));
        walked += item.substr(item.rfind('~') + 1).substr(0, 4) + " ";
    }
    EXPECT_EQ(walked, "Age Bark Bark ");
}

TEST_F(CommandLineJourneyTest, NextPassesWhatIsDocumented) {
    Do({"comment", Project(), "Dog.Age", "--tag", "##", "--text", "In years."});
    const std::string line = Do({"next", Project(), "Dog"});
    EXPECT_TRUE(line.starts_with("zoo~animals~Dog~Bark")) << line;
    EXPECT_TRUE(line.ends_with("  Method  animals.h:4\n")) << line;
}

TEST_F(CommandLineJourneyTest, AScreenshotIsAPictureOfTheSizeAskedFor) {
    const std::string picture = mFolder / "window.png";
    Do({"screenshot", Project(), "--out", picture, "--item", "Dog", "--size", "900x600", "--dark"});
    const std::string bytes = mFolder.Read("window.png");
    ASSERT_GT(bytes.size(), 1000u);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    const auto number = [&](std::size_t at) {
        return (static_cast<unsigned char>(bytes[at + 2]) << 8) +
               static_cast<unsigned char>(bytes[at + 3]);
    };
    EXPECT_EQ(number(16), 900);
    EXPECT_EQ(number(20), 600);
}

TEST_F(CommandLineJourneyTest, SavingWithoutAChangeLeavesEveryByte) {
    // Written by hand: another order, another indentation, words that nobody knows.
    mFolder.Write("zoo.kiteproject", "<?xml version='1.0'?>\n<!-- ours -->\n"
                                     "<kiteproject version=\"1\"\n   hand='made'>\n"
                                     "<contentfile path='zoo.ktc'/>\n\t<source folder='zoo'/>\n"
                                     "<mood>good</mood><title>Our Zoo</title></kiteproject>");
    mFolder.Write("zoo.ktc", "<contentfile version='1'><!-- mine --><comment id='a1' tag='##'\n"
                             "item='zoo~animals~Dog'>A dog.</comment></contentfile>\n\n");
    const auto before = FilesBelow(mFolder.Path());
    EXPECT_EQ(Texts("Dog"), "##=A dog.;");
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "A dog."});
    EXPECT_EQ(FilesBelow(mFolder.Path()), before);
}

TEST_F(CommandLineJourneyTest, HelpIsEverywhere) {
    const std::string all = Do({"--help"});
    for (const char* command :
         {"open", "new", "tree", "comments", "comment", "coverage", "next", "screenshot"}) {
        EXPECT_TRUE(Contains(all, std::string("\n  ") + command + " ")) << command << "\n" << all;
        const std::string help = Do({command, "--help"});
        EXPECT_TRUE(Contains(help, std::string("Usage: paperkite ") + command)) << help;
        EXPECT_TRUE(Contains(help, "PROJECT")) << help;
    }
    EXPECT_TRUE(Contains(Do({"new", "--help"}), "--exclude"));
    EXPECT_TRUE(Contains(Do({"coverage", "--help"}), "--fail-under"));
}

TEST_F(CommandLineJourneyTest, TheVersionIsTold) {
    EXPECT_EQ(Do({"--version"}), std::string(kVersion) + "\n");
}

// What cannot be done

TEST_F(CommandLineJourneyTest, WrongUseIsRefused) {
    const std::string p = Project();
    for (const Words& words : std::initializer_list<Words>{
             {"fly", p},
             {"tree"},
             {"tree", p, "--deep"},
             {"tree", p, "--depth", "-1"},
             {"tree", p, "--depth", "two"},
             {"tree", p, "Dog", "Cat"},
             {"new", mFolder / "x"},
             {"comments", p},
             {"comment", p, "Dog"},
             {"comment", p, "Dog", "--tag", "##"},
             {"comment", p, "Dog", "--tag", "##", "--text", "a", "--delete"},
             {"comment", p, "Dog", "--tag", "##", "--add"},
             {"coverage", p, "--by", "colour"},
             {"coverage", p, "--fail-under", "101"},
             {"coverage", p, "--fail-under", "half"},
             {"screenshot", p},
             {"screenshot", p, "--out", mFolder / "x.png", "--size", "big"},
             {"screenshot", p, "--out", mFolder / "x.png", "--size", "0x0"},
             {"--colour"}})
        EXPECT_NE(Refused(words), "") << Line(words);
}

TEST_F(CommandLineJourneyTest, AnUnknownItemIsRefusedWithTheNearest) {
    for (const Words& words : std::initializer_list<Words>{
             {"tree", Project(), "Dog.Aeg"},
             {"comments", Project(), "Dog.Aeg"},
             {"comment", Project(), "Dog.Aeg", "--tag", "##", "--text", "x"},
             {"next", Project(), "Dog.Aeg"},
             {"screenshot", Project(), "--out", mFolder / "x.png", "--item", "Dog.Aeg"}}) {
        const std::string message = Refused(words);
        EXPECT_TRUE(Contains(message, "\"Dog.Aeg\"")) << message;
        EXPECT_TRUE(Contains(message, "Did you mean zoo~animals~Dog~Age")) << message;
    }
    EXPECT_TRUE(Contains(Refused({"tree", Project(), "Elephantidae"}),
                         "The command \"tree\" shows the items that there are."));
}

TEST_F(CommandLineJourneyTest, AnUnknownTagIsRefusedWithTheNearest) {
    EXPECT_EQ(Refused({"comment", Project(), "Dog", "--tag", "##remark", "--text", "x"}),
              "There is no tag \"##remark\". Did you mean ##remarks?\n");
    EXPECT_TRUE(Contains(Refused({"comment", Project(), "Dog", "--tag", "poem", "--text", "x"}),
                         "There is no tag \"poem\". "));
}

TEST_F(CommandLineJourneyTest, AProjectThatIsNoXmlIsRefusedWithLineAndColumn) {
    mFolder.Write("zoo.kiteproject", "<?xml version=\"1.0\"?>\n"
                                     "<kiteproject version=\"1\">\n"
                                     "  <title>Our Zoo</titel>\n"
                                     "</kiteproject>\n");
    for (const Words& words :
         std::initializer_list<Words>{{"tree", Project()},
                                      {"comments", Project(), "Dog"},
                                      {"comment", Project(), "Dog", "--tag", "##", "--text", "x"},
                                      {"coverage", Project()},
                                      {"next", Project()},
                                      {"screenshot", Project(), "--out", mFolder / "x.png"}}) {
        const std::string message = Refused(words);
        ASSERT_TRUE(message.starts_with(Project() + ":3:")) << message;
        const int column = std::stoi(message.substr(Project().size() + 3));
        EXPECT_GE(column, 17) << message;
        EXPECT_LE(column, 24) << message;
    }
}

TEST_F(CommandLineJourneyTest, AContentFileThatIsNoXmlIsRefusedAndKept) {
    Do({"comment", Project(), "Dog", "--tag", "##", "--text", "A dog."});
    mFolder.Write("zoo.ktc", mFolder.Read("zoo.ktc") + "<<<<<<< mine\n");
    const std::string message =
        Refused({"comment", Project(), "Dog", "--tag", "##", "--text", "Another."});
    EXPECT_TRUE(message.starts_with(mFolder / "zoo.ktc:")) << message;
}

TEST_F(CommandLineJourneyTest, ANewerProjectIsRefused) {
    mFolder.Write("zoo.kiteproject",
                  "<kiteproject version=\"99\"><source folder=\"zoo\"/></kiteproject>\n");
    const std::string message = Refused({"tree", Project()});
    EXPECT_TRUE(message.starts_with(Project())) << message;
    EXPECT_TRUE(Contains(message, "99")) << message;
    EXPECT_TRUE(Contains(message, "newer")) << message;
}

TEST_F(CommandLineJourneyTest, AnotherXmlFileIsRefused) {
    mFolder.Write("page.kiteproject", "<html><body/></html>");
    EXPECT_TRUE(Contains(Refused({"tree", mFolder / "page.kiteproject"}), "page.kiteproject:1:"));
}

TEST_F(CommandLineJourneyTest, AMissingProjectIsRefused) {
    EXPECT_TRUE(Refused({"tree", mFolder / "none"}).starts_with(mFolder / "none: "));
}

TEST_F(CommandLineJourneyTest, AMissingSourceFolderIsRefused) {
    fs::rename(mFolder / "zoo", mFolder / "moved");
    for (const Words& words :
         std::initializer_list<Words>{{"tree", Project()},
                                      {"comment", Project(), "Dog", "--tag", "##", "--text", "x"},
                                      {"new", mFolder / "x", "--source", mFolder / "zoo"}})
        EXPECT_EQ(Refused(words), "The source folder \"" + (mFolder / "zoo") +
                                      "\" does not exist. Choose a folder that does.\n");
}

TEST_F(CommandLineJourneyTest, AnEmptySourceFolderIsRefused) {
    fs::remove_all(mFolder / "zoo");
    fs::create_directory(mFolder / "zoo");
    for (const Words& words :
         std::initializer_list<Words>{{"coverage", Project(), "--fail-under", "50"},
                                      {"new", mFolder / "x", "--source", mFolder / "zoo"}})
        EXPECT_TRUE(Contains(Refused(words), "There is no source code in " + (mFolder / "zoo")));
}

TEST_F(CommandLineJourneyTest, AnUnreadableSourceFolderIsRefused) {
    if (::geteuid() == 0) {
        // Nobody in particular, who owns the project and may not read the source.
        constexpr unsigned nobody = 65534;
        for (const std::string& owned : {mFolder.Path(), mAside.Path(), Project()})
            ASSERT_EQ(::chown(owned.c_str(), nobody, nobody), 0);
        for (const char* printed : {"out", "err"})
            fs::permissions(mAside / printed, fs::perms::all);
        mProgram.SetUser(nobody);
        if (mProgram.Run({"--version"}).ExitCode == 127)
            GTEST_SKIP() << "No other user can run the program from where it was built.";
    }
    fs::permissions(mFolder / "zoo", fs::perms::none);
    const ProgramResult result = mProgram.Run({"tree", Project()});
    fs::permissions(mFolder / "zoo", fs::perms::owner_all);
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_EQ(result.Err, "The source folder \"" + (mFolder / "zoo") +
                              "\" cannot be read. Check its permissions.\n");
}

TEST_F(CommandLineJourneyTest, MissingCtagsIsToldWithItsPackage) {
    fs::create_directory(mAside / "empty");
    mProgram.Set("PATH", mAside / "empty");
    for (const Words& words :
         std::initializer_list<Words>{{"tree", Project()},
                                      {"comment", Project(), "Dog", "--tag", "##", "--text", "x"},
                                      {"new", mFolder / "x", "--source", mFolder / "zoo"}})
        EXPECT_TRUE(Contains(Refused(words), "Install the package universal-ctags."));
}

TEST_F(CommandLineJourneyTest, AProjectThatIsThereIsNotReplaced) {
    EXPECT_EQ(Refused({"new", Project(), "--source", mFolder / "zoo"}),
              Project() + " is there already. Choose another name, or open that project.\n");
}

TEST_F(CommandLineJourneyTest, APictureThatCannotBeWrittenIsRefused) {
    EXPECT_TRUE(Contains(Refused({"screenshot", Project(), "--out", mFolder / "no/x.png"}),
                         "cannot be written to " + (mFolder / "no/x.png")));
}

} // namespace

} // namespace paperkite::test
