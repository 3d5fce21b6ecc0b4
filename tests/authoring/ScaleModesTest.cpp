#include "authoring/ScaleModes.h"

#include "foundation/Error.h"
#include "support/EventLog.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

constexpr ScaleMode kModes[] = {ScaleMode::Twips,      ScaleMode::Points, ScaleMode::Pixels,
                                ScaleMode::Characters, ScaleMode::Inches, ScaleMode::Millimetres,
                                ScaleMode::Centimetres};

TEST(ScaleModesTest, EachUnitHasItsTwips) {
    const double twips[] = {1, 20, 15, 120, 1440, 56.69286, 566.9286};
    for (std::size_t mode = 0; mode < std::size(kModes); ++mode) {
        EXPECT_DOUBLE_EQ(ScaleX(1, kModes[mode], ScaleMode::Twips), twips[mode]);
        EXPECT_DOUBLE_EQ(ScaleY(1, kModes[mode], ScaleMode::Twips), twips[mode]);
        EXPECT_EQ(static_cast<std::size_t>(kModes[mode]), mode + 1);
    }
}

TEST(ScaleModesTest, ConversionsGoByWayOfTwips) {
    EXPECT_DOUBLE_EQ(ScaleX(72, ScaleMode::Points, ScaleMode::Inches), 1);
    EXPECT_DOUBLE_EQ(ScaleX(96, ScaleMode::Pixels, ScaleMode::Inches), 1);
    EXPECT_DOUBLE_EQ(ScaleY(10, ScaleMode::Millimetres, ScaleMode::Centimetres), 1);
    EXPECT_DOUBLE_EQ(ScaleY(1, ScaleMode::Characters, ScaleMode::Pixels), 8);
}

TEST(ScaleModesTest, ThereAndBackIsTheSame) {
    for (const ScaleMode from : kModes)
        for (const ScaleMode to : kModes)
            EXPECT_DOUBLE_EQ(ScaleX(ScaleX(37.5, from, to), to, from), 37.5);
}

TEST(ScaleModesTest, NothingAndBelowNothingAreConvertedToo) {
    EXPECT_EQ(ScaleX(0, ScaleMode::Inches, ScaleMode::Pixels), 0);
    EXPECT_EQ(ScaleY(-3, ScaleMode::Pixels, ScaleMode::Twips), -45);
    EXPECT_TRUE(std::isinf(
        ScaleX(std::numeric_limits<double>::infinity(), ScaleMode::Twips, ScaleMode::Pixels)));
}

TEST(ScaleModesTest, AnUnknownUnitIsAnError) {
    for (const int mode : {0, 8, -1}) {
        const auto unknown = static_cast<ScaleMode>(mode);
        EXPECT_EQ(ErrorNumberOf([&] { ScaleX(1, unknown, ScaleMode::Twips); }), 5);
        EXPECT_EQ(ErrorNumberOf([&] { ScaleY(1, ScaleMode::Twips, unknown); }), 5);
    }
}

} // namespace
} // namespace paperkite::test
