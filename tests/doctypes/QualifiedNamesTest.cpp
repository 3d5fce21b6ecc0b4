#include "doctypes/SourceTree.h"
#include "doctypes/source/SourceIndexBuilder.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

std::string Names(const SourceIndex& index) {
    std::string names;
    for (SourceIndex::Id id = 1; id < index.Size(); ++id) {
        names += index.QualifiedName(id) + "\n";
    }
    return names;
}

} // namespace

TEST(QualifiedNames, StayWhenCodeMovesWithinAFile) {
    SourceTree tree;
    tree.Write("a.h", "namespace n { class A { void f(int a); void f(long a); }; int x(); }\n");
    const std::string before = Names(tree.Scan());
    tree.Write("a.h",
               "\n\n// moved\nnamespace n {\nclass A {\n\n void f(int b);\n void f(long);\n};\n"
               "int x();\n}\n");
    EXPECT_EQ(Names(tree.Scan()), before);
    EXPECT_EQ(before, "p~n\np~n~A\np~n~A~f(int)\np~n~A~f(long)\np~n~x\n");
}

TEST(QualifiedNames, AMemberOutOfLineBelongsToAClassThatIsScannedLater) {
    SourceTree tree;
    tree.Write("a.cpp", "int A::f(A::Kind k) { return 0; }\n");
    tree.Write("b.h", "class A { public: enum Kind { X }; int f(Kind k); int f(int k); };\n");
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}), R"(
+Class A @b.h:1
  +Enumeration Kind @b.h:1
    +Enumerator X @b.h:1
  +Method f(Kind) (Kind k) : int @b.h:1 @a.cpp:1
  +Method f(int) (int k) : int @b.h:1
)");
}

TEST(QualifiedNames, ScopesWithoutADeclarationGetAnEntityAllTheSame) {
    SourceTree tree;
    tree.Write("a.cpp", "int outer::Inner::f() { return 0; }\n");
    const SourceIndex index = tree.Scan();
    ASSERT_TRUE(index.Find("p~outer~Inner~f").has_value());
    ASSERT_TRUE(index.Find("p~outer~Inner").has_value());
    EXPECT_EQ(index.Place(*index.Find("p~outer~Inner")).File, "");
    EXPECT_FALSE(index.Find("p~outer~Inner~").has_value());
    EXPECT_FALSE(index.Find("p~outer~Inn").has_value());
    EXPECT_FALSE(index.Find("").has_value());
}

TEST(QualifiedNames, WhatSharesANameWithAnotherKindHasItsKindBehindIt) {
    SourceTree tree;
    tree.Write("a.c", "struct a { int x; };\ntypedef struct a a;\n");
    EXPECT_EQ(Names(tree.Scan()), "p~a\np~a~x\np~a[Typedef]\n");
    tree.Write("a.c", "typedef struct a a;\nstruct a { int x; };\n");
    EXPECT_TRUE(tree.Scan().Find("p~a~x").has_value());
    EXPECT_TRUE(tree.Scan().Find("p~a[Typedef]").has_value());
}

TEST(QualifiedNames, CharactersOfThePathAreEncodedInAStep) {
    EXPECT_EQ(EncodedStep("~A"), "%7EA");
    EXPECT_EQ(EncodedStep("a::b/c\\d%e\n"), "a%3A%3Ab%2Fc%5Cd%25e%0A");
    EXPECT_EQ(EncodedStep("f(const T&) const"), "f(const T&) const");
}

TEST(QualifiedNames, AStaticFunctionOfAnotherFileIsAnotherOne) {
    SourceTree tree;
    tree.Write("a.c", "static int f(int a) { return 1; }\n");
    tree.Write("x/b.c", "static int f(int a) { return 2; }\n");
    EXPECT_EQ(Names(tree.Scan()), "p~f(int)@a.c\np~f(int)@x%2Fb.c\n");
}

TEST(QualifiedNames, AlternativesOfOneFileAreOneEntity) {
    SourceTree tree;
    tree.Write("a.c",
               "#ifdef X\nint f(void) { return 1; }\n#else\nint f(void) { return 2; }\n#endif\n");
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}), "\n+Function f (void) : int @a.c:2 @a.c:4\n");
}

TEST(SourceIndexBuilder, KeepsALargeIndexSmallAndFindsEverythingInIt) {
    SourceIndexBuilder builder("big");
    const std::uint32_t file = builder.AddFile("a.cpp");
    for (int type = 0; type < 200; ++type) {
        for (int member = 0; member < 100; ++member) {
            SourceDeclaration declaration;
            declaration.Name = "member" + std::to_string(member);
            declaration.Kind = SourceKind::Method;
            declaration.Language = SourceLanguage::Cpp;
            declaration.Signature = "(int a)";
            declaration.Scope = {{"Type" + std::to_string(type), SourceKind::Class}};
            declaration.File = file;
            declaration.Line = static_cast<std::uint32_t>(member + 1);
            builder.Add(declaration);
        }
    }
    const SourceIndex index = builder.Finish().value();
    EXPECT_EQ(index.Size(), 1u + 200u + 20000u);
    for (SourceIndex::Id id = 0; id < index.Size(); ++id) {
        ASSERT_EQ(index.Find(index.QualifiedName(id)), id);
    }
}

} // namespace paperkite::test
