#include "commenttexts/CommentForm.h"
#include "commenttexts/CommentsFromChain.h"
#include "commenttexts/ExampleNote.h"
#include "commenttexts/ExampleReference.h"
#include "commenttexts/KeywordList.h"
#include "commenttexts/MenuPath.h"
#include "commenttexts/PlainText.h"
#include "commenttexts/SubItemList.h"
#include "foundation/Text.h"

#include <gtest/gtest.h>

#include <map>

namespace paperkite {
namespace {

TEST(CommentFormTest, TheDesignerDecides) {
    TaggedCommentDef definition;
    EXPECT_EQ(FormOf(&definition), CommentForm::Html);
    definition.DesignerProgID = "kite4commentdesigners.DSRkeywords";
    EXPECT_EQ(FormOf(&definition), CommentForm::Keywords);
    definition.DesignerProgID = "{None}";
    EXPECT_EQ(FormOf(&definition), CommentForm::Html);
    EXPECT_EQ(FormOf(nullptr), CommentForm::Html);
}

TEST(KeywordListTest, LevelsAreToldFromSignsOfWords) {
    EXPECT_EQ(KeywordList::Normal(" files  > opening "), "files > opening");
    EXPECT_EQ(KeywordList::Normal("operator>>"), "operator>>");
    EXPECT_EQ(KeywordList::Normal("operator >"), "operator");
    EXPECT_EQ(Join(KeywordList::Levels("a > b > c"), "|"), "a|b|c");
    EXPECT_EQ(KeywordList::Normal(" > "), "");
}

TEST(KeywordListTest, BlanksInsideAKeywordMakeNoOtherOne) {
    EXPECT_EQ(KeywordList::Normal("read \t only  >\topen"), "read only > open");
    KeywordList list;
    list.Add("read only");
    EXPECT_EQ(Join(list.Add("read  only, Read Only"), "|"), "read only|Read Only");
    EXPECT_EQ(KeywordList::Read("read only\nread   only")->Write(), "read only");
}

TEST(KeywordListTest, AChangedKeywordIsOneKeyword) {
    KeywordList list;
    list.Add("one, two");
    EXPECT_TRUE(list.Change(0, "a, b"));
    EXPECT_EQ(list.Write(), "a b\ntwo");
    EXPECT_FALSE(list.Change(0, " TWO ")) << "it is there already";
    EXPECT_FALSE(list.Change(0, " , "));
    EXPECT_TRUE(list.Change(1, "Two")) << "only its letter case";
    EXPECT_EQ(list.Write(), "a b\nTwo");
}

TEST(MenuPathTest, StepsAndKeysComeThrough) {
    const auto path = MenuPath::Read(" File >  Export\n\nkeys:  Ctrl+E \n");
    ASSERT_TRUE(path);
    EXPECT_EQ(Join(path->Steps, "|"), "File|Export");
    EXPECT_EQ(path->Keys, "Ctrl+E");
    EXPECT_EQ(path->Write(), "File > Export\nkeys: Ctrl+E");
    EXPECT_EQ(MenuPath::Read("keys: F5")->Write(), "keys: F5");
    EXPECT_EQ(MenuPath::Read("")->Write(), "");
}

TEST(MenuPathTest, WhatIsNoMenuPathIsNotRead) {
    EXPECT_FALSE(MenuPath::Read("File\nEdit")) << "two paths";
    EXPECT_FALSE(MenuPath::Read("keys: F5\nFile")) << "the keys come last";
    EXPECT_FALSE(MenuPath::Read("<b>File</b>"));
}

TEST(MenuPathTest, StepsAreTypedWithAnyOfTheUsualSigns) {
    EXPECT_EQ(Join(MenuPath::StepsOf("File->Export → As PDF | Now"), "|"),
              "File|Export|As PDF|Now");
    EXPECT_TRUE(MenuPath::StepsOf(" > ").empty());
}

TEST(ExampleNoteTest, TitleAndItemsComeThrough) {
    const auto note = ExampleNote::Read("Counts words\nof: a~B\nof:  a~C\nof: a~B\n");
    ASSERT_TRUE(note);
    EXPECT_EQ(note->Title, "Counts words");
    EXPECT_EQ(Join(note->Items, "|"), "a~B|a~C") << "each once";
    EXPECT_EQ(note->Write(), "Counts words\nof: a~B\nof: a~C");
    EXPECT_EQ(ExampleNote::Read("of: a~B")->Title, "");
    EXPECT_EQ(ExampleNote::Read("")->Write(), "");
}

TEST(ExampleNoteTest, WhatIsNoNoteIsNotRead) {
    EXPECT_FALSE(ExampleNote::Read("One\nTwo"));
    EXPECT_FALSE(ExampleNote::Read("of: a~B\nTitle")) << "the title comes first";
    EXPECT_FALSE(ExampleNote::Read("<p>One</p>"));
}

TEST(ExampleReferenceTest, FilesWithSignsComeThrough) {
    ExampleReference reference;
    reference.File = "c:/50%/a#b.cpp";
    reference.Taken = ExampleReference::Part::Region;
    reference.Region = "x:y";
    reference.Caption = "One\n\nTwo";
    EXPECT_EQ(reference.Write(), "source: c%3A/50%25/a%23b.cpp#x:y\nOne\n\nTwo");
    EXPECT_EQ(ExampleReference::Read(reference.Write()), reference);
}

std::string Example(const std::string& place, const std::string& source) {
    const auto reference = ExampleReference::Read("source: " + place);
    const ExampleSnippet snippet = TakeExample(*reference, source);
    return std::to_string(snippet.FirstLine) + ":" + ReplaceAll(snippet.Text, "\n", "/") +
           (snippet.Problem.empty() ? "" : "!");
}

TEST(ExampleReferenceTest, RegionsAreMarkedInTheCommentsOfAnyLanguage) {
    EXPECT_EQ(Example("a#x", "# [x]\n1\n# [x]\n"), "2:1/");
    EXPECT_EQ(Example("a#x", "<!-- [x] -->\n1\n<!-- [x] -->"), "2:1/");
    EXPECT_EQ(Example("a#x", "/* [x] */\r\n1\r\n/* [x] */\r\n"), "2:1/");
    EXPECT_EQ(Example("a#x", "-- region x\n1\n-- endregion\n2\n"), "2:1/");
    EXPECT_EQ(Example("a#the whole", "#pragma region the whole\n1\n#pragma endregion\n"), "2:1/");
    EXPECT_EQ(Example("a#x", "//#region x\n1\n//#region y\n2\n//#endregion\n3\n//#endregion\n4"),
              "2:1/2/3/");
    EXPECT_EQ(Example("a#y", "int a[x];\n//! [y]\nint b[y];\n//! [y]\n"), "3:int b[y];/");
}

TEST(ExampleReferenceTest, WhatIsGoneIsAProblem) {
    EXPECT_EQ(Example("a#x", "1\n"), "1:!");
    EXPECT_EQ(Example("a#x", "//! [x]\n1\n"), "2:1/!");
    EXPECT_EQ(Example("a:2-4", "1\n2\n"), "2:2/!");
    EXPECT_EQ(Example("a", ""), "1:");
}

TEST(ExampleReferenceTest, SharedIndentationCanGo) {
    ExampleSnippet snippet;
    snippet.Text = "    if (a)\n        b();\n\n";
    EXPECT_EQ(snippet.WithoutIndentation(), "if (a)\n    b();\n\n");
}

TEST(ExampleReferenceTest, RegionsAreListedOnce) {
    EXPECT_EQ(Join(RegionsIn("//! [b]\n//! [b]\n#region a\n#endregion\nx[1] = 2;\n"), ","), "b,a");
}

TEST(SubItemListTest, TextsComeThroughHtml) {
    SubItemList list;
    list.Items = {{"a<b", "x & \"y\"\n\nz"}, {"", ""}};
    const auto read = SubItemList::Read(list.Write());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Items, list.Items);
}

TEST(PlainTextTest, EntitiesAreDecoded) {
    EXPECT_EQ(PlainText::Decoded("a &lt; b &amp;amp; &eacute;&#x1F600; &unknown;"),
              "a < b &amp; é😀 &unknown;");
    EXPECT_FALSE(PlainText::IsPlain("a <b> c"));
    EXPECT_TRUE(PlainText::IsPlain("a < b > c"));
}

TEST(CommentsFromChainTest, EndsWhereItWouldGoRound) {
    std::map<std::string, std::string> references{{"b", "c"}, {"c", "d"}, {"x", "y"}, {"y", "x"}};
    const auto follow = [&](const std::string& from, const std::string& first) {
        const auto chain = CommentsFromChain::Follow(
            from, first, [&](const std::string& name) { return references[name]; });
        return Join(chain.Names, ",") + (chain.IsCircle ? " round" : "");
    };
    EXPECT_EQ(follow("a", "b"), "b,c,d");
    EXPECT_EQ(follow("c", "b"), "b round");
    EXPECT_EQ(follow("a", "x"), "x,y round");
    EXPECT_EQ(follow("a", "a"), " round");
    EXPECT_EQ(follow("a", ""), "");
}

} // namespace
} // namespace paperkite
