#include "doctypes/SourceTree.h"
#include "doctypes/source/SettledFiles.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace paperkite::test {

namespace fs = std::filesystem;

namespace {

/// A part after each file.
constexpr PartPace kAtEachFile{std::chrono::milliseconds(0), 1.0};

struct ScanWithParts {
    std::vector<ScanPart> Parts;
    ScanResult Result;
};

ScanWithParts Scan(SourceScanner scanner, const PartPace& pace = kAtEachFile) {
    ScanWithParts scan;
    scanner.SetParts([&](ScanPart part) { scan.Parts.push_back(std::move(part)); }, pace);
    scan.Result = scanner.Scan();
    EXPECT_EQ(scan.Result.Outcome.Message, "");
    return scan;
}

ScanWithParts Scan(const SourceTree& tree) {
    return Scan(SourceScanner(tree.Folder(), "p"));
}

std::string Whole(const SourceIndex& index) {
    DumpOptions options;
    options.Places = true;
    return Dump(index, options);
}

/// The items of a part that the whole does not have, or has as something else.
std::string NotInWhole(const SourceIndex& part, const SourceIndex& whole) {
    std::string wrong;
    for (SourceIndex::Id entity = 0; entity < part.Size(); ++entity) {
        const std::string name = part.QualifiedName(entity);
        const auto found = whole.Find(name);
        if (!found || part.KindText(entity) != whole.KindText(*found) ||
            part.Name(entity) != whole.Name(*found)) {
            wrong += std::string(part.KindText(entity)) + " " + name + "\n";
        }
    }
    return wrong;
}

std::size_t LargestPart(const ScanWithParts& scan) {
    std::size_t largest = 0;
    for (const ScanPart& part : scan.Parts) {
        largest = std::max(largest, part.Index.Size());
    }
    return largest;
}

TEST(ScanParts, EachHoldsMoreUntilTheScanEnds) {
    SourceTree tree;
    tree.Write("a.py", "def a(): pass\n").Write("b.py", "B = 1\n").Write("c.py", "class C: pass\n");
    const ScanWithParts scan = Scan(tree);
    ASSERT_EQ(scan.Parts.size(), 2u);
    EXPECT_EQ(Dump(scan.Parts[0].Index), "\n"
                                         "+Module a\n"
                                         "  +Function a ()\n");
    EXPECT_EQ(scan.Parts[0].FileCount, 1u);
    EXPECT_EQ(scan.Parts[1].FileCount, 2u);
    EXPECT_TRUE(scan.Parts[1].Index.Find("p~b~B").has_value());
    EXPECT_TRUE(scan.Result.Index->Find("p~c~C").has_value());
}

TEST(ScanParts, TheWholeIsTheSameAsWithoutThem) {
    SourceTree tree;
    tree.Write("a.py", "def a(): pass\n").Write("b/__init__.py", "def c(): pass\n");
    tree.Write("b/c.py", "class C: pass\n").Write("d.js", "function d() {}\n");
    const ScanWithParts scan = Scan(tree);
    const ScanResult plain = SourceScanner(tree.Folder(), "p").Scan();
    EXPECT_FALSE(scan.Parts.empty());
    EXPECT_EQ(Whole(*scan.Result.Index), Whole(*plain.Index));
    EXPECT_EQ(scan.Result.Digest, plain.Digest);
}

TEST(ScanParts, TheyComeAtGrowingDistances) {
    SourceTree tree;
    for (int file = 100; file < 200; ++file) {
        tree.Write("m" + std::to_string(file) + ".py", "def f(): pass\n");
    }
    const ScanWithParts scan =
        Scan(SourceScanner(tree.Folder(), "p"), {std::chrono::milliseconds(0), 2.0});
    std::vector<std::size_t> counts;
    for (const ScanPart& part : scan.Parts) {
        counts.push_back(part.FileCount);
    }
    ASSERT_GE(counts.size(), 4u);
    EXPECT_LE(counts.size(), 8u);
    EXPECT_EQ(counts[0], 1u);
    EXPECT_GE(counts.back() * 2 + 1, 99u);
}

TEST(ScanParts, AFunctionWaitsForTheModuleOfItsName) {
    SourceTree tree;
    tree.Write("zoo/__init__.py", "def dog(): pass\ndef cat(): pass\n");
    tree.Write("zoo/bee.py", "x = 1\n").Write("zoo/dog.py", "y = 1\n");
    const ScanWithParts scan = Scan(tree);
    ASSERT_EQ(scan.Parts.size(), 2u);
    for (const ScanPart& part : scan.Parts) {
        EXPECT_TRUE(part.Index.Find("p~zoo~cat").has_value());
        EXPECT_FALSE(part.Index.Find("p~zoo~dog").has_value());
    }
    EXPECT_TRUE(scan.Result.Index->Find("p~zoo~dog[Function]").has_value());
}

TEST(ScanParts, AModuleWaitsForThePackageOfItsName) {
    SourceTree tree;
    tree.Write("a/x.py", "def f(): pass\n").Write("a.py", "def x(): pass\n");
    tree.Write("b.py", "def f(): pass\n").Write("c.py", "def f(): pass\n");
    const ScanWithParts scan = Scan(tree);
    for (const ScanPart& part : scan.Parts) {
        EXPECT_EQ(NotInWhole(part.Index, *scan.Result.Index), "");
    }
    EXPECT_TRUE(scan.Result.Index->Find("p~a~x[Function]").has_value());
    EXPECT_TRUE(scan.Parts.back().Index.Find("p~b~f").has_value());
}

TEST(ScanParts, FilesThatShareAModuleWaitForEachOther) {
    SourceTree tree;
    tree.Write("a.py", "def f(x): pass\nclass C: pass\n");
    tree.Write("a.ts", "export function f(x: number): void {}\nexport interface C {}\n");
    tree.Write("b.ts", "export class B {}\n").Write("c.ts", "export class C {}\n");
    const ScanWithParts scan = Scan(tree);
    ASSERT_EQ(scan.Parts.size(), 2u); // none after the first file
    EXPECT_TRUE(scan.Parts[0].Index.Find("p~a").has_value());
    EXPECT_EQ(scan.Parts[0].FileCount, 2u);
    EXPECT_EQ(NotInWhole(scan.Parts[0].Index, *scan.Result.Index), "");
}

TEST(ScanParts, WhatTheFolderItselfDeclaresIsWaitedFor) {
    SourceTree tree;
    tree.Write("A.py", "def f(): pass\n").Write("B.py", "def f(): pass\n");
    tree.Write("__init__.py", "A = 1\n").Write("b.py", "x = 1\n").Write("c.py", "x = 1\n");
    const ScanWithParts scan = Scan(tree);
    ASSERT_FALSE(scan.Parts.empty());
    EXPECT_EQ(scan.Parts[0].FileCount, 3u);
    EXPECT_TRUE(scan.Parts[0].Index.Find("p~A[Constant]").has_value());
}

TEST(ScanParts, ThereAreNoneWhereALaterFileMayRename) {
    for (const char* file :
         {"z.c", "z.h", "z.cpp", "z.cs", "z.java", "z.go", "z.php", "z.rb", "z.m", "sub/z.d"}) {
        EXPECT_FALSE(GroupOfFile(file)) << file;
        SourceTree tree;
        tree.Write("a.py", "def f(): pass\n").Write("b.py", "def f(): pass\n").Write(file, "\n");
        EXPECT_TRUE(Scan(tree).Parts.empty()) << file;
    }
}

TEST(ScanParts, ATypeOfJavaIsRenamedByAnotherFile) {
    SourceTree tree; // why there are none
    tree.Write("a/A.java", "package q; interface A {}\n");
    const SourceIndex before = tree.Scan();
    tree.Write("b/B.java", "package q; class A {}\n");
    EXPECT_NE(NotInWhole(before, tree.Scan()), "");
}

TEST(ScanParts, OnlyAFirstScanHasThem) {
    SourceTree tree;
    TemporaryFolder cache;
    tree.Write("a.py", "def a(): pass\n").Write("b.py", "B = 1\n").Write("c.py", "class C: pass\n");
    SourceScanner scanner(tree.Folder(), "p");
    scanner.SetCache(cache.Path(), "test");
    EXPECT_EQ(Scan(scanner).Parts.size(), 2u);
    tree.Write("b.py", "C = 1234\n");
    EXPECT_EQ(Scan(scanner).Parts.size(), 0u);
}

TEST(ScanParts, AfterAnInterruptedScanTheNextIsAFirstOne) {
    SourceTree tree;
    TemporaryFolder cache;
    tree.Write("a.py", "def a(): pass\n").Write("b.py", "B = 1\n").Write("c.py", "class C: pass\n");
    SourceScanner scanner(tree.Folder(), "p");
    scanner.SetCache(cache.Path(), "test");
    bool isEnough = false;
    SourceScanner interrupted = scanner;
    interrupted.SetParts([&](ScanPart) { isEnough = true; }, kAtEachFile);
    const ScanResult result = interrupted.Scan([&](const ScanProgress&) { return !isEnough; });
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Cancelled);
    EXPECT_FALSE(result.Index.has_value());
    EXPECT_FALSE(scanner.LastKnown().has_value());
    const ScanWithParts again = Scan(scanner);
    EXPECT_EQ(again.Parts.size(), 2u);
    EXPECT_EQ(again.Result.ReadCount, 3u);
}

