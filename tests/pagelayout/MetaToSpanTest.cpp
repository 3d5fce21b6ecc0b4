#include "pagelayout/PageLayoutFixture.h"

namespace paperkite::test {
namespace {

using MetaToSpanTest = PageLayoutFixture;

TEST_F(MetaToSpanTest, AnElementOfTheBodyBecomesASpanWithItsNumberTypeAndText) {
    EXPECT_EQ(ToSpan("<html><body><p>" + Meta("title", "The title") + "</p></body></html>"),
              "<html><body><p><span id=\"metaspanstart1\" style=\"color: Highlight; "
              "background-color: InactiveCaptionText;\" contenteditable=\"false\"><b>{ title "
              "(</b>The title<b>) }</b></span></p></body></html>");
}

TEST_F(MetaToSpanTest, TextAroundStaysByteForByte) {
    const std::string before = "<!DOCTYPE html>\r\n<HTML>\n<!-- c --><Body Class=x>\t é ";
    const std::string behind = "<P>unclosed &amp; <b>";
    const std::string spans = ToSpan(before + Meta("a") + behind);
    EXPECT_TRUE(spans.starts_with(before + "<span id=\"metaspanstart1\""));
    EXPECT_TRUE(spans.ends_with("</span>" + behind));
}

TEST_F(MetaToSpanTest, AnElementBeforeTheBodyStaysACommentAndKeepsItsNumber) {
    const std::string head = "<html><head><title>" + Meta("title") + "</title></head>";
    const std::string spans = ToSpan(head + "<body>" + Meta("a") + "</body></html>");
    EXPECT_TRUE(spans.starts_with(head + "<body><span id=\"metaspanstart2\""));
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 2u);
}

TEST_F(MetaToSpanTest, ADocumentThatBeginsWithAnElementDoesNotExcludeIt) {
    EXPECT_EQ(Numbers(ToSpan(Meta("a") + "<html>" + Meta("b") + "<body>" + Meta("c"))), "1 3 ");
}

TEST_F(MetaToSpanTest, ElementsBehindACellsEndAreExcludedTogetherWhenNoTextStandsBetween) {
    EXPECT_EQ(NumbersOfBody("<table><tr><td>x</td>" + Meta("a") + Meta("b") + "<td>" + Meta("c") +
                            "</td></tr></table>"),
              "3 ");
}

TEST_F(MetaToSpanTest, TheBodyTestAndTheTableTestRunOnTheSameText) {
    EXPECT_EQ(Numbers(ToSpan("<html><body><table><tr>" + Meta("a") + "<td>" + Meta("b"))), "2 ");
}

TEST_F(MetaToSpanTest, ARowsStartExcludesWhateverItsCaseAndAttributes) {
    EXPECT_EQ(NumbersOfBody("<TR class=x>" + Meta("a")), "");
    EXPECT_EQ(NumbersOfBody("<tr>" + Meta("a")), "");
    EXPECT_EQ(NumbersOfBody("<TD>x</TD>" + Meta("a")), "");
    EXPECT_EQ(NumbersOfBody("<track>" + Meta("a")), "1 ");
    EXPECT_EQ(NumbersOfBody("</tr>" + Meta("a")), "1 ");
    EXPECT_EQ(NumbersOfBody("<table>" + Meta("a")), "1 ");
    EXPECT_EQ(NumbersOfBody("<td>" + Meta("a")), "1 ");
}

TEST_F(MetaToSpanTest, OnlyTheStartOfThePartFromTheLastAngleIsLookedAt) {
    EXPECT_EQ(NumbersOfBody("</td> and then text " + Meta("a")), "");
    EXPECT_EQ(NumbersOfBody("</td><b>text " + Meta("a")), "1 ");
    EXPECT_EQ(NumbersOfBody("</td> 1 < 2 " + Meta("a")), "1 ");
}

TEST_F(MetaToSpanTest, PairsOfLineBreaksAndTrailingBlanksDoNotCountLoneOnesDo) {
    EXPECT_EQ(NumbersOfBody("</t\r\nd>\r\n  \r\n" + Meta("a")), "");
    EXPECT_EQ(NumbersOfBody("<tr\r\n class=x>" + Meta("a")), "") << "the blank is that behind it";
    EXPECT_EQ(NumbersOfBody("</t\nd>" + Meta("a")), "1 ");
    EXPECT_EQ(NumbersOfBody("<tr\n>" + Meta("a")), "1 ");
    EXPECT_EQ(NumbersOfBody("x<tr  \r\n  " + Meta("a")), "1 ") << "blanks at the end go";
    EXPECT_EQ(NumbersOfBody("</td>\n\n" + Meta("a")), "");
}

TEST_F(MetaToSpanTest, TheNextTextDecidesAnew) {
    EXPECT_EQ(NumbersOfBody("<tr>" + Meta("a") + "<td>" + Meta("b") + "</td>" + Meta("c") + " " +
                            Meta("d")),
              "2 4 ");
}

TEST_F(MetaToSpanTest, ADocumentWithoutABodyHoldsNoSpans) {
    const std::string html = "<p>" + Meta("a") + "</p>" + Meta("b") + "<bodyx>" + Meta("c");
    EXPECT_EQ(ToSpan(html), html);
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 3u);
}

