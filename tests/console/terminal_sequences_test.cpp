// What each control byte and escape sequence does to the screen, and what those that are not known
// do not do.
#include "tests/console/terminal_fixture.h"

namespace zt {
namespace {

using Strings = std::vector<std::string>;

struct SequenceCase {
    const char* name;
    std::string output;
    Strings rows;  // of 20 by 6, without what is blank at the bottom
    std::string cursor;
};

// Six rows of their own letter; the cursor at column 4 of row 2.
std::string Filled(const std::string& then) {
    std::string output = "\x1b[H";
    for (const char* row : {"aaaaaaaaaa", "bbbbbbbbbb", "cccccccccc", "dddddddddd", "eeeeeeeeee"})
        output += std::string(row) + "\r\n";
    return output + "ffffffffff\x1b[3;5H" + then;
}

const std::string kA = "aaaaaaaaaa", kB = "bbbbbbbbbb", kC = "cccccccccc", kD = "dddddddddd",
                  kE = "eeeeeeeeee", kF = "ffffffffff";

void Expect(const std::vector<SequenceCase>& cases) {
    for (const SequenceCase& c : cases) {
        TerminalConsole terminal;
        terminal.Write(c.output);
        EXPECT_EQ(terminal.Rows(), c.rows) << c.name;
        EXPECT_EQ(terminal.Cursor(), c.cursor) << c.name;
    }
}

TEST(TerminalSequences, ControlBytesAct) {
    Expect({
        {"text", "abc", {"abc"}, "3,0"},
        {"carriage return", "abc\rX", {"Xbc"}, "1,0"},
        {"a line feed keeps the column", "abc\nd", {"abc", "   d"}, "4,1"},
        {"backspace", "abc\b\bX", {"aXc"}, "2,0"},
        {"backspace at the left edge", "\b\bX", {"X"}, "1,0"},
        {"tab", "a\tb", {"a       b"}, "9,0"},
        {"tab at a stop", "12345678\tb", {"12345678        b"}, "17,0"},
        {"tab beyond the last stop", "1234567890123456\tb", {"1234567890123456", "b"}, "1,1"},
        {"others are dropped", std::string("a\0\1\2\5\6\v\f\16\17\30\32\37b", 14), {"ab"}, "2,0"},
        {"the last column wraps late", std::string(20, 'x'), {std::string(20, 'x')}, "20,0"},
        {"the next character wraps", std::string(21, 'x'), {std::string(20, 'x'), "x"}, "1,1"},
        {"no wrap at a line feed",
         std::string(20, 'x') + "\r\ny",
         {std::string(20, 'x'), "y"},
         "1,1"},
        {"backspace behind the last column",
         std::string(20, 'x') + "\bY",
         {std::string(19, 'x') + "Y"},
         "20,0"},
        {"the last row scrolls",
         "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7",
         {"2", "3", "4", "5", "6", "7"},
         "1,5"},
        {"a wrap in the last row scrolls",
         "\x1b[6;1H" + std::string(21, 'x'),
         {"", "", "", "", std::string(20, 'x'), "x"},
         "1,5"},
    });
}

TEST(TerminalSequences, TheCursorMoves) {
    Expect({
        {"up", "\x1b[3;5H\x1b[AX", {"", "    X"}, "5,1"},
        {"up by two", "\x1b[3;5H\x1b[2AX", {"    X"}, "5,0"},
        {"up stops", "\x1b[3;5H\x1b[99AX", {"    X"}, "5,0"},
        {"up by nothing", "\x1b[2;5H\x1b[0AX", {"", "    X"}, "5,1"},
        {"down", "\x1b[BX", {"", "X"}, "1,1"},
        {"down stops", "\x1b[99BX", {"", "", "", "", "", "X"}, "1,5"},
        {"down by nothing", "\x1b[0BX", {"X"}, "1,0"},
        {"right", "\x1b[3CX", {"   X"}, "4,0"},
        {"right stops", "\x1b[99CX", {std::string(19, ' ') + "X"}, "20,0"},
        {"right by nothing", "\x1b[0CX", {"X"}, "1,0"},
        {"left", "abc\x1b[2DX", {"aXc"}, "2,0"},
        {"left stops", "abc\x1b[99DX", {"Xbc"}, "1,0"},
        {"left by nothing", "abc\x1b[0DX", {"abcX"}, "4,0"},
        {"column", "\x1b[7GX", {"      X"}, "7,0"},
        {"column left out", "abc\x1b[GX", {"Xbc"}, "1,0"},
        {"column stops", "\x1b[999GX", {std::string(19, ' ') + "X"}, "20,0"},
        {"row", "ab\x1b[3dX", {"ab", "", "  X"}, "3,2"},
        {"row left out", "\r\n\r\nab\x1b[dX", {"  X", "", "ab"}, "3,0"},
        {"row stops", "\x1b[99dX", {"", "", "", "", "", "X"}, "1,5"},
        {"place", "\x1b[2;3HX", {"", "  X"}, "3,1"},
        {"place left out", "ab\x1b[HX", {"Xb"}, "1,0"},
        {"place of zeros", "ab\x1b[0;0HX", {"Xb"}, "1,0"},
        {"row of a place left out", "\r\n\x1b[;3HX", {"  X"}, "3,0"},
        {"column of a place left out", "ab\x1b[2HX", {"ab", "X"}, "1,1"},
        {"place stops", "\x1b[99;99HX", {"", "", "", "", "", std::string(19, ' ') + "X"}, "20,5"},
        {"save and restore",
         "ab\x1b"
         "7\x1b[4;9H\x1b"
         "8X",
         {"abX"},
         "3,0"},
        {"restore before a save",
         "ab\x1b"
         "8X",
         {"Xb"},
         "1,0"},
        {"up does not stop at the region",
         Filled("\x1b[3;5r\x1b[9AX"),
         {"aaaaXaaaaa", kB, kC, kD, kE, kF},
         "5,0"},
    });
}

TEST(TerminalSequences, Erases) {
    Expect({
        {"to the end", Filled("\x1b[J"), {kA, kB, "cccc"}, "4,2"},
        {"to the end, by number", Filled("\x1b[0J"), {kA, kB, "cccc"}, "4,2"},
        {"from the start", Filled("\x1b[1J"), {"", "", "    cccccc", kD, kE, kF}, "4,2"},
        {"all", Filled("\x1b[2J"), {}, "4,2"},
        {"no such part", Filled("\x1b[3J"), {kA, kB, kC, kD, kE, kF}, "4,2"},
        {"row to the end", Filled("\x1b[K"), {kA, kB, "cccc", kD, kE, kF}, "4,2"},
        {"row from the start, not the cursor",
         Filled("\x1b[1K"),
         {kA, kB, "    cccccc", kD, kE, kF},
         "4,2"},
        {"whole row", Filled("\x1b[2K"), {kA, kB, "", kD, kE, kF}, "4,2"},
        {"no such part of a row", Filled("\x1b[3K"), {kA, kB, kC, kD, kE, kF}, "4,2"},
        {"characters", Filled("\x1b[3X"), {kA, kB, "cccc   ccc", kD, kE, kF}, "4,2"},
        {"one character", Filled("\x1b[X"), {kA, kB, "cccc ccccc", kD, kE, kF}, "4,2"},
        {"no characters", Filled("\x1b[0X"), {kA, kB, kC, kD, kE, kF}, "4,2"},
        {"too many characters", Filled("\x1b[999X"), {kA, kB, "cccc", kD, kE, kF}, "4,2"},
        {"behind the last column",
         std::string(20, 'x') + "\x1b[K\x1b[J\x1b[5X",
         {std::string(20, 'x')},
         "20,0"},
    });
}

TEST(TerminalSequences, InsertsAndDeletes) {
    Expect({
        {"blanks", Filled("\x1b[2@"), {kA, kB, "cccc  cccccc", kD, kE, kF}, "4,2"},
        {"a count of 0 is 1", Filled("\x1b[0@"), {kA, kB, "cccc cccccc", kD, kE, kF}, "4,2"},
        {"more blanks than room", Filled("\x1b[99@"), {kA, kB, "cccc", kD, kE, kF}, "4,2"},
        {"what is pushed out is gone",
         std::string(20, 'x') + "\x1b[1G\x1b[@\x1b[P",
         {std::string(19, 'x')},
         "0,0"},
        {"characters", Filled("\x1b[2P"), {kA, kB, "cccccccc", kD, kE, kF}, "4,2"},
        {"more characters than there are", Filled("\x1b[99P"), {kA, kB, "cccc", kD, kE, kF}, "4,2"},
        {"lines", Filled("\x1b[2L"), {kA, kB, "", "", kC, kD}, "4,2"},
        {"more lines than room", Filled("\x1b[99L"), {kA, kB}, "4,2"},
        {"lines within the region", Filled("\x1b[2;4r\x1b[L"), {kA, kB, "", kC, kE, kF}, "4,2"},
        {"lines below the region", Filled("\x1b[1;2r\x1b[L"), {kA, kB, "", kC, kD, kE}, "4,2"},
        {"deleted lines", Filled("\x1b[M"), {kA, kB, kD, kE, kF}, "4,2"},
        {"deleted within the region", Filled("\x1b[2;4r\x1b[M"), {kA, kB, kD, "", kE, kF}, "4,2"},
        {"deleted below the region", Filled("\x1b[1;2r\x1b[2M"), {kA, kB, kE, kF}, "4,2"},
        {"behind the last column",
         std::string(20, 'x') + "\x1b[@\x1b[P",
         {std::string(20, 'x')},
         "20,0"},
        {"insert mode", "abc\r\x1b[4hXY\x1b[4lZ", {"XYZbc"}, "3,0"},
        {"insert mode at the edge",
         std::string(20, 'x') + "\r\x1b[4hY",
         {"Y" + std::string(19, 'x')},
         "1,0"},
        {"another mode", "abc\r\x1b[20hX", {"Xbc"}, "1,0"},
        {"a private mode of that number", "abc\r\x1b[?4hX", {"Xbc"}, "1,0"},
    });
}

TEST(TerminalSequences, ScrollTheRegion) {
    Expect({
        {"up", Filled("\x1b[2S"), {kC, kD, kE, kF}, "4,2"},
        {"up by 0 is up by 1", Filled("\x1b[0S"), {kB, kC, kD, kE, kF}, "4,2"},
        {"up without a number", Filled("\x1b[S"), {kA, kB, kC, kD, kE, kF}, "4,2"},
        {"up by more than all", Filled("\x1b[99S"), {}, "4,2"},
        {"down", Filled("\x1b[2T"), {"", "", kA, kB, kC, kD}, "4,2"},
        {"down without a number", Filled("\x1b[T"), {"", kA, kB, kC, kD, kE}, "4,2"},
        {"in the region", Filled("\x1b[2;5r\x1b[1S"), {kA, kC, kD, kE, "", kF}, "4,2"},
        {"reverse line feed", Filled("\x1bM"), {"", kA, kB, kC, kD, kE}, "4,2"},
        {"reverse line feed in a region",
         Filled("\x1b[2;4r\x1bM"),
         {kA, "", kB, kC, kE, kF},
         "4,2"},
        {"line feeds at its end scroll it alone",
         Filled("\x1b[2;5r\x1b[5;1H\n\nX"),
         {kA, kD, kE, "", "X", kF},
         "1,4"},
        {"line feeds above its end do not",
         Filled("\x1b[2;5r\x1b[4;1H\nX"),
         {kA, kB, kC, kD, "Xeeeeeeeee", kF},
         "1,4"},
        {"line feeds below it scroll it too",
         Filled("\x1b[2;5r\x1b[6;1H\nX"),
         {kA, kC, kD, kE, "", "Xfffffffff"},
         "1,5"},
        {"a region outside the screen", Filled("\x1b[9;99r\x1b[1S"), {kB, kC, kD, kE, kF}, "4,2"},
        {"only its top is on the screen", Filled("\x1b[2;99r\x1b[1S"), {kA, kC, kD, kE, kF}, "4,2"},
        {"without numbers the top goes",
         Filled("\x1b[2;5r\x1b[r\x1b[1S"),
         {kB, kC, kD, kE, "", kF},
         "4,2"},
        {"one number is too few",
         Filled("\x1b[2;5r\x1b[3r\x1b[1S"),
         {kB, kC, kD, kE, "", kF},
         "4,2"},
        {"upside down it does not scroll",
         Filled("\x1b[5;2r\x1b[9S\x1b[9T\x1bM"),
         {kA, kB, kC, kD, kE, kF},
         "4,2"},
        {"the cursor stays", Filled("\x1b[1;6r"), {kA, kB, kC, kD, kE, kF}, "4,2"},
    });
}

TEST(TerminalSequences, RepeatTheLastCharacter) {
    Expect({
        {"three times", "ab\x1b[3bc", {"abbbbc"}, "6,0"},
        {"once", "ab\x1b[b", {"abb"}, "3,0"},
        {"before any character", "\x1b[3bX", {"X"}, "1,0"},
        {"over the edge", "\x1b[19Ga\x1b[2b", {std::string(18, ' ') + "aa", "a"}, "1,1"},
        {"a letter beyond ASCII", "\xC3\xA9\x1b[2b", {"\xC3\xA9\xC3\xA9\xC3\xA9"}, "3,0"},
        {"after movement", "a\x1b[2;1H\x1b[2b", {"a", "aa"}, "2,1"},
    });
    TerminalConsole terminal;
    terminal.Write("x\x1b[999999999b");
    EXPECT_EQ(terminal.Rows().size(), 6u);
    EXPECT_LE(terminal.leaving.lines.size(), 7u);
}

TEST(TerminalSequences, LineDrawing) {
    Expect({
        {"a box", "\x1b(0lqk\x1b(Blqk", {"┌─┐lqk"}, "6,0"},
        {"below the set", "\x1b(0AZ^\x1b(B", {"AZ^"}, "3,0"},
        {"its first and last", "a\x1b(0_`~\x1b(B", {"a ◆·"}, "4,0"},
        {"all of it",
         "\x1b(0abcdefghijklmnopqrst\r\nuvwxyz{|}\x1b(B",
         {"▒␉␌␍␊°±␤␋┘┐┌└┼⎺⎻─⎼⎽├", "┤┴┬│≤≥π≠£"},
         "9,1"},
        {"another set", "\x1b(A#\x1b(0q\x1b(Kq", {"#──"}, "3,0"},
        {"letters beyond ASCII stay", "\x1b(0\xC3\xA9q", {"é─"}, "2,0"},
        {"a control byte is no set", "\x1b(\rX", {"X"}, "1,0"},
    });
}

// A sequence that is not known leaves nothing on the screen and changes nothing.
TEST(TerminalSequences, OthersAreSkipped) {
    const char* skipped[] = {
        "\x1b[5n",
        "\x1b[c",
        "\x1b[>c",
        "\x1b[>4;2m",
        "\x1b[22;0;0t",
        "\x1b[?2004h",
        "\x1b[?1000h",
        "\x1b[?1006l",
        "\x1b[?7l",
        "\x1b[?12h",
        "\x1b[?4m",
        "\x1b[?1001r",
        "\x1b[?1001s",
        "\x1b[>1h",
        "\x1b[>2;4r",
        "\x1b[2 q",
        "\x1b[!p",
        "\x1b[=1c",
        "\x1b[4:3m",
        "\x1b[<0;1;1M",
        "\x1b[1;2;3y",
        "\x1b[?25$p",
        "\x1b[E",
        "\x1b[F",
        "\x1b[I",
        "\x1b[Z",
        "\x1b[s",
        "\x1b[u",
        "\x1b[f",
        "\x1b[g",
        "\x1b[`",
        "\x1b[a",
        "\x1b[e",
        "\x1b[i",
        "\x1b[~",
        "\x1b[38;5;1m",
        "\x1b[48;5;31m",
        "\x1b[38;2;4;7;31m",
        "\x1b]0;title\a",
        "\x1b]0;title\x9c",
        "\x1b]0;title\x1b\\",
        "\x1b]4;1;rgb:00/00/00\a",
        "\x1b]\a",
        "\x1b]0;a\x1b[31mb\a",
        "\x1b=",
        "\x1b>",
        "\x1b[?h",
        "\x1b[?l",
        "\x1b[h",
        "\x1b[l",
        "\x1b[;;;;l",
        "\x1b[\x18",
        "\x1b[2\x1a",
        "\x1b[2\x7f;9Q",
    };
    for (const char* sequence : skipped) {
        TerminalConsole terminal;
        terminal.Write(Filled(std::string(sequence) + "X"));
        EXPECT_EQ(terminal.Rows(), (Strings{kA, kB, "ccccXccccc", kD, kE, kF})) << sequence;
        EXPECT_EQ(terminal.Cursor(), "5,2") << sequence;
        EXPECT_EQ(terminal.console.CellAt(4, 2), (Cell{U'X', 7})) << sequence;
    }
}

// Of an escape that means nothing only the ESC is dropped.
TEST(TerminalSequences, UnknownEscapesLeaveTheirText) {
    Expect({
        {"a letter",
         "\x1b"
         "cX",
         {"cX"},
         "2,0"},
        {"another set of characters", "\x1b)0", {")0"}, "2,0"},
        {"a device control string", "\x1bPab\x1b\\", {"Pab\\"}, "4,0"},
        {"a control byte", "a\x1b\rX", {"X"}, "1,0"},
        {"another escape", "a\x1b\x1b[2DX", {"X"}, "1,0"},
        {"two in a row",
         "\x1b\x1b\x1b"
         "7\x1b[4GX\x1b"
         "8Y",
         {"Y  X"},
         "1,0"},
        {"a letter beyond ASCII", "\x1b\xC3\xA9", {"é"}, "1,0"},
    });
}

TEST(TerminalSequences, OddFormsAreHarmless) {
    Expect({
        {"a huge number", "\x1b[99999999999999999999BX", {"", "", "", "", "", "X"}, "1,5"},
        {"a huge place",
         "\x1b[4294967297;4294967297HX",
         {"", "", "", "", "", std::string(19, ' ') + "X"},
         "20,5"},
        {"many numbers", "\x1b[" + std::string(1000, ';') + "HX", {"X"}, "1,0"},
        {"leading zeros", "\x1b[0000000002;0003HX", {"", "  X"}, "3,1"},
        {"a control byte within", "ab\x1b[2\r;3HX", {"ab", "  X"}, "3,1"},
        {"an escape within", "\x1b[2\x1b[3CX", {"   X"}, "4,0"},
        {"a byte beyond ASCII within", "\x1b[2\xC3\xA9", {"é"}, "1,0"},
        {"prefix in the middle", "\x1b[2?5hX", {"X"}, "1,0"},
        {"two prefixes", "\x1b[??25lX", {"X"}, "1,0"},
    });
}

TEST(TerminalSequences, BellsRingButNotForEver) {
    TerminalConsole terminal;
    terminal.Write("a\ab");
    EXPECT_EQ(terminal.console.beeps, 1);
    EXPECT_EQ(terminal.Rows(), Strings{"ab"});
    terminal.Write(std::string(100000, '\a'));
    EXPECT_LT(terminal.console.beeps, 10);
}

TEST(TerminalSequences, TheCursorIsShownAndHidden) {
    TerminalConsole terminal;
    terminal.console.SetCursorSize(15);
    terminal.Write("a");
    EXPECT_EQ(terminal.console.GetCursorSize(), 15);
    terminal.Write("\x1b[?25l");
    EXPECT_EQ(terminal.console.GetCursorSize(), 0);
    terminal.Write("b\x1b[25h");
    EXPECT_EQ(terminal.console.GetCursorSize(), 0);
    terminal.Write("\x1b[?25h");
    EXPECT_EQ(terminal.console.GetCursorSize(), 15);
    terminal.console.SetCursorSize(40);
    terminal.Write("c");
    EXPECT_EQ(terminal.console.GetCursorSize(), 40);
}

// Several private modes may stand in one sequence.
TEST(TerminalSequences, PrivateModesInOneSequence) {
    TerminalConsole terminal;
    terminal.console.SetCursorSize(15);
    terminal.Write("ab\x1b[?1048;25;9999lX");
    EXPECT_EQ(terminal.console.GetCursorSize(), 0);
    EXPECT_EQ(terminal.Rows(), Strings{"Xb"});
}

}  // namespace
}  // namespace zt