// Random code whose names and places clash as often as they can.

/// What a language lets a file say. In a line $ stands for a name; % is indented below a type.
struct Speech {
    const char* Language;
    std::vector<const char*> Files;
    std::vector<const char*> Lines;
};

class RandomScanParts : public testing::TestWithParam<Speech> {
protected:
    template <class T>
    const T& OneOf(const std::vector<T>& choices) {
        return choices[std::uniform_int_distribution<std::size_t>(0, choices.size() - 1)(mRandom)];
    }
    std::string RandomPath() {
        std::string path;
        while (mRandom() % 5 < 2) {
            path += OneOf(mNames) + "/";
        }
        const std::string file = OneOf(GetParam().Files);
        return path + (file.starts_with(".") ? OneOf(mNames) + file : file);
    }
    std::string RandomText() {
        std::string text;
        for (unsigned line = mRandom() % 8; line > 0; --line) {
            for (const char letter : std::string(OneOf(GetParam().Lines))) {
                text += letter == '$' ? OneOf(mNames) : std::string(1, letter);
            }
            text += "\n";
        }
        return text + "\n";
    }

    std::mt19937 mRandom{20};
    const std::vector<std::string> mNames = {"a", "b", "c", "D", "Z"};
};

TEST_P(RandomScanParts, EachPartHoldsOnlyWhatTheWholeHas) {
    std::size_t known = 0, all = 0;
    for (int round = 0; round < 15; ++round) {
        SourceTree tree;
        std::string files;
        for (int file = 0; file < 14; ++file) {
            const std::string path = RandomPath();
            const std::string text = RandomText();
            files += "== " + path + "\n" + text;
            tree.Write(path, text);
        }
        const ScanWithParts scan = Scan(tree);
        for (const ScanPart& part : scan.Parts) {
            EXPECT_EQ(NotInWhole(part.Index, *scan.Result.Index), "") << files;
        }
        known += LargestPart(scan);
        all += scan.Result.Index->Size();
    }
    EXPECT_GT(known * 4, all); // not by holding everything back
}

