// Teletype output: control characters, wrapping, scrolling, and where lines and text go.
#include <gtest/gtest.h>

#include <clocale>

#include "tests/console/fake_console.h"

namespace zt {
namespace {

struct Leaving : IScrollBackSink {
    void LineLeft(const Cell* cells, int count) override {
        std::string line;
        for (int i = 0; i < count; i++)
            line += static_cast<char>(cells[i].character);
        lines.push_back(line);
    }
    std::vector<std::string> lines;
};

struct Terminal : ITerminalSink {
    void TakeKey(int32_t code, int32_t, int32_t) override { keys.push_back(code); }
    void TakeCharacter(int32_t character) override { characters.push_back(character); }
    void TakeText(const char* utf8) override { text += utf8; }
    std::vector<int32_t> keys, characters;
    std::string text;
};

class TeletypeTest : public testing::Test {
protected:
    void ExpectCursor(int column, int row) {
        int actualColumn, actualRow;
        console.GetCursor(actualColumn, actualRow);
        EXPECT_EQ(actualColumn, column);
        EXPECT_EQ(actualRow, row);
    }

    FakeConsole console{20, 3};
};

struct StreamCase {
    const char* text;
    const char* rows[3];  // without blanks on the right
    int column, row;
};

std::string Trimmed(std::string text) {
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

TEST_F(TeletypeTest, ActsOnEachCharacter) {
    const StreamCase cases[] = {
        {"", {"", "", ""}, 0, 0},
        {"abc", {"abc", "", ""}, 3, 0},
        {"abc\rX", {"Xbc", "", ""}, 1, 0},
        {"abc\b\bX", {"aXc", "", ""}, 2, 0},
        {"\b\bX", {"X", "", ""}, 1, 0},
        {"abc\nd", {"abc", "d", ""}, 1, 1},
        {"\tX", {"        X", "", ""}, 9, 0},
        {"1234567\tX", {"1234567 X", "", ""}, 9, 0},
        {"12345678\tX", {"12345678        X", "", ""}, 17, 0},
        {"\t\t\tX", {"", "X", ""}, 1, 1},
        {"\t\t1234\tX", {"                1234", "        X", ""}, 9, 1},
        {"12345678901234567890", {"12345678901234567890", "", ""}, 0, 1},
        {"12345678901234567890\nX", {"12345678901234567890", "", "X"}, 1, 2},
        {"1\n2\n3\n", {"2", "3", ""}, 0, 2},
        {"1\n2\n3\n4\n5", {"3", "4", "5"}, 1, 2},
        {"a\a\x1B[\x7F\xC2\x80\xC2\x9F"
         "b",
         {"a[b", "", ""},
         3,
         0},
        {"\xC3\xA9\xE2\x82\xAC", {"\xC3\xA9\xE2\x82\xAC", "", ""}, 2, 0},
    };
    for (const StreamCase& c : cases) {
        SCOPED_TRACE(c.text);
        console.Resize(20, 3, nullptr, 0);
        console.SetCursor(0, 0);
        console.WriteStream(c.text);
        for (int row = 0; row < 3; row++) {
            EXPECT_EQ(Trimmed(console.RowText(row)), c.rows[row]) << "row " << row;
        }
        ExpectCursor(c.column, c.row);
    }
}

TEST_F(TeletypeTest, AcceptsEveryScriptInTheCLocale) {
    const std::string before = setlocale(LC_ALL, nullptr);
    setlocale(LC_ALL, "C");
    console.WriteStream("\xD0\x96\xE6\xBC\xA2\xC2\xA0");
    setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(console.CharacterAt(0, 0), 0x416u);
    EXPECT_EQ(console.CharacterAt(1, 0), 0x6F22u);
    EXPECT_EQ(console.CharacterAt(2, 0), 0xA0u);
}

TEST_F(TeletypeTest, WritesInTheFillAttribute) {
    console.SetFillAttribute(0x2E);
    console.WriteStream("a\n\n\nb");
    EXPECT_EQ(console.CellAt(0, 2), (Cell{U'b', 0x2E}));
    EXPECT_EQ(console.AttributeAt(19, 2), 0x2E);  // the row that the scrolling opened
    EXPECT_EQ(console.AttributeAt(19, 0), 0x07);
}

TEST_F(TeletypeTest, KeepsWhatItDoesNotOverwrite) {
    console.WriteWide(0, 1, L"0123456789", 0x1E);
    console.SetCursor(3, 1);
    console.WriteStream("XY");
    EXPECT_EQ(Trimmed(console.RowText(1)), "012XY56789");
    EXPECT_EQ(console.AttributeAt(5, 1), 0x1E);
    EXPECT_EQ(console.AttributeAt(4, 1), 0x07);
}

TEST_F(TeletypeTest, KeepsTheCodesOfCellsBesideItsText) {
    console.FillChar(5, 0, 1, Cell{0x80, 0x1E});
    console.WriteStream("abc");
    EXPECT_EQ(console.CellAt(5, 0), (Cell{0x80, 0x1E}));
}

TEST_F(TeletypeTest, HandsLeavingLinesToTheScrollBack) {
    Leaving leaving;
    console.SetScrollBackSink(&leaving);
    console.WriteStream("one\ntwo\nthree\nfour\nfive");
    ASSERT_EQ(leaving.lines.size(), 2u);
    EXPECT_EQ(leaving.lines[0], "one" + std::string(17, ' '));
    EXPECT_EQ(Trimmed(leaving.lines[1]), "two");
    console.SetScrollBackSink(nullptr);
    console.WriteStream("\n\n");
    EXPECT_EQ(leaving.lines.size(), 2u);
}

TEST_F(TeletypeTest, HandsOverALineThatIsStillBeingWritten) {
    FakeConsole single(5, 1);
    Leaving leaving;
    single.SetScrollBackSink(&leaving);
    single.WriteStream("abcdefg");
    ASSERT_EQ(leaving.lines.size(), 1u);
    EXPECT_EQ(leaving.lines[0], "abcde");
    EXPECT_EQ(single.RowText(0), "fg   ");
}

TEST_F(TeletypeTest, GivesTextToATerminalAndNothingElse) {
    Terminal terminal;
    console.SetTerminalSink(&terminal);
    EXPECT_EQ(console.TerminalSink(), &terminal);
    console.WriteStream("abc\n");
    EXPECT_EQ(terminal.text, "abc\n");
    EXPECT_EQ(Trimmed(console.RowText(0)), "");
    ExpectCursor(0, 0);
    console.SetTerminalSink(nullptr);
    console.WriteStream("abc");
    EXPECT_EQ(Trimmed(console.RowText(0)), "abc");
}

TEST_F(TeletypeTest, KeepsTheCursorSize) {
    console.SetCursorSize(15);
    console.WriteStream("abc\n");
    EXPECT_EQ(console.GetCursorSize(), 15);
}

// A cursor that is set again starts its blinking anew.
TEST_F(TeletypeTest, LeavesACursorAloneThatEndsWhereItWas) {
    console.WriteStream("");
    console.WriteStream("\b\r\a");
    console.WriteStream("abc\r");
    EXPECT_EQ(console.cursorChanges, 0);
    console.WriteStream("abc");
    EXPECT_EQ(console.cursorChanges, 1);
}

TEST_F(TeletypeTest, StartsInsideTheGridWhereverTheCursorStands) {
    console.SetCursor(-5, -5);
    console.WriteStream("a");
    EXPECT_EQ(console.CharacterAt(0, 0), U'a');
    console.SetCursor(500, 500);
    console.WriteStream("b");
    EXPECT_EQ(console.CharacterAt(19, 1), U'b');  // scrolled up by the wrap
    ExpectCursor(0, 2);
}

TEST_F(TeletypeTest, GoesOnSeamlesslyInALongText) {
    Leaving leaving;
    console.SetScrollBackSink(&leaving);
    std::string text;
    for (int i = 0; i < 1000; i++)
        text += std::to_string(i) + (i % 7 == 0 ? "\t.\n" : "\n");
    console.WriteStream(text.c_str());
    ASSERT_EQ(leaving.lines.size(), 998u);
    for (int i = 0; i < 998; i++) {
        std::string expected = std::to_string(i);
        if (i % 7 == 0) expected += std::string(8 - expected.size(), ' ') + ".";
        EXPECT_EQ(Trimmed(leaving.lines[static_cast<size_t>(i)]), expected);
    }
    EXPECT_EQ(Trimmed(console.RowText(1)), "999");
    ExpectCursor(0, 2);
}

struct ScrollCase {
    const char* text;
    int lines;  // 0: no scrolling
    const char* rows[3];
};

TEST_F(TeletypeTest, ScrollsOnceForAllLinesOfAText) {
    const ScrollCase cases[] = {
        {"1\n2\n3", 0, {"1", "2", "3"}},
        {"1\n2\n3\n", 1, {"2", "3", ""}},
        {"1\n2\n3\n4\n5", 2, {"3", "4", "5"}},
        {"1\n2\n3\n4\n5\n6", 3, {"4", "5", "6"}},
        {"1\n2\n3\n4\n5\n6\n7\n8\n9\n", 3, {"8", "9", ""}},
    };
    console.takesMoves = true;
    for (const ScrollCase& c : cases) {
        SCOPED_TRACE(c.text);
        console.Resize(20, 3, nullptr, 0);
        console.SetCursor(0, 0);
        console.ForgetRecords();
        console.WriteStream(c.text);
        ASSERT_EQ(console.moves.size(), c.lines > 0 ? 1u : 0u);
        if (c.lines > 0) {
            EXPECT_EQ(console.moves[0].lines, c.lines);
            EXPECT_EQ(console.moves[0].rect, (CellRect{0, 0, 20, 3}));
        }
        for (int row = 0; row < 3; row++)
            EXPECT_EQ(Trimmed(console.RowText(row)), c.rows[row]) << row;
    }
}

struct GridSize {
    int columns, rows;
};

// Whether a text comes in one piece or in many makes no difference to anything.
TEST_F(TeletypeTest, GivesTheSameInOnePieceAsInSingleCharacters) {
    const char alphabet[] = {'a', 'b', 'c', 'd', '\n', '\n', '\r', '\t', '\b', 'e'};
    uint32_t random = 12345;
    std::string text;
    for (int i = 0; i < 3000; i++) {
        random = random * 1664525u + 1013904223u;
        text += alphabet[(random >> 16) % sizeof(alphabet)];
    }
    for (const GridSize size : {GridSize{20, 3}, {5, 1}, {1, 1}, {1, 4}, {9, 40}}) {
        SCOPED_TRACE(testing::Message() << size.columns << " x " << size.rows);
        FakeConsole whole(size.columns, size.rows);
        FakeConsole pieces(size.columns, size.rows);
        Leaving fromWhole, fromPieces;
        whole.SetScrollBackSink(&fromWhole);
        pieces.SetScrollBackSink(&fromPieces);
        for (GridConsole* grid : {&whole, &pieces}) {
            for (int row = 0; row < size.rows; row++)
                grid->WriteWide(0, row, L"what was there before", 0x1E);
            grid->SetFillAttribute(0x2F);
            grid->SetCursor(2, size.rows / 2);
        }
        whole.WriteStream(text.c_str());
        for (const char ch : text)
            pieces.WriteStream(std::string(1, ch).c_str());
        EXPECT_EQ(fromWhole.lines, fromPieces.lines);
        EXPECT_GT(fromWhole.lines.size(), 100u);
        int column, row, otherColumn, otherRow;
        whole.GetCursor(column, row);
        pieces.GetCursor(otherColumn, otherRow);
        EXPECT_EQ(column, otherColumn);
        EXPECT_EQ(row, otherRow);
        for (int y = 0; y < size.rows; y++) {
            for (int x = 0; x < size.columns; x++)
                ASSERT_EQ(whole.CellAt(x, y), pieces.CellAt(x, y)) << x << ", " << y;
        }
    }
}

TEST_F(TeletypeTest, PaintsEachRowOnce) {
    console.ForgetRecords();
    console.WriteStream("abc\rdef\nxyz");
    EXPECT_EQ(console.painted, (std::vector<CellRect>{{0, 0, 3, 1}, {0, 1, 3, 2}}));
}

}  // namespace
}  // namespace zt
