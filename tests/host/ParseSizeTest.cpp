#include "host/Commands.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

TEST(ParseSizeTest, ReadsWidthAndHeight) {
    EXPECT_EQ(ParseSize("1280x800"), std::pair(1280, 800));
    EXPECT_EQ(ParseSize("1x16384"), std::pair(1, 16384));
}

TEST(ParseSizeTest, AnythingElseIsNoSize) {
    for (const char* text :
         {"", "x", "800", "800x", "x600", "0x600", "800x0", "-1x600", "800x16385", "800x600x2",
          "800 x600", "8o0x600", "+800x600", "800X600", "99999999999999999999x1"})
        EXPECT_EQ(ParseSize(text), std::nullopt) << text;
}

} // namespace

} // namespace paperkite