TEST_F(MetaToSpanTest, TheBodyMayHaveAttributesAndAnyCase) {
    EXPECT_EQ(Numbers(ToSpan("<html><BODY onload=x>" + Meta("a"))), "1 ");
    EXPECT_EQ(Numbers(ToSpan("<html><body\n>" + Meta("a"))), "");
}

TEST_F(MetaToSpanTest, LaterPlaceholdersAreFilledInEarlierValues) {
    const std::string spans =
        ToSpan("<body>" + Meta("x%TITLE%y", "1 %title%2 %Name% %index%") + "</body>");
    EXPECT_NE(spans.find("<b>{ xy (</b>1 2 xy %index%<b>) }</b>"), std::string::npos) << spans;
}

TEST_F(MetaToSpanTest, AnElementWithoutATypeHasAnEmptyName) {
    const std::string spans =
        ToSpan("<body><!--KITEMETADATA start name=\"n\"-->t<!--KITEMETADATA end--></body>");
    EXPECT_NE(spans.find("<b>{  (</b>t<b>) }</b>"), std::string::npos) << spans;
}

TEST_F(MetaToSpanTest, MistakesInTagsAreShownInTwoMessagesAndStopNothing) {
    const std::string spans = ToSpan("<body>" + Meta("a") + "<!--KITEMETADATA start type=\"b\"-->");
    const auto shown = mServices.Messages->Shown;
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0],
              "Page Layout Errors [warning] This page layout file contained one or more page "
              "layout tag formatting errors which are likely to cause malformed output. These "
              "errors must be corrected to prevent this message from appearing in future. Problem "
              "tag details follow.");
    EXPECT_TRUE(shown[1].starts_with("Page Layout Errors [warning] Line 1, column ")) << shown[1];
    EXPECT_EQ(Numbers(spans), "1 ");
}

TEST_F(MetaToSpanTest, EachConversionNumbersAnew) {
    ToSpan("<body>" + Meta("a") + Meta("b"));
    const auto first = mEdit.GetSpanProvider();
    EXPECT_EQ(Numbers(ToSpan("<body>" + Meta("b"))), "1 ");
    EXPECT_EQ(first->Elements.Count(), 0u) << "the old provider was ended";
    EXPECT_NE(first, mEdit.GetSpanProvider());
}

TEST_F(MetaToSpanTest, WithoutAParserItFailsAndIsReported) {
    CurrentServices().CreateParserTemplate = {};
    EXPECT_EQ(ToSpan("<body>a</body>"), "");
    EXPECT_NE(Messages().find("CreateParserTemplate"), std::string::npos);
}

TEST_F(MetaToSpanTest, TheProviderHasNothingElseToSay) {
    SpanProvider provider;
    provider.Elements.Add(MakeRef<ParserElement>());
    provider.ExcludedElements.Add(1, "1");
    Ref<NamespaceDef> definition;
    provider.Initialise({});
    provider.SetCurrentItem(definition, {}, "x", {});
    provider.SetCurrentRootItem(MakeRef<ParserElement>());
    EXPECT_FALSE(provider.Clone());
    EXPECT_FALSE(provider.GetCurrentItem());
    EXPECT_FALSE(provider.GetCurrentParentItem());
    EXPECT_FALSE(provider.GetCurrentRootItem());
    EXPECT_FALSE(provider.GetNamespaceDef());
    EXPECT_EQ(provider.GetCurrentItemType() + provider.GetProperty("x") +
                  provider.ParseForProperties("%%x%%"),
              "");
    EXPECT_EQ(provider.Elements.Count(), 1u);
    provider.Terminate();
    EXPECT_EQ(provider.Elements.Count(), 0u);
    EXPECT_EQ(provider.ExcludedElements.Count(), 1u);
}

} // namespace
} // namespace paperkite::test
