// Writing to the grid and reading it back: edges, translation, and what is painted of it.
#include <gtest/gtest.h>

#include <climits>
#include <memory>

#include "foundation/file_name.h"
#include "tests/console/fake_console.h"

namespace zt {
namespace {

class GridWritersTest : public testing::Test {
protected:
    std::vector<CellRect> Painted() {
        std::vector<CellRect> result;
        result.swap(console.painted);
        return result;
    }
    void ExpectBlank(int row) { EXPECT_EQ(console.RowText(row), std::string(10, ' ')); }

    FakeConsole console{10, 4};
};

TEST_F(GridWritersTest, StartsBlankInAttributeSeven) {
    for (int row = 0; row < 4; row++) {
        for (int column = 0; column < 10; column++) {
            EXPECT_EQ(console.CellAt(column, row), kBlankCell);
        }
    }
    EXPECT_EQ(console.GetFillAttribute(), 0x07);
    EXPECT_EQ(console.GetCursorSize(), 0);
    int columns, rows;
    console.GetSize(columns, rows);
    EXPECT_EQ(columns, 10);
    EXPECT_EQ(rows, 4);
    console.GetCursor(columns, rows);
    EXPECT_EQ(columns, 0);
    EXPECT_EQ(rows, 0);
}

struct WideCase {
    int column;
    int row;
    const wchar_t* text;
    const char* expected;  // row 1
    std::vector<CellRect> painted;
};

TEST_F(GridWritersTest, CutsTextAtEveryEdge) {
    const WideCase cases[] = {
        {0, 1, L"abc", "abc       ", {{0, 1, 3, 2}}},
        {7, 1, L"abc", "       abc", {{7, 1, 10, 2}}},
        {8, 1, L"abc", "        ab", {{8, 1, 10, 2}}},
        {9, 1, L"abc", "         a", {{9, 1, 10, 2}}},
        {10, 1, L"abc", "          ", {}},
        {INT_MAX, 1, L"abc", "          ", {}},
        {-1, 1, L"abc", "bc        ", {{0, 1, 2, 2}}},
        {-3, 1, L"abc", "          ", {}},
        {-2, 1, L"abcdefghijklmnop", "cdefghijkl", {{0, 1, 10, 2}}},
        {INT_MIN, 1, L"abc", "          ", {}},
        {0, -1, L"abc", "          ", {}},
        {0, 4, L"abc", "          ", {}},
        {0, INT_MAX, L"abc", "          ", {}},
        {0, INT_MIN, L"abc", "          ", {}},
        {3, 1, L"", "          ", {}},
    };
    for (const WideCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.column << ", " << c.row);
        console.Resize(10, 4, nullptr, 0);
        Painted();
        console.WriteWide(c.column, c.row, c.text, 7);
        EXPECT_EQ(console.RowText(1), c.expected);
        EXPECT_EQ(Painted(), c.painted);
        ExpectBlank(0);
        ExpectBlank(2);
        ExpectBlank(3);
    }
}

TEST_F(GridWritersTest, PaintsOnlyWhatDiffers) {
    console.WriteWide(1, 2, L"panel", 0x1B);
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{1, 2, 6, 3}}));
    console.WriteWide(1, 2, L"panel", 0x1B);
    EXPECT_EQ(Painted(), std::vector<CellRect>{});
    console.WriteWide(1, 2, L"pixel", 0x1B);
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{2, 2, 4, 3}}));
    console.WriteWide(1, 2, L"pixel", 0x30);
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{1, 2, 6, 3}}));
}

TEST_F(GridWritersTest, WritesCellsOfACellStringUpToTheZeroCell) {
    const Cell text[] = {{U'a', 1}, {U'b', 2}, {0, 3}, {U'c', 4}};
    console.WriteCellString(8, 0, text);
    EXPECT_EQ(console.CellAt(8, 0), (Cell{U'a', 1}));
    EXPECT_EQ(console.CellAt(9, 0), (Cell{U'b', 2}));
    ExpectBlank(1);
    console.WriteCellString(-1, 1, text);
    EXPECT_EQ(console.CellAt(0, 1), (Cell{U'b', 2}));
    EXPECT_EQ(console.CellAt(1, 1), kBlankCell);
}

