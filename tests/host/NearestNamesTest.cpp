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
    EXPECT_EQ(BestOf("cat", {"bat", "car", "cut", "cot"}, "", 2), (Names{"car", "cut"}));
}

TEST(NearestNamesTest, OfEquallyNearNamesTheOneThatBeginsAlikeComesFirst) {
    EXPECT_EQ(BestOf("Rf", {"Of", "Ref"}), (Names{"Ref", "Of"}));
}

TEST(NearestNamesTest, AnOverloadOfTheNameComesFirst) {
    EXPECT_EQ(BestOf("list~add", {"list~ad", "list~add(E)"}, "~"),
              (Names{"list~add(E)", "list~ad"}));
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
