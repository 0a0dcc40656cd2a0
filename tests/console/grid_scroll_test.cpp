// Scrolling of rectangles, inside and across the edges of the grid.
#include <gtest/gtest.h>

#include <climits>

#include "tests/console/fake_console.h"

namespace zt {
namespace {

class GridScrollTest : public testing::Test {
protected:
    void SetUp() override {
        const wchar_t* rows[] = {L"aaaaaa", L"bbbbbb", L"cccccc", L"dddddd", L"eeeeee"};
        for (int row = 0; row < 5; row++)
            console.WriteWide(0, row, rows[row], 0x1E);
        console.ForgetRecords();
    }
    std::vector<std::string> Screen() {
        std::vector<std::string> result;
        for (int row = 0; row < 5; row++)
            result.push_back(console.RowText(row));
        return result;
    }

    FakeConsole console{6, 5};
};

using Screenful = std::vector<std::string>;

TEST_F(GridScrollTest, MovesAWholeGridUp) {
    console.ScrollUp(0, 0, 6, 5, 2, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"cccccc", "dddddd", "eeeeee", "      ", "      "}));
    EXPECT_EQ(console.AttributeAt(0, 3), 0x07);
    EXPECT_EQ(console.AttributeAt(0, 2), 0x1E);
}

TEST_F(GridScrollTest, MovesAWholeGridDown) {
    console.ScrollDown(0, 0, 6, 5, 1, 0x4F);
    EXPECT_EQ(Screen(), (Screenful{"      ", "aaaaaa", "bbbbbb", "cccccc", "dddddd"}));
    EXPECT_EQ(console.AttributeAt(5, 0), 0x4F);
}

TEST_F(GridScrollTest, MovesAPartAndLeavesTheRest) {
    console.ScrollUp(1, 1, 3, 3, 1, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"aaaaaa", "bcccbb", "cdddcc", "d   dd", "eeeeee"}));
    SetUp();
    console.ScrollDown(1, 1, 3, 3, 1, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"aaaaaa", "b   bb", "cbbbcc", "dcccdd", "eeeeee"}));
}

TEST_F(GridScrollTest, CutsARectangleThatSticksOut) {
    console.ScrollUp(-2, -3, 4, 6, 1, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"bbaaaa", "ccbbbb", "  cccc", "dddddd", "eeeeee"}));
    SetUp();
    console.ScrollDown(4, 3, 100, 100, 1, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"aaaaaa", "bbbbbb", "cccccc", "dddd  ", "eeeedd"}));
    SetUp();
    console.ScrollDown(INT_MIN, INT_MIN, INT_MAX, INT_MAX, 1, 0x07);
    console.ScrollUp(6, 0, 3, 5, 1, 0x07);
    console.ScrollUp(0, 5, 6, 3, 1, 0x07);
    console.ScrollUp(0, 0, -1, 5, 1, 0x07);
    console.ScrollUp(0, 0, 6, -1, 1, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"aaaaaa", "bbbbbb", "cccccc", "dddddd", "eeeeee"}));
    EXPECT_TRUE(console.moves.empty());
}

TEST_F(GridScrollTest, BlanksEverythingWhenTheLinesExceedTheHeight) {
    console.ScrollUp(0, 1, 6, 2, 100, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"aaaaaa", "      ", "      ", "dddddd", "eeeeee"}));
    SetUp();
    console.ScrollDown(0, 1, 6, 2, INT_MAX, 0x07);
    EXPECT_EQ(Screen(), (Screenful{"aaaaaa", "      ", "      ", "dddddd", "eeeeee"}));
}

TEST_F(GridScrollTest, DoesNothingForNoLines) {
    console.ScrollUp(0, 0, 6, 5, 0, 0x07);
    console.ScrollDown(0, 0, 6, 5, 0, 0x07);
    console.ScrollUp(0, 0, 6, 5, -1, 0x07);
    console.ScrollDown(0, 0, 6, 5, INT_MIN, 0x07);
    EXPECT_EQ(console.RowText(0), "aaaaaa");
    EXPECT_TRUE(console.moves.empty());
    EXPECT_TRUE(console.painted.empty());
}

TEST_F(GridScrollTest, TellsTheHeirHowFarWhichRowsMoved) {
    console.takesMoves = true;
    console.ScrollUp(1, 1, 3, 3, 2, 0x07);
    console.ScrollDown(0, 0, 6, 5, 99, 0x4F);
    ASSERT_EQ(console.moves.size(), 2u);
    EXPECT_EQ(console.moves[0].rect, (CellRect{1, 1, 4, 4}));
    EXPECT_EQ(console.moves[0].lines, 2);
    EXPECT_EQ(console.moves[0].attribute, 0x07);
    EXPECT_FALSE(console.moves[0].frozen);
    EXPECT_EQ(console.moves[1].lines, -5);
    EXPECT_TRUE(console.painted.empty());
}

TEST_F(GridScrollTest, PaintsTheRectangleWhenTheHeirMovesNoPixels) {
    console.ScrollUp(1, 1, 3, 3, 1, 0x07);
    EXPECT_EQ(console.painted, (std::vector<CellRect>{{1, 1, 4, 4}}));
}

TEST_F(GridScrollTest, PaintsTheRectangleAtTheEndOfAFreeze) {
    console.BeginUpdate();
    console.ScrollUp(1, 1, 3, 3, 1, 0x07);
    ASSERT_EQ(console.moves.size(), 1u);
    EXPECT_TRUE(console.moves[0].frozen);
    EXPECT_TRUE(console.painted.empty());
    console.EndUpdate();
    EXPECT_EQ(console.painted, (std::vector<CellRect>{{1, 1, 4, 4}}));
}

TEST_F(GridScrollTest, PaintsAgainWhereSelectionMarksStandStill) {
    console.takesMoves = true;
    console.SetSelectableRect(0, 0, 6, 5, true);
    console.SelectionPress(1, 1);
    console.SelectionMotion(2, 2);
    console.ForgetRecords();
    console.ScrollUp(0, 3, 6, 2, 1, 0x07);
    EXPECT_TRUE(console.painted.empty());
    console.ScrollUp(0, 2, 6, 3, 1, 0x07);
    EXPECT_EQ(console.painted, (std::vector<CellRect>{{0, 2, 6, 5}}));
}

}  // namespace
}  // namespace zt
