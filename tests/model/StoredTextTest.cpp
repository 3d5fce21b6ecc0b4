#include "model/StoredText.h"

#include "model/ModelTexts.h"

#include <gtest/gtest.h>

#include <random>

namespace paperkite {

namespace {

std::string RandomBytes(std::mt19937& engine) {
    // Mostly what the encoding treats specially.
    static constexpr std::string_view kSpecial = "\\\n\r\t >]<x4sn.!pbr/\x01\x80\xC3\xBE";
    std::string bytes;
    for (std::size_t length = engine() % 40; length > 0; --length)
        bytes += engine() % 4 ? kSpecial[engine() % kSpecial.size()] : static_cast<char>(engine());
    return bytes;
}

} // namespace

TEST(StoredText, AnyTextComesBackAsItWas) {
    for (const std::string& text : test::DifficultTexts()) {
        EXPECT_EQ(StoredText::DecodeContent(StoredText::EncodeContent(text)), text);
        EXPECT_EQ(StoredText::Decode(StoredText::EncodeAttribute(text)), text);
    }
}

TEST(StoredText, RandomBytesComeBackAsTheyWere) {
    std::mt19937 engine(20);
    for (int round = 0; round < 20000; ++round) {
        const std::string text = RandomBytes(engine);
        ASSERT_EQ(StoredText::DecodeContent(StoredText::EncodeContent(text)), text);
        ASSERT_EQ(StoredText::Decode(StoredText::EncodeAttribute(text)), text);
    }
}

TEST(StoredText, NothingStoredEndsACDataSectionOrALineInABlank) {
    std::mt19937 engine(21);
    for (int round = 0; round < 5000; ++round) {
        const std::string stored = StoredText::EncodeContent(RandomBytes(engine));
        ASSERT_EQ(stored.find("]]>"), std::string::npos);
        ASSERT_EQ(stored.find(" \n"), std::string::npos);
        ASSERT_EQ(stored.find("\t\n"), std::string::npos);
        for (const char character : stored)
            ASSERT_TRUE(static_cast<unsigned char>(character) >= 0x20 || character == '\n' ||
                        character == '\t');
    }
}

TEST(StoredText, ParagraphsAndEntriesStandOnLinesOfTheirOwn) {
    EXPECT_EQ(StoredText::EncodeContent("<p>One.</p><ul><li>a</li><li>b</li></ul>"),
              "\n<p>One.</p>\\\n<ul>\\\n<li>a</li>\\\n<li>b</li>\\\n</ul>\n");
}

TEST(StoredText, OnlyLongLinesAreBrokenBehindSentences) {
    EXPECT_EQ(StoredText::EncodeContent("Short. Both."), "Short. Both.");
    const std::string sentence(60, 'a');
    EXPECT_EQ(StoredText::EncodeContent(sentence + ". " + sentence + "."),
              "\n" + sentence + ". \\\n" + sentence + ".\n");
}

TEST(StoredText, AnAttributeIsAlwaysOneLine) {
    EXPECT_EQ(StoredText::EncodeAttribute("a\nb\tc\rd\\e"), "a\\nb\\tc\\rd\\\\e");
}

TEST(StoredText, ABackslashThatBeginsNoEscapeStandsForItself) {
    EXPECT_EQ(StoredText::Decode("\\q \\x4 \\xZZ \\"), "\\q \\x4 \\xZZ \\");
}

TEST(StoredText, TheLineBreaksAroundATextOfSeveralLinesAreLayout) {
    EXPECT_EQ(StoredText::DecodeContent("\nfirst\nsecond\n    "), "first\nsecond");
    EXPECT_EQ(StoredText::DecodeContent("first\nsecond\n"), "first\nsecond\n");
}

} // namespace paperkite