TEST_F(GridWritersTest, DecodesBytesInTheCodePage) {
    console.WriteBytes(0, 0, "\x82", 7);  // code page 850
    EXPECT_EQ(console.CharacterAt(0, 0), 0xE9u);
    console.SetCodePage(1252);
    console.WriteBytes(0, 0, "\x80", 7);
    EXPECT_EQ(console.CharacterAt(0, 0), 0x20ACu);
    console.SetCodePage(0);  // leaves it
    console.WriteBytes(1, 0, "\x80", 7);
    EXPECT_EQ(console.CharacterAt(1, 0), 0x20ACu);
}

TEST_F(GridWritersTest, ShowsTheBareBytesInAnUnknownCodePage) {
    console.SetCodePage(31999);
    console.WriteBytes(0, 0, "a\xE9", 7);
    EXPECT_EQ(console.CharacterAt(0, 0), U'a');
    EXPECT_EQ(console.CharacterAt(1, 0), 0xE9u);
}

struct GlyphCase {
    uint32_t code;
    uint32_t text;   // shown by the text writers
    uint32_t cells;  // shown by FillChar and WriteCells
};

// 127 to 159 are the house in texts only; what is no character is U+FFFD everywhere.
const GlyphCase kGlyphCases[] = {
    {U' ', U' ', U' '},
    {U'~', U'~', U'~'},
    {1, 0x263A, 0x263A},
    {2, 0x263B, 0x263B},
    {3, 0x2665, 0x2665},
    {7, 0x2022, 0x2022},
    {9, 0x25CB, 0x25CB},
    {10, 0x25D9, 0x25D9},
    {13, 0x266A, 0x266A},
    {16, 0x25BA, 0x25BA},
    {20, 0x00B6, 0x00B6},
    {27, 0x2190, 0x2190},
    {31, 0x25BC, 0x25BC},
    {127, 0x2302, 127},
    {128, 0x2302, 128},
    {159, 0x2302, 159},
    {160, 160, 160},
    {0x2550, 0x2550, 0x2550},
    {0xD7FF, 0xD7FF, 0xD7FF},
    {0xD800, 0xFFFD, 0xFFFD},
    {0xDFFF, 0xFFFD, 0xFFFD},
    {0x10FFFF, 0x10FFFF, 0x10FFFF},
    {0x110000, 0xFFFD, 0xFFFD},
    {0x11007F, 0xFFFD, 0xFFFD},
    {0x110080, 0x2302, 0x80},
    {0x11009F, 0x2302, 0x9F},
    {0x1100A0, 0xA0, 0xA0},
    {0x1100E9, 0xE9, 0xE9},
    {0x1100FF, 0xFF, 0xFF},
    {0x110100, 0xFFFD, 0xFFFD},
    {0x7FFFFFFF, 0xFFFD, 0xFFFD},
    {0xFFFFFFFF, 0xFFFD, 0xFFFD},
};

TEST_F(GridWritersTest, ShowsCodesOfAllKindsAsGlyphs) {
    for (const GlyphCase& c : kGlyphCases) {
        SCOPED_TRACE(testing::Message() << std::hex << c.code);
        const wchar_t wide[] = {static_cast<wchar_t>(c.code), 0};
        const Cell cells[] = {{c.code, 7}, {0, 0}};
        console.WriteWide(0, 0, wide, 7);
        console.WriteCellString(1, 0, cells);
        console.WriteCells(2, 0, 1, 1, cells);
        console.FillChar(3, 0, 1, cells[0]);
        EXPECT_EQ(console.CharacterAt(0, 0), c.text);
        EXPECT_EQ(console.CharacterAt(1, 0), c.text);
        EXPECT_EQ(console.CharacterAt(2, 0), c.cells);
        EXPECT_EQ(console.CharacterAt(3, 0), c.cells);
    }
}

