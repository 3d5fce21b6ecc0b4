#include "foundation/Error.h"
#include "platform/html/HtmlServices.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

Ref<HTMLDocument> Document(const std::string& body) {
    return MakeHTMLDOMFactory()->CreateFromString("<html><head></head><body>" + body +
                                                  "</body></html>");
}

std::string Body(const Ref<HTMLDocument>& document) {
    return document->GetBody()->GetInnerHTML();
}

template <class Action>
int ErrorOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        EXPECT_GT(error.GetDescription().size(), 20u);
        return error.GetNumber();
    }
    return 0;
}

/// What elements are told to have changed, by their tags.
struct Changes {
    explicit Changes(const Ref<HTMLDocument>& document)
        : Tie(document->Events.Changed.Connect([this](const Ref<HTMLElement>& element) {
              Text += (element ? element->GetTagName() : "nothing") + " ";
          })) {}

    std::string Text;
    Connection Tie;
};

TEST(GumboElementTest, TagNamesAreInUpperCaseInHtmlAndAsWrittenElsewhere) {
    const auto document = Document("<span id='a'></span><svg><linearGradient/></svg>");
    EXPECT_EQ(document->All("a")->GetTagName(), "SPAN");
    EXPECT_EQ(document->Tags("LINEARGRADIENT").at(0)->GetTagName(), "linearGradient");
}

TEST(GumboElementTest, AttributesAreFoundWithoutRegardToCase) {
    const auto document = Document("<p Title='x'>a</p>");
    const auto p = document->Tags("p").at(0);
    EXPECT_EQ(p->GetAttribute("TITLE"), "x");
    EXPECT_EQ(p->GetAttribute("id"), std::nullopt);
    p->SetAttribute("TITLE", "y & \"z\"");
    p->SetAttribute("Lang", "en");
    EXPECT_EQ(p->GetOuterHTML(), "<p title=\"y &amp; &quot;z&quot;\" lang=\"en\">a</p>");
    p->RemoveAttribute("LANG");
    p->RemoveAttribute("never");
    EXPECT_EQ(p->GetOuterHTML(), "<p title=\"y &amp; &quot;z&quot;\">a</p>");
}

TEST(GumboElementTest, AnAttributeNameThatCouldNotBeReadAgainIsRefused) {
    const auto p = Document("<p>a</p>")->Tags("p").at(0);
    for (const char* name : {"", "a b", "a=b", "a>", "a\"", "a/b"})
        EXPECT_EQ(ErrorOf([&] { p->SetAttribute(name, "x"); }), 5) << name;
    EXPECT_EQ(p->GetOuterHTML(), "<p>a</p>");
}

TEST(GumboElementTest, FragmentsAreParsedInTheContextOfTheElementThatTakesThemUp) {
    const auto document = Document("<table><tbody id='t'></tbody></table><p id='p'></p>");
    document->All("t")->SetInnerHTML("<tr><td>a</td></tr>");
    document->All("p")->SetInnerHTML("<tr><td>a</td></tr>");
    EXPECT_EQ(Body(document),
              "<table><tbody id=\"t\"><tr><td>a</td></tr></tbody></table><p id=\"p\">a</p>");
}

TEST(GumboElementTest, ScriptsAndTextAreasTakeTextAndNoTags) {
    const auto document = Document("<script></script><textarea></textarea>");
    document->Tags("script").at(0)->SetInnerHTML("a < b && '<p>'");
    document->Tags("textarea").at(0)->SetInnerHTML("<b>");
    EXPECT_EQ(Body(document), "<script>a < b && '<p>'</script><textarea>&lt;b&gt;</textarea>");
}

