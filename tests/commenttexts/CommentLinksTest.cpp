#include "commenttexts/CommentLinks.h"

#include <gtest/gtest.h>

#include <string>

namespace paperkite {
namespace {

std::string Found(std::string_view html) {
    std::string text;
    for (const auto& link : CommentLinks::Find(html))
        text += "[" + link.Address + "|" + link.Caption + "]";
    return text;
}

TEST(CommentLinksTest, EachAnchorComesWithItsAddressAndWhatAReaderClicksOn) {
    EXPECT_EQ(Found("<p>See <a href=\"a.html\">the  <b>big</b>\n dog</a> and "
                    "<A HREF='b.html?x&amp;y'>b &amp; c</A>.</p>"),
              "[a.html|the big dog][b.html?x&y|b & c]");
    EXPECT_EQ(Found("<a title=x href=a.html><img src='p.png'></a>"), "[a.html|]");
    EXPECT_EQ(Found("<a\nhref = 'a' href='b'>c</a>"), "[a|c]");
    EXPECT_EQ(Found("<a href>c</a><a href=''>d</a>"), "[|c][|d]");
}

TEST(CommentLinksTest, AreasOfPicturesAreLinksToo) {
    EXPECT_EQ(Found("<map><area href=\"a.html\"><AREA shape=rect href=b></map>"), "[a.html|][b|]");
}

TEST(CommentLinksTest, WhatIsNoLinkIsNotFound) {
    for (const char* html :
         {"", "no tags", "<abbr href='x'>a</abbr>", "<a name='x'>a</a>", "<p a href='x'>",
          "<!-- <a href='x'>a</a> -->", "<script>'<a href=x>'</script>",
          "<p title=\"<a href='x'>\">a</p>", "&lt;a href='x'&gt;", "< a href='x'>", "<a", "<"})
        EXPECT_EQ(Found(html), "") << html;
}

TEST(CommentLinksTest, ALinkEndsWhereTheNextBeginsAndWhereTheTextEnds) {
    EXPECT_EQ(Found("<a href=a>one<a href=b>two"), "[a|one][b|two]");
    EXPECT_EQ(Found("<a href=a>one <area href=b> two</a>"), "[a|one][b|]");
    EXPECT_EQ(Found("<a href=a>one<a name=b>two</a>"), "[a|one]");
}

TEST(CommentLinksTest, TextsWithoutLinksAreKnownByALookAtTheirTags) {
    EXPECT_FALSE(CommentLinks::MayHoldLinks("<p>An <abbr>A</abbr> and <b>a</b></a>"));
    EXPECT_TRUE(CommentLinks::MayHoldLinks("<a\thref=x>"));
    EXPECT_TRUE(CommentLinks::MayHoldLinks("<A/href=x>"));
    EXPECT_TRUE(CommentLinks::MayHoldLinks("<AREA href=x>"));
}

} // namespace
} // namespace paperkite
