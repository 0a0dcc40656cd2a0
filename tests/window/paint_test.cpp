// Pixels: what stands in the cells is what is seen.
#include <algorithm>
#include <vector>

#include "console/window/palette.h"
#include "window_fixture.h"

namespace zt::testing {

namespace {

constexpr Palette kPalette = MakePalette();

Rgb ColourOf(int index) {
    const PaletteColour& colour = kPalette[static_cast<size_t>(index)];
    return {colour.red >> 8, colour.green >> 8, colour.blue >> 8};
}

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{0xFF, 0xFF, 0xFF};
constexpr Rgb kBlue{0, 0, 0x7F};

}  // namespace

class WindowPainting : public WindowTest {
protected:
    Picture CellAt(int column, int row) { return CellPicture(GrabPainted(), column, row); }
    void WriteRow(int row, const wchar_t* text, Attribute attribute = 0x1F) {
        Console().WriteWide(0, row, text, attribute);
    }
    // The columns of the cell that have anything but its background.
    int InkColumns(const Picture& cell, Rgb background) {
        int count = 0;
        for (int x = 0; x < cell.width; x++) {
            bool ink = false;
            for (int y = 0; y < cell.height; y++)
                ink |= !(cell.At(x, y) == background);
            count += ink;
        }
        return count;
    }
};

TEST(Palette, HasTheDocumentedColours) {
    EXPECT_EQ(ColourOf(0), kBlack);
    EXPECT_EQ(ColourOf(1), kBlue);
    EXPECT_EQ(ColourOf(2), (Rgb{0, 0x7F, 0}));
    EXPECT_EQ(ColourOf(4), (Rgb{0x7F, 0, 0}));
    EXPECT_EQ(ColourOf(7), (Rgb{0xC0, 0xC0, 0xC0}));
    EXPECT_EQ(ColourOf(8), (Rgb{0x80, 0x80, 0x80}));
    EXPECT_EQ(ColourOf(11), (Rgb{0, 0xFF, 0xFF}));
    EXPECT_EQ(ColourOf(15), kWhite);
}

TEST_F(WindowPainting, PaintsEachBackgroundInItsColour) {
    for (int i = 0; i < 16; i++) {
        Console().FillChar(i, 2, 1, Cell{U' ', static_cast<Attribute>(i << 4)});
    }
    const Picture picture = GrabPainted();
    for (int i = 0; i < 16; i++) {
        EXPECT_TRUE(IsAll(CellPicture(picture, i, 2), ColourOf(i))) << "background " << i;
    }
}

TEST_F(WindowPainting, PaintsEachForegroundInItsColour) {
    constexpr char32_t kFullBlock = 0x2588;
    for (int i = 0; i < 16; i++) {
        Console().FillChar(i, 2, 1, Cell{kFullBlock, static_cast<Attribute>(i)});
        // A letter has pixels of both colours, and some in between.
        Console().FillChar(i, 3, 1, Cell{U'H', static_cast<Attribute>(0x10 | i)});
    }
    const Picture picture = GrabPainted();
    for (int i = 0; i < 16; i++) {
        EXPECT_TRUE(IsAll(CellPicture(picture, i, 2), ColourOf(i))) << "foreground " << i;
        EXPECT_TRUE(HasColour(CellPicture(picture, i, 3), ColourOf(i))) << "foreground " << i;
        EXPECT_TRUE(HasColour(CellPicture(picture, i, 3), kBlue)) << "behind " << i;
    }
}

TEST_F(WindowPainting, ShiftsNothingBesideAWideCharacter) {
    WriteRow(1, L"ab|cd|ef");
    const Picture plain = GrabPainted();
    // Of other fonts, wider, narrower or without a width: none may move the rest of its row.
    for (const wchar_t strange : {0x4E2D, 0x2A0C, 0x0301, 0x200B, 0xFDFA, 0x0639, 0x1F600}) {
        SCOPED_TRACE(static_cast<int>(strange));
        const wchar_t text[] = {L'a', L'b', strange, L'c', L'd', strange, L'e', L'f', 0};
        WriteRow(1, text);
        const Picture picture = GrabPainted();
        for (const int column : {0, 1, 3, 4, 6, 7}) {
            EXPECT_EQ(CellPicture(picture, column, 1), CellPicture(plain, column, 1)) << column;
        }
    }
}

TEST_F(WindowPainting, NarrowsAWideGlyphIntoItsCell) {
    constexpr wchar_t kFourIntegrals = 0x2A0C;  // in the common fonts two cells wide and more
    WriteRow(1, std::wstring(1, kFourIntegrals).c_str(), 0x0F);
    const Picture cell = CellAt(0, 1);
    std::vector<int> inkStarts;
    for (int x = 1; x < cell.width; x++) {
        const auto lightness = [&](int column) {
            int sum = 0;
            for (int y = 0; y < cell.height; y++)
                sum += cell.At(column, y).red;
            return sum;
        };
        if (lightness(x) > lightness(x - 1)) inkStarts.push_back(x);
    }
    EXPECT_GE(InkColumns(cell, kBlack), cell.width - 3) << "the glyph fills the cell";
    EXPECT_GE(inkStarts.size(), 2u) << "more than the first stroke of it is to be seen";
}

TEST_F(WindowPainting, PaintsAnyValueOfACell) {
    for (const uint32_t value : {0u, 1u, 0x1Fu, 0x7Fu, 0x9Fu, 0xD800u, 0xDFFFu, 0xFFFEu, 0x110000u,
                                 0x1100FFu, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        Cell cells[3] = {{U'x', 0x1F}, {value, 0x1F}, {U'y', 0x1F}};
        Console().WriteCells(0, 1, 3, 1, cells);
        window->WaitPainted();
        const Picture picture = GrabPainted();
        EXPECT_TRUE(HasColour(CellPicture(picture, 2, 1), kWhite)) << value;
    }
}

// More different characters than the window keeps at a time.
TEST_F(WindowPainting, PaintsEveryCharacterOfAVeryMixedText) {
    constexpr uint32_t kFirst = 0x4E00;
    constexpr uint32_t kCount = 18000;
    WriteRow(0, L"Always the same letters");
    const Picture letters = GrabPainted();
    for (uint32_t i = 0; i < kCount;) {
        std::vector<Cell> cells;
        while (cells.size() < 80 * 20)
            cells.push_back(Cell{kFirst + i++, 0x1F});
        Console().WriteCells(0, 2, 80, 20, cells.data());
        window->WaitPainted();
    }
    WriteRow(1, L"Always the same letters");
    const Picture picture = GrabPainted();
    for (int column = 0; column < 23; column++) {
        EXPECT_EQ(CellPicture(picture, column, 0), CellPicture(letters, column, 0));
        EXPECT_EQ(CellPicture(picture, column, 1), CellPicture(letters, column, 0));
    }
    EXPECT_TRUE(HasColour(CellPicture(picture, 79, 21), kWhite));
}

TEST_F(WindowPainting, PaintsLinesThatJoin) {
    Console().FillRect(0, 0, 80, 25, 0x0F);
    WriteRow(1, L"\u250c\u2500\u2510", 0x0F);
    WriteRow(2, L"\u2502 \u2502", 0x0F);
    WriteRow(3, L"\u2514\u2500\u2518", 0x0F);
    const Picture picture = GrabPainted();
    const int width = CellWidth();
    const int height = CellHeight();
    // From the middle of one corner to the middle of the next there is no gap.
    const int left = (width - 1) / 2;
    const int top = height + (height - 1) / 2;
    for (int x = left; x <= 2 * width + left; x++) {
        EXPECT_EQ(picture.At(x, top), kWhite) << "x " << x;
        EXPECT_EQ(picture.At(x, top + 2 * height), kWhite) << "x " << x;
    }
    for (int y = top; y <= top + 2 * height; y++) {
        EXPECT_EQ(picture.At(left, y), kWhite) << "y " << y;
        EXPECT_EQ(picture.At(left + 2 * width, y), kWhite) << "y " << y;
    }
}

TEST_F(WindowPainting, PaintsOnlyCellsThatChanged) {
    WriteRow(4, L"unchanged text in a row of the screen");
    window->WaitPainted();
    const int64_t before = window->CellsPainted();
    WriteRow(4, L"unchanged text in a row of the screen");
    Console().Invalidate(0, 4, 80, 1);
    window->WaitPainted();
    EXPECT_EQ(window->CellsPainted(), before);
    WriteRow(4, L"unchanged Text in a row of the Screen");
    window->WaitPainted();
    EXPECT_EQ(window->CellsPainted(), before + 2);
}

TEST_F(WindowPainting, LeavesNoRestsOfGlyphsThatStandOut) {
    // Painted at once or one after the other, in any order, the picture is the same.
    const wchar_t text[] = L"W\u00c4jQ_\u0300\u2593\u4e2dfWWf\u010e";
    const int length = static_cast<int>(std::size(text)) - 1;
    WriteRow(1, text);
    WriteRow(2, text);
    const Picture whole = GrabPainted();
    for (int row = 1; row <= 2; row++) {
        for (int column = length - 1; column >= 0; column--) {
            Console().FillChar(column, row, 1, Cell{U'#', 0x2E});
            window->WaitPainted();
            const auto character = static_cast<uint32_t>(text[column]);
            Console().FillChar(column, row, 1, Cell{character, 0x1F});
            window->WaitPainted();
        }
    }
    EXPECT_EQ(GrabPainted(), whole);
}

// Whatever moves, the screen looks as if it had been painted anew.
TEST_F(WindowPainting, ScrollsToWhatARepaintGives) {
    struct ScrollCase {
        int column, row, width, height, lines;
    };
    const ScrollCase kScrolls[] = {
        {0, 0, 80, 25, 1},  {0, 0, 80, 25, -1},  {5, 3, 20, 10, 3},  {5, 3, 20, 10, -2},
        {40, 0, 40, 25, 7}, {0, 20, 80, 5, 4},   {0, 0, 80, 25, 24}, {10, 5, 3, 9, 9},
        {0, 0, 80, 25, -5}, {70, 2, 30, 50, -4},
    };
    int turn = 0;
    for (const bool waits : {true, false}) {
        for (const ScrollCase& scroll : kScrolls) {
            SCOPED_TRACE(turn++);
            for (int row = 0; row < 25; row++) {
                const std::wstring text = L"row " + std::to_wstring(row * 7 + turn);
                for (int column = 0; column < 80; column += 13) {
                    Console().WriteWide(column, row, text.c_str(),
                                        static_cast<Attribute>(0x1F + row * 16));
                }
            }
            // Once with the old picture finished, once with the move still to be painted with it.
            if (waits) window->WaitPainted();
            if (scroll.lines > 0) {
                Console().ScrollUp(scroll.column, scroll.row, scroll.width, scroll.height,
                                   scroll.lines, 0x30);
            } else {
                Console().ScrollDown(scroll.column, scroll.row, scroll.width, scroll.height,
                                     -scroll.lines, 0x30);
            }
            Console().WriteWide(6, 4, L"new", 0x4F);
            Console().ScrollUp(0, 2, 60, 8, 1, 0x20);
            const Picture scrolled = GrabPainted();
            // The same cells through a resize, which forgets every pixel.
            Cell* cells = Console().ReadCells(0, 0, 80, 25);
            Console().Resize(80, 25, nullptr, 0);
            Console().WriteCells(0, 0, 80, 25, cells);
            delete[] cells;
            ASSERT_EQ(GrabPainted(), scrolled);
        }
    }
}

TEST_F(WindowPainting, MovesPixelsWhenItScrolls) {
    for (int row = 0; row < 25; row++)
        WriteRow(row, (L"line " + std::to_wstring(row)).c_str());
    window->WaitPainted();
    const int64_t before = window->CellsPainted();
    Console().ScrollUp(0, 0, 80, 25, 2, 0x07);
    window->WaitPainted();
    EXPECT_LE(window->CellsPainted() - before, 2 * 80) << "only the freed rows are painted";
}

TEST_F(WindowPainting, KeepsUpWithManyScrollsAtOnce) {
    for (int i = 0; i < 500; i++)
        Console().WriteStream(("stream " + std::to_string(i) + "\n").c_str());
    const Picture scrolled = GrabPainted();
    Cell* cells = Console().ReadCells(0, 0, 80, 25);
    const uint32_t firstDigit = cells[7].character;  // a copy: a cell is packed
    EXPECT_EQ(firstDigit, static_cast<uint32_t>('4'));
    Console().Resize(80, 25, nullptr, 0);
    Console().WriteCells(0, 0, 80, 25, cells);
    delete[] cells;
    EXPECT_EQ(GrabPainted(), scrolled);
}

TEST_F(WindowPainting, ShowsNothingOfAFreezeBeforeItEnds) {
    Console().FillRect(0, 0, 80, 25, 0x10);
    window->WaitPainted();
    Console().BeginUpdate();
    Console().BeginUpdate();
    Console().FillRect(0, 0, 80, 25, 0x20);
    Console().ScrollUp(0, 0, 80, 25, 3, 0x40);
    EXPECT_TRUE(IsAll(GrabPainted(), kBlue));
    Console().EndUpdate();
    EXPECT_TRUE(IsAll(GrabPainted(), kBlue));
    Console().EndUpdate();
    const Picture picture = GrabPainted();
    EXPECT_TRUE(IsAll(CellPicture(picture, 0, 0), ColourOf(2)));
    EXPECT_TRUE(IsAll(CellPicture(picture, 79, 24), ColourOf(4)));
}

TEST_F(WindowPainting, ShowsWhatWasWrittenJustBeforeAFreeze) {
    Console().FillRect(0, 0, 80, 25, 0x10);
    Console().BeginUpdate();
    Console().FillRect(0, 0, 80, 25, 0x20);
    EXPECT_TRUE(IsAll(GrabPainted(), kBlue));
    Console().EndUpdate();
    EXPECT_TRUE(IsAll(GrabPainted(), ColourOf(2)));
}

TEST_F(WindowPainting, PaintsByItselfWithoutBeingAsked) {
    Console().FillRect(0, 0, 80, 25, 0x10);
    EXPECT_TRUE(WaitFor([this] { return IsAll(user->Grab(), kBlue); }));
    for (int i = 0; i < 300; i++) {
        Console().FillRect(0, 0, 80, 25, static_cast<Attribute>(i << 4));
    }
    Console().FillRect(0, 0, 80, 25, 0x10);
    EXPECT_TRUE(WaitFor([this] { return IsAll(user->Grab(), kBlue); })) << "the last state stays";
}

}  // namespace zt::testing
