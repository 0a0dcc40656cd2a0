// Windows: where they stand, what they save and restore, frame, shadow, and printing.
#include "ui/win.h"

#include <ostream>

#include "tests/ui/ui_fixture.h"

namespace zt {
namespace {

using WinTest = UiTest;

struct Placement {
    int x, y, rightOrWidth, bottomOrHeight;
    int left, top, right, bottom;
};

void PrintTo(const Placement& p, std::ostream* out) {
    *out << "Win(" << p.x << ", " << p.y << ", " << p.rightOrWidth << ", " << p.bottomOrHeight
         << ")";
}

class WinPlacement : public UiTest, public testing::WithParamInterface<Placement> {};

TEST_P(WinPlacement, StandsWhereTheArgumentsSay) {
    const Placement& p = GetParam();
    const Win win(p.x, p.y, p.rightOrWidth, p.bottomOrHeight, 0x70);
    EXPECT_EQ(win.Left(), p.left);
    EXPECT_EQ(win.Top(), p.top);
    EXPECT_EQ(win.Right(), p.right);
    EXPECT_EQ(win.Bottom(), p.bottom);
}

INSTANTIATE_TEST_SUITE_P(AllForms, WinPlacement,
                         testing::Values(Placement{-1, -2, 80, 25, 0, 0, 79, 24},
                                         Placement{5, 3, 20, 10, 5, 3, 20, 10},
                                         Placement{-1, -1, 20, 5, 30, 20, 49, 24},
                                         Placement{-1, -2, 21, 5, 29, 10, 49, 14},
                                         Placement{-1, -3, 20, 4, 30, 7, 49, 10},
                                         Placement{-1, -4, 16, 3, 32, 5, 47, 7},
                                         Placement{0, 24, 79, 24, 0, 24, 79, 24}));

TEST_F(WinTest, ClearsToItsAttributeAndGivesTheScreenBack) {
    screen.WriteWide(10, 5, L"before", 0x1B);
    {
        const Win win(8, 4, 20, 6, 0x70);
        EXPECT_EQ(Cells(10, 5, 6), "      ");
        EXPECT_EQ(At(10, 5), 0x70);
    }
    EXPECT_EQ(Cells(10, 5, 6), "before");
    EXPECT_EQ(At(10, 5), 0x1B);
}

TEST_F(WinTest, WithoutAttributeTakesTheFillAttributeAndClearsNothing) {
    screen.SetFillAttribute(0x07);
    screen.WriteWide(10, 5, L"before", 0x1B);
    Win win(8, 4, 20, 6, kNoAttribute);
    EXPECT_EQ(Cells(10, 5, 6), "before");
    EXPECT_EQ(win.OwnAttribute(), 0x07);
}

TEST_F(WinTest, DrawsADoubleLineAndMovesTheOriginInside) {
    const Win win(2, 1, 7, 4, 0x70, 0x74);
    EXPECT_EQ(Cells(2, 1, 6), "╔════╗");
    EXPECT_EQ(Cells(2, 2, 6), "║    ║");
    EXPECT_EQ(Cells(2, 4, 6), "╚════╝");
    EXPECT_EQ(At(2, 1), 0x74);
    EXPECT_EQ(At(3, 2), 0x70);
    EXPECT_EQ(win.OriginX(), 3);
    EXPECT_EQ(win.OriginY(), 2);
    EXPECT_EQ(win.ClientWidth(), 4);
    EXPECT_EQ(win.ClientHeight(), 2);
}

TEST_F(WinTest, CastsAShadowThatKeepsTextAndDimsColours) {
    for (int row = 0; row < 25; ++row) {
        for (int column = 0; column < 80; ++column) {
            const Attribute attribute = column % 2 ? 0x1E : 0x17;
            screen.FillChar(column, row, 1, Cell{U'x', attribute});
        }
    }
    {
        const Win win(10, 5, 19, 9, 0x70, 0x70);
        ASSERT_TRUE(win.HasShadow());
        EXPECT_EQ(win.SavedCells(), 12 * 6);
        // Below, from two columns right of the left edge.
        EXPECT_EQ(At(11, 10), 0x1E);
        EXPECT_EQ(At(12, 10), 0x08);
        EXPECT_EQ(At(13, 10), 0x06);
        EXPECT_EQ(At(21, 10), 0x06);
        EXPECT_EQ(At(22, 10), 0x17);
        EXPECT_EQ(At(13, 11), 0x1E);
        // Right, from one row below the top.
        EXPECT_EQ(At(20, 5), 0x17);
        EXPECT_EQ(At(20, 6), 0x08);
        EXPECT_EQ(At(21, 6), 0x06);
        EXPECT_EQ(At(22, 6), 0x17);
        EXPECT_EQ(At(20, 9), 0x08);
        EXPECT_EQ(Cells(12, 10, 10), "xxxxxxxxxx");
    }
    EXPECT_EQ(At(13, 10), 0x1E);
    EXPECT_EQ(At(20, 6), 0x17);
}

TEST_F(WinTest, CastsNoShadowWhereThereIsNoRoomOrNoWish) {
    struct Row {
        const char* why;
        int left, top, right, bottom, frame, noShadow;
        bool setting;
    };
    const Row rows[] = {
        {"touches the bottom row", 10, 10, 20, 24, 0x70, 0, true},
        {"one column short", 60, 5, 78, 10, 0x70, 0, true},
        {"no frame", 10, 5, 20, 10, kNoAttribute, 0, true},
        {"unwanted", 10, 5, 20, 10, 0x70, 1, true},
        {"switched off", 10, 5, 20, 10, 0x70, 0, false},
    };
    for (const Row& row : rows) {
        settings.shadows = row.setting;
        const Win win(row.left, row.top, row.right, row.bottom, 0x70, row.frame, row.noShadow);
        EXPECT_FALSE(win.HasShadow()) << row.why;
        EXPECT_EQ(win.SavedCells(), (row.right - row.left + 1) * (row.bottom - row.top + 1))
            << row.why;
    }
    settings.shadows = true;
    EXPECT_TRUE(Win(60, 5, 77, 23, 0x70, 0x70).HasShadow());
    const Win low(10, 20, 20, 24, 0x70, 0x70);  // the frame is there all the same
    EXPECT_EQ(Cells(10, 24, 11), "╚═════════╝");
    EXPECT_EQ(Cells(21, 22, 2), "  ");
    EXPECT_EQ(At(21, 22), 0x07);
}

TEST_F(WinTest, HidesAndComesBackAndIgnoresTheSameCallTwice) {
    screen.WriteWide(10, 5, L"under", 0x07);
    Win win(8, 4, 20, 6, 0x70, 0x70);
    win.Print(1, 0, "over");
    win.SetHidden(true);
    EXPECT_EQ(Cells(10, 5, 5), "under");
    win.SetHidden(true);
    EXPECT_EQ(Cells(10, 5, 5), "under");
    screen.WriteWide(10, 5, L"later", 0x07);
    win.SetHidden(false);
    EXPECT_EQ(Cells(10, 5, 4), "over");
    win.SetHidden(true);
    EXPECT_EQ(Cells(10, 5, 5), "later");
}

TEST_F(WinTest, HiddenWindowWritesNothingWhenItGoes) {
    {
        Win win(8, 4, 20, 6, 0x70, 0x70);
        win.SetHidden(true);
        screen.WriteWide(10, 5, L"newer", 0x07);
    }
    EXPECT_EQ(Cells(10, 5, 5), "newer");
}

TEST_F(WinTest, PrintsEachFormAndMovesThePrintPosition) {
    Win win(10, 5, 40, 15, 0x70, 0x70);
    win.Print(2, 1, "abc");
    EXPECT_EQ(Cells(13, 7, 3), "abc");
    EXPECT_EQ(At(13, 7), 0x70);
    EXPECT_EQ(win.CursorX(), 5);
    EXPECT_EQ(win.CursorY(), 1);
    win.Print(L"d\u00E9", 0x1E);
    EXPECT_EQ(Cells(16, 7, 2), "dé");
    EXPECT_EQ(At(17, 7), 0x1E);
    CellString cells(0x4F);
    cells.Append(Westring("xyz"));
    win.Print(0, 3, cells);
    EXPECT_EQ(Cells(11, 9, 3), "xyz");
    EXPECT_EQ(At(11, 9), 0x4F);
    win.Print(cells);
    EXPECT_EQ(Cells(11, 9, 6), "xyzxyz");
    EXPECT_EQ(win.CursorX(), 6);
}

TEST_F(WinTest, EightBitTextIsUtf8) {
    Win win(10, 5, 40, 15, 0x70);
    win.Print(0, 0, "a\xC3\xA4z");
    EXPECT_EQ(Cells(10, 5, 3), "aäz");
    EXPECT_EQ(win.CursorX(), 3);
}

TEST_F(WinTest, CentresInTheClientWidth) {
    Win framed(10, 5, 21, 9, 0x70, 0x70);  // ten client columns
    framed.PrintCentred(0, "abcd");
    EXPECT_EQ(Cells(11, 6, 10), "   abcd   ");
    framed.PrintCentred(1, L"abc");
    EXPECT_EQ(Cells(11, 7, 10), "   abc    ");
    Win plain(40, 5, 50, 9, 0x70);  // eleven
    plain.PrintCentred(0, "abc");
    EXPECT_EQ(Cells(40, 5, 11), "    abc    ");
}

TEST_F(WinTest, RightAlignedTextEndsBeforeTheColumn) {
    Win win(10, 5, 40, 9, 0x70);
    win.PrintRightAligned(8, 0, "abc");
    EXPECT_EQ(Cells(10, 5, 10), "     abc  ");
    screen.FillRect(0, 0, 80, 25, 7);
    win.PrintRightAligned(2, 1, "abcd");  // too long: it starts left of the window
    EXPECT_EQ(Cells(8, 6, 5), "abcd ");
}

TEST_F(WinTest, ClearsToTheEndOfTheLineInsideTheFrame) {
    Win framed(10, 5, 20, 9, 0x70, 0x70);
    framed.Print(0, 0, "abcdefghi");
    framed.SetCursor(3, 0);
    framed.ClearToEndOfLine();
    EXPECT_EQ(Cells(10, 6, 11), "║abc      ║");
    Win plain(30, 5, 40, 9, 0x70);
    plain.Print(0, 0, "abcdefghijk");
    plain.SetCursor(4, 0);
    plain.ClearToEndOfLine(0x1E);
    EXPECT_EQ(Cells(30, 5, 11), "abcd       ");
    EXPECT_EQ(At(40, 5), 0x1E);
    EXPECT_EQ(At(41, 5), 0x07);
}

TEST_F(WinTest, ClearSparesTheMargins) {
    Win win(10, 5, 20, 10, 0x70, 0x70);
    for (int y = 0; y < 4; ++y)
        win.Print(0, y, "xxxxxxxxx");
    win.Clear(1, 2);
    EXPECT_EQ(Cells(11, 6, 9), "xxxxxxxxx");
    EXPECT_EQ(Cells(11, 7, 9), "         ");
    EXPECT_EQ(Cells(11, 8, 9), "xxxxxxxxx");
    win.Clear();
    EXPECT_EQ(Cells(11, 9, 9), "         ");
    EXPECT_EQ(Cells(10, 5, 1), "╔");
}

TEST_F(WinTest, ScrollsBothWays) {
    Win win(10, 5, 20, 10, 0x70, 0x70);
    for (int y = 0; y < 4; ++y)
        win.Print(0, y, std::to_string(y).c_str());
    win.Scroll(0, 0, 9, 4, 1);
    EXPECT_EQ(Cells(11, 6, 1), "1");
    EXPECT_EQ(Cells(11, 8, 1), "3");
    EXPECT_EQ(Cells(11, 9, 1), " ");
    EXPECT_EQ(At(11, 9), 0x70);
    win.Scroll(0, 0, 9, 4, -2);
    EXPECT_EQ(Cells(11, 6, 1), " ");
    EXPECT_EQ(Cells(11, 8, 1), "1");
}

TEST_F(WinTest, TellsWhetherAPointIsInside) {
    const Win win(10, 5, 20, 10, 0x70, 0x70);
    struct Row {
        int x, y;
        bool inside;
    };
    for (const Row& row : {Row{10, 5, true}, Row{20, 10, true}, Row{9, 5, false}, Row{21, 7, false},
                           Row{15, 4, false}, Row{15, 11, false}}) {
        Point point{row.x, row.y};
        EXPECT_EQ(win.ScreenToWindow(point), row.inside) << row.x << ", " << row.y;
        EXPECT_EQ(point.x, row.x - 11);
        EXPECT_EQ(point.y, row.y - 6);
    }
}

struct HotRow {
    const char* text;
    const char* hotKeys;
    int attribute;
    int column;  // of the highlighted cell; -1: none
    int hot;
};

void PrintTo(const HotRow& row, std::ostream* out) {
    *out << row.text << " / " << row.hotKeys << " in " << std::hex << row.attribute << std::dec;
}

class WinHotKeys : public UiTest, public testing::WithParamInterface<HotRow> {};

TEST_P(WinHotKeys, HighlightsTheLetter) {
    const HotRow& row = GetParam();
    Win win(0, 0, 79, 24, 0x07);
    win.PrintHot(0, 0, row.text, row.hotKeys, row.attribute);
    const int length = Westring(row.text).Length();
    EXPECT_EQ(Cells(0, 0, length), row.text);
    for (int column = 0; column < length; ++column) {
        const int expected = column == row.column ? row.hot : row.attribute;
        EXPECT_EQ(At(column, 0), expected) << "column " << column;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Colours, WinHotKeys,
    testing::Values(HotRow{"Cancel", "c", 0x1B, 0, 0x1E},   // upper case is looked for first
                    HotRow{"ok then", "T", 0x1B, 3, 0x1E},  // only there in the other case
                    HotRow{"aA", "a", 0x1B, 1, 0x1E},       // upper before lower, not first
                    HotRow{"Cancel", "z", 0x1B, -1, 0},     // in neither form
                    HotRow{"Cancel", "", 0x1B, -1, 0},
                    HotRow{"Cancel", "c", 0x1E, 0, 0x1F},  // already yellow: white
                    HotRow{"Cancel", "c", 0x70, 0, 0x79},  // on white: bright blue
                    HotRow{"Cancel", "c", 0x60, 0, 0x69},  // on yellow
                    HotRow{"Cancel", "c", 0xE0, 0, 0xE9},  // on bright yellow
                    HotRow{"Cancel", "c", 0x79, 0, 0x7F},  // already bright blue
                    HotRow{"Cancel", "c", 0xF9, 0, 0xF0},  // the same on a bright background
                    HotRow{"Cancel", "c", 0x40, 0, 0x4E}));

TEST_F(WinTest, HighlightsEachOfSeveralKeys) {
    Win win(0, 0, 79, 24, 0x70);
    win.PrintHot(0, 0, "[ OK ]", "o[]", 0x70);
    EXPECT_EQ(At(0, 0), 0x79);
    EXPECT_EQ(At(2, 0), 0x79);
    EXPECT_EQ(At(5, 0), 0x79);
    EXPECT_EQ(At(3, 0), 0x70);
}

TEST_F(WinTest, WrapsAtBlanks) {
    Win win(10, 5, 21, 12, 0x70, 0x70);  // ten client columns: nine characters a line
    win.PrintWrapped(0, 0, "one two three four");
    EXPECT_EQ(Cells(11, 6, 10), "one two   ");
    EXPECT_EQ(Cells(11, 7, 10), "three     ");
    EXPECT_EQ(Cells(11, 8, 10), "four      ");
}

TEST_F(WinTest, WrapsFromAColumnOnTheFirstLineOnly) {
    Win win(10, 5, 21, 12, 0x70, 0x70);
    win.PrintWrapped(6, 1, "ab cd ef gh ij");
    EXPECT_EQ(Cells(11, 7, 10), "      ab  ");
    EXPECT_EQ(Cells(11, 8, 10), "cd ef gh  ");
    EXPECT_EQ(Cells(11, 9, 10), "ij        ");
}

TEST_F(WinTest, WrapCutsAWordWithoutBlank) {
    Win win(10, 5, 21, 12, 0x70, 0x70);
    win.PrintWrapped(0, 0, "abcdefghijklmno");
    EXPECT_EQ(Cells(11, 6, 10), "abcdefghi ");
    EXPECT_EQ(Cells(11, 7, 10), "jklmno    ");
}

TEST_F(WinTest, WrapEndsInAWindowTooNarrowForText) {
    Win win(10, 5, 12, 12, 0x70, 0x70);  // one client column
    win.PrintWrapped(0, 0, "abc");
    EXPECT_EQ(Cells(11, 6, 1), "a");
    EXPECT_EQ(Cells(11, 8, 1), "c");
}

TEST_F(WinTest, StackedWindowsComeOffInOrder) {
    screen.WriteWide(0, 5, L"the screen", 0x07);
    {
        Win lower(0, 4, 20, 8, 0x70, 0x70);
        lower.Print(0, 0, "lower");
        {
            Win upper(3, 4, 25, 9, 0x1E, 0x1E);
            upper.Print(0, 0, "upper");
            EXPECT_EQ(Cells(4, 5, 5), "upper");
        }
        EXPECT_EQ(Cells(1, 5, 5), "lower");
    }
    EXPECT_EQ(Cells(0, 5, 10), "the screen");
}

TEST_F(WinTest, AppearsInOneStep) {
    screen.freezes.clear();
    const Win win(10, 5, 30, 12, 0x70, 0x70);
    EXPECT_EQ(screen.freezes, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace zt
