// The store of lines that have left the screen: what goes in comes out, and what it costs.
#include "console/scroll_back.h"

#include <random>

#include "tests/console/terminal_fixture.h"

namespace zt {
namespace {

std::vector<Cell> Line(const std::wstring& text, Attribute attribute, size_t width) {
    std::vector<Cell> cells;
    for (const wchar_t ch : text)
        cells.push_back(Cell{static_cast<uint32_t>(ch), attribute});
    cells.resize(width, Cell{U' ', attribute});
    return cells;
}

void Append(CScrollBackBuffer& buffer, const std::vector<Cell>& cells) {
    buffer.Append(cells.data(), static_cast<int>(cells.size()));
}

std::vector<Cell> Read(const CScrollBackBuffer& buffer, int64_t index) {
    CellString line;
    buffer.ReadLine(index, line);
    return std::vector<Cell>(line.Cells(), line.Cells() + line.Length());
}

class ScrollBack : public testing::Test {
protected:
    ScrollBack() { settings = Settings(); }
    CScrollBackBuffer buffer;
};

TEST_F(ScrollBack, GivesBackEachLine) {
    std::vector<std::vector<Cell>> lines;
    lines.push_back(Line(L"plain", 7, 80));
    lines.push_back(Line(L"", 7, 80));
    lines.push_back(Line(L"  between  ", 7, 80));
    lines.push_back(Line(L"coloured blanks", 0x1E, 80));
    lines.push_back(Line(L"gr\u00FC\u00DFe \u20AC \U0001F600 \u2500", 0x70, 40));
    lines.push_back(Line(L"full", 7, 4));
    lines.push_back({});
    lines.push_back({Cell{U'a', 1}, Cell{U'b', 2}, Cell{U' ', 3}, Cell{U' ', 4}});
    for (const auto& line : lines)
        Append(buffer, line);
    ASSERT_EQ(buffer.Count(), static_cast<int64_t>(lines.size()));
    for (size_t i = 0; i < lines.size(); i++)
        EXPECT_EQ(Read(buffer, static_cast<int64_t>(i)), lines[i]) << i;
}

TEST_F(ScrollBack, HasNoLineOutside) {
    Append(buffer, Line(L"x", 7, 5));
    for (const int64_t index : {int64_t{-1}, int64_t{1}, INT64_MIN, INT64_MAX})
        EXPECT_TRUE(Read(buffer, index).empty()) << index;
}

TEST_F(ScrollBack, GivesBackRandomLinesOverManyBlocks) {
    std::mt19937 random(3);
    std::vector<std::vector<Cell>> lines;
    const uint32_t kinds[] = {0x7F, 0x7FF, 0xFFFF, 0x10FFFF};
    for (int i = 0; i < 3000; i++) {
        std::vector<Cell> line(random() % 200);
        for (Cell& cell : line)
            cell = Cell{static_cast<uint32_t>(random() % kinds[random() % 4] + 1),
                        static_cast<Attribute>(random() % 4)};
        lines.push_back(line);
        Append(buffer, line);
        // Now and then some go again.
        for (int back = i % 97 == 0 ? 50 : 0; back > 0 && !lines.empty(); back--) {
            lines.pop_back();
            buffer.RemoveLast();
        }
    }
    ASSERT_EQ(buffer.Count(), static_cast<int64_t>(lines.size()));
    for (size_t i = 0; i < lines.size(); i++)
        ASSERT_EQ(Read(buffer, static_cast<int64_t>(i)), lines[i]) << i;
    while (buffer.Count() > 0)
        buffer.RemoveLast();
    Append(buffer, Line(L"again", 7, 10));
    EXPECT_EQ(Read(buffer, 0), Line(L"again", 7, 10));
}

TEST_F(ScrollBack, TakesTheWidestLineAndCutsAWiderOne) {
    std::vector<Cell> widest(4096, Cell{0x10FFFF, 0});
    for (size_t i = 0; i < widest.size(); i++)
        widest[i].attribute = static_cast<Attribute>(i);
    for (int i = 0; i < 20; i++)
        Append(buffer, widest);
    EXPECT_EQ(Read(buffer, 19), widest);
    std::vector<Cell> wider = widest;
    wider.resize(5000, kBlankCell);
    Append(buffer, wider);
    EXPECT_EQ(Read(buffer, 20), widest);
}

TEST_F(ScrollBack, TrailingBlanksCostNothing) {
    CScrollBackBuffer narrow, wide;
    for (int i = 0; i < 20000; i++) {
        Append(narrow, Line(L"forty letters forty letters forty letter", 7, 40));
        Append(wide, Line(L"forty letters forty letters forty letter", 7, 2000));
    }
    // The width itself takes a byte more.
    EXPECT_LE(wide.MemoryBytes(), narrow.MemoryBytes() * 21 / 20);
    EXPECT_LE(wide.MemoryBytes() / 20000, 50u);
    EXPECT_GE(wide.MemoryBytes() / 20000, 46u);
    RecordProperty("BytesALineOf40", static_cast<int>(wide.MemoryBytes() / 20000));
    CScrollBackBuffer blank;
    for (int i = 0; i < 20000; i++)
        Append(blank, Line(L"", 0x1E, 80));
    EXPECT_LE(blank.MemoryBytes() / 20000, 8u);
}

TEST_F(ScrollBack, TakesRowsOfTheScreen) {
    FakeConsole console(10, 3);
    console.WriteWide(0, 1, L"here", 0x1E);
    buffer.AddScreenLine(console, 1);
    ASSERT_EQ(buffer.Count(), 1);
    const std::vector<Cell> line = Read(buffer, 0);
    ASSERT_EQ(line.size(), 10u);
    EXPECT_EQ(line[3], (Cell{U'e', 0x1E}));
    EXPECT_EQ(line[4], (Cell{U' ', 7}));
}

TEST_F(ScrollBack, CollectsWhatLeavesInEitherWay) {
    FakeConsole console(10, 2);
    console.SetScrollBackSink(&buffer);
    console.WriteStream("one\ntwo\nthree\n");
    EXPECT_EQ(buffer.Count(), 2);
    console.OpenTerminal(-1);
    console.WriteStream("four\r\nfive\r\n");
    console.CloseTerminal();
    EXPECT_EQ(buffer.Count(), 4);
    EXPECT_EQ(Read(buffer, 3)[0].character, U'f');
}

TEST_F(ScrollBack, CollectsNothingWhenItIsOff) {
    settings.consoleScrollback = false;
    FakeConsole console(10, 2);
    console.SetScrollBackSink(&buffer);
    console.WriteStream("one\ntwo\nthree\n");
    console.OpenTerminal(-1);
    console.WriteStream("four\r\nfive\r\n");
    console.CloseTerminal();
    EXPECT_EQ(buffer.Count(), 0);
    // A line that is handed over for looking at it is taken all the same.
    buffer.AddScreenLine(console, 0);
    EXPECT_EQ(buffer.Count(), 1);
}

}  // namespace
}  // namespace zt
