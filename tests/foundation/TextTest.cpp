#include "foundation/Text.h"

#include <gtest/gtest.h>

namespace paperkite {

TEST(Text, ALeadingNumberEndsWhereTheDigitsEnd) {
    EXPECT_EQ(LeadingNumber("75 pixels"), 75);
    EXPECT_EQ(LeadingNumber("  -3.5e1x"), -35);
    EXPECT_EQ(LeadingNumber("+4"), 4);
    EXPECT_EQ(LeadingNumber(".5"), 0.5);
}

TEST(Text, ATextThatBeginsWithSomethingElseReadsZero) {
    for (const char* text : {"", " ", "x1", "inf", "nan", "-", "-x", "+", "+-5", "-+5", "--5"})
        EXPECT_EQ(LeadingNumber(text), 0) << text;
}

TEST(Text, TokensCountFromOne) {
    EXPECT_EQ(Token("a:b:c", ":", 1), "a");
    EXPECT_EQ(Token("a:b:c", ":", 3), "c");
    EXPECT_EQ(Token("a:b:c", ":", 4), "");
    EXPECT_EQ(Token("a:b:c", ":", 0), "");
    EXPECT_EQ(Token("", ":", 1), "");
    EXPECT_EQ(Token("no separator", ":", 1), "no separator");
}

TEST(Text, TheColonCutsOnceAtTheFirst) {
    EXPECT_EQ(BeforeColon("a:b:c"), "a");
    EXPECT_EQ(AfterColon("a:b:c"), "b:c");
    EXPECT_EQ(BeforeColon("abc"), "abc");
    EXPECT_EQ(AfterColon("abc"), "");
}

TEST(Text, TrimBlanksLeavesOtherWhiteSpace) {
    EXPECT_EQ(TrimBlanks("  \t a \n  "), "\t a \n");
    EXPECT_EQ(TrimWhiteSpace("  \t a \n  "), "a");
    EXPECT_EQ(TrimBlanks("   "), "");
}

TEST(Text, ReplacingGoesOnBehindEachReplacement) {
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAllIgnoringCase("%%Name%% and %%NAME%%", "%%name%%", "x"), "x and x");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
}

TEST(Text, SplitOfAnEmptyTextHasNoFields) {
    EXPECT_TRUE(Split("", "~").empty());
    EXPECT_EQ(Split("a~b~", "~"), (std::vector<std::string>{"a", "b", ""}));
    EXPECT_EQ(Join({"a", "b", ""}, "~"), "a~b~");
}

TEST(Text, LettersOutsideAsciiKeepTheirCase) {
    EXPECT_EQ(LowerCase("ÄB"), "Äb");
    EXPECT_TRUE(EqualIgnoringCase("Äb", "ÄB"));
    EXPECT_FALSE(EqualIgnoringCase("äb", "Äb"));
}

TEST(Text, FindsAnyCaseFromAPositionOn) {
    EXPECT_EQ(FindIgnoringCase("one ONE", "One", 0), 0u);
    EXPECT_EQ(FindIgnoringCase("one ONE", "one", 1), 4u);
    EXPECT_EQ(FindIgnoringCase("a < </BODY> </body>", "</body", 0), 4u);
    EXPECT_EQ(FindIgnoringCase("a < </BODY> </body>", "</body", 5), 12u);
    EXPECT_EQ(FindIgnoringCase("</bod", "</body", 0), std::string::npos);
    EXPECT_EQ(FindIgnoringCase("text", "", 4), 4u);
    EXPECT_EQ(FindIgnoringCase("text", "", 5), std::string::npos);
    EXPECT_EQ(FindIgnoringCase("text", "t", std::string::npos), std::string::npos);
}

TEST(Text, NumbersReadBackAsTheyWere) {
    EXPECT_EQ(NumberText(1), "1");
    EXPECT_EQ(NumberText(0.1), "0.1");
    EXPECT_EQ(NumberText(-0.0), "0");
}

} // namespace paperkite
