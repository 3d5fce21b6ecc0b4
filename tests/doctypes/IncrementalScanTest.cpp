#include "doctypes/SourceTree.h"
#include "doctypes/source/ScanCacheFolder.h"
#include "support/TemporaryFolder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace paperkite::test {

namespace fs = std::filesystem;

namespace {

class IncrementalScan : public testing::Test {
protected:
    IncrementalScan() {
        mTree.Write("a.h", "#define A_API\nclass A_API A {\npublic:\n  void f();\n};\n");
        mTree.Write("b.cpp", "#include \"a.h\"\nvoid A::f() {}\nint b;\n");
        mTree.Write("sub/c.py", "def c():\n  pass\n");
    }

    SourceScanner Scanner() const {
        SourceScanner scanner(mTree.Folder(), "p");
        scanner.SetCache(mCache.Path() + "/scans", "test");
        return scanner;
    }
    ScanResult Scan() const {
        ScanResult result = Scanner().Scan();
        EXPECT_EQ(result.Outcome.Message, "");
        return result;
    }
    /// All of an index but the places of texts in memory.
    static std::string Whole(const SourceIndex& index) {
        DumpOptions options;
        options.Places = true;
        return Dump(index, options);
    }
    /// With the cache, and the same index as without it.
    ScanResult ScanLikeNew() const {
        ScanResult result = Scan();
        ScanResult plain = SourceScanner(mTree.Folder(), "p").Scan();
        EXPECT_EQ(Whole(*result.Index), Whole(*plain.Index));
        EXPECT_EQ(result.Digest, plain.Digest);
        EXPECT_EQ(result.Warnings, plain.Warnings);
        EXPECT_EQ(result.FileCount, plain.FileCount);
        EXPECT_EQ(result.BadLineCount, plain.BadLineCount);
        return result;
    }
    /// So long ago that nothing about it is in doubt.
    void Age(const std::string& file, int hours = 5) const {
        fs::last_write_time(mTree.Folder() + "/" + file,
                            fs::file_time_type::clock::now() - std::chrono::hours(hours));
    }
    std::string CacheFile() const {
        for (const auto& entry : fs::directory_iterator(mCache.Path() + "/scans")) {
            return "scans/" + entry.path().filename().string();
        }
        return {};
    }

