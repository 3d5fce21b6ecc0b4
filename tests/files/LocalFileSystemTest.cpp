#include "platform/files/LocalFileSystem.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

int ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.GetNumber();
    }
    return 0;
}

} // namespace

TEST(LocalFileSystem, APathIsCutAtItsLastSeparator) {
    const LocalFileSystem files;
    EXPECT_EQ(files.FileName("/a/b.html"), "b.html");
    EXPECT_EQ(files.Dir("/a/b.html"), "/a");
    EXPECT_EQ(files.FileName("C:\\a\\b.html"), "b.html");
    EXPECT_EQ(files.Dir("C:\\a\\b.html"), "C:\\a");
    EXPECT_EQ(files.FileName("b"), "b");
    EXPECT_EQ(files.Dir("b"), "");
    EXPECT_EQ(files.Dir("/b"), "/");
    EXPECT_EQ(files.FileName("/a/"), "");
}

TEST(LocalFileSystem, FoldersAreMadeWithThoseAbove) {
    const test::TemporaryFolder folder;
    LocalFileSystem files;
    files.CreateFolder(folder / "a\\b/c");
    EXPECT_TRUE(files.FolderExists(folder / "a/b/c"));
    EXPECT_TRUE(files.FolderExists(folder / "a\\b"));
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(folder / "a"); }), 0);
}

TEST(LocalFileSystem, AFileIsNoFolder) {
    const test::TemporaryFolder folder;
    folder.Write("file", "x");
    LocalFileSystem files;
    EXPECT_FALSE(files.FolderExists(folder / "file"));
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(folder / "file"); }), 58);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(folder / "file/below"); }), 75);
}

TEST(LocalFileSystem, FilesAreListedByTheirEnding) {
    const test::TemporaryFolder folder;
    folder.Write("icons/b.ico", "");
    folder.Write("icons/a.ICO", "");
    folder.Write("icons/a.png", "");
    folder.Write("icons/c.ico/inside.txt", "");
    const LocalFileSystem files;
    EXPECT_EQ(files.FilesWithExtension(folder / "icons", "ico"),
              (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(files.FilesWithExtension(folder.Path() + "\\icons", ".png"),
              std::vector<std::string>{"a"});
    EXPECT_TRUE(files.FilesWithExtension(folder / "none", "ico").empty());
}

} // namespace paperkite
