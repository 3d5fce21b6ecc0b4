#include "foundation/HtmlSearch.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

SearchOptions Options(const std::string& text, const std::string& flags = {}) {
    const auto has = [&](char flag) { return flags.find(flag) != std::string::npos; };
    return {text, has('w'), has('c'), has('h')};
}

/// The source with every hit replaced; flags: w whole word, c case, h HTML.
std::string Replaced(const std::string& html, const std::string& text, const std::string& by,
                     const std::string& flags = {}) {
    return HtmlSearch(Options(text, flags)).ReplaceAll(html, by);
}

std::size_t Count(const std::string& html, const std::string& text, const std::string& flags = {}) {
    const HtmlSearch search(Options(text, flags));
    const std::size_t quick = search.Find(std::string_view(html)).size();
    EXPECT_EQ(quick, search.Find(HtmlText(html)).size()) << "the quick look missed some";
    return quick;
}

TEST(HtmlSearchTest, FindsWhatAReaderSees) {
    EXPECT_EQ(Count("<p>The key, the KEY</p>", "key"), 2u);
    EXPECT_EQ(Count("<p class=\"key\">x</p>", "key"), 0u) << "attributes are not seen";
    EXPECT_EQ(Count("Fish &amp; chips", "fish & chips"), 1u);
    EXPECT_EQ(Count("caf&eacute;", "caf\xC3\xA9"), 1u);
    EXPECT_EQ(Count("&#107;ey", "key"), 1u);
    EXPECT_EQ(Count("anything", ""), 0u);
}

TEST(HtmlSearchTest, GoesOnBehindTagsInsideALineButNotOverBlocks) {
    EXPECT_EQ(Count("the <b>k</b>ey", "the key"), 1u);
    EXPECT_EQ(Count("k<!-- -->ey", "key"), 1u);
    EXPECT_EQ(Count("<p>the</p><p>key</p>", "the key"), 0u);
    EXPECT_EQ(Count("<p>the</p><p>key</p>", "thekey"), 0u);
    EXPECT_EQ(Count("k<br>ey", "key"), 0u);
    EXPECT_EQ(Count("k<P>ey", "key"), 0u);
}

TEST(HtmlSearchTest, WhiteSpaceOfAnyKindIsTheSame) {
    EXPECT_EQ(Count("the \n  key", "the key"), 1u);
    EXPECT_EQ(Count("the&nbsp;key", "the key"), 1u);
    EXPECT_EQ(Count("the key", "the  key"), 1u);
    EXPECT_EQ(Replaced("the \n  key x", "the key", "a"), "a x");
}

TEST(HtmlSearchTest, CaseIsFoldedBeyondAscii) {
    EXPECT_EQ(Count("\xC3\x84"
                    "rger",
                    "\xC3\xA4"
                    "RGER"),
              1u); // Latin
    EXPECT_EQ(Count("\xCE\xA9"
                    "mega \xCF\x83\xCF\x82",
                    "\xCF\x89"),
              1u);                                                // Greek
    EXPECT_EQ(Count("\xD0\x9F\xD0\xA0", "\xD0\xBF\xD1\x80"), 1u); // Cyrillic
    EXPECT_EQ(Count("\xD0\x9F\xD0\xA0", "\xD0\xBF\xD1\x80", "c"), 0u);
    EXPECT_EQ(Count("Key key", "key", "c"), 1u);
}

TEST(HtmlSearchTest, WholeWordsEndAtLettersAndDigitsOfAnyScript) {
    EXPECT_EQ(Count("key keys monkey key2 key. (key)", "key", "w"), 3u);
    EXPECT_EQ(Count("\xC3\xA9"
                    "key key\xC3\xA9",
                    "key", "w"),
              0u);
    EXPECT_EQ(Count("k<b>ey</b>s", "key", "w"), 0u) << "a tag inside a line ends no word";
    EXPECT_EQ(Count("<p>key</p>s", "key", "w"), 1u);
    EXPECT_EQ(Count("a+=b", "+=", "w"), 1u) << "what is no word has no ends";
}

TEST(HtmlSearchTest, HitsDoNotOverlapAndTheLeftmostCount) {
    EXPECT_EQ(Replaced("aaaaa", "aa", "b"), "bba");
    EXPECT_EQ(Count("ababab", "abab"), 1u);
    EXPECT_EQ(Replaced("aab", "ab", "x"), "ax");
    EXPECT_EQ(Count("xx x", "x", "w"), 1u);
}

TEST(HtmlSearchTest, ReplacementsLeaveEveryTagAndAreEscaped) {
    EXPECT_EQ(Replaced("<p>old <b>ol</b>d</p>", "old", "a<b"), "<p>a&lt;b <b>a&lt;b</b></p>");
    EXPECT_EQ(Replaced("no hit &amp x", "zebra", "q"), "no hit &amp x") << "not a byte changes";
    EXPECT_EQ(Replaced("Fish &amp; chips", "fish &", "Peas and"), "Peas and chips");
}

TEST(HtmlSearchTest, InHtmlTheSourceIsSearchedAsItStands) {
    EXPECT_EQ(Replaced("<b>x</b>", "b>", "i>", "h"), "<i>x</i>");
    EXPECT_EQ(Count("a &amp; b", "&", "h"), 1u);
    EXPECT_EQ(Count("a &amp; b", "a & b", "h"), 0u);
}

TEST(HtmlSearchTest, FindsAWordWhereverItStandsInATextOfAnyLength) {
    const HtmlSearch search({"kwagga"});
    for (const std::string word :
         {"kwagga", "KWAGGA", "<b>kw</b>agga", "&#107;wagga", "kwagg&#97;"})
        for (std::size_t length = 0; length <= 150; ++length) {
            const std::string around(length, 'k');
            EXPECT_TRUE(search.Find(std::string_view(around)).empty()) << length;
            for (std::size_t at = 0; at <= length; ++at)
                ASSERT_EQ(search.Find(around.substr(0, at) + word + around.substr(at)).size(), 1u)
                    << word << " at " << at << " of " << length;
        }
}

TEST(HtmlSearchTest, ALongTextTakesNoLongerThanItsLength) {
    // Quadratic time would take minutes here.
    const std::string html(2'000'000, 'a');
    EXPECT_EQ(Count(html, std::string(1'000, 'a') + "b"), 0u);
    EXPECT_EQ(Count(html, std::string(1'000, 'a')), 2'000u);
    std::string tags;
    for (int at = 0; at < 200'000; ++at)
        tags += "<b>a</b>";
    EXPECT_EQ(Count(tags, "aaaa"), 50'000u);
}

} // namespace
} // namespace paperkite
