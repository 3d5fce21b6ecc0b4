#include "authoring/PageName.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

TEST(PageNameTest, WhatEnginesEncodeIsDecodedAndWhatNamesHoldIsNot) {
    EXPECT_EQ(PageName::Decoded("a~f(const%20b%3A%3Ac&,d%3Ce%3E).html"),
              "a~f(const b%3A%3Ac&,d<e>).html");
    EXPECT_EQ(PageName::Decoded("a~operator%2F"), "a~operator%2F");
    EXPECT_EQ(PageName::Decoded("a~%25~x%5C~%0A"), "a~%25~x%5C~%0A");
    EXPECT_EQ(PageName::Decoded("a~empty%3F~%23b~%22%C3%A4%22"), "a~empty?~#b~\"ä\"");
    EXPECT_EQ(PageName::Decoded("size%5BField%5D~%7B%7C%7D%5E%60"), "size[Field]~{|}^`");
    EXPECT_EQ(PageName::Decoded("a~%2520%2"), "a~%2520%2") << "each code once";
}

TEST(PageNameTest, ATildeThatOpensNoStepIsALetter) {
    EXPECT_EQ(PageName::Decoded("a~B~~B.html"), "a~B~%7EB.html");
    EXPECT_EQ(PageName::Decoded("a~operator~.html"), "a~operator%7E.html");
    EXPECT_EQ(PageName::Decoded("a~operator~(int)"), "a~operator%7E(int)");
    EXPECT_EQ(PageName::Decoded("a~~"), "a~%7E");
    EXPECT_EQ(PageName::Decoded("a~b~c.html"), "a~b~c.html");
}

} // namespace
} // namespace paperkite::test
