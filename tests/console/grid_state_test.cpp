// Size, cursor and the nesting freeze of the grid.
#include <gtest/gtest.h>

#include <climits>
#include <thread>

#include "tests/console/fake_console.h"

namespace zt {
namespace {

class GridStateTest : public testing::Test {
protected:
    std::vector<CellRect> Painted() {
        std::vector<CellRect> result;
        result.swap(console.painted);
        return result;
    }

    FakeConsole console{10, 4};
};

TEST_F(GridStateTest, TellsTheHeirOfACursorThatMoves) {
    console.SetCursor(3, 2);
    EXPECT_EQ(console.cursorChanges, 1);
    int column, row;
    console.GetCursor(column, row);
    EXPECT_EQ(column, 3);
    EXPECT_EQ(row, 2);
}

TEST_F(GridStateTest, DoesNothingForACursorThatStays) {
    console.SetCursor(3, 2);
    console.SetCursor(3, 2);
    EXPECT_EQ(console.cursorChanges, 1);
    console.SetCursorSize(15);
    console.SetCursorSize(15);
    EXPECT_EQ(console.cursorChanges, 2);
    EXPECT_EQ(console.GetCursorSize(), 15);
}

TEST_F(GridStateTest, MovesTheCursorWhileFrozen) {
    console.BeginUpdate();
    console.SetCursor(1, 1);
    EXPECT_EQ(console.cursorChanges, 1);
    console.EndUpdate();
}

TEST_F(GridStateTest, ResizeGivesABlankGridToBePaintedWhole) {
    console.WriteWide(0, 0, L"text", 0x1E);
    Painted();
    EXPECT_EQ(console.Resize(12, 5, "", 0), 1);
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{0, 0, 12, 5}}));
    EXPECT_EQ(console.CellAt(0, 0), kBlankCell);
    EXPECT_EQ(console.CellAt(11, 4), kBlankCell);
}

TEST_F(GridStateTest, RefusesSizesThatNoGridHas) {
    int columns, rows;
    EXPECT_EQ(console.Resize(0, -3, nullptr, 0), 0);
    console.GetSize(columns, rows);
    EXPECT_EQ(columns, 1);
    EXPECT_EQ(rows, 1);
    console.WriteStream("abc\n\t\b");
    EXPECT_EQ(console.Resize(INT_MAX, 2, nullptr, 0), 0);
    console.GetSize(columns, rows);
    EXPECT_EQ(columns, GridConsole::kLargestSide);
    EXPECT_EQ(rows, 2);
}

TEST_F(GridStateTest, PaintsAtTheEndOfTheOutermostFreeze) {
    console.BeginUpdate();
    console.BeginUpdate();
    console.WriteWide(1, 1, L"ab", 0x1E);
    console.EndUpdate();
    EXPECT_EQ(Painted(), std::vector<CellRect>{});
    console.WriteWide(1, 2, L"ab", 0x1E);
    console.EndUpdate();
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{1, 1, 3, 3}}));
    EXPECT_EQ(console.freezes, (std::vector<bool>{true, false}));
}

TEST_F(GridStateTest, PaintsNothingForAFreezeWithoutChanges) {
    console.BeginUpdate();
    console.FillRect(0, 0, 10, 4, 7);
    console.EndUpdate();
    EXPECT_EQ(Painted(), std::vector<CellRect>{});
}

TEST_F(GridStateTest, ForgetsWhatAnEarlierFreezePainted) {
    console.BeginUpdate();
    console.Invalidate(0, 0, 10, 1);
    console.EndUpdate();
    Painted();
    console.BeginUpdate();
    console.Invalidate(2, 3, 1, 1);
    console.EndUpdate();
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{2, 3, 3, 4}}));
}

TEST_F(GridStateTest, PaintsDistantRowsOfAFreezeApart) {
    console.BeginUpdate();
    console.Invalidate(2, 0, 3, 1);
    console.Invalidate(4, 0, 3, 1);
    console.Invalidate(0, 3, 10, 1);
    console.EndUpdate();
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{2, 0, 7, 1}, {0, 3, 10, 4}}));
}

TEST_F(GridStateTest, IgnoresAnEndWithoutABegin) {
    console.EndUpdate();
    EXPECT_TRUE(console.freezes.empty());
    console.Invalidate(0, 0, 1, 1);
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{0, 0, 1, 1}}));
    console.BeginUpdate();
    console.Invalidate(0, 0, 1, 1);
    EXPECT_EQ(Painted(), std::vector<CellRect>{});
    console.EndUpdate();
}

TEST_F(GridStateTest, ResizesWhileFrozen) {
    console.BeginUpdate();
    console.Invalidate(0, 3, 10, 1);
    console.Resize(5, 2, nullptr, 0);
    console.EndUpdate();
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{0, 0, 5, 2}}));
}

// One thread draws, another reads: for the thread sanitizer, and each row is seen whole.
TEST_F(GridStateTest, DrawsAndReadsFromTwoThreads) {
    std::atomic<bool> done{false};
    std::thread drawer([&] {
        for (int i = 0; i < 300; i++) {
            const wchar_t letter = static_cast<wchar_t>(L'a' + i % 26);
            console.BeginUpdate();
            console.WriteWide(0, 1, Westring::Repeat(letter, 10).c_str(), 0x1E);
            console.ScrollUp(0, 2, 10, 2, 1, 7);
            console.SetCursor(i % 10, 1);
            console.EndUpdate();
            if (i % 100 == 0) console.WriteStream("teletype\n");
        }
        done = true;
    });
    int mixed = 0;
    while (!done) {
        const std::string row = console.RowText(1);
        if (row[0] != ' ' && row[0] != 't' && row != std::string(10, row[0])) mixed++;
        int column, cursorRow;
        console.GetCursor(column, cursorRow);
        console.SetTerminalSink(nullptr);
        console.SelectionPress(0, 0);
    }
    drawer.join();
    EXPECT_EQ(mixed, 0);
}

}  // namespace
}  // namespace zt
