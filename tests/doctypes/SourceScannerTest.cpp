#include "doctypes/SourceTree.h"
#include "foundation/Utf8.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <set>

namespace paperkite::test {

TEST(SourceScanner, AnEmptyFolderGivesAProjectWithoutChildren) {
    SourceTree tree;
    const SourceIndex index = tree.Scan();
    EXPECT_EQ(index.Size(), 1u);
    EXPECT_EQ(index.QualifiedName(SourceIndex::Root), "p");
    EXPECT_EQ(index.Kind(SourceIndex::Root), SourceKind::Project);
}

TEST(SourceScanner, AMissingFolderOrProgramIsAFailureWithoutAnIndex) {
    SourceTree tree;
    ScanResult result = SourceScanner(tree.Folder() + "/none", "p").Scan();
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Failed);
    EXPECT_FALSE(result.Index.has_value());
    SourceScanner scanner(tree.Folder(), "p");
    scanner.SetCtagsProgram("no-such-ctags");
    result = scanner.Scan();
    EXPECT_EQ(result.Outcome.Status, ScanStatus::Failed);
    EXPECT_NE(result.Outcome.Message.find("universal-ctags"), std::string::npos);
}

TEST(SourceScanner, ReportsItsPhasesInOrderAndEndsAtTheTotal) {
    SourceTree tree;
    tree.Write("a.c", "int a;").Write("b.c", "int b;");
    std::string phases;
    std::size_t done = 0, total = 0;
    SourceScanner(tree.Folder(), "p").Scan([&](const ScanProgress& progress) {
        const std::string phase = std::to_string(static_cast<int>(progress.Phase));
        phases += phases.ends_with(phase) ? "" : phase;
        done = progress.FilesDone, total = progress.FilesTotal;
        return true;
    });
    EXPECT_EQ(phases, "0123");
    EXPECT_EQ(done, 2u);
    EXPECT_EQ(total, 2u);
}

TEST(SourceScanner, CanBeCancelledInEachPhase) {
    SourceTree tree;
    tree.Write("a.c", "int a;").Write("b.c", "int b;");
    for (const ScanPhase phase :
         {ScanPhase::FindingFiles, ScanPhase::SurveyingFiles, ScanPhase::ReadingFiles}) {
        const ScanResult result =
            SourceScanner(tree.Folder(), "p").Scan([&](const ScanProgress& p) {
                return p.Phase != phase;
            });
        EXPECT_EQ(result.Outcome.Status, ScanStatus::Cancelled);
        EXPECT_NE(result.Outcome.Message.find("cancelled"), std::string::npos);
        EXPECT_FALSE(result.Index.has_value());
    }
}

TEST(SourceScanner, BadSourceDoesNotHinderGoodSource) {
    SourceTree tree;
    tree.Write("a.cpp", "class { { { ((( \"\n template < \xFF\xFE int ~");
    tree.Write("b.py", "def \xFF(:\n\x01\x02 class");
    tree.Write("c.c", "int caf\xE9 = 1;\nint fine;\n");
    tree.Write(" odd name.c", "int odd;\n").Write("-D.c", "int dash;\n");
    const ScanResult result = SourceScanner(tree.Folder(), "p").Scan();
    ASSERT_TRUE(result.Outcome.IsDone()) << result.Outcome.Message;
    EXPECT_TRUE(result.Index->Find("p~fine").has_value());
    EXPECT_TRUE(result.Index->Find("p~dash").has_value());
    EXPECT_TRUE(result.Index->Find("p~odd").has_value());
}

TEST(SourceScanner, TextsOfTheIndexAreUtf8WhateverTheFileIs) {
    SourceTree tree;
    tree.Write("a.ts", "class A {\n  caf\xE9(): T\xE9 { }\n}\n");
    tree.Write("b.cs", "class B { T\xE9 plain(int caf\xE9) { } }\n");
    const SourceIndex index = tree.Scan();
    EXPECT_TRUE(index.Find("p~a~A").has_value());
    for (SourceIndex::Id id = 0; id < index.Size(); ++id) {
        for (const std::string_view text : {index.Name(id), index.Type(id), index.Signature(id)}) {
            EXPECT_EQ(PrintableUtf8(text), text);
        }
    }
}

TEST(SourceScanner, ExcludedFilesAreNotScanned) {
    SourceTree tree;
    tree.Write("a.c", "int a;").Write("gen/b.c", "int b;");
    SourceScanner scanner(tree.Folder(), "p");
    scanner.Exclude("gen");
    const ScanResult result = scanner.Scan();
    EXPECT_EQ(Dump(*result.Index), "\n+Variable a : int\n");
}

