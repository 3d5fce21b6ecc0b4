#include "commenttexts/CommentProse.h"

#include "foundation/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace paperkite {
namespace {

CommentForm FormFor(const char* designer, const std::string& text) {
    TaggedCommentDef definition;
    definition.DesignerProgID = std::string("Kite4CommentDesigners.") + designer;
    return CommentProse::FormOfText(&definition, text);
}

std::string ProseOf(const char* designer, const std::string& text) {
    std::string prose;
    for (const auto& stretch : CommentProse::StretchesOf(FormFor(designer, text), text))
        prose += "[" + text.substr(stretch.From, stretch.To - stretch.From) + "]";
    return ReplaceAll(prose, "\n", "/");
}

TEST(CommentProseTest, ATextThatIsNotInItsFormIsHtml) {
    EXPECT_EQ(FormFor("dsrKeywords", "R&D > budgets"), CommentForm::Keywords);
    EXPECT_EQ(FormFor("dsrKeywords", "<p>R&amp;D</p>"), CommentForm::Html);
    EXPECT_EQ(FormFor("dsrMenuItem", "File\nEdit"), CommentForm::Html);
    EXPECT_EQ(FormFor("dsrIsExample", "One\nTwo"), CommentForm::Html);
    EXPECT_EQ(FormFor("dsrExampleSource", "a.cpp"), CommentForm::Html);
    EXPECT_EQ(FormFor("dsrCommentsFrom", "zoo~Dog"), CommentForm::CommentsFrom);
    EXPECT_EQ(FormFor("dsrIsNew", "1.4"), CommentForm::IsNew);
    EXPECT_EQ(FormFor("dsrXMLIsland", "<a/>"), CommentForm::Xml);
    EXPECT_EQ(CommentProse::FormOfText(nullptr, "text"), CommentForm::Html);
}

TEST(CommentProseTest, OnlyTextsWithMarkupAreHtml) {
    EXPECT_TRUE(CommentProse::IsHtml(CommentForm::Html));
    EXPECT_TRUE(CommentProse::IsHtml(CommentForm::SubItems));
    for (const CommentForm form :
         {CommentForm::Keywords, CommentForm::IsNew, CommentForm::IsExample,
          CommentForm::ExampleSource, CommentForm::CommentsFrom, CommentForm::MenuItem,
          CommentForm::Xml})
        EXPECT_FALSE(CommentProse::IsHtml(form));
}

TEST(CommentProseTest, NamesFilesAndKeysAreNoProse) {
    EXPECT_EQ(ProseOf("dsrKeywords", "one > two\nthree"), "[one > two/three]");
    EXPECT_EQ(ProseOf("dsrIsExample", "Counts words\nof: a~B\n of: a~C"), "[Counts words]");
    EXPECT_EQ(ProseOf("dsrMenuItem", "File > Export\nkeys: Ctrl+S"), "[File > Export]");
    EXPECT_EQ(ProseOf("dsrExampleSource", "source: a&b.cpp#regoin\nOne\n\nTwo"), "[One//Two]");
    EXPECT_EQ(ProseOf("dsrExampleSource", "source: a&b.cpp"), "");
    EXPECT_EQ(ProseOf("dsrExampleSource", "source: a&b.cpp\n"), "");
    EXPECT_EQ(ProseOf("dsrCommentsFrom", "zoo~Dog"), "");
    EXPECT_EQ(ProseOf("dsrIsNew", "1.4"), "");
    EXPECT_EQ(ProseOf("dsrXMLIsland", "<a>text</a>"), "");
    EXPECT_EQ(ProseOf("dsrKeywords", ""), "");
}

} // namespace
} // namespace paperkite
