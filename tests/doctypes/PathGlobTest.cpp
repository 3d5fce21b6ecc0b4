#include "doctypes/source/PathGlob.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(PathGlob, StarStandsForCharactersOfOneStepOnly) {
    EXPECT_TRUE(PathGlob("src/*.c").Matches("src/a.c"));
    EXPECT_FALSE(PathGlob("src/*.c").Matches("src/gen/a.c"));
    EXPECT_TRUE(PathGlob("src/*/a.c").Matches("src/gen/a.c"));
}

TEST(PathGlob, QuestionMarkStandsForOneCharacterThatIsNoSlash) {
    EXPECT_TRUE(PathGlob("s?c/a.c").Matches("src/a.c"));
    EXPECT_FALSE(PathGlob("src?a.c").Matches("src/a.c"));
    EXPECT_FALSE(PathGlob("a?.c").Matches("a.c"));
}

TEST(PathGlob, DoubleStarStandsForAnyStepsAndForNone) {
    EXPECT_TRUE(PathGlob("**/gen/*.c").Matches("gen/a.c"));
    EXPECT_TRUE(PathGlob("**/gen/*.c").Matches("x/y/gen/a.c"));
    EXPECT_FALSE(PathGlob("**/gen/*.c").Matches("x/general/a.c"));
    EXPECT_TRUE(PathGlob("src/**").Matches("src/a/b.c"));
    EXPECT_TRUE(PathGlob("src/**/b.c").Matches("src/a/x/b.c"));
    EXPECT_TRUE(PathGlob("src/**/b.c").Matches("src/b.c"));
}

TEST(PathGlob, APatternAlsoMatchesTheBareName) {
    EXPECT_TRUE(PathGlob("*_test.go").Matches("pkg/a_test.go"));
    EXPECT_TRUE(PathGlob("build/").Matches("sub/build"));
    EXPECT_FALSE(PathGlob("build").Matches("sub/rebuild"));
}

TEST(PathGlob, ManyStarsDoNotTakeForever) {
    const std::string text(2000, 'a');
    EXPECT_FALSE(PathGlob("*a*a*a*a*a*a*a*a*b").Matches(text));
    EXPECT_FALSE(PathGlob("**a**a**a**a**a**b").Matches(text));
}

} // namespace paperkite::test
