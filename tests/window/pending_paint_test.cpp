// What is still to be painted, checked against a picture that is painted anew each time.
#include "console/window/pending_paint.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace zt {

namespace {

constexpr int kColumns = 12;
constexpr int kRows = 9;

using Grid = std::vector<int>;

int& At(Grid& grid, int column, int row) {
    return grid[static_cast<size_t>(row * kColumns + column)];
}

void MoveRows(Grid& grid, const CellRect& rect, int lines, int blank) {
    const Grid old = grid;
    for (int row = rect.top; row < rect.bottom; row++) {
        for (int column = rect.left; column < rect.right; column++) {
            const int source = row + lines;
            const bool inside = source >= rect.top && source < rect.bottom;
            At(grid, column, row) =
                inside ? old[static_cast<size_t>(source * kColumns + column)] : blank;
        }
    }
}

// Carries out what is pending on `seen`, as the window does.
void Paint(const PendingPaint& pending, Grid& seen, Grid& cells) {
    constexpr int kRubbish = -1;
    for (const PendingPaint::Move& move : pending.Moves()) {
        MoveRows(seen, move.rect, move.lines, kRubbish);
    }
    for (int row = 0; row < kRows; row++) {
        const PendingPaint::Span& span = pending.RowSpan(row);
        for (int column = span.from; column < span.to; column++) {
            At(seen, column, row) = At(cells, column, row);
        }
    }
}

}  // namespace

TEST(PendingPaint, StartsEmpty) {
    PendingPaint pending;
    pending.Reset(kColumns, kRows);
    EXPECT_TRUE(pending.IsEmpty());
}

TEST(PendingPaint, CutsARectangleToTheGrid) {
    PendingPaint pending;
    pending.Reset(kColumns, kRows);
    pending.Add(CellRect{-5, -5, 100, 2});
    EXPECT_EQ(pending.RowSpan(0).from, 0);
    EXPECT_EQ(pending.RowSpan(1).to, kColumns);
    EXPECT_TRUE(pending.RowSpan(2).IsEmpty());
    pending.Reset(kColumns, kRows);
    pending.Add(CellRect{kColumns, 0, kColumns + 4, kRows});
    pending.AddExpose(-1, 0);
    pending.AddExpose(0, kRows);
    EXPECT_TRUE(pending.IsEmpty());
}

TEST(PendingPaint, MakesOneMoveOfManyInTheSameRectangle) {
    PendingPaint pending;
    pending.Reset(kColumns, kRows);
    const CellRect whole{0, 0, kColumns, kRows};
    for (int i = 0; i < 3; i++)
        pending.AddMove(whole, 1);
    ASSERT_EQ(pending.Moves().size(), 1u);
    EXPECT_EQ(pending.Moves()[0].lines, 3);
    EXPECT_TRUE(pending.RowSpan(kRows - 4).IsEmpty());
    EXPECT_FALSE(pending.RowSpan(kRows - 3).IsEmpty());
    for (int i = 0; i < kRows; i++)
        pending.AddMove(whole, 1);
    EXPECT_TRUE(pending.Moves().empty()) << "nothing of the old picture is left to move";
    EXPECT_FALSE(pending.RowSpan(0).IsEmpty());
}

TEST(PendingPaint, HandsEverythingOverAndIsEmptyThen) {
    PendingPaint pending;
    PendingPaint taken;
    pending.Reset(kColumns, kRows);
    pending.Add(CellRect{1, 1, 3, 2});
    pending.AddMove(CellRect{4, 0, 8, 4}, 1);
    pending.AddExpose(2, 2);
    pending.MoveTo(taken);
    EXPECT_TRUE(pending.IsEmpty());
    EXPECT_EQ(pending.Rows(), kRows);
    EXPECT_EQ(pending.Columns(), kColumns);
    EXPECT_EQ(taken.Moves().size(), 1u);
    EXPECT_EQ(taken.RowSpan(1).from, 1);
    EXPECT_TRUE(taken.Exposed().Contains(2, 2));
}

TEST(PendingPaint, AlwaysGivesThePictureOfTheCells) {
    std::mt19937 random(4711);
    const auto upTo = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    Grid cells(kColumns * kRows, 0);
    Grid seen = cells;
    PendingPaint pending;
    pending.Reset(kColumns, kRows);
    for (int step = 1; step < 20000; step++) {
        const CellRect rect{upTo(kColumns), upTo(kRows), 1 + upTo(kColumns), 1 + upTo(kRows)};
        const int lines = upTo(2 * kRows) - kRows;
        const int action = upTo(10);
        if (action == 0) {
            PendingPaint taken;
            pending.MoveTo(taken);
            Paint(taken, seen, cells);
            ASSERT_EQ(seen, cells) << "step " << step;
        } else if (action < 6) {
            if (rect.IsEmpty() || lines == 0) continue;
            MoveRows(cells, rect, lines, step);
            pending.AddMove(rect, lines);
        } else {
            for (int row = rect.top; row < rect.bottom; row++) {
                for (int column = rect.left; column < rect.right; column++) {
                    At(cells, column, row) = step;
                }
            }
            pending.Add(rect);
        }
    }
}

}  // namespace zt
