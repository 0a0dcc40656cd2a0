// Text on the embedded terminal: UTF-8 in pieces, what is no UTF-8, colours, and that the screen
// may change between two writes.
#include <random>

#include "console/code_page_437.h"
#include "tests/console/terminal_fixture.h"

namespace zt {
namespace {

TEST_F(TerminalTest, JoinsACharacterSplitOverWrites) {
    const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";
    for (size_t cut = 0; cut <= text.size(); cut++) {
        TerminalConsole terminal;
        terminal.Write(text.substr(0, cut));
        terminal.Write(text.substr(cut));
        EXPECT_EQ(terminal.Rows(), std::vector<std::string>{text}) << cut;
        EXPECT_EQ(terminal.Cursor(), "5,0") << cut;
    }
    for (const char byte : text)
        Write(std::string(1, byte));
    EXPECT_EQ(Rows(), std::vector<std::string>{text});
}

TEST_F(TerminalTest, ShowsNothingOfACharacterThatIsNotWhole) {
    Write("a\xE2\x82");
    EXPECT_EQ(Rows(), std::vector<std::string>{"a"});
    EXPECT_EQ(Cursor(), "1,0");
    Write("\xAC");
    EXPECT_EQ(Rows(), std::vector<std::string>{"a€"});
}

struct BytesCase {
    std::string bytes;
    std::vector<uint32_t> characters;
};

TEST_F(TerminalTest, ShowsBytesThatAreNoUtf8) {
    const BytesCase cases[] = {
        {"\xE9t\xE9.", {0xE9, 't', 0xE9, '.'}},      // Latin 1
        {"\xE9\rX", {'X'}},                          // cut by a control byte
        {"\x1b[2C\xC3\x1b[1Gab", {'a', 'b', 0xC3}},  // cut by a sequence
        {"\xA9", {0xA9}},                            // a continuation alone
        {"\xFFx", {0xFF, 'x'}},
        {"\xF8\x88\x80\x80\x80", {0xF8, 0x2302, 0x2302, 0x2302, 0x2302}},
        {"\xC0\x80", {0xFFFD}},              // an overlong NUL
        {"\xED\xA0\x80", {0xFFFD}},          // half of a surrogate pair
        {"\xF7\xBF\xBF\xBF", {0xFFFD}},      // above Unicode
        {"\xC2\x85\x7f", {0x2302, 0x2302}},  // control codes of the upper range
    };
    for (const BytesCase& c : cases) {
        TerminalConsole terminal;
        terminal.Write(c.bytes);
        for (size_t i = 0; i < c.characters.size(); i++)
            EXPECT_EQ(terminal.console.CharacterAt(static_cast<int>(i), 0), c.characters[i])
                << testing::PrintToString(c.bytes) << " at " << i;
    }
}

TEST_F(TerminalTest, ReadsTextUpToItsEnd) {
    console.WriteStream("through the console");
    EXPECT_EQ(Rows(), std::vector<std::string>{"through the console"});
}

TEST_F(TerminalTest, GoesOnWhereTheConsoleIs) {
    Write("one");
    console.WriteWide(0, 1, L"drawn meanwhile", 0x1E);
    console.SetCursor(5, 1);
    Write("X");
    EXPECT_EQ(Rows(), (std::vector<std::string>{"one", "drawnXmeanwhile"}));
    EXPECT_EQ(console.AttributeAt(0, 1), 0x1E);
    EXPECT_EQ(console.AttributeAt(5, 1), 0x07);
}

TEST_F(TerminalTest, StandsACursorOutsideTheScreen) {
    console.SetCursor(500, 400);
    Write("X");
    EXPECT_EQ(Cursor(), "1,5");
    console.SetCursor(-5, -7);
    Write("Y");
    EXPECT_EQ(Rows(), (std::vector<std::string>{"Y", "", "", "", "", "X"}));
}

TEST_F(TerminalTest, FollowsANewSizeOfTheConsole) {
    Write("\x1b[6;1H");
    console.Resize(10, 12, nullptr, 0);
    Write("\x1b[12;1Hend\r\nafter");
    EXPECT_EQ(Rows().size(), 12u);
    EXPECT_EQ(Rows()[10], "end");
    EXPECT_EQ(Rows()[11], "after");
    console.Resize(30, 3, nullptr, 0);
    Write("\x1b[9;25Hlast\r\nnext");
    EXPECT_EQ(Rows()[1], std::string(24, ' ') + "last");
    EXPECT_EQ(Rows()[2], "next");
}

TEST_F(TerminalTest, KeepsARegionThatFitsTheNewSize) {
    Write("\x1b[2;3r");
    console.Resize(20, 4, nullptr, 0);
    Write("\x1b[Ha\r\nb\r\nc\r\nd");
    EXPECT_EQ(Rows(), (std::vector<std::string>{"a", "c", "d"}));
}

TEST_F(TerminalTest, GathersWithoutShowing) {
    CTerminal& terminal = *console.Terminal();
    terminal.Gather("one\r\n", 5);
    terminal.Gather("two", 3);
    EXPECT_TRUE(Rows().empty());
    terminal.Show();
    EXPECT_EQ(Rows(), (std::vector<std::string>{"one", "two"}));
    terminal.Show();
    EXPECT_EQ(Cursor(), "3,1");
}

TEST_F(TerminalTest, ShowsAPageAsOne) {
    std::string page;
    for (int line = 0; line < 500; line++)
        page += "line " + std::to_string(line) + "\r\n";
    console.ForgetRecords();
    console.freezes.clear();
    Write(page);
    EXPECT_EQ(console.freezes, (std::vector<bool>{true, false}));
    EXPECT_LE(console.moves.size(), 1u);
    EXPECT_LE(console.PaintedCells(), 20 * 6);
    EXPECT_EQ(leaving.lines.size(), 495u);
}

TEST_F(TerminalTest, MovesTheScreenForASingleLine) {
    Write("1\r\n2\r\n3\r\n4\r\n5\r\n6");
    console.ForgetRecords();
    console.takesMoves = true;
    Write("\r\n7");
    ASSERT_EQ(console.moves.size(), 1u);
    EXPECT_EQ(console.moves[0].lines, 1);
    EXPECT_FALSE(console.moves[0].frozen);
    EXPECT_LE(console.PaintedCells(), 40);
    EXPECT_EQ(Rows(), (std::vector<std::string>{"2", "3", "4", "5", "6", "7"}));
}

// Whatever moves and writes follow each other between two pictures, the console gets the last one.
TEST(TerminalScreens, ManyMovesInOneWriteEndAsOneByOne) {
    std::mt19937 random(7);
    const char* parts[] = {"\x1b[2;5r",   "\x1b[1;6r",   "\x1b[S",  "\x1b[1S",   "\x1b[3T",
                           "\x1bM",       "\x1b[L",      "\x1b[2M", "\r\n",      "\n\n",
                           "abc",         "\x1b[44m",    "\x1b[0m", "\x1b[4;4H", "\x1b[6;1H",
                           "\x1b[2K",     "\x1b[J",      "\x1b[2@", "\x1b[H",    "\x1b[P",
                           "\x1b[?1049h", "\x1b[?1049l", "\x1b[7m"};
    for (int round = 0; round < 300; round++) {
        TerminalConsole atOnce;
        TerminalConsole stepwise;
        std::string all;
        for (int step = 0; step < 60; step++) {
            const std::string part = parts[random() % std::size(parts)];
            all += part;
            stepwise.Write(part);
        }
        atOnce.Write(all);
        ASSERT_EQ(atOnce.Picture(), stepwise.Picture()) << testing::PrintToString(all);
    }
}

// Bytes without any sense: the screen stays one that can be painted, and nothing is written to the
// program.
TEST(TerminalScreens, RandomBytesAreHarmless) {
    std::mt19937 random(1);
    TerminalConsole terminal(33, 7);
    const char special[] = "\x1b[]()?;;0123456789hlmrSTLMHJKABCD@PXb78M\n\r\t\b\a";
    std::string bytes(4096, 0);
    for (int round = 0; round < 200; round++) {
        for (char& byte : bytes) {
            const uint32_t value = static_cast<uint32_t>(random());
            byte = (value & 0x300) == 0 ? static_cast<char>(value)
                                        : special[value % (sizeof special - 1)];
        }
        if (round % 50 == 49)
            terminal.console.Resize(static_cast<int>(random() % 90) + 1,
                                    static_cast<int>(random() % 40) + 1, nullptr, 0);
        terminal.Write(bytes);
        int columns, rows, column, row;
        terminal.console.GetSize(columns, rows);
        terminal.console.GetCursor(column, row);
        ASSERT_TRUE(column >= 0 && column <= columns && row >= 0 && row < rows);
        for (int y = 0; y < rows; y++)
            for (int x = 0; x < columns; x++)
                ASSERT_EQ(terminal.console.CharacterAt(x, y),
                          ShownGlyph(terminal.console.CharacterAt(x, y)));
        terminal.leaving.lines.clear();
    }
    EXPECT_EQ(terminal.Sent(0), "");
}

struct ColourCase {
    std::string output;
    int attribute;
};

TEST(TerminalColours, SetTheAttribute) {
    const ColourCase cases[] = {
        {"", 0x07},
        {"\x1b[m", 0x07},
        {"\x1b[0m", 0x07},
        {"\x1b[30m", 0x00},
        {"\x1b[31m", 0x04},
        {"\x1b[32m", 0x02},
        {"\x1b[33m", 0x06},
        {"\x1b[34m", 0x01},
        {"\x1b[35m", 0x05},
        {"\x1b[36m", 0x03},
        {"\x1b[37m", 0x07},
        {"\x1b[41m", 0x47},
        {"\x1b[44m", 0x17},
        {"\x1b[46m", 0x37},
        {"\x1b[90m", 0x08},
        {"\x1b[91m", 0x0C},
        {"\x1b[97m", 0x0F},
        {"\x1b[100m", 0x87},
        {"\x1b[104m", 0x97},
        {"\x1b[107m", 0xF7},
        {"\x1b[1m", 0x0F},
        {"\x1b[1;31m", 0x0C},
        {"\x1b[4m", 0x87},
        {"\x1b[4;24m", 0x07},
        {"\x1b[7m", 0x70},
        {"\x1b[7;27m", 0x07},
        {"\x1b[31;42;7m", 0x42},
        {"\x1b[1;7m", 0x78},
        {"\x1b[4;7;44m", 0xF1},
        {"\x1b[31;44;39m", 0x17},
        {"\x1b[31;44;99m", 0x17},
        {"\x1b[31;44;49m", 0x04},
        {"\x1b[31;44;109m", 0x04},
        {"\x1b[1;4;7;31;44;0m", 0x07},
        {"\x1b[1;4;7;31;44m\x1b[m", 0x07},
        {"\x1b[31;m", 0x07},
        {"\x1b[;31m", 0x04},
        // Not known: nothing.
        {"\x1b[1;22m", 0x0F},
        {"\x1b[5m", 0x07},
        {"\x1b[2;3;8;9;10;21;23;25;28;29m", 0x07},
        {"\x1b[38m", 0x07},
        {"\x1b[98;110;108;50;999999m", 0x07},
        {"\x1b[38;5;1m", 0x07},
        {"\x1b[38;5;1;32m", 0x02},
        {"\x1b[48;2;1;4;7;32m", 0x02},
        {"\x1b[38;5m", 0x07},
        {"\x1b[>31m", 0x07},
        {"\x1b[?31m", 0x07},
    };
    for (const ColourCase& c : cases) {
        TerminalConsole terminal;
        terminal.Write(c.output + "X");
        EXPECT_EQ(terminal.console.AttributeAt(0, 0), c.attribute) << c.output;
    }
}

TEST(TerminalColours, StartFromTheColourClass) {
    settings = Settings();
    settings.colours[static_cast<int>(ColourClass::kCommandLine)] = 0x2E;
    FakeConsole console(20, 6);
    console.OpenTerminal(-1);
    console.WriteStream("a\x1b[31;44mb\x1b[39mc\x1b[49md\x1b[1;31me\x1b[0mf");
    const int expected[] = {0x2E, 0x14, 0x1E, 0x2E, 0x2C, 0x2E};
    for (int i = 0; i < 6; i++)
        EXPECT_EQ(console.AttributeAt(i, 0), expected[i]) << i;
    console.CloseTerminal();
    ResetColours();
}

TEST_F(TerminalTest, FillsWithTheColourOfText) {
    Write("\x1b[44m\x1b[2J");
    EXPECT_EQ(console.AttributeAt(19, 5), 0x17);
    Write("\x1b[41m\x1b[2;1H\x1b[K\x1b[3;1Hab\x1b[1G\x1b[@\x1b[4;1H\x1b[2X\x1b[5;1H\x1b[P");
    EXPECT_EQ(console.AttributeAt(19, 1), 0x47);
    EXPECT_EQ(console.AttributeAt(0, 2), 0x47);
    EXPECT_EQ(console.AttributeAt(1, 3), 0x47);
    EXPECT_EQ(console.AttributeAt(2, 3), 0x17);
    EXPECT_EQ(console.AttributeAt(19, 4), 0x47);
    Write("\x1b[42m\x1b[1S\x1b[1;1H\x1b[L");
    EXPECT_EQ(console.AttributeAt(7, 5), 0x17);
    EXPECT_EQ(console.AttributeAt(7, 0), 0x27);
}

}  // namespace
}  // namespace zt
