#include "foundation/SpellWords.h"

#include "foundation/HtmlText.h"
#include "support/FewWords.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

std::string WordsOf(const std::string& text) {
    std::string result;
    for (SpellWords words(text); words.Next();)
        result += words.Word() + "|";
    return result;
}

std::string PartsOf(const std::string& word) {
    std::string result;
    for (const auto& part : SpellWords::PartsOf(word))
        result += word.substr(part.From, part.To - part.From) + "|";
    return result;
}

/// The stretches of the text that are wrong for somebody who knows those words.
std::string Wrong(const std::string& text, const std::string& known) {
    const auto engine = MakeRef<test::FewWords>(known);
    std::string result;
    for (const auto& word : SpellWords::FindMisspelt(text, *engine))
        result += text.substr(word.From, word.To - word.From) + "|";
    return result;
}

std::string WrongInHtml(const std::string& html, const std::string& known) {
    const auto engine = MakeRef<test::FewWords>(known);
    const HtmlText text(html);
    std::string result;
    for (const auto& word : SpellWords::FindMisspelt(text, *engine))
        for (const auto& stretch : text.SourceOf(word.From, word.To))
            result += html.substr(stretch.From, stretch.To - stretch.From) + "|";
    return result;
}

TEST(SpellWordsTest, WordsAreRunsOfLettersWithApostrophesInside) {
    EXPECT_EQ(WordsOf("Don't stop, 'really' stop!"), "Don't|stop|really|stop|");
    EXPECT_EQ(WordsOf("don\xE2\x80\x99t"), "don't|");
    EXPECT_EQ(WordsOf("\xC3\x84rger \xD0\xBC\xD0\xB8\xD1\x80"),
              "\xC3\x84rger|\xD0\xBC\xD0\xB8\xD1\x80|");
    EXPECT_EQ(WordsOf(""), "");
    EXPECT_EQ(WordsOf("a b"), "") << "single letters";
}

TEST(SpellWordsTest, HyphensAndUnderscoresPartWords) {
    EXPECT_EQ(WordsOf("well-known max_size"), "well|known|max|size|");
    EXPECT_EQ(WordsOf("soft\xC2\xADware"), "software|") << "a soft hyphen parts none";
}

TEST(SpellWordsTest, AddressesAndPathsAreNoWords) {
    EXPECT_EQ(WordsOf("see https://exmple.org/abc?d=e, www.foo.bar or me@exmple.org."), "see|or|");
    EXPECT_EQ(WordsOf("in /usr/lbi, ./foo, ~/xyz and C:\\Prgs now"), "in|and|now|");
    EXPECT_EQ(WordsOf("src/fundation/Txt.h main.cpp and/or"), "and|or|");
}

TEST(SpellWordsTest, QualifiedNamesOfCodeAndOptionsAreNoWords) {
    EXPECT_EQ(WordsOf("std::strng ptr->lngth lst.sze --hlp $HOEM fine"), "fine|");
}

TEST(SpellWordsTest, CapitalsBeginPartsOfAWord) {
    EXPECT_EQ(PartsOf("fetchHTMLRecord"), "fetch|HTML|Record|");
    EXPECT_EQ(PartsOf("word"), "word|");
    EXPECT_EQ(PartsOf("Word"), "Word|");
    EXPECT_EQ(PartsOf("HTML"), "HTML|");
    EXPECT_EQ(PartsOf("HTMLs"), "HTM|Ls|");
    EXPECT_EQ(PartsOf("\xC3\xA4"
                      "b\xC3\x84"
                      "b"),
              "\xC3\xA4"
              "b|\xC3\x84"
              "b|");
}

TEST(SpellWordsTest, ThePartsOfACamelCaseWordAreCheckedOneByOne) {
    EXPECT_EQ(Wrong("the fetchRecrod here", "the fetch record here"), "Recrod|");
    EXPECT_EQ(Wrong("fetchRecord", "fetch record"), "");
    EXPECT_EQ(Wrong("McDonald", "mcdonald"), "") << "the whole word is known";
}

TEST(SpellWordsTest, OptionsPassWordsOver) {
    SpellOptions options;
    EXPECT_TRUE(SpellWords::IsPassedOver("HTML", options));
    EXPECT_TRUE(SpellWords::IsPassedOver("utf8", options));
    EXPECT_FALSE(SpellWords::IsPassedOver("camelCase", options));
    EXPECT_FALSE(SpellWords::IsPassedOver("Word", options));
    options = {true, false, false, true, {}, {}, {}};
    EXPECT_FALSE(SpellWords::IsPassedOver("HTML", options));
    EXPECT_FALSE(SpellWords::IsPassedOver("utf8", options));
    EXPECT_TRUE(SpellWords::IsPassedOver("camelCase", options));
}

TEST(SpellWordsTest, CodeInHtmlIsNotChecked) {
    EXPECT_EQ(WrongInHtml("<p>Teh <code>sizeoff</code> of<pre>xyzzy</pre></p>", "of"), "Teh|");
    EXPECT_EQ(WrongInHtml("one <b>wr</b>nog two", "one two"), "wr|nog|");
    EXPECT_EQ(WrongInHtml("caf&eacute; na&iuml;f", "caf\xC3\xA9"), "na&iuml;f|");
}

} // namespace
} // namespace paperkite