const Speech kSpeeches[] = {
    {"Python",
     {".py", ".py", ".py", ".pyi", "__init__.py"},
     {"def $(a): pass", "def $(a, b): pass", "class $: pass", "class $:\n  def $(self): pass",
      "$ = 1", "class $:\n  class $:\n    $ = 1", "import $"}},
    {"JavaScript",
     {".js", ".mjs", ".cjs", "index.js"},
     {"function $(a) {}", "class $ { $() {} }", "const $ = 1;", "$.$ = function(a) {};",
      "$.prototype.$ = function() {};", "exports.$ = function() {};",
      "var $ = { $: function() {} };", "module.exports = { $: 1 };"}},
    {"TypeScript",
     {".ts", ".tsx", ".mts", "index.ts"},
     {"export function $(a: string): void {}", "export function $(a: number): void {}",
      "export class $ { $(): void {} }", "interface $ { $: number; }", "namespace $ { class $ {} }",
      "enum $ { a, b }", "type $ = string;", "const $ = 1;", "namespace $.$ { const $ = 1; }"}},
    {"Rust",
     {".rs", ".rs", ".rs", ".rs", ".rs", ".rs", ".rs", ".rs", "c/src/lib.rs", "c/mod.rs",
      "src/b.rs", "src/lib.rs"},
     {"fn $(a: i32) {}", "struct $ { $: i32 }", "mod $ { fn $() {} }", "mod $;",
      "impl $ { fn $(&self) {} }", "impl D for $ { fn $(&self) {} }",
      "impl Z for $ { fn $(&self) {} }", "enum $ { D, Z }", "trait $ { fn $(&self); }",
      "const $: i32 = 1;"}},
    {"Lua",
     {".lua"},
     {"function $(a) end", "function $.$(a) end", "function $:$(a) end", "$ = function() end"}},
    {"Kotlin",
     {".kt"},
     {"package $", "fun $(a: Int) {}", "fun $(a: String) {}", "class $ { fun $() {} }", "val $ = 1",
      "object $ { val $ = 1 }", "interface $ { fun $() }"}},
    {"Perl", {".pm", ".pl"}, {"package $;", "sub $ { }", "package $::$;", "use constant $ => 1;"}},
    {"Mixed",
     {".py", ".js", ".ts", ".lua", ".sh", ".jl", "__init__.py"},
     {"def $(a): pass", "class $ { $() {} }", "function $() {}", "function $(a)\nend", "$ = 1",
      "module $\nend"}},
};

