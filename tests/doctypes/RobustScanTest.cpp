#include "doctypes/SourceTree.h"
#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/Utf8.h"
#include "support/NarrowWorld.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace paperkite::test {

namespace fs = std::filesystem;

namespace {

ScanResult Scanned(const SourceTree& tree, const SourceScanner::Progress& progress = {}) {
    ScanResult result = SourceScanner(tree.Folder(), "p").Scan(progress);
    EXPECT_EQ(result.Outcome.Message, "");
    return result;
}

} // namespace

TEST(RobustScan, NamesOfFilesMayBeAnything) {
    SourceTree tree;
    const std::vector<std::string> names = {"new\nline",   "tab\tbed", "\"quoted\"", "it's",
                                            "back\\slash", "bl ank",   "-dash",      "bad\xFF",
                                            "ret\rurn",    "star*",    "$(x)",       "#hash"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        tree.Write(names[i] + ".c", "int in" + std::to_string(i) + ";\n");
        tree.Write(names[i] + "/" + names[i] + ".py",
                   "def f" + std::to_string(i) + "():\n  pass\n");
    }
    const ScanResult result = Scanned(tree);
    EXPECT_EQ(result.Warnings, std::vector<std::string>());
    EXPECT_EQ(result.FileCount, 2 * names.size());
    const SourceIndex& index = *result.Index;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto id = index.Find("p~in" + std::to_string(i));
        ASSERT_TRUE(id.has_value()) << names[i];
        EXPECT_EQ(index.Place(*id).File, names[i] + ".c"); // so that the file can be opened
    }
    EXPECT_TRUE(index.Find("p~new%0Aline~new%0Aline~f0").has_value());
    EXPECT_TRUE(index.Find("p~bad%FF~bad%FF~f7").has_value());
    for (SourceIndex::Id id = 0; id < index.Size(); ++id) {
        EXPECT_EQ(PrintableUtf8(index.Name(id)), index.Name(id));
        EXPECT_EQ(PrintableUtf8(index.QualifiedName(id)), index.QualifiedName(id));
        EXPECT_EQ(index.Find(index.QualifiedName(id)), id);
    }
}

TEST(RobustScan, NamesThatDifferInBytesThatAreNoTextStayApart) {
    SourceTree tree;
    tree.Write("a\xFF.py", "def f():\n  pass\n").Write("a\xFE.py", "def f():\n  pass\n");
    tree.Write("a%FF.py", "def f():\n  pass\n").Write("a\xEF\xBF\xBD.py", "def f():\n  pass\n");
    const ScanResult result = Scanned(tree);
    for (const char* name : {"p~a%FF~f", "p~a%FE~f", "p~a%25FF~f", "p~a\xEF\xBF\xBD~f"}) {
        EXPECT_TRUE(result.Index->Find(name).has_value()) << name;
    }
    EXPECT_EQ(result.Index->Children(SourceIndex::Root).size(), 4u);
}

TEST(RobustScan, WhatItemsShowIsTextButTheirFilesAreFound) {
    SourceTree tree;
    tree.Write("a\xFF.py", "def f():\n  \"\"\"Says so.\"\"\"\n");
    SourceNamespaceProvider provider(MakeRef<CommentStore>());
    provider.AddRoot(tree.Scan(), tree.Folder());
    const auto item = provider.GetItem("p~a%FF~f");
    ASSERT_TRUE(item);
    EXPECT_EQ(item->Get("File").ToText(), "a\xEF\xBF\xBD.py");
    EXPECT_EQ(item->Get("Description").ToText(), "Says so.");
}

TEST(RobustScan, WhatToolsMakeIsNotScanned) {
    SourceTree tree;
    tree.Write("a.c", "int a;");
    for (const char* folder : {".git", ".hg", ".svn", "node_modules", "__pycache__", ".venv",
                               ".tox", "CMakeFiles", "sub/.cache", ".gradle", "bower_components"}) {
        tree.Write(std::string(folder) + "/made.c", "int made;");
    }
    tree.Write("out/CMakeCache.txt", "").Write("out/made.c", "int made;");
    tree.Write("tagged/CACHEDIR.TAG", "").Write("tagged/made.c", "int made;");
    tree.Write("env/pyvenv.cfg", "").Write("env/made.c", "int made;");
    tree.Write("rust/Cargo.toml", "").Write("rust/target/made.c", "int made;");
    tree.Write("net/x.csproj", "").Write("net/obj/made.c", "int made;");
    tree.Write("java/build.gradle", "").Write("java/build/made.c", "int made;");
    tree.Write("target/b.c", "int b;").Write("build/c.c", "int c;").Write("bin/d.c", "int d;");
    EXPECT_EQ(Dump(*Scanned(tree).Index),
              "\n+Variable a : int\n+Variable d : int\n+Variable c : int\n+Variable b : int\n");
}

