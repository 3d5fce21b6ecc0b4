#include "platform/html/GumboDocument.h"
#include "foundation/Error.h"
#include "platform/html/HtmlServices.h"
#include "platform/html/NestingDepth.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

Ref<HTMLDocument> Parse(const std::string& html) {
    return MakeHTMLDOMFactory()->CreateFromString(html);
}

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t count = 0; count < times; ++count)
        all += text;
    return all;
}

TEST(GumboDocumentTest, EveryTextGivesADocument) {
    EXPECT_EQ(Parse("")->Serialise(), "<html><head></head><body></body></html>");
    EXPECT_EQ(Parse("a")->GetBody()->GetInnerHTML(), "a");
    EXPECT_EQ(Parse("\xEF\xBB\xBF<p>a</p>")->Serialise(),
              "<html><head></head><body><p>a</p></body></html>");
    EXPECT_EQ(Parse(std::string("a\0b", 3))->GetBody()->GetInnerText(), "a\xEF\xBF\xBD"
                                                                        "b");
    EXPECT_EQ(Parse("a\xFFz")->GetBody()->GetInnerText(), "a\xEF\xBF\xBDz");
}

TEST(GumboDocumentTest, TheDocumentTypeStaysWithItsIdentifiers) {
    EXPECT_EQ(Parse("<!doctype HTML><p>a")->Serialise(),
              "<!DOCTYPE html><html><head></head><body><p>a</p></body></html>");
    const std::string old = "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\" "
                            "\"http://www.w3.org/TR/html4/strict.dtd\">";
    EXPECT_TRUE(Parse(old + "a")->Serialise().starts_with(old + "<html>"));
    EXPECT_TRUE(Parse("<!DOCTYPE html SYSTEM 'about:legacy-compat'>")
                    ->Serialise()
                    .starts_with("<!DOCTYPE html SYSTEM \"about:legacy-compat\"><html>"));
}

TEST(GumboDocumentTest, CommentsAroundTheRootStay) {
    EXPECT_EQ(Parse("<!--a--><html><!--b--><body>c</body></html><!--d-->")->Serialise(),
              "<!--a--><html><!--b--><head></head><body>c</body></html><!--d-->");
}

TEST(GumboDocumentTest, AllFindsTheFirstIdAndElseTheFirstName) {
    const auto document = Parse("<p name='x'>1</p><p id='x'>2</p><p id='x'>3</p><p name='y'>4</p>");
    EXPECT_EQ(document->All("x")->GetInnerHTML(), "2");
    EXPECT_EQ(document->All("y")->GetInnerHTML(), "4");
    EXPECT_FALSE(document->All("X"));
    EXPECT_FALSE(document->All(""));
}

TEST(GumboDocumentTest, AllFollowsEveryChange) {
    const auto document = Parse("<div id='d'><p id='x'>1</p></div><p id='y'>2</p>");
    document->All("d")->InsertAdjacentHTML(InsertPosition::AfterBegin, "<i id='x'>0</i>");
    EXPECT_EQ(document->All("x")->GetInnerHTML(), "0") << "the first in the document, not in time";
    document->All("x")->SetOuterHTML("");
    EXPECT_EQ(document->All("x")->GetInnerHTML(), "1");
    document->All("x")->SetId("z");
    EXPECT_FALSE(document->All("x"));
    EXPECT_EQ(document->All("z")->GetInnerHTML(), "1");
    document->All("z")->RemoveAttribute("id");
    EXPECT_FALSE(document->All("z"));
    document->All("d")->SetInnerHTML("<u id='n'><b id='m'></b></u>");
    EXPECT_TRUE(document->All("m"));
    document->All("n")->RemoveKeepingContents();
    EXPECT_FALSE(document->All("n"));
    EXPECT_TRUE(document->All("m"));
    document->All("d")->SetOuterHTML("<p id='q'></p>");
    EXPECT_FALSE(document->All("m"));
    EXPECT_TRUE(document->All("q"));
}

TEST(GumboDocumentTest, AnElementNameThatCouldNotBeReadAgainIsRefused) {
    const auto document = Parse("");
    for (const char* name : {"", "1a", "a b", "a>", "a/"})
        EXPECT_THROW(document->CreateElement(name), Error) << name;
    EXPECT_EQ(document->CreateElement("X-Card")->GetOuterHTML(), "<x-card></x-card>");
}

TEST(GumboDocumentTest, TenThousandElementsInsideEachOtherAreRead) {
    const std::size_t depth = 10'000;
    const auto document = Parse(Repeated("<div>", depth) + "x");
    const std::string text = document->Serialise();
    EXPECT_EQ(document->Tags("div").size(), depth);
    EXPECT_EQ(text, "<html><head></head><body>" + Repeated("<div>", depth) + "x" +
                        Repeated("</div>", depth) + "</body></html>");
    const auto first = document->Tags("div").front();
    first->SetOuterHTML("");
    EXPECT_EQ(first->Tags("div").size(), depth - 1);
}

TEST(GumboDocumentTest, ATextThatNestsDeeperIsRefusedWithItsPlace) {
    const std::string html = "<p>first line\n" + Repeated("<b>", 10'000'000);
    try {
        Parse(html);
        FAIL() << "it was read";
    } catch (const Error& error) {
        EXPECT_EQ(error.GetNumber(), 5);
        EXPECT_NE(error.GetDescription().find("nests deeper than 20000 elements in line 2"),
                  std::string::npos)
            << error.GetDescription();
    }
}

TEST(NestingDepthTest, TagsThatEndByThemselvesDoNotNest) {
    const std::size_t npos = std::string::npos;
    EXPECT_EQ(FindTooDeep(Repeated("<p>a<b>b</b>", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep("<ul>" + Repeated("<li>a", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep("<table>" + Repeated("<tr><td>a<td>b", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep("<select>" + Repeated("<option>a", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep(Repeated("<br><img src='a'><hr>", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep(Repeated("<a href='x'>y", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep(Repeated("<script>'<b><b><b>'</script><!--<b>-->", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep("<svg>" + Repeated("<path d='x'/>", 1000), 10), npos);
    EXPECT_EQ(FindTooDeep(Repeated("<i>", 11), 10), 30u);
    EXPECT_NE(FindTooDeep(Repeated("<ul><li>", 1000), 10), npos);
    EXPECT_NE(FindTooDeep(Repeated("<table><tr><td>", 1000), 10), npos);
}

TEST(GumboDOMFactoryTest, FilesAreReadAndWhatIsMissingIsNamed) {
    const auto factory = MakeHTMLDOMFactory();
    const auto folder = std::filesystem::temp_directory_path();
    const auto file = folder / "paperkite-dom-test.html";
    std::ofstream(file, std::ios::binary) << "<p>from a file</p>";
    EXPECT_EQ(factory->CreateFromFile(file.string())->GetBody()->GetInnerHTML(),
              "<p>from a file</p>");
    std::filesystem::remove(file);
    const auto errorOf = [&](const std::filesystem::path& path) {
        try {
            factory->CreateFromFile(path.string());
        } catch (const Error& error) {
            EXPECT_NE(error.GetDescription().find(path.string()), std::string::npos);
            return error.GetNumber();
        }
        return 0;
    };
    EXPECT_EQ(errorOf(file), 53);
    EXPECT_EQ(errorOf(folder), 75);
}

} // namespace
} // namespace paperkite::test
