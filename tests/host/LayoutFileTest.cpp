#include "host/LayoutFile.h"

#include "host/HeadlessServices.h"
#include "support/TemporaryFolder.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

const std::string kMark = "\xEF\xBB\xBF";
const std::string kOld =
    "<!DOCTYPE html>\r\n<!-- ours -->\n\n<html><body><p>old</p></body></html>\n";
const std::string kNew = "<html>\n<body><p>new</p></body></html>\n";

class LayoutFileTest : public testing::Test {
protected:
    LayoutFileTest() {
        InstallHeadlessServices(PAPERKITE_SOURCE_DIR);
        mTemplate->Folder = mFolder / "template";
        mLayout->Name = "Class";
        mLayout->FileName = "class.html";
        mFolder.Write(kFile, kMark + kOld);
    }

    std::string OnDisk() const { return mFolder.Read(kFile); }
    static std::string Reason(const std::optional<FileProblem>& problem) {
        if (!problem) return "none";
        EXPECT_NE(problem->What, "");
        EXPECT_NE(problem->Remedy, "");
        switch (problem->Reason) {
        case FileProblem::ReasonCode::Missing:
            return "missing " + problem->File;
        case FileProblem::ReasonCode::Unreadable:
            return "unreadable " + problem->File;
        case FileProblem::ReasonCode::CannotWrite:
            return "cannot write " + problem->File;
        case FileProblem::ReasonCode::ChangedOnDisk:
            return "changed " + problem->File;
        default:
            return "another";
        }
    }
    std::string Path() const { return mFolder / kFile; }

    static constexpr const char* kFile = "template/class.html";
    TemporaryFolder mFolder;
    Ref<PageTemplateDocument> mTemplate = MakeRef<PageTemplateDocument>();
    Ref<PageLayout> mLayout = MakeRef<PageLayout>();
    LayoutFile mFile{mTemplate, mLayout};
};

TEST_F(LayoutFileTest, GivesTheTextWithoutItsByteOrderMark) {
    EXPECT_EQ(mFile.GetPath(), Path());
    EXPECT_EQ(mFile.GetTemplate(), mTemplate);
    EXPECT_EQ(mFile.GetLayout(), mLayout);
    EXPECT_EQ(Reason(mFile.Read()), "none");
    EXPECT_EQ(mFile.GetText(), kOld);
    EXPECT_TRUE(mFile.IsAsRead());
    mFolder.Write(kFile, kOld);
    EXPECT_FALSE(mFile.IsAsRead());
    EXPECT_EQ(mFile.ChangedBytes(), kOld);
}

TEST_F(LayoutFileTest, LineEndsOfTwoCharactersComeBackAndMixedOnesAreLeftAlone) {
    mFolder.Write(kFile, "<p>a</p>\r\n<p>b</p>\r\n");
    mFile.Read();
    EXPECT_EQ(mFile.GetText(), "<p>a</p>\n<p>b</p>\n");
    EXPECT_EQ(Reason(mFile.Write("<p>c</p>\n<p>d</p>\r\n")), "none");
    EXPECT_EQ(OnDisk(), "<p>c</p>\r\n<p>d</p>\r\n");
    mFolder.Write(kFile, "<p>a</p>\r\n<p>b</p>\n");
    mFile.Read();
    EXPECT_EQ(mFile.GetText(), "<p>a</p>\r\n<p>b</p>\n");
    EXPECT_EQ(Reason(mFile.Write(mFile.GetText())), "none");
    EXPECT_EQ(OnDisk(), "<p>a</p>\r\n<p>b</p>\n");
}

TEST_F(LayoutFileTest, WritesTheMarkBack) {
    mFile.Read();
    EXPECT_EQ(Reason(mFile.Write(kNew)), "none");
    EXPECT_EQ(OnDisk(), kMark + kNew);
    EXPECT_EQ(mFile.GetText(), kNew);
    EXPECT_EQ(Reason(mFile.Write(kOld)), "none") << "its own work is nobody else's";
    EXPECT_EQ(OnDisk(), kMark + kOld);
}

TEST_F(LayoutFileTest, WritingWhatWasReadChangesNoByte) {
    mFile.Read();
    EXPECT_EQ(Reason(mFile.Write(mFile.GetText())), "none");
    EXPECT_EQ(OnDisk(), kMark + kOld);
    LayoutFile again(mTemplate, mLayout);
    again.Read();
    EXPECT_EQ(again.GetText(), kOld);
}