TEST_F(GridWritersTest, ShowsAllControlCodesAsDifferentGlyphs) {
    std::vector<uint32_t> seen;
    for (uint32_t code = 1; code < 32; code++) {
        console.FillChar(0, 0, 1, Cell{code, 7});
        const uint32_t shown = console.CharacterAt(0, 0);
        EXPECT_GT(shown, 0xA0u) << code;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), shown), 0) << code;
        seen.push_back(shown);
    }
}

TEST_F(GridWritersTest, ShowsZeroCellsAsReplacementCharacters) {
    const Cell zero{0, 0x1E};
    console.WriteCells(0, 0, 1, 1, &zero);
    console.FillChar(1, 0, 1, zero);
    EXPECT_EQ(console.CellAt(0, 0), (Cell{0xFFFD, 0x1E}));
    EXPECT_EQ(console.CellAt(1, 0), (Cell{0xFFFD, 0x1E}));
}

TEST_F(GridWritersTest, FillsARunOfCharacters) {
    console.FillChar(-2, 0, 5, Cell{U'=', 0x30});
    EXPECT_EQ(console.RowText(0), "===       ");
    EXPECT_EQ(console.AttributeAt(2, 0), 0x30);
    EXPECT_EQ(console.AttributeAt(3, 0), 7);
    console.FillChar(8, 3, INT_MAX, Cell{U'-', 0x30});
    EXPECT_EQ(console.RowText(3), "        --");
    Painted();
    console.FillChar(0, 1, 0, Cell{U'x', 7});
    console.FillChar(0, 1, -5, Cell{U'x', 7});
    console.FillChar(5, 1, INT_MIN, Cell{U'x', 7});
    ExpectBlank(1);
    EXPECT_EQ(Painted(), std::vector<CellRect>{});
}

struct RectCase {
    int column, row, width, height;
    CellRect painted;  // empty: nothing
};

// What lies outside the grid is cut off on every side.
const RectCase kRectCases[] = {
    {2, 1, 3, 2, {2, 1, 5, 3}},
    {-2, -1, 4, 3, {0, 0, 2, 2}},
    {8, 3, 5, 5, {8, 3, 10, 4}},
    {-5, -5, 100, 100, {0, 0, 10, 4}},
    {INT_MIN, INT_MIN, INT_MAX, INT_MAX, {}},
    {0, 0, INT_MAX, INT_MAX, {0, 0, 10, 4}},
    {INT_MAX, INT_MAX, INT_MAX, INT_MAX, {}},
    {3, 1, 0, 2, {}},
    {3, 1, 2, 0, {}},
    {3, 1, -1, 2, {}},
    {3, 1, 2, -1, {}},
    {10, 0, 2, 2, {}},
    {0, 4, 2, 2, {}},
};

TEST_F(GridWritersTest, FillsRectanglesCutAtTheEdges) {
    for (const RectCase& c : kRectCases) {
        SCOPED_TRACE(testing::Message() << c.column << ", " << c.row << ", " << c.width);
        console.Resize(10, 4, nullptr, 0);
        Painted();
        console.FillRect(c.column, c.row, c.width, c.height, 0x4F);
        for (int row = 0; row < 4; row++) {
            for (int column = 0; column < 10; column++) {
                EXPECT_EQ(console.AttributeAt(column, row),
                          c.painted.Contains(column, row) ? 0x4F : 7);
            }
        }
        const auto expected =
            c.painted.IsEmpty() ? std::vector<CellRect>{} : std::vector<CellRect>{c.painted};
        EXPECT_EQ(Painted(), expected);
        console.FillRect(c.column, c.row, c.width, c.height, 0x4F);
        EXPECT_EQ(Painted(), std::vector<CellRect>{});
    }
}

TEST_F(GridWritersTest, InvalidatesRectanglesCutAtTheEdges) {
    for (const RectCase& c : kRectCases) {
        console.Invalidate(c.column, c.row, c.width, c.height);
        const auto expected =
            c.painted.IsEmpty() ? std::vector<CellRect>{} : std::vector<CellRect>{c.painted};
        EXPECT_EQ(Painted(), expected) << c.column << ", " << c.row << ", " << c.width;
    }
}

