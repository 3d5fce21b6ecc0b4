#include "foundation/HtmlText.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

/// The source with the bytes of the text from `from` on in brackets.
std::string Marked(const std::string& html, std::size_t from, std::size_t to) {
    std::string result;
    std::size_t copied = 0;
    for (const auto& stretch : HtmlText(html).SourceOf(from, to)) {
        result += html.substr(copied, stretch.From - copied);
        result += "[" + html.substr(stretch.From, stretch.To - stretch.From) + "]";
        copied = stretch.To;
    }
    return result + html.substr(copied);
}

std::string ProseOf(const std::string& html) {
    const HtmlText text(html);
    std::string result;
    for (const auto& stretch : text.Prose())
        result += text.GetText().substr(stretch.From, stretch.To - stretch.From) + "|";
    return result;
}

TEST(HtmlTextTest, TagsAreLeftOutAndBlocksPartTheText) {
    EXPECT_EQ(HtmlText("<p>One <b>two</b></p><p>three<br>four</p>").GetText(),
              "\nOne two\nthree\nfour\n");
    EXPECT_EQ(HtmlText("plain").GetText(), "plain");
    EXPECT_EQ(HtmlText("").GetText(), "");
}

TEST(HtmlTextTest, EntitiesAreDecodedWithTheWayBack) {
    const std::string html = "a &amp; b&eacute;c &#x41; &unknown; &";
    EXPECT_EQ(HtmlText(html).GetText(), "a & b\xC3\xA9"
                                        "c A &unknown; &");
    EXPECT_EQ(Marked(html, 2, 3), "a [&amp;] b&eacute;c &#x41; &unknown; &");
    EXPECT_EQ(Marked(html, 4, 8), "a &amp; [b&eacute;c] &#x41; &unknown; &");
    EXPECT_EQ(Marked(html, 5, 6), "a &amp; b[&eacute;]c &#x41; &unknown; &") << "half a character";
}

TEST(HtmlTextTest, AStretchOverTagsLeavesThemOut) {
    EXPECT_EQ(Marked("Fish &amp; <b>ch</b>ips", 7, 12), "Fish &amp; <b>[ch]</b>[ips]");
}

TEST(HtmlTextTest, ScriptsStylesAndCommentsAreNoText) {
    EXPECT_EQ(HtmlText("a<!-- no --><script>no</script><style>no</style>b").GetText(), "a\nb");
    EXPECT_EQ(HtmlText("one<!-- no -->word").GetText(), "oneword");
}

TEST(HtmlTextTest, WhatIsNoUtf8HasAReplacementAndStays) {
    const std::string html = "a\xFF"
                             "b";
    EXPECT_EQ(HtmlText(html).GetText(), "a\xEF\xBF\xBD"
                                        "b");
    EXPECT_EQ(HtmlText(html).Replaced({{4, 5}}, "c"), "a\xFF"
                                                      "c");
}

TEST(HtmlTextTest, ProseLeavesCodeOut) {
    EXPECT_EQ(ProseOf("Call <code>foo</code> now, <kbd>x</kbd>."), "Call | now, |.|");
    EXPECT_EQ(ProseOf("<pre>int a;</pre><p>text <var>n</var></p>"), "text |");
    EXPECT_EQ(ProseOf("<p>one <b>two</b> three</p>"), "one two three|");
}

TEST(HtmlTextTest, AReplacementStandsWhereTheFirstByteStood) {
    EXPECT_EQ(HtmlText("see <b>th</b>is").Replaced({{4, 8}}, "that"), "see <b>that</b>");
    EXPECT_EQ(HtmlText("a b").Replaced({{0, 1}, {2, 3}}, "x"), "x x");
    EXPECT_EQ(HtmlText("a b").Replaced({}, "x"), "a b");
}

TEST(HtmlTextTest, AReplacementIsEscapedAndNeverBecomesMarkup) {
    EXPECT_EQ(HtmlText("one").Replaced({{0, 3}}, "a < b & c"), "a &lt; b &amp; c");
    // "<" and "&" that were no markup would become some.
    EXPECT_EQ(HtmlText("a < b").Replaced({{3, 4}}, ""), "a &lt;b");
    EXPECT_EQ(HtmlText("x &lq").Replaced({{4, 5}}, "t;"), "x &amp;lt;");
    // An entity that was left open would go on.
    EXPECT_EQ(HtmlText("&#65x").Replaced({{1, 2}}, "2"), "&#65;2");
    EXPECT_EQ(HtmlText("&#65;x").Replaced({{1, 2}}, "2"), "&#65;2");
}

TEST(HtmlTextTest, CharactersAreCountedAsPagesCountThem) {
    const std::string html = "<b>a\xF0\x9F\x98\x80</b>&amp;b";
    EXPECT_EQ(HtmlText::CharactersBefore(html, html.find("</b>")), 3u);
    EXPECT_EQ(HtmlText::CharactersBefore(html, html.size()), 5u);
    EXPECT_EQ(HtmlText::OffsetBehind(html, 4), html.size() - 1);
    EXPECT_EQ(HtmlText::OffsetBehind(html, 99), html.size());
}

} // namespace
} // namespace paperkite
