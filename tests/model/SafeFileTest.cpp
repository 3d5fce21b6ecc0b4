#include "model/SafeFile.h"

#include "support/NarrowWorld.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace paperkite {

namespace {

namespace fs = std::filesystem;
using test::FullDisk;
using test::OrdinaryUser;
using test::TemporaryFolder;

mode_t ModeOf(const std::string& path) {
    struct stat status {};
    ::stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

} // namespace

TEST(SafeFile, WhatWasWrittenIsReadBackAndNothingElseIsLeft) {
    const TemporaryFolder folder;
    ASSERT_FALSE(SafeFile::Write(folder / "a.ktc", std::string("first\0\r\n", 8)));
    ASSERT_FALSE(SafeFile::Write(folder / "a.ktc", "second"));
    std::string bytes;
    ASSERT_FALSE(SafeFile::Read(folder / "a.ktc", bytes));
    EXPECT_EQ(bytes, "second");
    EXPECT_EQ(folder.Names(), "a.ktc");
}

TEST(SafeFile, PermissionsAreKept) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.ktc", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    ASSERT_FALSE(SafeFile::Write(path, "new"));
    EXPECT_EQ(ModeOf(path), 0640u);
}

TEST(SafeFile, ASymbolicLinkStaysOneAndItsTargetIsWritten) {
    const TemporaryFolder folder;
    folder.Write("real/a.ktc", "old");
    fs::create_symlink("real/a.ktc", folder / "link.ktc");
    ASSERT_FALSE(SafeFile::Write(folder / "link.ktc", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link.ktc"));
    EXPECT_EQ(folder.Read("real/a.ktc"), "new");
}

TEST(SafeFile, ALinkToAFileThatIsNotThereYetMakesIt) {
    const TemporaryFolder folder;
    fs::create_symlink("later.ktc", folder / "link.ktc");
    ASSERT_FALSE(SafeFile::Write(folder / "link.ktc", "new"));
    EXPECT_EQ(folder.Read("later.ktc"), "new");
}

TEST(SafeFile, AReadOnlyFolderLeavesTheOldFileAndSaysWhatToDo) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.ktc", "old");
    ::chmod(path.c_str(), 0666);
    ::chmod(folder.Path().c_str(), 0555);
    std::optional<FileProblem> problem;
    {
        const OrdinaryUser user;
        problem = SafeFile::Write(path, "new");
    }
    ::chmod(folder.Path().c_str(), 0755);
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Message(), path +
                                      ": The file cannot be saved: Permission denied. The old "
                                      "file is as it was. Ask for the permission to write in "
                                      "\"" +
                                      folder.Path() + "\", or save to another folder.");
    EXPECT_EQ(folder.Read("a.ktc"), "old");
    EXPECT_EQ(folder.Names(), "a.ktc");
}

TEST(SafeFile, AWriteProtectedFileIsNotReplaced) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.ktc", "old");
    ::chmod(path.c_str(), 0444);
    ::chmod(folder.Path().c_str(), 0777);
    std::optional<FileProblem> problem;
    {
        const OrdinaryUser user;
        problem = SafeFile::Write(path, "new");
    }
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Reason, FileProblem::ReasonCode::CannotWrite);
    EXPECT_EQ(folder.Read("a.ktc"), "old");
}

TEST(SafeFile, ADiskThatIsFullLeavesTheOldFileAndNoHalfOne) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.ktc", "old");
    std::optional<FileProblem> problem;
    {
        const FullDisk full(1000);
        problem = SafeFile::Write(path, std::string(100000, 'x'));
    }
    ASSERT_TRUE(problem);
    EXPECT_NE(problem->Remedy.find("Make room"), std::string::npos);
    EXPECT_EQ(folder.Read("a.ktc"), "old");
    EXPECT_EQ(folder.Names(), "a.ktc");
}

TEST(SafeFile, AMissingFolderIsNamed) {
    const TemporaryFolder folder;
    const auto problem = SafeFile::Write(folder / "none/a.ktc", "new");
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Remedy,
              "Make the folder \"" + (folder / "none") + "\" first, or save to another one.");
}

TEST(SafeFile, AFolderOfThatNameIsNoFile) {
    const TemporaryFolder folder;
    const auto problem = SafeFile::Write(folder.Path(), "new");
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Remedy, "A folder of that name is there: choose another name.");
    std::string bytes = "untouched";
    const auto readProblem = SafeFile::Read(folder.Path(), bytes);
    ASSERT_TRUE(readProblem);
    EXPECT_EQ(readProblem->What, "This is a folder and no file.");
    EXPECT_EQ(bytes, "untouched");
}

TEST(SafeFile, AMissingAndAnUnreadableFileAreToldApart) {
    const TemporaryFolder folder;
    std::string bytes;
    const auto missing = SafeFile::Read(folder / "none.ktc", bytes);
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->Reason, FileProblem::ReasonCode::Missing);

    const std::string path = folder.Write("secret.ktc", "x");
    ::chmod(path.c_str(), 0);
    ::chmod(folder.Path().c_str(), 0755);
    const OrdinaryUser user;
    const auto unreadable = SafeFile::Read(path, bytes);
    ASSERT_TRUE(unreadable);
    EXPECT_EQ(unreadable->Reason, FileProblem::ReasonCode::Unreadable);
    EXPECT_EQ(unreadable->What, "You are not allowed to read this file.");
}

} // namespace paperkite