INSTANTIATE_TEST_SUITE_P(Languages, RandomScanParts, testing::ValuesIn(kSpeeches),
                         [](const auto& speech) { return std::string(speech.param.Language); });

/// Code that is installed here, which nobody wrote for this test.
class InstalledCodeParts : public testing::TestWithParam<const char*> {
protected:
    static std::set<std::string> EndingsBelow(const std::string& folder) {
        std::set<std::string> endings;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            endings.insert(entry.path().extension().string());
        }
        endings.erase("");
        return endings;
    }
};

TEST_P(InstalledCodeParts, EachPartHoldsOnlyWhatTheWholeHas) {
    if (!fs::is_directory(GetParam())) {
        GTEST_SKIP() << GetParam() << " is not installed";
    }
    SourceScanner scanner(GetParam(), "p");
    for (const char* folder : {"test", "lib2to3", "dist-packages"}) {
        scanner.Exclude(folder);
    }
    for (const std::string& ending : EndingsBelow(GetParam())) {
        if (!GroupOfFile("x" + ending)) {
            scanner.Exclude("**/*" + ending);
        }
    }
    const ScanWithParts scan = Scan(scanner, {std::chrono::milliseconds(0), 1.4});
    if (scan.Result.FileCount < 30) {
        GTEST_SKIP() << GetParam() << " has hardly any files";
    }
    EXPECT_GT(scan.Parts.size(), 3u);
    for (const ScanPart& part : scan.Parts) {
        ASSERT_EQ(NotInWhole(part.Index, *scan.Result.Index), "");
    }
    EXPECT_GT(LargestPart(scan) * 3, scan.Result.Index->Size());
}

INSTANTIATE_TEST_SUITE_P(Folders, InstalledCodeParts,
                         testing::Values("/usr/lib/python3.11", "/usr/lib/python3.12",
                                         "/usr/lib/python3/dist-packages",
                                         "/usr/share/javascript"));

} // namespace

} // namespace paperkite::test
