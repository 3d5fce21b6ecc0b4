#include "doctypes/source/SourceFileFinder.h"
#include "doctypes/SourceTree.h"
#include "support/NarrowWorld.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace paperkite::test {

namespace fs = std::filesystem;

namespace {

std::string Joined(const std::vector<FoundFile>& files) {
    std::string result;
    for (const FoundFile& file : files) {
        result += (result.empty() ? "" : " ") + file.Path;
    }
    return result;
}

} // namespace

TEST(SourceFileFinder, ListsFilesByNameWhateverTheOrderOnDisk) {
    SourceTree tree;
    tree.Write("z.c", "").Write("b/y.c", "").Write("b/a.c", "").Write("a.c", "");
    EXPECT_EQ(Joined(SourceFileFinder(tree.Folder()).Find().Files), "a.c b/a.c b/y.c z.c");
}

TEST(SourceFileFinder, LeavesOutWhatIsExcluded) {
    SourceTree tree;
    tree.Write("a.c", "").Write("gen/b.c", "").Write("x/gen/c.c", "").Write("x/d_test.c", "");
    SourceFileFinder finder(tree.Folder());
    finder.Exclude("gen");
    finder.Exclude("x/*_test.c");
    EXPECT_EQ(Joined(finder.Find().Files), "a.c");
}

TEST(SourceFileFinder, SkipsVersionControlPackagesAndBuildOutputs) {
    SourceTree tree;
    tree.Write("a.c", "").Write(".git/b.c", "").Write("node_modules/c.js", "");
    tree.Write("out/CMakeCache.txt", "").Write("out/d.c", "").Write("p/__pycache__/e.py", "");
    EXPECT_EQ(Joined(SourceFileFinder(tree.Folder()).Find().Files), "a.c");
}

TEST(SourceFileFinder, SkipsBinaryFiles) {
    SourceTree tree;
    tree.Write("a.c", "int a;")
        .Write("b.c", std::string_view("\x7F"
                                       "ELF\0\0",
                                       6));
    EXPECT_EQ(Joined(SourceFileFinder(tree.Folder()).Find().Files), "a.c");
}

TEST(SourceFileFinder, EntersNoLinksToFolders) {
    SourceTree tree;
    tree.Write("sub/a.c", "");
    fs::create_directory_symlink(tree.Folder(), tree.Folder() + "/sub/loop");
    fs::create_directory_symlink(tree.Folder() + "/sub", tree.Folder() + "/twin");
    fs::create_symlink("nowhere", tree.Folder() + "/dangling.c");
    EXPECT_EQ(Joined(SourceFileFinder(tree.Folder()).Find().Files), "sub/a.c");
}

TEST(SourceFileFinder, NamesMayHoldAnyBytes) {
    SourceTree tree;
    tree.Write("a.c", "").Write("b\xFF.c", "").Write("c\nd.c", "").Write("\xC3\xA9.c", "");
    const FoundFiles found = SourceFileFinder(tree.Folder()).Find();
    EXPECT_EQ(Joined(found.Files), "a.c b\xFF.c c\nd.c \xC3\xA9.c");
    EXPECT_EQ(found.Warnings.size(), 0u);
}

TEST(SourceFileFinder, LooksIntoNoFileThatIsKnownToBeText) {
    SourceTree tree;
    tree.Write("a.c", std::string_view("\0", 1)).Write("b.c", std::string_view("\0", 1));
    SourceFileFinder finder(tree.Folder());
    finder.SetKnown([](const std::string& path, const FileStamp& stamp) {
        return path == "b.c" && stamp.Size == 1;
    });
    EXPECT_EQ(Joined(finder.Find().Files), "b.c");
}

TEST(SourceFileFinder, SaysWhatIsWrongWithTheFolder) {
    SourceTree tree;
    tree.Write("file.c", "");
    const std::string missing = tree.Folder() + "/none";
    EXPECT_EQ(SourceFileFinder(missing).Find().Outcome.Message,
              "The source folder \"" + missing + "\" does not exist. Choose a folder that does.");
    const std::string file = tree.Folder() + "/file.c";
    EXPECT_EQ(SourceFileFinder(file).Find().Outcome.Message,
              "\"" + file + "\" is not a folder. Choose the folder that holds the source code.");
    EXPECT_EQ(SourceFileFinder("").Find().Outcome.Message,
              "No source folder is given. Choose the folder that holds the source code.");
    EXPECT_EQ(SourceFileFinder("").Find().Outcome.Status, ScanStatus::Failed);
}

TEST(SourceFileFinder, UnreadableFoldersAndFilesAreToldOf) {
    SourceTree tree;
    tree.Write("a.c", "").Write("closed/b.c", "").Write("c.c", "");
    fs::permissions(tree.Folder() + "/closed", fs::perms::none);
    fs::permissions(tree.Folder() + "/c.c", fs::perms::none);
    FoundFiles found;
    {
        const OrdinaryUser user;
        found = SourceFileFinder(tree.Folder()).Find();
    }
    fs::permissions(tree.Folder() + "/closed", fs::perms::owner_all);
    EXPECT_EQ(Joined(found.Files), "a.c");
    EXPECT_EQ(found.Warnings.size(), 2u);
}

TEST(SourceFileFinder, AFolderThatGoesDuringTheWalkIsNoEmptyFolder) {
    SourceTree tree;
    for (int i = 0; i < 200; ++i) {
        tree.Write("d/f" + std::to_string(i) + ".c", "int a;");
    }
    for (const std::size_t enough : {std::size_t{0}, std::size_t{60}}) {
        SourceTree copy;
        fs::copy(tree.Folder(), copy.Folder(), fs::copy_options::recursive);
        const FoundFiles found = SourceFileFinder(copy.Folder()).Find([&](std::size_t filesFound) {
            if (filesFound >= enough) {
                fs::remove_all(copy.Folder());
            }
            return true;
        });
        EXPECT_EQ(found.Outcome.Message, "The source folder \"" + copy.Folder() +
                                             "\" does not exist. Choose a folder that does.");
        EXPECT_TRUE(found.Files.empty());
    }
}

TEST(SourceFileFinder, StopsWhenTold) {
    SourceTree tree;
    tree.Write("a.c", "").Write("b.c", "");
    const FoundFiles found =
        SourceFileFinder(tree.Folder()).Find([](std::size_t) { return false; });
    EXPECT_EQ(found.Outcome.Status, ScanStatus::Cancelled);
    EXPECT_EQ(found.Files.size(), 0u);
}

} // namespace paperkite::test