TEST(GumboElementTest, AnElementIsReplacedByWhatItsOuterHtmlIsSetTo) {
    const auto document = Document("<p>a</p><p id='x'>b</p><p>c</p>");
    const auto x = document->All("x");
    x->SetOuterHTML("<i>1</i>2");
    EXPECT_EQ(Body(document), "<p>a</p><i>1</i>2<p>c</p>");
    EXPECT_EQ(x->GetOuterHTML(), "<p id=\"x\">b</p>") << "it keeps what it holds";
    EXPECT_FALSE(x->GetParentElement());
    x->SetOuterHTML("<i>never</i>");
    EXPECT_EQ(Body(document), "<p>a</p><i>1</i>2<p>c</p>");
    document->Tags("i").at(0)->SetOuterHTML("");
    EXPECT_EQ(Body(document), "<p>a</p>2<p>c</p>");
}

TEST(GumboElementTest, TheRootStaysWhereItIs) {
    const auto document = Document("a");
    const auto root = document->GetDocumentElement();
    EXPECT_EQ(ErrorOf([&] { root->SetOuterHTML(""); }), 5);
    EXPECT_EQ(ErrorOf([&] { root->RemoveKeepingContents(); }), 5);
    EXPECT_EQ(ErrorOf([&] { root->InsertAdjacentHTML(InsertPosition::AfterEnd, "x"); }), 5);
    EXPECT_EQ(ErrorOf([&] {
                  document->GetBody()->InsertAdjacentElement(InsertPosition::AfterBegin, root);
              }),
              5);
    EXPECT_EQ(root->GetOuterHTML(), "<html><head></head><body>a</body></html>");
}

TEST(GumboElementTest, FragmentsGoToAnyOfTheFourPlaces) {
    const auto document = Document("<p><b id='x'>o</b></p>");
    const auto x = document->All("x");
    x->InsertAdjacentHTML(InsertPosition::BeforeBegin, "1<!--c-->");
    x->InsertAdjacentHTML(InsertPosition::AfterBegin, "2");
    x->InsertAdjacentHTML(InsertPosition::BeforeEnd, "3");
    x->InsertAdjacentHTML(InsertPosition::AfterEnd, "<!--first-->4<i>5</i>");
    EXPECT_EQ(Body(document), "<p>1<!--c--><b id=\"x\">2o3</b><!--first-->4<i>5</i></p>");
}

TEST(GumboElementTest, AnElementMovesWithWhatIsInIt) {
    const auto document = Document("<p id='a'><b>1</b></p><p id='c'>2</p>");
    const auto b = document->Tags("b").at(0);
    document->All("c")->InsertAdjacentElement(InsertPosition::AfterBegin, b);
    EXPECT_EQ(Body(document), "<p id=\"a\"></p><p id=\"c\"><b>1</b>2</p>");
    EXPECT_EQ(b->GetParentElement(), document->All("c"));
    document->All("a")->InsertAdjacentElement(InsertPosition::BeforeBegin, document->All("c"));
    EXPECT_EQ(Body(document), "<p id=\"c\"><b>1</b>2</p><p id=\"a\"></p>");
    document->All("a")->InsertAdjacentElement(InsertPosition::BeforeBegin, document->All("c"));
    EXPECT_EQ(Body(document), "<p id=\"c\"><b>1</b>2</p><p id=\"a\"></p>") << "it stands there";
}

TEST(GumboElementTest, AnElementCannotMoveIntoItself) {
    const auto document = Document("<p id='a'><b id='b'>1</b></p>");
    const auto a = document->All("a");
    const auto b = document->All("b");
    EXPECT_EQ(ErrorOf([&] { b->InsertAdjacentElement(InsertPosition::AfterBegin, a); }), 5);
    EXPECT_EQ(ErrorOf([&] { a->InsertAdjacentElement(InsertPosition::BeforeEnd, a); }), 5);
    EXPECT_EQ(Body(document), "<p id=\"a\"><b id=\"b\">1</b></p>");
}

TEST(GumboElementTest, AnElementOfAnotherDocumentBelongsToItsNewOne) {
    const auto from = Document("<p id='a'><b>1</b></p>");
    const auto to = Document("<div id='d'></div>");
    const auto a = from->All("a");
    to->All("d")->InsertAdjacentElement(InsertPosition::BeforeEnd, a);
    EXPECT_EQ(Body(from), "");
    EXPECT_EQ(Body(to), "<div id=\"d\"><p id=\"a\"><b>1</b></p></div>");
    EXPECT_EQ(a->Tags("b").at(0)->GetDocument(), to);
    EXPECT_FALSE(from->All("a"));
    EXPECT_EQ(to->All("a"), a);
}

