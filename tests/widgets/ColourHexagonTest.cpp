#include "widgets/ColourHexagon.h"

#include "widgets/Keys.h"
#include "widgets/WebColours.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

class ColourHexagonTest : public testing::Test {
protected:
    const ColourHexagon::Cell& Current() const {
        return mHexagon.GetCells()[static_cast<std::size_t>(mHexagon.GetCurrentCell())];
    }

    ColourHexagon mHexagon;
    int mChanges = 0;
    Connection mTie = mHexagon.Events.Change.Connect([this] { ++mChanges; });
};

TEST_F(ColourHexagonTest, HoldsAHoneycombAndARowOfGreys) {
    const auto& cells = mHexagon.GetCells();
    ASSERT_EQ(cells.size(), 127u + 13u);
    EXPECT_EQ(cells[63].Color, WebColours::FromComponents({255, 255, 255}));
    EXPECT_EQ(cells[127].Color, WebColours::FromComponents({255, 255, 255}));
    EXPECT_EQ(cells.back().Color, 0);
    for (const auto& cell : cells) {
        EXPECT_GE(cell.X, 0);
        EXPECT_LE(cell.X + 2, mHexagon.GetColumns());
        EXPECT_LT(cell.Row, mHexagon.GetRows());
        EXPECT_LE(cell.Color, 0xFFFFFF);
        EXPECT_GE(cell.Color, 0);
    }
}

TEST_F(ColourHexagonTest, ANewColourRaisesChangeOnce) {
    mHexagon.SetColor(77);
    mHexagon.SetColor(77);
    EXPECT_EQ(mChanges, 1);
    EXPECT_EQ(mHexagon.GetCurrentCell(), -1);
    mHexagon.UserClick(5);
    EXPECT_EQ(mChanges, 2);
    EXPECT_EQ(mHexagon.GetCurrentCell(), 5);
    mHexagon.UserClick(5);
    EXPECT_EQ(mChanges, 2);
}

TEST_F(ColourHexagonTest, PlacesBesideTheCellsDoNothing) {
    mHexagon.UserClick(-1);
    mHexagon.UserDblClick(-1);
    mHexagon.UserClick(140);
    EXPECT_EQ(mChanges, 0);
    mHexagon.SetEnabled(false);
    mHexagon.UserClick(3);
    EXPECT_EQ(mHexagon.UserKeyDown(KeyLeft, 0), KeyLeft);
    EXPECT_EQ(mChanges, 0);
}

TEST_F(ColourHexagonTest, TheArrowKeysReachEveryCell) {
    mHexagon.UserClick(0);
    std::size_t reached = 1;
    for (;;) {
        while (true) {
            const int before = mHexagon.GetCurrentCell();
            EXPECT_EQ(mHexagon.UserKeyDown(KeyRight, 0), 0);
            if (mHexagon.GetCurrentCell() == before) break;
            ++reached;
        }
        const int row = Current().Row;
        mHexagon.UserKeyDown(KeyHome, 0);
        mHexagon.UserKeyDown(KeyDown, 0);
        if (Current().Row == row) break;
        mHexagon.UserKeyDown(KeyHome, 0);
        ++reached;
    }
    EXPECT_EQ(reached, mHexagon.GetCells().size());
    mHexagon.UserKeyDown(KeyEnd, 0);
    EXPECT_EQ(mHexagon.GetColor(), 0);
    mHexagon.UserKeyDown(KeyUp, 0);
    EXPECT_EQ(Current().Row, 12);
}

TEST_F(ColourHexagonTest, FromAColourOfNoCellTheKeysLeadToTheMiddle) {
    for (const int key : {KeyLeft, KeyRight, KeyUp, KeyDown, KeyHome, KeyEnd}) {
        mHexagon.SetColor(77);
        EXPECT_EQ(mHexagon.UserKeyDown(key, 0), 0);
        EXPECT_EQ(mHexagon.GetCurrentCell(), 63) << key;
    }
    EXPECT_EQ(mHexagon.UserKeyDown(KeyTab, 0), KeyTab);
}

TEST_F(ColourHexagonTest, ADoubleClickChoosesFirst) {
    std::int32_t taken = -1;
    auto tie = mHexagon.Events.DblClick.Connect([&] { taken = mHexagon.GetColor(); });
    mHexagon.UserDblClick(20);
    EXPECT_EQ(taken, mHexagon.GetCells()[20].Color);
}

} // namespace
} // namespace paperkite
