#include "commenttexts/LinkTarget.h"

#include <gtest/gtest.h>

#include <string>

namespace paperkite {
namespace {

using Kind = LinkTarget::Kind;

Kind KindOf(const std::string& address) {
    return LinkTarget::Of(address).What;
}

std::string ProblemOf(const std::string& address) {
    const LinkTarget target = LinkTarget::Of(address);
    return target.What == Kind::Malformed ? target.Problem : "none";
}

TEST(LinkTargetTest, PagesAndFilesAreFiles) {
    for (const char* address : {"zoo~Dog.html", "zoo~Dog~Get(const%20Slice&).html", "zoo~Dog",
                                "../pictures/dog.png", "std::map", "a?b:c"})
        EXPECT_EQ(KindOf(address), Kind::File) << address;
    EXPECT_EQ(LinkTarget::Of(" zoo~Dog.html?x=1#age\n").File, "zoo~Dog.html");
    EXPECT_EQ(LinkTarget::Of(" zoo~Dog.html#age\n").Address, "zoo~Dog.html#age");
}

TEST(LinkTargetTest, WholePathsLoseTheirScheme) {
    for (const auto& [address, file] :
         {std::pair("file:///home/a/b.html#c", "/home/a/b.html"),
          std::pair("FILE://localhost/a.html", "/a.html"),
          std::pair("file:///C:/a.htm", "C:/a.htm"), std::pair("C:\\a\\b.htm", "C:\\a\\b.htm"),
          std::pair("/a/b.html", "/a/b.html")}) {
        EXPECT_EQ(KindOf(address), Kind::LocalFile) << address;
        EXPECT_EQ(LinkTarget::Of(address).File, file);
    }
    EXPECT_EQ(ProblemOf("file:"), "The address names no file. Write its path, or take the link "
                                  "away.");
    EXPECT_NE(ProblemOf("?x"), "none");
}

TEST(LinkTargetTest, BookmarksAndWhatLiesOutsideAreToldApart) {
    EXPECT_EQ(KindOf("#"), Kind::Bookmark);
    EXPECT_EQ(KindOf("#age"), Kind::Bookmark);
    for (const char* address :
         {"http://a", "HTTPS://a/b?c#d", "mailto:a@b.org", "tel:1", "ftp://host/", "news:comp"})
        EXPECT_EQ(KindOf(address), Kind::Outside) << address;
    for (const char* address : {"http://", "http:", "https:a", "https:///path", "mailto:", "tel: "})
        EXPECT_NE(ProblemOf(address), "none") << address;
}

TEST(LinkTargetTest, NoHostHoldsBlanksQuotesOrAngleBrackets) {
    for (const char* address :
         {"http://exa mple.org", "https://a\"b/c", "http://<host>/", "ftp://a>b"})
        EXPECT_NE(ProblemOf(address).find("holds a blank, a quote"), std::string::npos) << address;
    EXPECT_EQ(KindOf("http://example.org/a b\"c<d>?e f"), Kind::Outside);
}

TEST(LinkTargetTest, AHelpTopicHasAFileAndATopic) {
    EXPECT_EQ(KindOf("ms-its:help.chm::/pages/a.htm"), Kind::HelpTopic);
    EXPECT_EQ(KindOf("ms-its:my help.chm::/a b.htm.html"), Kind::HelpTopic);
    for (const char* address :
         {"ms-its:", "ms-its:::/", "ms-its:help.chm", "ms-its:help.chm::/", "ms-its:::/a.htm",
          "ms-its:a::/b::/c", "ms-its:  ::/a", "ms-its:ms-its:a::/b::/c"})
        EXPECT_NE(ProblemOf(address).find("\"ms-its:file.chm::/topic.htm\""), std::string::npos)
            << address;
    EXPECT_NE(ProblemOf("MS-ITS:help.chm::/a.htm").find("small letters"), std::string::npos);
}

TEST(LinkTargetTest, ATopicOfACollectionHasThreePieces) {
    EXPECT_EQ(KindOf("ms-help://NS/ID/topic.htm"), Kind::HelpTopic);
    for (const char* address :
         {"ms-help://", "ms-help:////", "ms-help://NS", "ms-help://NS/ID", "ms-help://NS/ID/",
          "ms-help://NS//topic.htm", "ms-help:// /ID/topic.htm", "ms-help://NS/ID/sub/topic.htm"})
        EXPECT_NE(ProblemOf(address).find("these three pieces"), std::string::npos) << address;
    for (const char* address : {"Ms-Help://NS/ID/a.htm", "ms-help:/NS/ID/a.htm"})
        EXPECT_NE(ProblemOf(address).find("small letters"), std::string::npos) << address;
}

TEST(LinkTargetTest, ScriptsControlsAndNothingAreMalformed) {
    for (const char* address : {"javascript:alert(1)", "JavaScript:x", "javascript::x",
                                " \x01javascript:x", "vbscript:x"})
        EXPECT_NE(ProblemOf(address).find("is a script"), std::string::npos) << address;
    for (const std::string& address : {std::string("java\nscript:x"), std::string("a\tb.html"),
                                       std::string("a\0b", 3), std::string("http://a\x7F/")})
        EXPECT_NE(ProblemOf(address).find("control character"), std::string::npos) << address;
    for (const char* address : {"", " ", "\n\t"})
        EXPECT_NE(ProblemOf(address).find("has no address"), std::string::npos) << address;
}

TEST(LinkTargetTest, AHundredThousandCharactersAreReadLikeAFew) {
    const std::string many(100'000, 'a');
    EXPECT_EQ(LinkTarget::Of(many + ".html").File, many + ".html");
    EXPECT_EQ(KindOf("ms-its:" + many + "::/" + many), Kind::HelpTopic);
    EXPECT_EQ(KindOf("ms-help://" + many + "/" + many + "/" + many), Kind::HelpTopic);
    EXPECT_EQ(KindOf("https://" + many), Kind::Outside);
    std::string slashes = "ms-help://";
    for (int piece = 0; piece < 50'000; ++piece)
        slashes += "a/";
    EXPECT_EQ(KindOf(slashes), Kind::Malformed);
    EXPECT_LT(ProblemOf(slashes).size(), 300u) << "the problem does not repeat the address";
}

TEST(LinkTargetTest, OnlyWholePercentCodesAreDecoded) {
    EXPECT_EQ(PercentDecoded("a%20b%C3%A4%2"), "a bä%2");
    EXPECT_EQ(PercentDecoded("%zz%%41%"), "%zz%A%");
}

} // namespace
} // namespace paperkite
