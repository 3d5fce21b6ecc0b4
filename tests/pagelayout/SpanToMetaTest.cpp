#include "pagelayout/LayoutText.h"
#include "pagelayout/PageLayoutFixture.h"

namespace paperkite::test {
namespace {

/// Gives texts back, for tests of what stands around.
class NoTidy : public HTMLTidy {
public:
    std::string TidyHTML(const std::string& html, bool bodyOnly) override {
        BodyOnly = bodyOnly;
        return Answer.empty() ? html : Answer;
    }
    std::string Answer;
    bool BodyOnly = true;
};

class SpanToMetaTest : public PageLayoutFixture {
protected:
    SpanToMetaTest() { CurrentServices().HTMLTidy = mTidy; }

    static std::string Page(const std::string& body, const std::string& head = {}) {
        return "<html><head>" + head + "</head><body>" + body + "</body></html>";
    }

    std::shared_ptr<NoTidy> mTidy = std::make_shared<NoTidy>();
};

TEST_F(SpanToMetaTest, EachSpanBecomesItsElement) {
    const std::string html = Page("<p>a " + Meta("x", "<b>1</b>") + " b</p>" + Meta("y") + "<div>" +
                                  Meta("z", "3") + "</div>");
    EXPECT_EQ(ToMeta(ToSpan(html)), html);
    EXPECT_FALSE(mTidy->BodyOnly);
}

TEST_F(SpanToMetaTest, AnElementWhereNoSpanMayStandStaysInItsPlace) {
    for (const std::string& place :
         {"<table><tbody>" + Meta("rows", "R") + "<tr><td>a</td></tr></tbody></table>",
          "<select><option>a</option>" + Meta("options") + "</select>",
          "<p><a href=\"" + Meta("address") + "\">a</a></p>",
          "<textarea>a " + Meta("text") + "</textarea>", "<script>" + Meta("code") + "</script>"}) {
        const std::string spans = ToSpan(Page(place));
        EXPECT_EQ(Numbers(spans), "1 ") << place;
        EXPECT_EQ(ToMeta(spans), Page(place));
    }
    EXPECT_EQ(Messages(), "");
}

TEST_F(SpanToMetaTest, ASpanThatAnEngineWroteInItsOwnWayIsReplacedToo) {
    const std::string html = Page("<p>a " + Meta("x", "1") + " b " + Meta("y", "2") + "</p>");
    const std::string spans =
        ReplaceAll(ToSpan(html), "color: Highlight; background-color: InactiveCaptionText;",
                   "color: highlight");
    EXPECT_EQ(ToMeta(spans), html);
}

TEST_F(SpanToMetaTest, SpansInFrontOfTheBodyAndBehindItAreNotLost) {
    const std::string span = ToSpan(Page(Meta("x", "1")));
    const std::size_t from = span.find("<span"), to = span.find("</body>");
    const std::string own = span.substr(from, to - from);
    for (const std::string& text :
         {own + "<html><body>a</body></html>",
          "<html><head>" + own + "</head><body>a</body></html>",
          "<html><body>a</body>" + own + "</html>", "<html><body>a</body></html>" + own}) {
        const std::string meta = ToMeta(text);
        EXPECT_NE(meta.find(Meta("x", "1")), std::string::npos) << text << "\n" << meta;
        EXPECT_EQ(meta.find("metaspan"), std::string::npos) << meta;
    }
}

TEST_F(SpanToMetaTest, ExcludedElementsComeThroughUntouched) {
    const std::string html = Page("<table><tbody><tr>" + Meta("b") + "<td>" + Meta("c") + "</td>" +
                                      Meta("d") + "</tr></tbody></table>",
                                  "<title>t</title>" + Meta("a"));
    const std::string spans = ToSpan(html);
    EXPECT_EQ(Numbers(spans), "3 ");
    EXPECT_EQ(ToMeta(spans), html);
}

TEST_F(SpanToMetaTest, AnElementInATitleComesThrough) {
    for (const char* tag : {"title", "textarea"}) {
        const std::string name = tag;
        const std::string html = "<html><head><title>t</title></head><p><" + name + ">a " +
                                 Meta("title", "T & <b>") + " b</" + name + "></p></html>";
        const std::string meta = ToMeta(ToSpan(html));
        EXPECT_NE(meta.find(">a " + Meta("title", "T & <b>") + " b</"), std::string::npos) << meta;
        EXPECT_EQ(meta.find("kitekept"), std::string::npos) << meta;
    }
    const std::string html = Page(Meta("x"), "<title>" + Meta("title", "T") + "</title><style>" +
                                                 Meta("s") + "</style>");
    EXPECT_EQ(ToMeta(ToSpan(html)), html);
    EXPECT_EQ(Messages(), "");
}

TEST_F(SpanToMetaTest, AnElementThatTheDocumentCannotHoldIsReportedInsteadOfLost) {
    const std::string html = "<!DOCTYPE html>" + Meta("early") + Page("a");
    EXPECT_EQ(ToMeta(ToSpan(html)), "");
    EXPECT_NE(Messages().find("type=\"early\"--> would be lost"), std::string::npos);
}

TEST_F(SpanToMetaTest, SpansBetweenTagsThatWereRefusedAreReplaced) {
    const std::string twice = "<!--KITEMETADATA start type=\"a\" type=\"b\"-->";
    const std::string html =
        Page(twice + "x" + Meta("c", "t") + "y<!--KITEMETADATA end-->",
             "<!--kitemetadata start--><meta name=\"generator\" content=\"\"><!--kitemetadata "
             "end-->");
    const std::string spans = ToSpan(html);
    EXPECT_EQ(Numbers(spans), "1 ");
    EXPECT_EQ(ToMeta(spans), ReplaceAll(html, "content=\"\"",
                                        "content=\"Brindlewick Paperkite "
                                        "(https://www.brindlewick.example/)\""));
}

TEST_F(SpanToMetaTest, TheGeneratorTagBetweenRefusedTagsIsRenamed) {
    const std::string twice = "<!--KITEMETADATA start type=\"a\" type=\"b\"-->";
    const std::string meta = ToMeta(
        ToSpan(Page("a", twice + "<meta name=\"generator\" content=\"\"><!--KITEMETADATA end-->")));
    EXPECT_NE(meta.find("content=\"Brindlewick Paperkite "), std::string::npos) << meta;
}

TEST_F(SpanToMetaTest, AnElementInTheTextOfAnElementComesBackWithIt) {
    const std::string html = Page("1" + Meta("a", "x" + Meta("b") + "y"));
    const std::string spans = ToSpan(html);
    EXPECT_NE(spans.find(Meta("b")), std::string::npos) << "the span shows the text as it is";
    EXPECT_EQ(ToMeta(spans), html);
    EXPECT_EQ(Messages(), "");
}

TEST_F(SpanToMetaTest, AnElementWhoseTextIsRowsWithElementsComesBackOnce) {
    const std::string html = Page("<table><tbody>\n" +
                                  Meta("rows", "\n<tr><td>" + Meta("name", "N") + "</td><td>" +
                                                   Meta("kind") + "</td></tr>\n") +
                                  "\n</tbody></table>");
    const std::string spans = ToSpan(html);
    EXPECT_EQ(Numbers(spans), "1 ");
    EXPECT_EQ(ToMeta(spans), html);
    EXPECT_EQ(Messages(), "");
}

TEST_F(SpanToMetaTest, ASpanInsideATagIsReportedInsteadOfLost) {
    EXPECT_EQ(ToMeta(ToSpan(Page("<p>a</p><a " + Meta("x") + "\n>b</a>"))), "");
    EXPECT_NE(Messages().find("would be lost where it stands"), std::string::npos);
}

TEST_F(SpanToMetaTest, TheBodyEndsAtItsEndTagAndNotInAScript) {
    const std::string html = Page("<script>'</body></html>'</script><p title=\"" + Meta("a") +
                                  "\">" + Meta("b") + "</p>");
    EXPECT_EQ(ToMeta(ToSpan(html)), html);
}

TEST_F(SpanToMetaTest, TheProviderMakesNoSpansBehindTheConversion) {
    const std::string spans = ToSpan(Page("1" + Meta("a")));
    EXPECT_TRUE(mEdit.GetSpanProvider()->OutputSpans);
    ToMeta(spans);
    EXPECT_FALSE(mEdit.GetSpanProvider()->OutputSpans);
}

TEST_F(SpanToMetaTest, WhatStandsInFrontOfTheRootIsLost) {
    EXPECT_EQ(ToMeta(ToSpan("<!DOCTYPE html>\n" + Page(Meta("a")))), Page(Meta("a")));
}

TEST_F(SpanToMetaTest, ARemovedSpanLeavesNoTraceAndTheNextConversionRenumbers) {
    std::string spans = ToSpan(Page("1" + Meta("a") + "2" + Meta("b") + "3"));
    const std::size_t from = spans.find("<span id=\"metaspanstart1\"");
    spans.erase(from, spans.find("</span>") + 7 - from);
    const std::string meta = ToMeta(spans);
    EXPECT_EQ(meta, Page("12" + Meta("b") + "3"));
    EXPECT_EQ(Numbers(ToSpan(meta)), "1 ");
}

TEST_F(SpanToMetaTest, ADoubledSpanGivesItsElementTwice) {
    const std::string spans = ToSpan(Page("1" + Meta("a")));
    const std::size_t from = spans.find("<span");
    const std::string span = spans.substr(from, spans.find("</span>") + 7 - from);
    EXPECT_EQ(ToMeta(Page(span + "," + span)), Page(Meta("a") + "," + Meta("a")));
}

TEST_F(SpanToMetaTest, AMovedSpanTakesItsElementAlong) {
    std::string spans = ToSpan(Page("<p>1" + Meta("a") + "</p><p>2" + Meta("b") + "</p>"));
    const std::size_t from = spans.find("<span"), to = spans.find("</span>") + 7;
    const std::string span = spans.substr(from, to - from);
    spans.erase(from, span.size());
    spans.insert(spans.rfind("</p>"), span);
    const std::string meta = ToMeta(spans);
    EXPECT_EQ(meta, Page("<p>1</p><p>2" + Meta("b") + Meta("a") + "</p>"));
    EXPECT_EQ(Numbers(ToSpan(meta)), "1 2 ") << "they are numbered anew in their order";
}

TEST_F(SpanToMetaTest, TheTextInsideASpanIsNeverRead) {
    ToSpan(Page("1" + Meta("a", "kept")));
    EXPECT_EQ(ToMeta(Page("<span id=\"metaspanstart1\">anything <i>else</i></span>")),
              Page(Meta("a", "kept")));
}

TEST_F(SpanToMetaTest, AnElementThatWasChangedIsWrittenAsItIsNow) {
    const std::string spans = ToSpan(Page("1" + Meta("a", "old")));
    mEdit.GetSpanProvider()->Elements.Item(std::size_t{1})->Text = "new";
    EXPECT_EQ(ToMeta(spans), Page("1" + Meta("a", "new")));
}

TEST_F(SpanToMetaTest, OnlySpansWithExactlyThatIdAreReplaced) {
    ToSpan(Page(Meta("a")));
    const std::string others = "<span id=\"MetaSpanStart1\">x</span><b id=\"metaspanstart1\">y</b>"
                               "<span id=\"metaspan1\">z</span><span>u</span>";
    EXPECT_EQ(ToMeta(Page(others)), Page(others));
}

TEST_F(SpanToMetaTest, TheNumberIsReadLeniently) {
    ToSpan(Page("1" + Meta("a")));
    EXPECT_EQ(ToMeta(Page("<span id=\"metaspanstart1copy\">x</span>")), Page(Meta("a")));
}

TEST_F(SpanToMetaTest, ASpanWithoutAnElementEndsTheConversionWithAReport) {
    for (const char* number : {"3", "0", "-1", "x", ""}) {
        ToSpan(Page("1" + Meta("a") + Meta("b")));
        EXPECT_EQ(ToMeta(Page("<span id=\"metaspanstart" + std::string(number) + "\">x</span>")),
                  "");
        EXPECT_NE(Messages().find("ConvertSpanDocumentToMetaDocument"), std::string::npos);
    }
}

TEST_F(SpanToMetaTest, WithoutAnEarlierConversionItFailsAtOnce) {
    EXPECT_EQ(ToMeta(Page("a")), "");
    EXPECT_NE(Messages().find("(91)"), std::string::npos);
}

TEST_F(SpanToMetaTest, ASpanInsideAnotherOneGoesWithIt) {
    ToSpan(Page("1" + Meta("a") + Meta("b")));
    EXPECT_EQ(
        ToMeta(Page("<span id=\"metaspanstart1\">x<span id=\"metaspanstart2\">y</span></span>")),
        Page(Meta("a")));
    EXPECT_EQ(Messages(), "");
}

TEST_F(SpanToMetaTest, TheGeneratorTagNamesTheTool) {
    const std::string spans = ToSpan(Page(
        "a", "<meta name=\"GENERATOR\" content=\"some editor\"><meta name=\"x\" content=\"y\">"));
    EXPECT_EQ(ToMeta(spans),
              Page("a", "<meta name=\"GENERATOR\" content=\"Brindlewick Paperkite "
                        "(https://www.brindlewick.example/)\"><meta name=\"x\" content=\"y\">"));
    UseMoniker("Kite.WeaverStudio");
    EXPECT_EQ(ToMeta(spans),
              Page("a", "<meta name=\"GENERATOR\" content=\"Brindlewick Weaverstudio "
                        "(https://www.brindlewick.example/)\"><meta name=\"x\" content=\"y\">"));
}

TEST_F(SpanToMetaTest, ALayoutWithoutAGeneratorTagGetsNone) {
    EXPECT_EQ(ToMeta(ToSpan(Page("a"))), Page("a"));
}

TEST_F(SpanToMetaTest, TheTemplateIsHeldWeakly) {
    const std::string spans = ToSpan(Page("a", "<meta name=\"generator\" content=\"\">"));
    mTemplate = {};
    EXPECT_FALSE(mEdit.GetTemplate());
    EXPECT_EQ(ToMeta(spans), "") << "nobody knows the tool";
    EXPECT_NE(Messages().find("(91)"), std::string::npos);
}

TEST_F(SpanToMetaTest, TitlesThatWereAddedAreTakenAway) {
    ToSpan(Page("a"));
    mTidy->Answer = "<head>\n        <TITLE></TITLE>\n        <title></title>\n"
                    "       <title></title>\n        <title>x</title>\n</head>";
    EXPECT_EQ(ToMeta(Page("a")),
              "<head>\n       <title></title>\n        <title>x</title>\n</head>");
}

TEST_F(SpanToMetaTest, TheHelpNamespaceIsWrittenWithoutBlanks) {
    ToSpan(Page("a"));
    mTidy->Answer = "<html XMLNS:MSHelp = \"http://msdn.microsoft.com/mshelp\" a = \"b\">"
                    "<p xmlns:mshelp  =   'http://msdn.microsoft.com/mshelp'>"
                    "xmlns:mshelp = \"http://msdn.microsoft.com/mshelp\"</p></html>";
    EXPECT_EQ(ToMeta(Page("a")),
              "<html XMLNS:MSHelp=\"http://msdn.microsoft.com/mshelp\" a = \"b\">"
              "<p xmlns:mshelp='http://msdn.microsoft.com/mshelp'>"
              "xmlns:mshelp = \"http://msdn.microsoft.com/mshelp\"</p></html>");
}

TEST_F(SpanToMetaTest, WithTheRealTidyALayoutSettles) {
    CurrentServices().HTMLTidy = MakeHTMLTidy();
    const std::string html =
        "<!DOCTYPE html>\n<HTML xmlns:mshelp = 'http://msdn.microsoft.com/mshelp'><head>"
        "<link rel=stylesheet href=a.css><style>p { color: red }</style></head><body><h1>" +
        Meta("title", "Title") + "</h1><table><tr>" + Meta("row") + "<td>" + Meta("cell") +
        "<td>x</table><p>" + Meta("text") +
        " and <mshelp:link keywords=k>link</mshelp:link></body>";
    const std::string once = ToMeta(ToSpan(html));
    EXPECT_NE(once.find("<html xmlns:mshelp=\"http://msdn.microsoft.com/mshelp\">"),
              std::string::npos);
    for (const char* type : {"title", "row", "cell", "text"})
        EXPECT_NE(once.find(Meta(type).substr(0, 30)), std::string::npos) << type;
    EXPECT_EQ(once.find("<title>"), std::string::npos) << "none is added";
    EXPECT_EQ(ToMeta(ToSpan(once)), once);
    EXPECT_EQ(Messages(), "");
}

using SpanIdTest = PageLayoutFixture;

TEST_F(SpanIdTest, TheIndexIsReadFromBothFormsOfId) {
    EXPECT_EQ(mEdit.GetSpanIndex("metaspanstart12"), 12);
    EXPECT_EQ(mEdit.GetSpanIndex("MetaSpanSTART7"), 7);
    EXPECT_EQ(mEdit.GetSpanIndex("metaspanend34"), 34);
    EXPECT_EQ(mEdit.GetSpanIndex(""), 0);
    EXPECT_EQ(mEdit.GetSpanIndex("header"), 0);
    EXPECT_EQ(Messages(), "");
}

TEST_F(SpanIdTest, AnIndexThatIsNoNumberIsReportedAndZero) {
    for (const char* id : {"metaspanstartx", "metaspan", "metaspanstart1x", "metaspanstart"}) {
        EXPECT_EQ(mEdit.GetSpanIndex(id), 0) << id;
        EXPECT_NE(Messages().find("GetSpanIndex"), std::string::npos) << id;
    }
    EXPECT_EQ(mEdit.GetSpanIndex("metaspanstart99999999999"), 0);
    EXPECT_NE(Messages().find("(6)"), std::string::npos);
}

TEST_F(SpanIdTest, AnElementInASpanOfTheFamilyIsInside) {
    const auto document = MakeHTMLDOMFactory()->CreateFromString(
        "<p id='metaspan'><span id='MetaSpanX'><b><i id='in'></i></b></span><u id='out'></u></p>");
    Ref<HTMLElement> span;
    EXPECT_TRUE(mEdit.IsInsideMetaSpan(document->All("in"), &span));
    EXPECT_EQ(span->GetId(), "MetaSpanX");
    EXPECT_TRUE(mEdit.IsInsideMetaSpan(document->All("MetaSpanX"))) << "the root itself counts";
    Ref<HTMLElement> none;
    EXPECT_FALSE(mEdit.IsInsideMetaSpan(document->All("out"), &none));
    EXPECT_FALSE(none);
    EXPECT_FALSE(mEdit.IsInsideMetaSpan({}));
}

TEST_F(SpanIdTest, TheMembersOfTheTagTableDoNothing) {
    ToSpan("<body>" + Meta("a"));
    mEdit.AddMetaTag("a", "b", "c", "d", "e", "f");
    mEdit.SetUsePaperkite4MetaTags(true);
    mEdit.ReloadDefaultTags();
    mEdit.RemoveMetaTag("a");
    mEdit.CheckForMissing();
    EXPECT_EQ(mEdit.MetaTagCount(), 0);
    EXPECT_FALSE(mEdit.GetUsePaperkite4MetaTags());
    EXPECT_EQ(mEdit.GetMetaDataProperty(1, "type"), "");
    EXPECT_EQ(mEdit.GetMetaDataProperty(1, "type", "default"), "");
    EXPECT_EQ(Numbers(ToSpan("<body>" + Meta("a"))), "1 ");
}

TEST_F(SpanToMetaTest, AnElementInATextAreaBehindTheBodyIsToldInsteadOfLost) {
    const std::string spans =
        ToSpan("<html><body><p>x</p></body></html>e<textarea>" + Meta("t") + "</textarea>");
    EXPECT_EQ(ToMeta(spans), "");
    EXPECT_FALSE(Messages().empty());
}

} // namespace
} // namespace paperkite::test