    SourceTree mTree;
    TemporaryFolder mCache;
};

TEST_F(IncrementalScan, NothingThatDidNotChangeIsReadAgain) {
    EXPECT_EQ(Scan().ReadCount, 3u);
    EXPECT_EQ(ScanLikeNew().ReadCount, 0u);
    EXPECT_EQ(ScanLikeNew().ReadCount, 0u);
}

TEST_F(IncrementalScan, OnlyWhatChangedIsRead) {
    Scan();
    mTree.Write("b.cpp", "void A::f() {}\nint other;\n");
    const ScanResult result = ScanLikeNew();
    EXPECT_EQ(result.ReadCount, 1u);
    EXPECT_TRUE(result.Index->Find("p~other").has_value());
    EXPECT_FALSE(result.Index->Find("p~b").has_value());
}

TEST_F(IncrementalScan, FilesThatComeGoAndMoveAreFollowed) {
    Scan();
    mTree.Write("d.c", "int d;\n");
    fs::remove(mTree.Folder() + "/b.cpp");
    fs::rename(mTree.Folder() + "/sub/c.py", mTree.Folder() + "/sub/moved.py");
    const ScanResult result = ScanLikeNew();
    EXPECT_EQ(result.ReadCount, 2u);
    EXPECT_TRUE(result.Index->Find("p~sub~moved~c").has_value());
    fs::remove_all(mTree.Folder() + "/sub");
    EXPECT_EQ(ScanLikeNew().ReadCount, 0u);
}

TEST_F(IncrementalScan, AFileThatWasOnlyTouchedIsNotReadByCtags) {
    Scan();
    Age("a.h");
    Age("b.cpp", 900);
    EXPECT_EQ(ScanLikeNew().ReadCount, 0u);
}

TEST_F(IncrementalScan, AChangeThatLeavesSizeAndTimeAsTheyWereIsFound) {
    Age("b.cpp");
    Scan();
    mTree.Write("b.cpp", "#include \"a.h\"\nvoid A::f() {}\nint B;\n");
    Age("b.cpp");
    const ScanResult result = ScanLikeNew();
    EXPECT_EQ(result.ReadCount, 1u);
    EXPECT_TRUE(result.Index->Find("p~B").has_value());
}

TEST_F(IncrementalScan, ADefinitionThatIsNewHasOnlyFilesThatNameItReadAgain) {
    mTree.Write("uses.h", "class NEW_API User {\n  int x;\n};\nNEW_THING int made;\n");
    mTree.Write("plain.h", "int plain;\n");
    Scan();
    mTree.Write("defines.h", "#define NEW_THING\n");
    const ScanResult result = ScanLikeNew();
    EXPECT_EQ(result.ReadCount, 2u); // the new file, and the one that names the macro
    fs::remove(mTree.Folder() + "/defines.h");
    EXPECT_EQ(ScanLikeNew().ReadCount, 1u);
}

TEST_F(IncrementalScan, HeadersAreReadAgainWhenTheyTurnOutToBeOfAnotherLanguage) {
    SourceTree tree;
    tree.Write("a.h", "struct a { int b; };\n").Write("a.c", "int x;\n");
    SourceScanner scanner(tree.Folder(), "p");
    scanner.SetCache(mCache.Path(), "test");
    const ScanResult before = scanner.Scan();
    EXPECT_EQ(before.Index->LanguageName(*before.Index->Find("p~a")), "C");
    tree.Write("b.cpp", "int y;\n");
    const ScanResult after = scanner.Scan();
    EXPECT_EQ(after.ReadCount, 2u);
    EXPECT_EQ(after.Index->LanguageName(*after.Index->Find("p~a")), "C++");
}

TEST_F(IncrementalScan, AnotherBuildOrOtherExclusionsShareNothing) {
    Scan();
    SourceScanner other(mTree.Folder(), "p");
    other.SetCache(mCache.Path() + "/scans", "another build");
    EXPECT_EQ(other.Scan().ReadCount, 3u);
    SourceScanner excluding = Scanner();
    excluding.Exclude("sub");
    EXPECT_EQ(excluding.Scan().ReadCount, 2u);
    EXPECT_EQ(ScanLikeNew().ReadCount, 0u);
}

TEST_F(IncrementalScan, WhatIsKnownIsThereWithoutALookAtTheFiles) {
    EXPECT_FALSE(Scanner().LastKnown().has_value());
    const std::string before = Whole(*Scan().Index);
    mTree.Write("b.cpp", "int other;\n");
    const auto known = Scanner().LastKnown();
    ASSERT_TRUE(known.has_value());
    EXPECT_EQ(Whole(*known->Index), before);
    EXPECT_EQ(known->FileCount, 3u);
    EXPECT_NE(known->Digest, Scan().Digest);
}

TEST_F(IncrementalScan, ACancelledScanLeavesTheCacheAsItWas) {
    Scan();
    const std::string file = CacheFile();
    const std::string bytes = mCache.Read(file);
    for (const ScanPhase phase : {ScanPhase::FindingFiles, ScanPhase::SurveyingFiles,
                                  ScanPhase::ReadingFiles, ScanPhase::BuildingIndex}) {
        mTree.Write("b.cpp", "int b" + std::to_string(static_cast<int>(phase)) + "0;\n");
        const ScanResult result =
            Scanner().Scan([&](const ScanProgress& p) { return p.Phase != phase; });
        EXPECT_EQ(result.Outcome.Status, ScanStatus::Cancelled);
        EXPECT_FALSE(result.Index.has_value());
        EXPECT_EQ(CacheFile(), file);
        EXPECT_EQ(mCache.Read(file), bytes);
    }
}

TEST_F(IncrementalScan, LoadingTheCacheCanBeCancelled) {
    Scan();
    const ScanResult result =
        Scanner().Scan([](const ScanProgress& p) { return p.Phase != ScanPhase::BuildingIndex; });
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Cancelled);
}

// Damage

TEST_F(IncrementalScan, ACacheThatIsCutOffMeansAFullScan) {
    Scan();
    const std::string file = CacheFile(), bytes = mCache.Read(file);
    for (std::size_t length = 0; length < bytes.size(); length += bytes.size() / 9) {
        mCache.Write(file, bytes.substr(0, length));
        EXPECT_EQ(ScanLikeNew().ReadCount, 3u) << length;
    }
}

TEST_F(IncrementalScan, NoByteOfACacheCanBeWrongWithoutBeingNoticed) {
    for (const char* name : {"a.h", "b.cpp", "sub/c.py"}) {
        Age(name);
    }
    Scan();
    const std::string file = CacheFile(), bytes = mCache.Read(file);
    const std::string expected = Whole(*Scan().Index);
    std::mt19937 random(1);
    for (int round = 0; round < 60; ++round) {
        std::string damaged = bytes;
        damaged[random() % damaged.size()] ^= static_cast<char>(1 + random() % 255);
        mCache.Write(file, damaged);
        mTree.Write("d.c", "int d" + std::to_string(round % 2) + ";\n");
        const ScanResult result = ScanLikeNew();
        EXPECT_TRUE(result.Index->Find("p~d" + std::to_string(round % 2)).has_value());
    }
}

