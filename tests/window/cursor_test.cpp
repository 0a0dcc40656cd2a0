// The cursor: where, in which colour, how high, and that it blinks.
#include <X11/keysym.h>

#include "window_fixture.h"

namespace zt::testing {

namespace {

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{0xFF, 0xFF, 0xFF};

}  // namespace

class WindowCursor : public WindowTest {
protected:
    // The rows of pixels at the cell's bottom that have the colour all over.
    int HeightAt(int column, int row, Rgb colour) {
        const Picture cell = CellPicture(user->Grab(), column, row);
        int height = 0;
        for (int y = cell.height - 1; y >= 0; y--, height++) {
            for (int x = 0; x < cell.width; x++) {
                if (!(cell.At(x, y) == colour)) return height;
            }
        }
        return height;
    }
    void FillAll(Attribute attribute) {
        Console().FillRect(0, 0, 80, 25, attribute);
        window->WaitPainted();
    }
};

TEST_F(WindowCursor, StandsAtTheBottomOfItsCell) {
    Console().SetCursor(5, 4);
    for (const int percent : {15, 50, 100}) {
        Console().SetCursorSize(percent);
        const int expected = CellHeight() * percent / 100;
        EXPECT_TRUE(WaitFor([&] { return HeightAt(5, 4, kWhite) == expected; })) << percent;
    }
    EXPECT_EQ(HeightAt(4, 4, kWhite), 0);
    EXPECT_EQ(HeightAt(6, 4, kWhite), 0);
    EXPECT_EQ(HeightAt(5, 5, kWhite), 0);
    EXPECT_EQ(HeightAt(5, 3, kWhite), 0);
}

TEST_F(WindowCursor, IsNeverHigherThanItsCell) {
    Console().SetCursor(5, 4);
    Console().SetCursorSize(1000);
    EXPECT_TRUE(WaitFor([&] { return HeightAt(5, 4, kWhite) == CellHeight(); }));
    EXPECT_EQ(HeightAt(5, 3, kWhite), 0);
}

TEST_F(WindowCursor, HasTheColourThatTheBackgroundAsksFor) {
    struct ColourCase {
        Attribute attribute;
        Rgb colour;
    };
    const ColourCase kColours[] = {{0x07, kWhite}, {0x1F, kWhite}, {0x20, kBlack},
                                   {0x30, kBlack}, {0x70, kBlack}, {0xF0, kBlack}};
    Console().SetCursor(10, 10);
    Console().SetCursorSize(25);
    const int expected = CellHeight() * 25 / 100;
    for (const ColourCase& row : kColours) {
        FillAll(row.attribute);
        EXPECT_TRUE(WaitFor([&] { return HeightAt(10, 10, row.colour) == expected; }))
            << static_cast<int>(row.attribute);
    }
}

TEST_F(WindowCursor, LeavesItsOldCellWhenItMoves) {
    Console().SetCursorSize(15);
    Console().SetCursor(3, 3);
    EXPECT_TRUE(WaitFor([&] { return HeightAt(3, 3, kWhite) > 0; }));
    Console().SetCursor(20, 8);
    EXPECT_TRUE(WaitFor([&] { return HeightAt(20, 8, kWhite) > 0; }));
    EXPECT_EQ(HeightAt(3, 3, kWhite), 0);
}

TEST_F(WindowCursor, GoesAtOnceWhenItsSizeIsZero) {
    Console().SetCursorSize(100);
    EXPECT_TRUE(WaitFor([&] { return HeightAt(0, 0, kWhite) > 0; }));
    Console().SetCursorSize(0);
    window->WaitPainted();
    EXPECT_EQ(HeightAt(0, 0, kWhite), 0);
}

TEST_F(WindowCursor, Blinks) {
    Console().SetCursor(1, 1);
    Console().SetCursorSize(15);
    for (int i = 0; i < 2; i++) {
        EXPECT_TRUE(WaitFor([&] { return HeightAt(1, 1, kWhite) > 0; }));
        EXPECT_TRUE(WaitFor([&] { return HeightAt(1, 1, kWhite) == 0; }));
    }
}

TEST_F(WindowCursor, ShowsAgainAtOnceWhenItMoves) {
    Console().SetCursor(1, 1);
    Console().SetCursorSize(15);
    for (int column = 2; column < 5; column++) {
        ASSERT_TRUE(WaitFor([&] { return HeightAt(column - 1, 1, kWhite) == 0; })) << "hidden half";
        Console().SetCursor(column, 1);
        window->WaitPainted();
        EXPECT_GT(HeightAt(column, 1, kWhite), 0);
    }
}

TEST_F(WindowCursor, MayStandOutsideTheGrid) {
    Console().SetCursorSize(15);
    for (const int place : {-1, -100, 80, 1000000}) {
        Console().SetCursor(place, place);
        window->WaitPainted();
    }
    EXPECT_TRUE(IsAll(user->Grab(), kBlack));
}

TEST_F(WindowCursor, DoesNotScrollWithTheCells) {
    Console().SetCursor(5, 10);
    Console().SetCursorSize(20);
    EXPECT_TRUE(WaitFor([&] { return HeightAt(5, 10, kWhite) > 0; }));
    Console().ScrollUp(0, 0, 80, 25, 2, 0x07);
    window->WaitPainted();
    EXPECT_EQ(HeightAt(5, 8, kWhite), 0);
    EXPECT_TRUE(WaitFor([&] { return HeightAt(5, 10, kWhite) > 0; }));
}

TEST_F(WindowCursor, PaintsNoCellWhenItMoves) {
    FillAll(0x1B);
    Console().SetCursorSize(15);
    window->WaitPainted();
    const int64_t before = window->CellsPainted();
    for (int i = 0; i < 20; i++) {
        Console().SetCursor(i, i);
        window->WaitPainted();
    }
    EXPECT_EQ(window->CellsPainted(), before);
}

}  // namespace zt::testing
