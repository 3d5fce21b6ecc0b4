#include "foundation/PathIsURL.h"

#include <gtest/gtest.h>

#include <string>

namespace paperkite {
namespace {

TEST(PathIsURLTest, ATextWithASchemeIsAnAddress) {
    for (const char* text : {"http://", "http://example.org/a b", "HTTPS://x", "mailto:a@b.org",
                             "ms-its:help.chm::/a.htm", "javascript:alert(1)", "a1+-.:x", "ftp:"})
        EXPECT_EQ(PathIsURL(text), 1) << text;
}

TEST(PathIsURLTest, ATextWithoutOneIsNone) {
    for (const char* text :
         {"", "help.chm", "www.example.org", "zoo~Dog.html", ":", ":x", "c:\\x", "c:x", " http://x",
          "1http://x", "a b:x", "ht\ntp://x", "//x", "\x01x:", "über:x"})
        EXPECT_EQ(PathIsURL(text), 0) << text;
    EXPECT_EQ(PathIsURL(std::string(100'000, 'a')), 0);
    EXPECT_EQ(PathIsURL(std::string(100'000, 'a') + ":"), 1);
}

} // namespace
} // namespace paperkite