TEST_F(GridWritersTest, ClearsWithTheFillAttribute) {
    console.WriteWide(0, 0, L"abc", 0x1E);
    console.SetFillAttribute(0x02);
    EXPECT_EQ(console.GetFillAttribute(), 0x02);
    console.Clear();
    EXPECT_EQ(console.CellAt(0, 0), (Cell{U' ', 0x02}));
    EXPECT_EQ(console.CellAt(9, 3), (Cell{U' ', 0x02}));
}

// Cells that tell where in the source they stood.
std::vector<Cell> Numbered(int count) {
    std::vector<Cell> cells;
    for (int i = 0; i < count; i++) {
        cells.push_back(Cell{static_cast<uint32_t>('a' + i), static_cast<Attribute>(i)});
    }
    return cells;
}

TEST_F(GridWritersTest, WritesBlocksOfCells) {
    const std::vector<Cell> cells = Numbered(6);
    console.WriteCells(3, 1, 3, 2, cells.data());
    EXPECT_EQ(Painted(), (std::vector<CellRect>{{3, 1, 6, 3}}));
    EXPECT_EQ(console.RowText(1), "   abc    ");
    EXPECT_EQ(console.RowText(2), "   def    ");
    EXPECT_EQ(console.AttributeAt(5, 2), 5);
    console.WriteCells(3, 1, 3, 2, cells.data());
    EXPECT_EQ(Painted(), std::vector<CellRect>{});
}

TEST_F(GridWritersTest, WritesTheInnerPartOfABlockThatSticksOut) {
    const std::vector<Cell> cells = Numbered(12);
    console.WriteCells(-2, -1, 4, 3, cells.data());
    EXPECT_EQ(console.RowText(0), "gh        ");
    EXPECT_EQ(console.RowText(1), "kl        ");
    ExpectBlank(2);
    console.WriteCells(8, 3, 4, 3, cells.data());
    EXPECT_EQ(console.RowText(3), "        ab");
}

TEST_F(GridWritersTest, ReadsBlocksBackWithBlanksOutside) {
    console.WriteWide(0, 0, L"0123456789", 0x1E);
    console.WriteWide(0, 3, L"abcdefghij", 0x2E);
    const std::unique_ptr<Cell[]> inner(console.ReadCells(2, 0, 3, 1));
    EXPECT_EQ(inner[0], (Cell{U'2', 0x1E}));
    EXPECT_EQ(inner[2], (Cell{U'4', 0x1E}));
    const std::unique_ptr<Cell[]> corner(console.ReadCells(8, 2, 3, 3));
    const Cell expected[] = {kBlankCell, kBlankCell, kBlankCell, {U'i', 0x2E}, {U'j', 0x2E},
                             kBlankCell, kBlankCell, kBlankCell, kBlankCell};
    for (int i = 0; i < 9; i++)
        EXPECT_EQ(corner[static_cast<size_t>(i)], expected[i]) << i;
    const std::unique_ptr<Cell[]> left(console.ReadCells(-2, -1, 3, 2));
    const Cell leftExpected[] = {kBlankCell, kBlankCell, kBlankCell,
                                 kBlankCell, kBlankCell, {U'0', 0x1E}};
    for (int i = 0; i < 6; i++)
        EXPECT_EQ(left[static_cast<size_t>(i)], leftExpected[i]) << i;
    const std::unique_ptr<Cell[]> far(console.ReadCells(INT_MIN, INT_MAX, 2, 1));
    EXPECT_EQ(far[1], kBlankCell);
    const std::unique_ptr<Cell[]> farther(console.ReadCells(INT_MAX, INT_MIN, 2, 1));
    EXPECT_EQ(farther[1], kBlankCell);
    const std::unique_ptr<Cell[]> none(console.ReadCells(0, 0, -1, 5));
    EXPECT_NE(none, nullptr);
}

