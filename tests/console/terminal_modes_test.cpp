// The alternate screen, and what is collected for paging back.
#include "tests/console/terminal_fixture.h"

namespace zt {
namespace {

using Strings = std::vector<std::string>;

TEST_F(TerminalTest, TheAlternateScreenGivesBackTheFormerOne) {
    Write("\x1b[31mone\r\ntwo");
    const std::string before = Picture();
    Write("\x1b[?1049h");
    EXPECT_TRUE(Rows().empty());
    EXPECT_EQ(Cursor(), "0,0");
    Write("full screen\r\n\x1b[4;4Hof it");
    EXPECT_EQ(Rows(), (Strings{"full screen", "", "", "   of it"}));
    Write("\x1b[?1049l");
    EXPECT_EQ(Picture(), before);
}

TEST_F(TerminalTest, AllItsModesLeadThere) {
    for (const char* mode : {"47", "1047", "1049"}) {
        TerminalConsole terminal;
        terminal.Write("main\x1b[?" + std::string(mode) + "h");
        EXPECT_TRUE(terminal.Rows().empty()) << mode;
        terminal.Write("x\r\ny\x1b[?" + std::string(mode) + "l");
        EXPECT_EQ(terminal.Rows(), Strings{"main"}) << mode;
        // Only the last of them restores the cursor.
        EXPECT_EQ(terminal.Cursor(), std::string(mode) == "1049" ? "4,0" : "1,1") << mode;
    }
}

TEST_F(TerminalTest, EntersTheAlternateScreenOnce) {
    Write("main\x1b[?1049halt\x1b[?1049h");
    EXPECT_EQ(Rows(), Strings{"alt"});
    Write("\x1b[?1049l");
    EXPECT_EQ(Rows(), Strings{"main"});
}

TEST_F(TerminalTest, LeavesNoAlternateScreenThatIsNotThere) {
    Write(
        "main\x1b[2;2H\x1b"
        "7\x1b[5;5H\x1b[?1049l\x1b[?47lX");
    EXPECT_EQ(Rows(), (Strings{"main", " X"}));
}

TEST_F(TerminalTest, TheAlternateScreenHasTheColourOfText) {
    Write("\x1b[44m\x1b[?1047h");
    EXPECT_EQ(console.AttributeAt(7, 3), 0x17);
    Write("\x1b[?1047l");
    EXPECT_EQ(console.AttributeAt(7, 3), 0x07);
}

TEST_F(TerminalTest, SavesAndRestoresTheCursorByMode) {
    Write("ab\x1b[?1048h\x1b[4;4H\x1b[?1048lX");
    EXPECT_EQ(Rows(), Strings{"abX"});
}

// A program that died there leaves no traces.
TEST_F(TerminalTest, ClosingGivesTheScreenBack) {
    Write("main");
    const std::string before = WithoutBlanks(console.RowText(0));
    Write("\x1b[?1049hcrashed\r\nhere");
    console.CloseTerminal();
    EXPECT_EQ(Rows(), Strings{before});
    EXPECT_EQ(console.Terminal(), nullptr);
    EXPECT_FALSE(console.HasTerminalSink());
}

TEST_F(TerminalTest, ClosingShowsWhatIsGathered) {
    console.Terminal()->Gather("last words", 10);
    console.CloseTerminal();
    EXPECT_EQ(Rows(), Strings{"last words"});
    console.WriteStream("!\n");
    EXPECT_EQ(Rows(), Strings{"last words!"});
}

TEST_F(TerminalTest, OpeningAgainBeginsAnew) {
    Write("main\x1b[?1049hcrashed\x1b[31m\x1b[2;3r");
    console.OpenTerminal(ends[1]);
    EXPECT_EQ(Rows(), Strings{"main"});
    Write("\x1b[3;1H\nX");
    EXPECT_EQ(console.CellAt(0, 3), (Cell{U'X', 7}));
}

TEST_F(TerminalTest, AnAlternateScreenOutlivesANewSize) {
    Write("main screen\r\nsecond");
    Write("\x1b[?1049h");
    console.Resize(6, 3, nullptr, 0);
    Write("x\x1b[?1049l");
    EXPECT_EQ(Rows(), (Strings{"main s", "second"}));
    Write("\x1b[?1049h");
    console.Resize(30, 8, nullptr, 0);
    Write("\x1b[?1049l");
    EXPECT_EQ(Rows(), (Strings{"main s", "second"}));
}

// --- What leaves the screen.

TEST_F(TerminalTest, CollectsTheLinesThatLeave) {
    Write("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8");
    EXPECT_EQ(leaving.lines, (Strings{"1", "2"}));
    EXPECT_EQ(leaving.width, 20);
    Write("\x1b[3S");
    EXPECT_EQ(leaving.lines, (Strings{"1", "2", "3", "4", "5"}));
    Write("\x1b[999S");
    EXPECT_EQ(leaving.lines.size(), 5u + 6u);
}

// The top of the screen is taken, whatever the region.
TEST_F(TerminalTest, CollectsTheTopWhateverTheRegion) {
    Write("1\r\n2\r\n3\r\n4\r\n5\r\n6\x1b[3;5r\x1b[5;1H\n\n");
    EXPECT_EQ(leaving.lines, (Strings{"1", "1"}));
    Write("\x1b[2S");
    EXPECT_EQ(leaving.lines, (Strings{"1", "1", "1", "2"}));
}

TEST_F(TerminalTest, CollectsNothingThatWasErased) {
    Write("1\r\n2\x1b[2J\x1b[H\x1b[M\x1b[L\x1bM\x1b[3T\x1b[S\x1b[9;1r");
    EXPECT_TRUE(leaving.lines.empty());
}

TEST_F(TerminalTest, CollectsNothingFromTheAlternateScreen) {
    Write("\x1b[?1049h");
    for (int i = 0; i < 50; i++)
        Write("line\r\n\x1b[2S");
    EXPECT_TRUE(leaving.lines.empty());
    Write("\x1b[?1049l\x1b[6;1H\n");
    EXPECT_EQ(leaving.lines.size(), 1u);
}

TEST_F(TerminalTest, CollectsNothingInARegionUpsideDown) {
    Write("1\r\n2\r\n3\x1b[5;2r\x1b[6;1H\n\n\x1b[9S");
    EXPECT_TRUE(leaving.lines.empty());
}

}  // namespace
}  // namespace zt
