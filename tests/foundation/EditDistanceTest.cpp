#include "foundation/EditDistance.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

TEST(EditDistanceTest, CountsWhatIsInsertedRemovedAndReplaced) {
    EXPECT_EQ(EditDistance("kitten", "kitten", 9), 0u);
    EXPECT_EQ(EditDistance("kitten", "sitting", 9), 3u);
    EXPECT_EQ(EditDistance("", "abc", 9), 3u);
    EXPECT_EQ(EditDistance("abc", "", 9), 3u);
    EXPECT_EQ(EditDistance("flaw", "lawn", 9), 2u);
}

TEST(EditDistanceTest, IsTheSameBothWays) {
    EXPECT_EQ(EditDistance("paper", "kite", 20), EditDistance("kite", "paper", 20));
}

TEST(EditDistanceTest, TellsEverythingAboveTheLimitAlike) {
    EXPECT_EQ(EditDistance("abcdef", "uvwxyz", 2), 3u);
    EXPECT_EQ(EditDistance("a", "abcdefgh", 2), 3u);
    EXPECT_EQ(EditDistance("abc", "abd", 0), 1u);
    EXPECT_EQ(EditDistance("abc", "xyz", 3), 3u);
}

} // namespace
} // namespace paperkite
