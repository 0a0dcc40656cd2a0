// Cursor and page arithmetic, and how little they paint.
#include "panels/cursor_movement.h"

#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

struct Position {
    int top, cursor;
    friend bool operator==(const Position&, const Position&) = default;
};
void PrintTo(const Position& position, std::ostream* out) {
    *out << "top " << position.top << " cursor " << position.cursor;
}

class Movement : public PanelFixture {
protected:
    // 100 entries: ".." and f00000 to f00098.
    void StartIn(int style) {
        ManyFiles(99);
        StartWith(style);
        ASSERT_EQ(left.Count(), 100);
    }
    Position At() const { return {left.top, left.cursor}; }
    template <class Move>
    Position From(int top, int cursor, Move move) {
        left.top = top;
        left.cursor = cursor;
        move();
        return At();
    }
    // The screen shows what a full repaint would show.
    void ExpectPainted() {
        std::vector<std::string> shown;
        for (int row = 0; row < 23; ++row)
            shown.push_back(screen->RowText(row));
        DrawEntries(left);
        for (int row = 0; row < 23; ++row)
            EXPECT_EQ(shown[static_cast<size_t>(row)], screen->RowText(row));
    }
};

TEST_F(Movement, ClampsAndScrolls) {
    StartIn(kStyleFull);  // 19 rows
    const struct {
        int top, cursor, delta;
        Position result;
    } rows[] = {
        {0, 0, 1, {0, 1}},
        {0, 0, -1, {0, 0}},
        {0, 5, -5, {0, 0}},
        {0, 5, -50, {0, 0}},
        {0, 18, 1, {1, 18}},
        {0, 18, 2, {2, 18}},
        {5, 0, -1, {4, 0}},
        {5, 0, -3, {2, 0}},
        {5, 0, -9, {0, 0}},
        {0, 0, 99, {81, 18}},
        {0, 0, 1000, {81, 18}},
        {81, 18, 1, {81, 18}},
        {81, 18, -99, {0, 0}},
        {81, 18, -18, {81, 0}},
        {1, 0, -1, {0, 0}},
        {0, 0, 2000000000, {81, 18}},
        {81, 18, -2000000000, {0, 0}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(From(row.top, row.cursor, [&] { MoveCursor(left, row.delta); }), row.result)
            << row.top << " " << row.cursor << " by " << row.delta;
    }
}

TEST_F(Movement, MovesOnlyInAShowingFilePanel) {
    StartIn(kStyleFull);
    left.kind = kKindInfo;
    MoveCursor(left, 5);
    EXPECT_EQ(left.cursor, 0);
    left.kind = kKindFiles;
    ClosePanelWindow(left);
    MoveCursor(left, 5);
    EXPECT_EQ(left.cursor, 0);
}

TEST_F(Movement, StaysInAnEmptyList) {
    StartIn(kStyleFull);
    left.entries.Clear();
    for (const int delta : {1, -1, 100}) {
        MoveCursor(left, delta);
        EXPECT_EQ(At(), (Position{0, 0}));
    }
    PageDown(left);
    PageUp(left);
    LastEntry(left);
    FirstEntry(left);
    ColumnRight(left);
    EXPECT_EQ(At(), (Position{0, 0}));
}

TEST_F(Movement, ScrollsEveryStyleByOneRowAsAFullRepaintWould) {
    StartIn(kStyleFull);
    for (const int style : {kStyleBrief, kStyleFull, kStyleWide, kStyleBriefWide, kStyleUnix}) {
        SetStyle(left, style, 0);
        left.top = 3;
        left.cursor = left.visibleEntries - 1;
        RefreshPanels(*panels, true);
        for (int step = 0; step < 3; ++step) {
            MoveCursor(left, 1);
            EXPECT_EQ(At(), (Position{4 + step, left.visibleEntries - 1})) << style;
            ExpectPainted();
        }
        left.cursor = 0;
        for (int step = 0; step < 3; ++step) {
            MoveCursor(left, -1);
            EXPECT_EQ(At(), (Position{5 - step, 0})) << style;
            ExpectPainted();
        }
    }
}

TEST_F(Movement, ScrollsByMovingRows) {
    StartIn(kStyleFull);
    left.cursor = 18;
    Pass();
    screen->ForgetRecords();
    screen->takesMoves = true;
    RemoveCursorBar(left);
    MoveCursor(left, 1);
    ASSERT_EQ(screen->moves.size(), 1u);
    EXPECT_EQ(screen->moves[0].rect, (CellRect{1, 1, 39, 20}));
    EXPECT_EQ(screen->moves[0].lines, 1);
    DrawCursorBar(left);
    EXPECT_LE(screen->PaintedCells(), 200);
}

TEST_F(Movement, PaintsAtMostTwoRowsAndTheStatusRowForAStep) {
    StartIn(kStyleFull);
    for (const int style : {kStyleBrief, kStyleFull, kStyleWide, kStyleBriefWide, kStyleUnix}) {
        SetStyle(left, style, 0);
        FirstEntry(left);
        Pass();
        for (int step = 0; step < 5; ++step) {
            screen->ForgetRecords();
            RemoveCursorBar(left);
            MoveCursor(left, 1);
            DrawCursorBar(left);
            EXPECT_LE(screen->PaintedCells(), 3 * 38) << style;
            EXPECT_GT(screen->PaintedCells(), 0) << style;
        }
    }
}

TEST_F(Movement, PagesUpAndDown) {
    StartIn(kStyleFull);
    const auto down = [&] { PageDown(left); };
    const auto up = [&] { PageUp(left); };
    const struct {
        int top, cursor;
        Position down, up;
    } rows[] = {
        {0, 0, {19, 0}, {0, 0}},     {0, 7, {19, 0}, {0, 0}},     {0, 18, {19, 0}, {0, 0}},
        {19, 0, {38, 0}, {0, 18}},   {19, 5, {38, 0}, {0, 18}},   {70, 0, {81, 0}, {51, 18}},
        {70, 18, {81, 7}, {51, 18}}, {81, 3, {81, 18}, {62, 18}}, {81, 18, {81, 18}, {62, 18}},
        {5, 0, {24, 0}, {0, 5}},     {5, 3, {24, 0}, {0, 8}},     {5, 18, {24, 0}, {0, 18}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(From(row.top, row.cursor, down), row.down) << row.top << " " << row.cursor;
        EXPECT_EQ(From(row.top, row.cursor, up), row.up) << row.top << " " << row.cursor;
    }
}

TEST_F(Movement, MovesByEntryColumns) {
    StartIn(kStyleBrief);  // 57 entries on the page
    const auto right_ = [&] { ColumnRight(left); };
    const auto left_ = [&] { ColumnLeft(left); };
    EXPECT_EQ(From(0, 3, right_), (Position{0, 22}));
    EXPECT_EQ(From(0, 40, right_), (Position{19, 40})) << "the page moves by a column";
    EXPECT_EQ(From(19, 40, right_), (Position{38, 40}));
    EXPECT_EQ(From(38, 50, right_), (Position{43, 56})) << "to the last entry";
    EXPECT_EQ(From(43, 56, right_), (Position{43, 56}));
    EXPECT_EQ(From(0, 22, left_), (Position{0, 3}));
    EXPECT_EQ(From(0, 3, left_), (Position{0, 0}));
    EXPECT_EQ(From(19, 3, left_), (Position{0, 3})) << "the page moves back";
    EXPECT_EQ(From(5, 3, left_), (Position{0, 0}));
    EXPECT_TRUE(HasColumnKeys(left));
    SetStyle(left, kStyleBriefWide, 0);
    EXPECT_TRUE(HasColumnKeys(left));
    SetStyle(left, kStyleFull, 0);
    EXPECT_FALSE(HasColumnKeys(left));
}

TEST_F(Movement, GoesToTheFirstAndTheLastEntry) {
    StartIn(kStyleFull);
    LastEntry(left);
    EXPECT_EQ(At(), (Position{81, 18}));
    FirstEntry(left);
    EXPECT_EQ(At(), (Position{0, 0}));
}

TEST_F(Movement, PageKeysClearTheSearch) {
    StartIn(kStyleBrief);
    for (void (*move)(CPanel&) :
         {PageUp, PageDown, ColumnLeft, ColumnRight, FirstEntry, LastEntry}) {
        left.searchText = "abc";
        move(left);
        EXPECT_TRUE(left.searchText.IsEmpty());
    }
}

TEST_F(Movement, FindsANameAndScrollsToIt) {
    StartIn(kStyleFull);
    EXPECT_TRUE(FindName(left, L"f00050"));
    EXPECT_EQ(At(), (Position{33, 18}));
    EXPECT_TRUE(FindName(left, L"f00040"));
    EXPECT_EQ(At(), (Position{33, 8}));
    EXPECT_TRUE(FindName(left, L".."));
    EXPECT_EQ(At(), (Position{0, 0}));
    EXPECT_FALSE(FindName(left, L"F00040"));
    EXPECT_EQ(At(), (Position{0, 0}));
}

TEST_F(Movement, ShiftsTheNameOfTheCursorRowOnly) {
    tree.File("a very long name that does not fit");
    tree.File("b very long name that does not fit");
    Start();
    settings.keepExtVisible = false;
    FindName(left, L"a very long name that does not fit");
    Pass();
    ShiftName(left, 1);
    ShiftName(left, 1);
    DrawCursorBar(left);
    EXPECT_EQ(ClientRow(left, 1).substr(0, 12), "very long na");
    EXPECT_EQ(ClientRow(left, 2).substr(0, 12), "b very long ");
    for (int i = 0; i < 50; ++i)
        ShiftName(left, 1);
    DrawCursorBar(left);
    EXPECT_EQ(left.nameShift, 34 - 13) << "no gap at the end";
    EXPECT_EQ(ClientRow(left, 1).substr(0, 13), " does not fit");
    RemoveCursorBar(left);
    EXPECT_EQ(ClientRow(left, 1).substr(0, 12), "a very long ");
    MoveCursor(left, 1);
    ResetShiftIfMoved(left);
    EXPECT_EQ(left.nameShift, 0);
    DrawCursorBar(left);
    EXPECT_EQ(ClientRow(left, 2).substr(0, 12), "b very long ");
    ShiftName(left, -1);
    EXPECT_EQ(left.nameShift, 0);
}

}  // namespace
}  // namespace zt
