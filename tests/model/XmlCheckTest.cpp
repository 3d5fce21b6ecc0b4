#include "model/XmlCheck.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

/// "line:column", or nothing for XML.
std::string PlaceIn(const std::string& text) {
    const auto problem = CheckXml(text);
    if (!problem) return {};
    EXPECT_TRUE(problem->What.ends_with('.')) << problem->What;
    return std::to_string(problem->Line) + ":" + std::to_string(problem->Column);
}

TEST(XmlCheckTest, DocumentsAndPiecesPass) {
    for (const char* text :
         {"", "text", "<a/>", "<?xml version=\"1.0\"?>\n<a b='1'>x</a>", "<a/><b/>", "a <b>c</b> d",
          "<!-- & < --><![CDATA[ & < ]]>", "&amp;&lt;&#160;&#xA0;"})
        EXPECT_EQ(PlaceIn(text), "") << text;
}

TEST(XmlCheckTest, TheWrongPlaceIsNamed) {
    EXPECT_EQ(PlaceIn("<a>\n  <b></a>"), "2:8");
    EXPECT_EQ(PlaceIn("<a b=\"1\" b=\"2\"/>"), "1:10");
    EXPECT_EQ(PlaceIn("<a>x & y</a>"), "1:6");
    EXPECT_EQ(PlaceIn("<a t=\"&nbsp;\"/>"), "1:7");
    EXPECT_EQ(PlaceIn("\xC3\xA4\n\xC3\xA4\xC3\xA4 &x;"), "2:4");
    EXPECT_NE(PlaceIn("<a"), "");
    EXPECT_NE(PlaceIn("<a></a"), "");
    EXPECT_NE(PlaceIn("</a>"), "");
}

TEST(XmlCheckTest, DeepNestingIsNoHarm) {
    std::string text;
    for (int depth = 0; depth < 100000; ++depth)
        text += "<a>";
    EXPECT_NE(PlaceIn(text), "");
}

} // namespace
} // namespace paperkite
