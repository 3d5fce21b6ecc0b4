#include "pagelayout/KeptElements.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

std::string Element(const std::string& text) {
    return "<!--KITEMETADATA start type=\"x\"-->" + text + "<!--KITEMETADATA end-->";
}

TEST(KeptElementsTest, AnElementIsACommentUntilItIsRestored) {
    KeptElements kept;
    const std::string html = "a" + Element("<td>\n        b</td>") + "c";
    const std::string hidden = kept.Hide(html);
    EXPECT_EQ(hidden, "a<!--kitekept1-->c");
    EXPECT_EQ(kept.Restore(hidden), html);
}

TEST(KeptElementsTest, AnElementInsideAnotherGoesWithIt) {
    KeptElements kept;
    const std::string html = Element(Element("a") + Element("b")) + Element("c");
    EXPECT_EQ(kept.Hide(html), "<!--kitekept1--><!--kitekept2-->");
    EXPECT_EQ(kept.Restore("<!--kitekept2-->"), Element("c"));
}

TEST(KeptElementsTest, TagsWithoutTheirCounterpartAreText) {
    KeptElements kept;
    const std::string html =
        "<!--KITEMETADATA end-->x<!--KITEMETADATA start a-->y" + Element("z") + "<!--KITEMETADATA ";
    EXPECT_EQ(kept.Hide(html), "<!--KITEMETADATA end-->x<!--KITEMETADATA start a-->y"
                               "<!--kitekept1--><!--KITEMETADATA ");
}

TEST(KeptElementsTest, ATextThatHoldsSuchACommentIsLeftAlone) {
    KeptElements kept;
    const std::string html = "<!--kitekept1-->" + Element("a");
    const std::string hidden = kept.Hide(html);
    EXPECT_EQ(hidden, "<!--kitekept1--><!--kitekept-1-->");
    EXPECT_EQ(kept.Restore(hidden), html);
}

TEST(KeptElementsTest, ABlankBehindTheIndentationGoesButNotInPreformattedText) {
    KeptElements kept;
    const std::string comment = kept.Keep("E");
    EXPECT_EQ(kept.Restore("\n   " + comment), "\n  E");
    EXPECT_EQ(kept.Restore("\n  " + comment), "\n  E");
    EXPECT_EQ(kept.Restore("a " + comment), "a E");
    EXPECT_EQ(kept.Restore("<pre>\n   " + comment), "<pre>\n   E");
    EXPECT_EQ(kept.Restore("<pre></pre>\n   " + comment), "<pre></pre>\n  E");
}

TEST(KeptElementsTest, AHundredThousandOpenTagsTakeNoLongerThanTheirText) {
    std::string html;
    for (int count = 0; count < 100000; ++count)
        html += "<!--KITEMETADATA start a-->";
    KeptElements kept;
    EXPECT_EQ(kept.Hide(html), html);
}

} // namespace
} // namespace paperkite