TEST(GumboElementTest, ElementsWithoutContentsTakeNone) {
    const auto br = Document("a<br>")->Tags("br").at(0);
    EXPECT_EQ(ErrorOf([&] { br->SetInnerHTML("x"); }), 5);
    EXPECT_EQ(ErrorOf([&] { br->InsertAdjacentHTML(InsertPosition::AfterBegin, "x"); }), 5);
    EXPECT_EQ(br->GetOuterHTML(), "<br>");
}

TEST(GumboElementTest, ContentsStayWhenTheirElementGoes) {
    const auto document = Document("a<span id='s'>b<i>c</i></span>d");
    document->All("s")->RemoveKeepingContents();
    EXPECT_EQ(Body(document), "ab<i>c</i>d");
}

TEST(GumboElementTest, TheTextIsThatWithoutTagsScriptsAndComments) {
    const auto document = Document("a<b>b&amp;</b><!--c--><script>d</script><style>e</style>f");
    EXPECT_EQ(document->GetBody()->GetInnerText(), "ab&f");
}

TEST(GumboElementTest, TagsComeInDocumentOrderThoseOfTemplatesToo) {
    const auto document =
        Document("<b id='1'><i><b id='2'></b></i></b><template><b id='3'></b></template>");
    std::string ids;
    for (const auto& element : document->GetBody()->Tags("B"))
        ids += element->GetId();
    EXPECT_EQ(ids, "123");
    EXPECT_EQ(document->GetBody()->Tags("*").size(), 5u);
}

TEST(GumboElementTest, AnElementOutlivesItsParentAndItsDocument) {
    auto document = Document("<div><p id='p'><b>x</b></p></div>");
    const auto p = document->All("p");
    const auto b = document->Tags("b").at(0);
    document = {};
    EXPECT_FALSE(p->GetParentElement());
    EXPECT_FALSE(p->GetDocument());
    EXPECT_EQ(p->GetOuterHTML(), "<p id=\"p\"><b>x</b></p>");
    EXPECT_EQ(b->GetParentElement(), p);
    p->SetInnerHTML("<u>y</u>");
    EXPECT_EQ(p->GetInnerHTML(), "<u>y</u>");
    EXPECT_FALSE(b->GetParentElement());
}

TEST(GumboElementTest, ChangesAreToldWithTheElementThatHoldsThem) {
    const auto document = Document("<p><b id='b'>1</b></p><i></i>");
    Changes changes(document);
    const auto b = document->All("b");
    b->SetInnerHTML("2");
    b->SetAttribute("title", "x");
    b->SetAttribute("title", "x");
    b->InsertAdjacentHTML(InsertPosition::AfterEnd, "3");
    document->Tags("i").at(0)->InsertAdjacentElement(InsertPosition::AfterBegin, b);
    b->RemoveKeepingContents();
    EXPECT_EQ(changes.Text, "B B P P I I ");
}

TEST(GumboElementTest, ChangesOutsideTheDocumentAreNotTold) {
    const auto document = Document("<p></p>");
    Changes changes(document);
    const auto element = document->CreateElement("SPAN");
    element->SetInnerHTML("a");
    element->SetId("x");
    EXPECT_EQ(changes.Text, "");
    EXPECT_EQ(element->GetOuterHTML(), "<span id=\"x\">a</span>");
    EXPECT_EQ(element->GetDocument(), document);
}

TEST(GumboElementTest, AHandlerMayLetGoOfTheDocument) {
    auto document = Document("<p></p>");
    const auto p = document->Tags("p").at(0);
    auto tie = document->Events.Changed.Connect([&](const auto&) { document = {}; });
    p->SetInnerHTML("x");
    EXPECT_FALSE(p->GetDocument());
    EXPECT_EQ(p->GetOuterHTML(), "<p>x</p>");
}

} // namespace
} // namespace paperkite::test