TEST(RobustScan, LinksNeverLeadInCirclesNorOutOfTheFolder) {
    SourceTree tree, outside;
    outside.Write("deep/o.c", "int o;");
    tree.Write("sub/a.c", "int a;");
    fs::create_directory_symlink("..", tree.Folder() + "/sub/up");
    fs::create_directory_symlink(tree.Folder() + "/sub", tree.Folder() + "/before");
    fs::create_directory_symlink(outside.Folder(), tree.Folder() + "/outside");
    fs::create_directory_symlink("loop", tree.Folder() + "/loop");
    fs::create_symlink(outside.Folder() + "/deep/o.c", tree.Folder() + "/linked.c");
    const ScanResult result = Scanned(tree);
    EXPECT_EQ(Dump(*result.Index), "\n+Variable o : int\n+Variable a : int\n");
    EXPECT_EQ(result.Index->Place(*result.Index->Find("p~a")).File, "sub/a.c");
    ASSERT_EQ(result.Warnings.size(), 1u);
    EXPECT_TRUE(result.Warnings[0].starts_with(
        "The link \"outside\" leads out of the source folder and was left out. "))
        << result.Warnings[0];
}

TEST(RobustScan, BinaryFilesWithTheEndingOfSourceAreLeftOut) {
    SourceTree tree;
    tree.Write("a.c", "int a;")
        .Write("b.c", std::string("\x7F"
                                  "ELF\0\0\1int b;",
                                  13));
    EXPECT_EQ(Dump(*Scanned(tree).Index), "\n+Variable a : int\n");
}

TEST(RobustScan, AFileThatIsFarTooLargeIsLeftOutAndNamed) {
    const std::size_t limit = SourceScanner::LargestFile;
    for (const std::size_t size : {limit + 1, std::size_t{50} << 20}) {
        SourceTree tree;
        tree.Write("a.c", "int a;");
        std::string text = "int large;\n";
        text.resize(size, '\n');
        tree.Write("large.c", text);
        const TemporaryFolder cache;
        SourceScanner scanner(tree.Folder(), "p");
        scanner.SetCache(cache.Path(), "test");
        for (int round = 0; round < 2; ++round) { // the second time from the cache
            const ScanResult result = scanner.Scan();
            EXPECT_EQ(Dump(*result.Index), "\n+Variable a : int\n");
            EXPECT_EQ(result.Warnings,
                      std::vector<std::string>{
                          "The file \"large.c\" is larger than 16 MB and was left out."});
        }
    }
}

TEST(RobustScan, AFileOfTheLargestSizeIsRead) {
    SourceTree tree;
    std::string text = "int first;\n";
    text.resize(SourceScanner::LargestFile - 10, '\n');
    tree.Write("large.c", text + "int last;\n");
    const ScanResult result = Scanned(tree);
    EXPECT_EQ(result.Warnings, std::vector<std::string>());
    EXPECT_TRUE(result.Index->Find("p~first").has_value());
    EXPECT_TRUE(result.Index->Find("p~last").has_value());
}

TEST(RobustScan, ALargeFileOfOneOpenBracketAfterTheOtherEnds) {
    SourceTree tree;
    std::string text;
    for (int i = 0; i < 20'000; ++i) {
        text += "class K" + std::to_string(i) + " { void m(int a {\n";
    }
    tree.Write("a.cpp", text).Write("b.js", text).Write("c.cs", text).Write("d.c", "int d;");
    EXPECT_TRUE(Scanned(tree).Index->Find("p~d").has_value());
}

TEST(RobustScan, WhatCannotBeReadIsNamed) {
    SourceTree tree;
    tree.Write("a.c", "int a;").Write("closed/b.c", "int b;").Write("c.c", "int c;");
    fs::permissions(tree.Folder() + "/closed", fs::perms::none);
    fs::permissions(tree.Folder() + "/c.c", fs::perms::none);
    ScanResult result;
    {
        const OrdinaryUser user;
        result = Scanned(tree);
    }
    fs::permissions(tree.Folder() + "/closed", fs::perms::owner_all);
    ASSERT_EQ(result.Outcome.Message, "");
    EXPECT_EQ(Dump(*result.Index), "\n+Variable a : int\n");
    EXPECT_EQ(result.Warnings,
              (std::vector<std::string>{
                  "The file \"c.c\" cannot be read and was left out. Check its permissions.",
                  "The folder \"" + tree.Folder() +
                      "/closed\" cannot be read and was left out: Permission denied."}));
}

