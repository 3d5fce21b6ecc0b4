#include "doctypes/FakeCtags.h"
#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

using std::chrono::milliseconds;

SourceScanner ScannerOf(const SourceTree& tree, const FakeCtags& fake) {
    SourceScanner scanner(tree.Folder(), "p");
    scanner.SetCtagsProgram(fake.Path());
    scanner.SetFileTimeLimit(milliseconds(1000));
    return scanner;
}

class FailingCtags : public testing::TestWithParam<unsigned> {
protected:
    FailingCtags() {
        mTree.Write("a.c", "int a;").Write("b.c", "int b;").Write("c.c", "int c;");
        mTree.Write("d.c", "int d;");
    }
    ScanResult Scan() const {
        SourceScanner scanner = ScannerOf(mTree, mFake);
        scanner.SetProcessCount(GetParam());
        return scanner.Scan();
    }
    /// What is said of the one file that was left out, while all others are there.
    std::string WarningOfScan() const {
        const ScanResult result = Scan();
        if (!result.Outcome.IsDone()) return result.Outcome.Message;
        EXPECT_EQ(Dump(*result.Index), "\n+Variable a : int\n+Variable b : int\n+Variable c : int\n"
                                       "+Variable d : int\n");
        EXPECT_EQ(result.FileCount, 4u);
        return result.Warnings.size() == 1 ? result.Warnings[0]
                                           : std::to_string(result.Warnings.size()) + " warnings";
    }

    SourceTree mTree;
    FakeCtags mFake = FakeCtags::WithBadFiles();
};

} // namespace

TEST_P(FailingCtags, AFileThatCrashesItIsLeftOutAlone) {
    mTree.Write("b_crash.c", "int x;");
    EXPECT_EQ(WarningOfScan(), "The file \"b_crash.c\" cannot be read by ctags, which was ended by "
                               "signal 11 and was left out.");
}

TEST_P(FailingCtags, AFileThatItNeverFinishesIsLeftOutAlone) {
    mTree.Write("b_hang.c", "int x;");
    EXPECT_EQ(WarningOfScan(),
              "The file \"b_hang.c\" took ctags longer than 1 seconds to read and was left out.");
}

TEST_P(FailingCtags, AFileThatItDoesNotAnswerIsLeftOutAlone) {
    mTree.Write("b_quit.c", "int x;");
    EXPECT_EQ(WarningOfScan(), "The file \"b_quit.c\" cannot be read by ctags, which ended with "
                               "code 0 and was left out.");
}

TEST_P(FailingCtags, OnlyBadFilesLeaveAnEmptyProject) {
    SourceTree tree;
    tree.Write("crash.c", "int x;");
    SourceScanner scanner = ScannerOf(tree, mFake);
    const ScanResult result = scanner.Scan();
    ASSERT_EQ(result.Outcome.Message, "");
    EXPECT_EQ(result.Index->Size(), 1u);
    EXPECT_EQ(result.Warnings.size(), 1u);
}

TEST_P(FailingCtags, FailingOnEveryFileIsAFailure) {
    SourceTree tree;
    for (int i = 0; i < 60; ++i) {
        tree.Write("crash" + std::to_string(i) + ".c", "int x;");
    }
    const ScanResult result = ScannerOf(tree, mFake).Scan();
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Failed);
    EXPECT_NE(result.Outcome.Message.find("failed on each of the first files"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Processes, FailingCtags, testing::Values(1u, 2u));

TEST(FailingCtagsAltogether, IsAClearError) {
    SourceTree tree;
    tree.Write("a.c", "int a;");
    const FakeCtags fake("echo broken >&2; exit 3");
    const ScanResult result = ScannerOf(tree, fake).Scan();
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Failed);
    EXPECT_NE(result.Outcome.Message.find("ended with code 3: broken"), std::string::npos)
        << result.Outcome.Message;
    EXPECT_FALSE(result.Index.has_value());
}

TEST(FailingCtagsAltogether, CanBeCancelledWhileItHangs) {
    SourceTree tree;
    tree.Write("a.c", "int a;").Write("hang.c", "int b;");
    const FakeCtags fake = FakeCtags::WithBadFiles();
    SourceScanner scanner = ScannerOf(tree, fake);
    scanner.SetFileTimeLimit(std::chrono::hours(1));
    int asked = 0;
    const ScanResult result = scanner.Scan([&](const ScanProgress& progress) {
        return progress.Phase != ScanPhase::ReadingFiles || ++asked < 8;
    });
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Cancelled);
    EXPECT_FALSE(result.Index.has_value());
}

TEST(FailingCtagsAltogether, CanBeCancelledWhileItDoesNotEvenTellItsVersion) {
    SourceTree tree, folder;
    tree.Write("a.c", "int a;");
    int asked = 0;
    SourceScanner scanner(tree.Folder(), "p");
    folder.Write("hang", "#!/bin/bash\nexec sleep 600\n");
    std::filesystem::permissions(folder.Folder() + "/hang", std::filesystem::perms::owner_all);
    scanner.SetCtagsProgram(folder.Folder() + "/hang");
    const ScanResult result = scanner.Scan([&](const ScanProgress&) { return ++asked < 8; });
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Cancelled);
}

} // namespace paperkite::test
