#include "doctypes/source/CtagsProcess.h"
#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace paperkite::test {

namespace {

/// A program in the tree that prints what it is told to.
std::string FakeProgram(SourceTree& tree, const std::string& script) {
    tree.Write("fake-ctags", "#!/bin/sh\n" + script + "\n");
    const std::string path = tree.Folder() + "/fake-ctags";
    ::chmod(path.c_str(), 0755);
    return path;
}

} // namespace

TEST(CtagsProcess, HandsOutLinesWhileTheProgramWorks) {
    SourceTree tree;
    tree.Write("a.c", "int a;\n").Write("b.c", "int b;\n");
    CtagsProcess ctags;
    std::string lines;
    const ScanOutcome outcome = ctags.Run(tree.Folder(), {"--options=NONE", "--_xformat=%N"},
                                          {"a.c", "b.c"}, [&](std::string_view line) {
                                              lines.append(line).append("|");
                                              return true;
                                          });
    EXPECT_EQ(outcome.Message, "");
    EXPECT_NE(lines.find("a.c"), std::string::npos);
    EXPECT_NE(lines.find("b.c"), std::string::npos);
}

TEST(CtagsProcess, AMissingProgramSaysWhatToInstall) {
    CtagsProcess ctags;
    ctags.SetProgram("/nowhere/ctags");
    EXPECT_EQ(
        ctags.Check().Message,
        "The program \"/nowhere/ctags\" that reads source code cannot be run: No such file or "
        "directory. Install the package universal-ctags, or mend the path of the program.");
}

TEST(CtagsProcess, AnotherProgramOfThatNameSaysWhatToInstall) {
    SourceTree tree;
    CtagsProcess ctags;
    ctags.SetProgram(FakeProgram(tree, "echo Exuberant Ctags 5.8"));
    EXPECT_NE(ctags.Check().Message.find("is not Universal Ctags. Install the package"),
              std::string::npos);
}

TEST(CtagsProcess, AProgramWithoutJsonSaysWhatToInstall) {
    SourceTree tree;
    CtagsProcess ctags;
    ctags.SetProgram(FakeProgram(tree, "echo Universal Ctags 5.9 +wildcards"));
    EXPECT_NE(ctags.Check().Message.find("built without JSON output"), std::string::npos);
}

TEST(CtagsProcess, AHandlerThatSaysNoKillsTheProgramAtOnce) {
    SourceTree tree;
    CtagsProcess ctags;
    ctags.SetProgram(FakeProgram(tree, "case $1 in --version) echo Universal Ctags +json; exit;; "
                                       "esac\nwhile :; do echo line; done"));
    int count = 0;
    const ScanOutcome outcome =
        ctags.Run(tree.Folder(), {}, {}, [&](std::string_view) { return ++count < 3; });
    EXPECT_EQ(outcome.Status, ScanStatus::Cancelled);
    EXPECT_EQ(count, 3);
}

TEST(CtagsProcess, ASilentProgramCanBeStoppedToo) {
    SourceTree tree;
    CtagsProcess ctags;
    ctags.SetProgram(FakeProgram(
        tree, "case $1 in --version) echo Universal Ctags +json; exit;; esac\nexec sleep 600"));
    int asked = 0;
    ctags.SetKeepGoing([&] { return ++asked < 2; });
    const ScanOutcome outcome =
        ctags.Run(tree.Folder(), {}, {"a.c"}, [](std::string_view) { return true; });
    EXPECT_EQ(outcome.Status, ScanStatus::Cancelled);
}

TEST(CtagsProcess, AFailingProgramTellsItsCodeAndWhatItSaid) {
    SourceTree tree;
    CtagsProcess ctags;
    ctags.SetProgram(FakeProgram(tree, "case $1 in --version) echo Universal Ctags +json; exit;; "
                                       "esac\necho broken >&2; exit 3"));
    const ScanOutcome outcome =
        ctags.Run(tree.Folder(), {}, {"a.c"}, [](std::string_view) { return true; });
    EXPECT_EQ(outcome.Status, ScanStatus::Failed);
    EXPECT_NE(outcome.Message.find("ended with code 3: broken"), std::string::npos);
}

TEST(CtagsProcess, ManyFileNamesDoNotBlockAProgramThatDoesNotReadThem) {
    SourceTree tree;
    CtagsProcess ctags;
    ctags.SetProgram(FakeProgram(tree, "case $1 in --version) echo Universal Ctags +json; exit;; "
                                       "esac\necho done"));
    std::string lines;
    const ScanOutcome outcome =
        ctags.Run(tree.Folder(), {}, std::vector<std::string>(100000, "some/file/name.c"),
                  [&](std::string_view line) {
                      lines += line;
                      return true;
                  });
    EXPECT_EQ(outcome.Message, "");
    EXPECT_EQ(lines, "done");
}

} // namespace paperkite::test
