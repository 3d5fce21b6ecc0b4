#include "host/NearestNames.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

using Names = std::vector<std::string>;

Names BestOf(const std::string& wanted, const Names& candidates, const std::string& separator = {},
             std::size_t count = 3) {
    NearestNames nearest(wanted, separator);
    for (const std::string& candidate : candidates)
        nearest.Offer(candidate);
    return nearest.Best(count);
}

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

TEST(NearestNamesTest, TheNearestComesFirst) {
    EXPECT_EQ(BestOf("remark", {"returns", "remarked", "remarks"}), (Names{"remarks", "remarked"}));
}

TEST(NearestNamesTest, LetterCaseDoesNotCount) {
    EXPECT_EQ(BestOf("REMARKS", {"remarks"}), Names{"remarks"});
}

TEST(NearestNamesTest, WhatHasLittleInCommonIsLeftOut) {
    EXPECT_EQ(BestOf("remarks", {"threadsafety", "new"}), Names());
}

TEST(NearestNamesTest, NoMoreThanAskedFor) {
    EXPECT_EQ(BestOf("cat", {"cap", "car", "cab", "can"}, "", 2), (Names{"cap", "car"}));
}

TEST(NearestNamesTest, ABeginningCountsAsNear) {
    EXPECT_EQ(BestOf("thread", {"threadsafety"}), Names{"threadsafety"});
}

TEST(NearestNamesTest, TheLastStepsCount) {
    EXPECT_EQ(BestOf("Dog~Brak", {"zoo~animals~Dog~Bark", "zoo~animals~Cat~Purr"}, "~"),
              Names{"zoo~animals~Dog~Bark"});
    EXPECT_EQ(BestOf("Brak", {"zoo~animals~Dog~Bark"}, "~"), Names{"zoo~animals~Dog~Bark"});
}

TEST(NearestNamesTest, OtherWaysToWriteTheSeparatorStandForIt) {
    const Names there{"zoo~Dog~Bark", "zoo~Cat~Purr"};
    EXPECT_EQ(BestOf("Dog::Brak", there, "~"), Names{"zoo~Dog~Bark"});
    EXPECT_EQ(BestOf("Dog.Brak", there, "~"), Names{"zoo~Dog~Bark"});
    EXPECT_EQ(BestOf("Dog/Brak", there, "~"), Names{"zoo~Dog~Bark"});
}

TEST(NearestNamesTest, AShorterNameIsComparedWhole) {
    EXPECT_EQ(BestOf("zoo~Dog~Bark", {"zoo~Dog"}, "~"), Names());
    EXPECT_EQ(BestOf("zo~Dog", {"zoo~Dog"}, "~"), Names{"zoo~Dog"});
}

} // namespace

} // namespace paperkite