TEST_F(LayoutFileTest, AnEmptyFileIsAnEmptyText) {
    mFolder.Write(kFile, "");
    EXPECT_EQ(Reason(mFile.Read()), "none");
    EXPECT_EQ(mFile.GetText(), "");
    EXPECT_EQ(Reason(mFile.Write(kNew)), "none");
    EXPECT_EQ(OnDisk(), kNew);
}

TEST_F(LayoutFileTest, WhatSomebodyElseWroteIsNotReplacedUnlessWanted) {
    mFile.Read();
    mFolder.Write(kFile, "theirs");
    EXPECT_EQ(Reason(mFile.Write(kNew)), "changed " + Path());
    EXPECT_EQ(OnDisk(), "theirs");
    EXPECT_EQ(mFile.GetText(), kOld);
    EXPECT_EQ(Reason(mFile.Write(kNew)), "changed " + Path()) << "asking again changes nothing";
    EXPECT_EQ(Reason(mFile.Write(kNew, LayoutFile::Others::Replace)), "none");
    EXPECT_EQ(OnDisk(), kMark + kNew);
    EXPECT_EQ(Reason(mFile.Write(kOld)), "none");
}

TEST_F(LayoutFileTest, TheSameBytesAgainAreNoOthersWork) {
    mFile.Read();
    mFolder.Write(kFile, kMark + kOld);
    EXPECT_EQ(Reason(mFile.Write(kNew)), "none");
    EXPECT_EQ(OnDisk(), kMark + kNew);
}

TEST_F(LayoutFileTest, AFileThatIsNotThereIsAProblemAndTheTextStays) {
    mFile.Read();
    std::filesystem::remove(Path());
    EXPECT_EQ(Reason(mFile.Read()), "missing " + Path());
    EXPECT_EQ(mFile.GetText(), kOld);
    EXPECT_FALSE(mFile.IsWritable());
    EXPECT_EQ(Reason(mFile.Write(kNew)), "none") << "a file that went is made again";
    EXPECT_EQ(OnDisk(), kMark + kNew);
}

TEST_F(LayoutFileTest, AFolderThatWentIsAProblemAndTheTextStays) {
    mFile.Read();
    EXPECT_TRUE(mFile.IsWritable());
    std::filesystem::remove_all(mTemplate->Folder);
    EXPECT_FALSE(mFile.IsWritable());
    EXPECT_TRUE(Reason(mFile.Write(kNew)).starts_with("cannot write "));
    EXPECT_EQ(mFile.GetText(), kOld);
    const std::string copy = mFolder / "copy.html";
    EXPECT_EQ(Reason(mFile.WriteCopy(kNew, copy)), "none") << "a copy can be saved";
    EXPECT_FALSE(std::filesystem::exists(Path()));
}

TEST_F(LayoutFileTest, AFolderInPlaceOfTheFileIsAProblem) {
    mFile.Read();
    std::filesystem::remove(Path());
    std::filesystem::create_directories(Path());
    EXPECT_EQ(Reason(mFile.Read()), "unreadable " + Path());
    EXPECT_TRUE(Reason(mFile.Write(kNew)).starts_with("cannot write "));
    EXPECT_EQ(mFile.GetText(), kOld);
    EXPECT_TRUE(std::filesystem::is_directory(Path()));
    EXPECT_EQ(mFolder.Names(), "template") << "no file of a half write is left";
}

TEST_F(LayoutFileTest, ACopyHasTheMarkAndLeavesTheFile) {
    mFile.Read();
    EXPECT_EQ(Reason(mFile.WriteCopy(kNew, mFolder / "copy.html")), "none");
    EXPECT_EQ(mFolder.Read("copy.html"), kMark + kNew);
    EXPECT_EQ(OnDisk(), kMark + kOld);
    EXPECT_EQ(mFile.GetText(), kOld);
    EXPECT_TRUE(
        Reason(mFile.WriteCopy(kNew, mFolder / "nowhere/copy.html")).starts_with("cannot write "));
    EXPECT_EQ(Reason(mFile.Write(kNew)), "none") << "the copy is not what is edited";
}

} // namespace
} // namespace paperkite::test
