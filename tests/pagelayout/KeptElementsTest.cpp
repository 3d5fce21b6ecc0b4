#include "pagelayout/KeptElements.h"

#include "foundation/Error.h"
#include "model/TemplateParser.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

std::string Element(const std::string& text) {
    return "<!--KITEMETADATA start type=\"x\"-->" + text + "<!--KITEMETADATA end-->";
}

std::string Hidden(KeptElements& kept, const std::string& html) {
    const auto parser = MakeRef<TemplateParser>();
    parser->SetMetaDocumentMode(true);
    parser->SetPageLayoutTags();
    parser->LoadText(html);
    return kept.Hide(parser->GetSections()->Item(std::size_t{1})->Elements);
}

std::string ErrorOfRestoring(const KeptElements& kept, const std::string& html) {
    try {
        kept.Restore(html);
    } catch (const Error& error) {
        return error.GetDescription();
    }
    return "none";
}

TEST(KeptElementsTest, AnElementIsACommentUntilItIsRestored) {
    KeptElements kept;
    const std::string html = "a" + Element("<td>\n        b</td>") + "c";
    const std::string hidden = Hidden(kept, html);
    EXPECT_EQ(hidden, "a<!--kitekept1-->c");
    EXPECT_EQ(kept.Restore(hidden), html);
}

TEST(KeptElementsTest, AnElementInsideAnotherGoesWithIt) {
    KeptElements kept;
    const std::string html = Element(Element("a") + Element("b")) + Element("c");
    EXPECT_EQ(Hidden(kept, html), "<!--kitekept1--><!--kitekept2-->");
    EXPECT_EQ(kept.Restore("<!--kitekept2--> <!--kitekept1-->"),
              Element("c") + " " + Element(Element("a") + Element("b")));
}

TEST(KeptElementsTest, TagsThatTheParserRefusesAreTextAndWhatIsBetweenThemIsNot) {
    KeptElements kept;
    const std::string twice = "<!--KITEMETADATA start type=\"a\" type=\"b\"-->";
    EXPECT_EQ(Hidden(kept, twice + "x" + Element("y") + "z<!--KITEMETADATA end-->"),
              twice + "x<!--kitekept1-->z<!--KITEMETADATA end-->");
    KeptElements none;
    const std::string small = "<!--kitemetadata start type=\"a\"-->x<!--kitemetadata end-->";
    EXPECT_EQ(Hidden(none, small), small);
}

TEST(KeptElementsTest, TagsWithoutTheirCounterpartAreText) {
    KeptElements kept;
    const std::string html =
        "<!--KITEMETADATA end-->x<!--KITEMETADATA start a-->y" + Element("z") + "<!--KITEMETADATA ";
    EXPECT_EQ(Hidden(kept, html), "<!--KITEMETADATA end-->x<!--KITEMETADATA start a-->y"
                                  "<!--kitekept1--><!--KITEMETADATA ");
}

TEST(KeptElementsTest, ATextThatHoldsSuchACommentIsLeftAlone) {
    KeptElements kept;
    const std::string html = "<!--kitekept1-->&lt;!--kitekept1--&gt;" + Element("a");
    const std::string hidden = Hidden(kept, html);
    EXPECT_EQ(hidden, "<!--kitekept1-->&lt;!--kitekept1--&gt;<!--kitekept-1-->");
    EXPECT_EQ(kept.Restore(hidden), html);
    KeptElements escaped;
    const std::string written = "&lt;!--kitekept1--&gt;" + Element("a");
    EXPECT_EQ(escaped.Restore(Hidden(escaped, written)), written);
}

TEST(KeptElementsTest, ACommentThatWasWrittenAsTextIsRestoredToo) {
    KeptElements kept;
    const std::string hidden = Hidden(kept, Element("a") + "," + Element("b"));
    ASSERT_EQ(hidden, "<!--kitekept1-->,<!--kitekept2-->");
    EXPECT_EQ(kept.Restore("x &lt;!--kitekept1--&gt;,&lt;!--kitekept2--&gt; y"),
              "x " + Element("a") + "," + Element("b") + " y");
}

TEST(KeptElementsTest, AHiddenElementThatIsLostIsAnErrorThatNamesIt) {
    KeptElements kept;
    const std::string hidden = Hidden(kept, Element("a") + Element("b"));
    EXPECT_EQ(ErrorOfRestoring(kept, hidden), "none");
    const std::string told = ErrorOfRestoring(kept, "<!--kitekept2-->");
    EXPECT_TRUE(told.starts_with("The element <!--KITEMETADATA start type=\"x\"--> would be lost"))
        << told;
    EXPECT_NE(ErrorOfRestoring(kept, "<!--kitekept1--=\"\">a<!--kitekept2-->"), "none")
        << "the rest of such a comment is none of it";
}

TEST(KeptElementsTest, AnElementInTheNameOfATagIsAnError) {
    KeptElements kept;
    Hidden(kept, Element("a"));
    EXPECT_NE(ErrorOfRestoring(kept, "<p<!--kitekept1-->>x</p<!--kitekept1-->>"), "none");
    EXPECT_EQ(ErrorOfRestoring(kept, "<b id=\"<!--kitekept1-->\"></b><b id=\"<!--kitekept1-->\">"),
              "none")
        << "a rewritten document may write an attribute once for each block";
}

TEST(KeptElementsTest, AnElementInAPartThatIsTakenAwayIsNotMissed) {
    KeptElements kept;
    Hidden(kept, Element("a") + Element("b"));
    const std::string span = kept.Keep("S");
    kept.Forget("x<!--kitekept1-->y");
    EXPECT_EQ(kept.Restore("<!--kitekept2-->"), Element("b"));
    EXPECT_EQ(kept.Restore(span + "<!--kitekept2-->"), "S" + Element("b"));
}

TEST(KeptElementsTest, ATextIsKnownWithItsElementsHidden) {
    KeptElements kept;
    const std::string text = "a" + Element("b") + "<!--kitekept c" + Element("d");
    const std::string hidden = Hidden(kept, text);
    ASSERT_NE(hidden, text);
    EXPECT_EQ(kept.LengthOf("xx" + hidden + "yy", 2, text), hidden.size());
    EXPECT_EQ(kept.LengthOf(hidden, 0, text + "y"), 0u);
    EXPECT_EQ(kept.LengthOf(hidden, 0, "a" + Element("c")), 0u);
    EXPECT_EQ(kept.LengthOf(hidden, 0, "a"), 1u);
    EXPECT_EQ(kept.LengthOf("abc", 0, "abc"), 3u);
    EXPECT_EQ(kept.LengthOf("ab", 0, "abc"), 0u);
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
    EXPECT_EQ(Hidden(kept, html), html);
}

} // namespace
} // namespace paperkite