TEST_F(IncrementalScan, AFolderWhereNothingCanBeKeptIsNoFailure) {
    for (const std::string& folder :
         {mCache.Write("file", "") + "/below", std::string("/proc/x")}) {
        SourceScanner scanner(mTree.Folder(), "p");
        scanner.SetCache(folder, "test");
        const ScanResult result = scanner.Scan();
        EXPECT_EQ(result.Outcome.Message, "");
        EXPECT_EQ(result.ReadCount, 3u);
        EXPECT_TRUE(result.Index->Find("p~A~f").has_value());
    }
}

TEST_F(IncrementalScan, ALinkInPlaceOfTheCacheIsNotFollowed) {
    Scan();
    const std::string path = mCache / CacheFile();
    fs::rename(path, mCache / "elsewhere");
    fs::create_symlink(mCache / "elsewhere", path);
    EXPECT_EQ(ScanLikeNew().ReadCount, 3u);
    EXPECT_FALSE(fs::is_symlink(path));
}

TEST_F(IncrementalScan, SeveralAtOnceDoEachOtherNoHarm) {
    std::vector<std::thread> threads;
    std::vector<std::string> wholes(4);
    for (std::string& whole : wholes) {
        threads.emplace_back([&] {
            for (int round = 0; round < 5; ++round) {
                whole = Whole(*Scanner().Scan().Index);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::string& whole : wholes) {
        EXPECT_EQ(whole, Whole(mTree.Scan()));
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(mCache.Path() + "/scans"), {}), 1);
}

TEST_F(IncrementalScan, OldCachesGoAndOthersFilesStay) {
    const std::string old = "scans/0123456789abcdef.scan", recent = "scans/0123456789abcdee.scan";
    const std::string broken = recent + ".Ab12Cd";
    for (const std::string& name : {old, recent, broken, std::string("scans/notes.scan")}) {
        mCache.Write(name, "x");
        fs::last_write_time(mCache / name,
                            fs::file_time_type::clock::now() - std::chrono::hours(24 * 91));
    }
    mCache.Write(recent, "x");
    Scan();
    EXPECT_FALSE(fs::exists(mCache / old));
    EXPECT_FALSE(fs::exists(mCache / broken));
    EXPECT_TRUE(fs::exists(mCache / recent));
    EXPECT_TRUE(fs::exists(mCache / "scans/notes.scan"));
    ScanCacheFolder::Limits limits;
    limits.TotalSize = 0;
    ScanCacheFolder(mCache / "scans").Prune(mCache / recent, limits);
    EXPECT_EQ(std::distance(fs::directory_iterator(mCache / "scans"), {}), 2);
}

// Random edits

constexpr const char* kPieces[] = {
    "#define MACRO_%d\n",
    "class MACRO_%d K%d {\npublic:\n  int m%d();\n};\n",
    "int f%d(int a);\n",
    "int f%d(int a) { return a; }\n",
    "int f%d(long a);\n",
    "static int s%d;\n",
    "namespace n%d { struct S%d { int x; }; }\n",
    "MACRO_%d int v%d;\n",
    "FOO_%d(x)\nint K%d::m%d() { return 0; }\n",
};

std::string RandomText(std::mt19937& random) {
    std::string text;
    for (unsigned count = random() % 6; count > 0; --count) {
        std::string piece = kPieces[random() % std::size(kPieces)];
        const std::string number = std::to_string(random() % 4);
        for (std::size_t at; (at = piece.find("%d")) != std::string::npos;) {
            piece.replace(at, 2, number);
        }
        text += piece;
    }
    return text;
}

TEST_F(IncrementalScan, AfterAnyEditsTheIndexIsThatOfAFullScan) {
    std::mt19937 random(7);
    const std::vector<std::string> names = {"a.h",     "b.cpp",   "c.c", "sub/a.h", "sub/d.cpp",
                                            "sub/e.h", "f/g/h.c", "z.h", "x.py"};
    std::size_t kept = 0;
    for (int round = 0; round < 40; ++round) {
        for (unsigned edits = 1 + random() % 3; edits > 0; --edits) {
            const std::string& name = names[random() % names.size()];
            const std::string path = mTree.Folder() + "/" + name;
            switch (random() % 5) {
            case 0:
                fs::remove(path);
                break;
            case 1:
                if (fs::exists(path)) {
                    Age(name, static_cast<int>(random() % 1000));
                }
                break;
            case 2:
                if (fs::exists(path)) {
                    fs::rename(path, mTree.Folder() + "/" + names[random() % 3]);
                }
                break;
            default:
                mTree.Write(name, name == "x.py"
                                      ? "def p" + std::to_string(random() % 3) + "():\n  pass\n"
                                      : RandomText(random));
            }
        }
        const ScanResult result = ScanLikeNew();
        kept += result.FileCount - result.ReadCount;
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_GT(kept, 40u);
}

} // namespace

} // namespace paperkite::test