TEST(RobustScan, FilesMayVanishAtAnyMoment) {
    for (const ScanPhase phase : {ScanPhase::FindingFiles, ScanPhase::SurveyingFiles,
                                  ScanPhase::ReadingFiles, ScanPhase::BuildingIndex}) {
        SourceTree tree;
        tree.Write("a.c", "int a;");
        for (int i = 0; i < 40; ++i) {
            tree.Write("gone/g" + std::to_string(i) + ".c", "int g;");
        }
        const ScanResult result = Scanned(tree, [&](const ScanProgress& progress) {
            if (progress.Phase == phase) {
                fs::remove_all(tree.Folder() + "/gone");
            }
            return true;
        });
        EXPECT_TRUE(result.Index->Find("p~a").has_value());
        EXPECT_EQ(result.FileCount + result.Warnings.size(),
                  result.FileCount == 1 && result.Warnings.empty() ? 1u : 41u);
        for (const std::string& warning : result.Warnings) {
            EXPECT_TRUE(warning.ends_with("is gone or cannot be read any more and was left out."))
                << warning;
        }
    }
}

TEST(RobustScan, TheWholeFolderMayVanish) {
    constexpr std::size_t count = 30;
    for (const ScanPhase phase : {ScanPhase::FindingFiles, ScanPhase::SurveyingFiles,
                                  ScanPhase::ReadingFiles, ScanPhase::BuildingIndex}) {
        SCOPED_TRACE(static_cast<int>(phase));
        SourceTree tree;
        for (std::size_t i = 0; i < count; ++i) {
            tree.Write("g" + std::to_string(i) + ".c", "int g" + std::to_string(i) + ";");
        }
        const ScanResult result =
            SourceScanner(tree.Folder(), "p").Scan([&](const ScanProgress& progress) {
                if (progress.Phase == phase) {
                    fs::remove_all(tree.Folder());
                }
                return true;
            });
        if (result.Outcome.Status == ScanStatus::Failed) {
            EXPECT_NE(result.Outcome.Message.find("\"" + tree.Folder() + "\""), std::string::npos)
                << result.Outcome.Message;
            EXPECT_FALSE(result.Index.has_value());
            continue;
        }
        // What was not read any more is named; nothing goes silently.
        EXPECT_EQ(result.Outcome.Message, "");
        EXPECT_EQ(result.Index->Size() - 1 + result.Warnings.size(), count);
    }
}

TEST(RobustScan, ThousandsOfFilesAreAllRead) {
    SourceTree tree;
    for (int i = 0; i < 4000; ++i) {
        tree.Write("d" + std::to_string(i % 40) + "/f" + std::to_string(i) + ".py",
                   "x" + std::to_string(i) + " = 1\n");
    }
    const ScanResult result = Scanned(tree);
    EXPECT_EQ(result.FileCount, 4000u);
    EXPECT_TRUE(result.Index->Find("p~d39~f3999~x3999").has_value());
}

TEST(RobustScan, TwoHundredThousandFilesAreAllRead) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int count = 10'000; // more of them would take minutes
#else
    constexpr int count = 200'000;
#endif
    SourceTree tree;
    for (int i = 0; i < count; ++i) {
        tree.Write("d" + std::to_string(i / 500) + "/f" + std::to_string(i) + ".c",
                   "int x" + std::to_string(i) + ";\n");
    }
    const TemporaryFolder cache;
    SourceScanner scanner(tree.Folder(), "p");
    scanner.SetCache(cache.Path(), "test");
    for (int round = 0; round < 2; ++round) { // the second time from the cache
        const ScanResult result = scanner.Scan();
        ASSERT_EQ(result.Outcome.Message, "");
        EXPECT_EQ(result.Warnings, std::vector<std::string>());
        EXPECT_EQ(result.FileCount, static_cast<std::size_t>(count));
        EXPECT_EQ(result.Index->Size(), static_cast<std::size_t>(count) + 1);
        for (const int i : {0, count / 2, count - 1}) {
            const auto id = result.Index->Find("p~x" + std::to_string(i));
            ASSERT_TRUE(id.has_value()) << i;
            EXPECT_EQ(result.Index->Place(*id).File,
                      "d" + std::to_string(i / 500) + "/f" + std::to_string(i) + ".c");
        }
    }
}

} // namespace paperkite::test
