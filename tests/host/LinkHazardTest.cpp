#include "host/LinkHazard.h"

#include "commenttexts/LinkTarget.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

TEST(LinkHazardTest, LinksThatLeadSomewhereAreNone) {
    for (const char* link :
         {"", "zoo~Dog.html", "http://example.org/a b?c#d", "mailto:a@b.org",
          "ms-its:help.chm::/a.htm", "ms-help://N/I/t", "a/javascript:x", "näher.html"})
        EXPECT_EQ(LinkHazard(link), "") << link;
    EXPECT_EQ(LinkHazard(std::string(100'000, 'u')), "");
}

TEST(LinkHazardTest, ScriptsAreToldHoweverTheyAreHidden) {
    for (const char* link :
         {"javascript:alert(1)", "  JavaScript:x", "java\tscript:x", "\x01javascript:x",
          "java\n\rscript\n:x", "VBScript:x", "data:text/html,<script>"})
        EXPECT_NE(LinkHazard(link).find("nothing ever runs it"), std::string::npos) << link;
    EXPECT_NE(LinkHazard("javascript:" + std::string(100'000, 'x')), "");
}

TEST(LinkHazardTest, WhatLacksItsEndIsToldInTheWordsOfTheCheck) {
    for (const char* link : {"http://", "https:///a", "mailto:", "ms-its:help.chm", "?a"})
        EXPECT_EQ(LinkHazard(link), LinkTarget::Of(link).Problem) << link;
    EXPECT_EQ(LinkHazard("http://"),
              "Nothing stands behind \"http://\". Write the rest of the address.");
}

TEST(LinkHazardTest, CharactersThatCannotBeSeenAreTold) {
    EXPECT_NE(LinkHazard("http://a\tb").find("behind the first 8 bytes"), std::string::npos);
    EXPECT_NE(LinkHazard("\x7f").find("behind the first 0 bytes"), std::string::npos);
    EXPECT_NE(LinkHazard(std::string("zoo\0Dog.html", 12)), "");
}

} // namespace
} // namespace paperkite::test
