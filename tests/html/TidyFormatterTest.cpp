#include "platform/html/HtmlContent.h"
#include "platform/html/HtmlServices.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

std::string Tidied(const std::string& html, bool bodyOnly = true) {
    return MakeHTMLTidy()->TidyHTML(html, bodyOnly);
}

TEST(TidyFormatterTest, BringsADocumentIntoLines) {
    EXPECT_EQ(Tidied("<!DOCTYPE html><html><head><title>t</title></head><body><div><p>a b</p>"
                     "</div></body></html>",
                     false),
              "<!DOCTYPE html>\n<html>\n<head>\n  <title>t</title>\n</head>\n<body>\n  <div>\n"
              "    <p>a b</p>\n  </div>\n</body>\n</html>\n");
}

TEST(TidyFormatterTest, GivesADocumentNoTitleAndNoGeneratorOfItsOwn) {
    EXPECT_EQ(Tidied("<html><head></head><body><p>a</p></body></html>", false),
              "<html>\n<head>\n</head>\n<body>\n  <p>a</p>\n</body>\n</html>\n");
}

TEST(TidyFormatterTest, TidyingAgainChangesNothing) {
    const std::string once = Tidied("<ul><li>a<li>b</ul><table><tr><td>x</table><p>c <b>d</b>");
    EXPECT_EQ(Tidied(once), once);
}

TEST(TidyFormatterTest, TidyingAgainLeavesLinesBehindCommentsWhereTheyAre) {
    const std::string once = Tidied("<ul><li>a<!-- b -->\nc</ul><pre><!-- d -->\n e</pre>");
    EXPECT_NE(once.find("<li>a<!-- b -->\n  c"), std::string::npos) << once;
    EXPECT_NE(once.find("<!-- d -->\n e</pre>"), std::string::npos) << once;
    EXPECT_EQ(Tidied(once), once);
}

TEST(TidyFormatterTest, WhatAnotherTimeWouldChangeIsTidiedUntilItSettles) {
    const std::string html = "<html><head></head><body><odd><!-- x --><textarea>a</textarea></odd>"
                             "</body></html>";
    const std::string once = Tidied(html, false);
    EXPECT_NE(once.find("<odd><!-- x -->\n"), std::string::npos) << once;
    EXPECT_EQ(Tidied(once, false), once);
}

TEST(TidyFormatterTest, LongLinesAreNotBroken) {
    std::string words;
    for (int count = 0; count < 200; ++count)
        words += "word ";
    EXPECT_EQ(Tidied("<p>" + words + "end</p>"), "<p>" + words + "end</p>\n");
}

TEST(TidyFormatterTest, CommentsAndTheirContentsStay) {
    const std::string meta =
        "<!--KITEMETADATA start type=\"a\"\n  name=\"b\"-->x  y<!--KITEMETADATA "
        "end-->";
    EXPECT_NE(
        Tidied("<html><head></head><body><p>a " + meta + "</p></body></html>", false)
            .find("<!--KITEMETADATA start type=\"a\"\n  name=\"b\"-->x y<!--KITEMETADATA end-->"),
        std::string::npos);
}

TEST(TidyFormatterTest, UnknownElementsStay) {
    const std::string html = "<kite:item ref=\"A~b\">x</kite:item> <blah>y</blah> <x-a>z</x-a>";
    EXPECT_EQ(Tidied(html), html + "\n");
}

TEST(TidyFormatterTest, WhatItWouldLoseComesBackAsItWas) {
    // The blank at the beginning of the text area would go.
    const std::string html = "<p>a</p><textarea>\n\n  b</textarea>";
    EXPECT_EQ(Tidied(html), html);
    const std::string bytes = "<p>caf\xE9</p>";
    EXPECT_EQ(Tidied(bytes), bytes);
}

TEST(TidyFormatterTest, TheLineBreakAtTheEndOfATextAreaStays) {
    const std::string once = Tidied("<form><textarea>a\n</textarea></form>");
    EXPECT_EQ(once, "<form>\n  <textarea>a\n</textarea>\n</form>\n");
    EXPECT_EQ(Tidied(once), once);
    const std::string guard = "<textarea>\xEE\x80\x80\n</textarea>";
    EXPECT_NE(Tidied(guard).find("<textarea>\xEE\x80\x80"), std::string::npos);
}

TEST(TidyFormatterTest, DeepDocumentsComeBackAsTheyWere) {
    std::string deep;
    for (int level = 0; level < 5000; ++level)
        deep += "<div>";
    EXPECT_EQ(Tidied(deep), deep);
}

TEST(HtmlContentTest, TellsLossesFromLayout) {
    const auto isKept = [](const char* before, const char* after) {
        return HtmlContent(before).IsKeptBy(HtmlContent(after));
    };
    EXPECT_TRUE(isKept("<div><p>a b</p></div>", "<div>\n  <p>\n a\tb </p>\n</div>\n"));
    EXPECT_TRUE(isKept("<b>a </b>b", "<b>a</b> b"));
    EXPECT_TRUE(isKept("a&nbsp;&eacute;", "a&#160;\u00e9"));
    EXPECT_FALSE(isKept("a b", "ab"));
    EXPECT_FALSE(isKept("<b>a</b>b", "<b>a</b> b"));
    EXPECT_FALSE(isKept("a&nbsp;b", "a b"));
    EXPECT_FALSE(isKept("<pre>a  b</pre>", "<pre>a b</pre>"));
    EXPECT_FALSE(isKept("a<!--x-->b", "ab<!--x-->"));
    EXPECT_FALSE(isKept("<i>a</i>", "a"));
    EXPECT_FALSE(isKept("<p title='x'>a</p>", "<p>a</p>"));
    EXPECT_FALSE(isKept("<p title='x'>a</p>", "<p title='y'>a</p>"));
}

} // namespace
} // namespace paperkite::test