TEST_F(GridWritersTest, AppendsRowsToACellString) {
    console.WriteWide(0, 0, L"ab", 1);
    console.WriteWide(0, 1, L"cd", 2);
    CellString text("x", 5);
    console.ReadCellString(-1, 0, 3, 3, text);
    ASSERT_EQ(text.Length(), 10);
    const char expected[] = "x ab cd   ";
    for (int i = 0; i < 10; i++) {
        EXPECT_EQ(text.At(i).character, static_cast<uint32_t>(expected[i])) << i;
    }
    EXPECT_EQ(text.At(3).attribute, 1);
    EXPECT_EQ(text.At(6).attribute, 2);
    CellString none;
    console.ReadCellString(0, 0, 0, 5, none);
    console.ReadCellString(0, 0, 5, -1, none);
    EXPECT_EQ(none.Length(), 0);
}

TEST_F(GridWritersTest, BoundsWhatIsReadIntoACellString) {
    CellString text;
    console.ReadCellString(0, 0, INT_MAX, 1, text);
    EXPECT_EQ(text.Length(), GridConsole::kLargestSide);
}

// What a window saves of the screen under it is there again when it goes.
TEST_F(GridWritersTest, PutsBackWhatWasReadUnchanged) {
    for (const GlyphCase& c : kGlyphCases) {
        SCOPED_TRACE(testing::Message() << std::hex << c.code);
        const wchar_t wide[] = {static_cast<wchar_t>(c.code), 0};
        const Cell cells[] = {{c.code, 0x35}, {0, 0}};
        console.WriteCells(0, 0, 1, 1, cells);
        console.FillChar(1, 0, 1, cells[0]);
        console.WriteCellString(2, 0, cells);
        console.WriteWide(3, 0, wide, 0x35);
        const std::unique_ptr<Cell[]> saved(console.ReadCells(0, 0, 4, 1));
        Painted();
        console.WriteCells(0, 0, 4, 1, saved.get());
        EXPECT_EQ(Painted(), std::vector<CellRect>{});
        console.FillRect(0, 0, 4, 1, 0x70);
        console.WriteCells(0, 0, 4, 1, saved.get());
        for (int i = 0; i < 4; i++)
            EXPECT_EQ(console.CellAt(i, 0), saved[static_cast<size_t>(i)]) << i;
    }
}

struct AttributeCase {
    int column, row, count;
    std::vector<CellRect> painted;
};

TEST_F(GridWritersTest, SetsAttributesUpToTheRightEdge) {
    const AttributeCase cases[] = {
        {2, 1, 3, {{2, 1, 5, 2}}},
        {8, 1, 20, {{8, 1, 10, 2}}},
        {-3, 1, 5, {{0, 1, 2, 2}}},
        {-9, 1, 5, {}},
        {10, 1, 1, {}},
        {0, 1, 0, {}},
        {0, 1, -4, {}},
        {0, -1, 4, {}},
        {0, 4, 4, {}},
        {INT_MIN, 1, INT_MAX, {}},
        {0, 1, INT_MAX, {{0, 1, 10, 2}}},
    };
    for (const AttributeCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.column << ", " << c.row << ", " << c.count);
        console.Resize(10, 4, nullptr, 0);
        console.WriteWide(0, 1, L"0123456789", 7);
        Painted();
        console.SetAttributes(c.column, c.row, c.count, 0x71);
        EXPECT_EQ(console.RowText(1), "0123456789");
        EXPECT_EQ(Painted(), c.painted);
        for (int column = 0; column < 10; column++) {
            const bool in = !c.painted.empty() && c.painted[0].Contains(column, 1);
            EXPECT_EQ(console.AttributeAt(column, 1), in ? 0x71 : 7) << column;
        }
        console.SetAttributes(c.column, c.row, c.count, 0x71);
        EXPECT_EQ(Painted(), std::vector<CellRect>{});
    }
}

TEST_F(GridWritersTest, DecodesTitleAndClipboardInTheCodePage) {
    console.SetTitleBytes("caf\x82");
    EXPECT_EQ(console.title, "caf\xC3\xA9");
    console.SetClipboardBytes("\x9C");
    EXPECT_STREQ(console.clipboard.c_str(), L"\xA3");
    console.SetTitleBytes("");
    EXPECT_EQ(console.title, "");
}

}  // namespace
}  // namespace zt
