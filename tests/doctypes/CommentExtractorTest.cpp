#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

std::string CommentAt(std::string_view text, std::uint32_t line, SourceLanguage language,
                      SourceKind kind = SourceKind::Method) {
    const auto comment = CommentExtractor::At(SourceText(std::string(text)), line, kind, language);
    if (!comment) {
        return "none";
    }
    std::string result;
    for (const std::string& one : comment->Lines) {
        result += (result.empty() ? "" : "|") + one;
    }
    return result;
}

} // namespace

TEST(CommentExtractor, CleansEveryFormOfComment) {
    const auto cpp = SourceLanguage::Cpp;
    EXPECT_EQ(CommentAt("// One.\n//   Two.\nint a;", 3, cpp), "One.|  Two.");
    EXPECT_EQ(CommentAt("/// One.\n///\n/// Two.\nint a;", 4, cpp), "One.||Two.");
    EXPECT_EQ(CommentAt("/* One. */\nint a;", 2, cpp), "One.");
    EXPECT_EQ(CommentAt("/**\n * One.\n *   Two.\n */\nint a;", 5, cpp), "One.|  Two.");
    EXPECT_EQ(CommentAt("/* One.\n   Two. */\nint a;", 3, cpp), "One.|Two.");
    EXPECT_EQ(CommentAt("//----------\n// One.\n//----------\nint a;", 4, cpp), "One.");
    EXPECT_EQ(CommentAt("/***********\n * One.\n ***********/\nint a;", 4, cpp), "One.");
    EXPECT_EQ(CommentAt("\t# One.\r\n\t# Two.\r\n\tdef a; end", 3, SourceLanguage::Ruby),
              "One.|Two.");
    EXPECT_EQ(CommentAt("# One.\ndef a(): pass", 2, SourceLanguage::Python), "One.");
}

TEST(CommentExtractor, ABlankLineParts) {
    EXPECT_EQ(CommentAt("// One.\n\nint a;", 3, SourceLanguage::Cpp), "none");
    EXPECT_EQ(CommentAt("int a;", 1, SourceLanguage::Cpp), "none");
    EXPECT_EQ(CommentAt("int a;", 7, SourceLanguage::Cpp), "none");
}

TEST(CommentExtractor, StepsOverWhatBelongsToTheDeclaration) {
    EXPECT_EQ(CommentAt("// One.\ntemplate <class T,\n          class U>\nvoid f();", 4,
                        SourceLanguage::Cpp),
              "One.");
    EXPECT_EQ(CommentAt("// One.\nstatic int\nf(void)", 3, SourceLanguage::C), "One.");
    EXPECT_EQ(CommentAt("/** One. */\n@A(\"x\")\n@B({\n  \"c\",\n})\nvoid f() {}", 6,
                        SourceLanguage::Java),
              "One.");
    EXPECT_EQ(CommentAt("/// One.\n[A]\n[B(1)]\nvoid F() {}", 4, SourceLanguage::CSharp), "One.");
    EXPECT_EQ(CommentAt("/// One.\n#[derive(A)]\nstruct S;", 3, SourceLanguage::Rust), "One.");
    EXPECT_EQ(CommentAt("# One.\n@a\n@b(1,\n   2)\ndef f(): pass", 5, SourceLanguage::Python),
              "One.");
}

TEST(CommentExtractor, TheCommentOfAnotherDeclarationIsNotTaken) {
    const auto cpp = SourceLanguage::Cpp;
    EXPECT_EQ(CommentAt("// One.\nint a;\nint b;", 3, cpp), "none");
    EXPECT_EQ(CommentAt("int a; // One.\nint b;", 2, cpp), "none");
    EXPECT_EQ(CommentAt("int a; /* One.\n Two. */\nint b;", 3, cpp), "none");
    EXPECT_EQ(CommentAt("// One.\nA,\nB,", 3, cpp, SourceKind::Enumerator), "none");
    EXPECT_EQ(CommentAt("// One.\npublic:\nint b;", 3, cpp), "none");
    EXPECT_EQ(CommentAt("// One.\n#define A\nint b;", 3, cpp), "none");
    EXPECT_EQ(CommentAt("// One.\nlet a = 1\nlet b = 2", 3, SourceLanguage::JavaScript), "none");
    EXPECT_EQ(CommentAt("int a; ///< One.\nint b;", 2, cpp), "none");
}

TEST(CommentExtractor, ACommentBehindItInTheSameLineCounts) {
    EXPECT_EQ(CommentAt("int a; ///< One.", 1, SourceLanguage::Cpp), "One.");
    EXPECT_EQ(CommentAt("A, /**< One. */", 1, SourceLanguage::C), "One.");
}

TEST(CommentExtractor, PythonDocumentsInTheBody) {
    const auto python = SourceLanguage::Python;
    EXPECT_EQ(
        CommentAt(
            "def f(a={'x': 1}) -> 'T':\n    r\"\"\"One.\n\n    Two.\n      Three.\n    \"\"\"", 1,
            python),
        "One.||Two.|  Three.");
    EXPECT_EQ(CommentAt("# Above.\ndef f(): pass\n\n'no doc'", 2, python), "Above.");
    EXPECT_EQ(CommentAt("def f():\n    \"\"\"never closed", 1, python), "none");
    EXPECT_EQ(CommentAt("def f(", 1, python), "none");
}

TEST(CommentExtractor, KeepsTheRawComment) {
    const auto comment = CommentExtractor::At(SourceText("  /** One.\n   *  Two. */\n  int a;"), 3,
                                              SourceKind::Field, SourceLanguage::Cpp);
    ASSERT_TRUE(comment.has_value());
    EXPECT_EQ(comment->Raw, "  /** One.\n   *  Two. */");
    EXPECT_EQ(comment->Line, 1u);
}

TEST(CommentExtractor, TheDeclarationCountsBeforeTheDefinition) {
    SourceTree tree;
    tree.Write("a.h", "class A {\n  // Of the header.\n  void f();\n  void g();\n};\n");
    tree.Write("a.cpp",
               "// Of the source.\nvoid A::f() {}\n// Also of the source.\nvoid A::g() {}\n");
    const SourceIndex index = tree.Scan();
    CommentExtractor comments(tree.Folder());
    const auto of = [&](std::string_view name) { return comments.Find(index, *index.Find(name)); };
    EXPECT_EQ(of("p~A~f")->Lines.at(0), "Of the header.");
    EXPECT_EQ(of("p~A~f")->File, "a.h");
    EXPECT_EQ(of("p~A~g")->Lines.at(0), "Also of the source.");
}

TEST(CommentExtractor, SeesWhatTheFileHoldsNow) {
    SourceTree tree;
    tree.Write("a.c", "// Old.\nint f(void) { return 0; }\n");
    const SourceIndex index = tree.Scan();
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(comments.Find(index, *index.Find("p~f"))->Lines.at(0), "Old.");
    std::filesystem::remove(tree.Folder() + "/a.c");
    EXPECT_FALSE(comments.Find(index, *index.Find("p~f")).has_value());
}

} // namespace paperkite::test