TEST(SourceScanner, HeadersAreOfTheLanguageThatTheFolderIsWrittenIn) {
    SourceTree c, cpp;
    c.Write("a.h", "struct a { int b; };\n").Write("a.c", "int x;\n");
    cpp.Write("a.h", "struct a { int b; };\n").Write("b.h", "class A;\n");
    const SourceIndex inC = c.Scan(), inCpp = cpp.Scan();
    EXPECT_EQ(inC.LanguageName(*inC.Find("p~a")), "C");
    EXPECT_EQ(inCpp.LanguageName(*inCpp.Find("p~a")), "C++");
}

TEST(SourceScanner, MacrosOfClassesDoNotHideThem) {
    SourceTree tree;
    tree.Write("a.h", R"(
#define MY_API
class MY_API First {
    DISABLE_COPY(First)
public:
    MY_DEPRECATED_API int get() const;
};
class OTHER_EXPORT Second : public First {
    Q_OBJECT
    Q_PROPERTY(int size READ size)
public:
    Second(QObject* parent = nullptr);
signals:
    void changed(int how);
public slots:
    void set(int how);
};
)");
    EXPECT_EQ(Dump(tree.Scan()), R"(
+Macro MY_API
+Class First
  +Method get () const : int
+Class Second < First
  +Property size : int
  +Constructor Second (QObject * parent=nullptr)
  +Event changed (int how) : void
  +Method set (int how) : void
)");
}

TEST(SourceScanner, UnknownMacrosAreNoPartOfAReturnType) {
    SourceTree tree;
    tree.Write("a.h", R"(
SOME_CALL const char *name(void);
LIST_ENTRY entry(void);
const LIST_ENTRY *constant(void);
class A {
public:
    SOME_INLINE A(int a);
    SOME_INLINE bool is() const;
};
)");
    EXPECT_EQ(Dump(tree.Scan()), R"(
+Function name (void) : const char *
+Function entry (void) : LIST_ENTRY
+Function constant (void) : const LIST_ENTRY *
+Class A
  +Constructor A (int a)
  +Method is () const : bool
)");
}

TEST(SourceScanner, UnnamedFunctionsAndMinifiedFilesLeaveNoTraceInScripts) {
    SourceTree tree;
    tree.Write("a.js", "(function () {\n  class A { m() {} }\n})();\n");
    tree.Write("a.min.js", "class B {}\n");
    EXPECT_EQ(Dump(tree.Scan()), "\n+Module a\n  +Class A\n    +Method m ()\n");
}

/// A larger tree of real code; nothing where there is too little of it to tell anything.
std::optional<SourceIndex> RealCode(const std::string& folder) {
    if (!std::filesystem::is_directory(folder)) return {};
    ScanResult result = SourceScanner(folder, "real").Scan();
    EXPECT_TRUE(result.Outcome.IsDone()) << result.Outcome.Message;
    if (!result.Outcome.IsDone() || result.Index->Size() < 1000) return {};
    return std::move(*result.Index);
}

/// The first name that is there twice, is not found again, or has a beginning that is no name;
/// empty where all are as they should be.
std::string FaultInNames(const SourceIndex& index) {
    std::set<std::string> names;
    for (SourceIndex::Id id = 0; id < index.Size(); ++id) {
        const std::string name = index.QualifiedName(id);
        if (!names.insert(name).second) return name + " is there twice";
        if (index.Find(name) != id) return name + " is not found";
        if (name.find(':') != std::string::npos) return name + " holds a colon";
        if (id == SourceIndex::Root) continue;
        if (index.Parent(id) >= index.Size()) return name + " has no parent";
        if (name != index.QualifiedName(index.Parent(id)) + "~" + std::string(index.Step(id)))
            return name + " does not begin as its parent";
    }
    for (const std::string& name : names)
        for (std::size_t at = name.find('~'); at != std::string::npos; at = name.find('~', at + 1))
            if (!names.contains(name.substr(0, at))) return name + " has a beginning without item";
    return {};
}

TEST(SourceScanner, NamesOfTheStandardLibraryAreUniqueAndPrefixed) {
    const auto index = RealCode("/usr/include/c++");
    if (!index) GTEST_SKIP() << "too little code is there";
    EXPECT_EQ(FaultInNames(*index), "");
}

TEST(SourceScanner, NamesOfPythonPackagesAreUniqueAndPrefixed) {
    const auto index = RealCode("/usr/lib/python3");
    if (!index) GTEST_SKIP() << "too little code is there";
    EXPECT_EQ(FaultInNames(*index), "");
}

} // namespace paperkite::test
