#include "doctypes/SourceTree.h"
#include "doctypes/source/ParallelWork.h"

#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace paperkite::test {

namespace {

ScanResult ScanWith(const std::string& folder, unsigned processes) {
    SourceScanner scanner(folder, "p");
    scanner.SetProcessCount(processes);
    ScanResult result = scanner.Scan();
    EXPECT_EQ(result.Outcome.Message, "");
    return result;
}

} // namespace

TEST(ParallelScan, TheNumberOfProcessesMakesNoDifference) {
    SourceTree tree;
    for (int i = 0; i < 90; ++i) {
        const std::string number = std::to_string(i);
        tree.Write("f" + number + ".cpp", "int f(int);\nint f(int) { return " + number +
                                              "; }\nnamespace n { class A" + std::to_string(i % 7) +
                                              " { int m" + number + "; }; }\n");
    }
    std::string large;
    for (int i = 0; large.size() < (2u << 20); ++i) {
        large += "int large" + std::to_string(i) + "(int a, const char* text);\n";
    }
    tree.Write("f50_large.cpp", large);
    const ScanResult one = ScanWith(tree.Folder(), 1);
    EXPECT_GT(one.Index->Size(), 20'000u);
#ifdef __SANITIZE_ADDRESS__
    const std::vector<unsigned> numbers = {3};
#else
    const std::vector<unsigned> numbers = {2, 3, 8};
#endif
    for (const unsigned processes : numbers) {
        const ScanResult more = ScanWith(tree.Folder(), processes);
        EXPECT_EQ(more.Digest, one.Digest) << processes;
        EXPECT_EQ(Dump(*more.Index), Dump(*one.Index));
    }
}

TEST(ParallelScan, TheNumberOfProcessesMakesNoDifferenceOnRealCode) {
    const std::string folder = "/usr/include/c++";
    if (!std::filesystem::is_directory(folder)) {
        GTEST_SKIP() << folder << " is not there";
    }
    EXPECT_EQ(ScanWith(folder, 1).Digest, ScanWith(folder, 2).Digest);
}

TEST(ParallelScan, CanBeCancelledAnywhere) {
    SourceTree tree;
    for (int i = 0; i < 40; ++i) {
        tree.Write("f" + std::to_string(i) + ".cpp", "int f" + std::to_string(i) + ";\n");
    }
    int calls = 0;
    SourceScanner(tree.Folder(), "p").Scan([&](const ScanProgress&) { return ++calls > 0; });
    ASSERT_GT(calls, 40);
    for (int last = 1; last < calls; last += 3) {
        int count = 0;
        const ScanResult result = SourceScanner(tree.Folder(), "p").Scan([&](const ScanProgress&) {
            return ++count < last;
        });
        EXPECT_EQ(result.Index.has_value(), result.Outcome.IsDone());
        EXPECT_TRUE(result.Outcome.IsDone() || result.Outcome.Status == ScanStatus::Cancelled);
    }
}

TEST(ParallelWork, DoesEachStepOnce) {
    std::vector<std::atomic<int>> done(1000);
    EXPECT_TRUE(WorkInParallel(
        done.size(), 4, [&](std::size_t i) { ++done[i]; }, [](std::size_t) { return true; }));
    for (const auto& count : done) {
        EXPECT_EQ(count, 1);
    }
    EXPECT_TRUE(WorkInParallel(
        0, 4, [](std::size_t) { FAIL(); }, [](std::size_t) { return true; }));
}

TEST(ParallelWork, StopsWhenToldAndThrowsWhatAStepThrows) {
    const auto slowly = [](std::size_t) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    };
    EXPECT_FALSE(WorkInParallel(100'000, 2, slowly, [](std::size_t) { return false; }));
    EXPECT_THROW(WorkInParallel(
                     10, 2, [](std::size_t) { throw std::runtime_error("no"); },
                     [](std::size_t) { return true; }),
                 std::runtime_error);
}

} // namespace paperkite::test
