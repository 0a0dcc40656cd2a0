// The command line's text, its insertion point, and how it scrolls and draws.
#include "commands/command_line.h"

#include "tests/console/fake_console.h"

namespace zt {
namespace {

class CommandLineTest : public testing::Test {
protected:
    std::string Drawn(const char* prompt) {
        line.Draw(prompt, 23);
        const std::string text = screen.RowText(23);
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }
    void Type(const char* text) {
        for (; *text; text++)
            line.Insert(static_cast<wchar_t>(*text));
    }

    FakeConsole screen;
    CommandLine line;
};

TEST_F(CommandLineTest, InsertsAtTheInsertionPoint) {
    Type("abd");
    line.MoveTo(2);
    Type("c");
    EXPECT_STREQ(L"abcd", line.Text().c_str());
    EXPECT_EQ(3, line.Position());
}

TEST_F(CommandLineTest, DropsWhatDoesNotFit) {
    for (int i = 0; i < 600; i++)
        line.Insert(L'x');
    EXPECT_EQ(512, line.Text().Length());
    line.MoveTo(10);
    line.Insert(Westring("yy"));
    EXPECT_EQ(512, line.Text().Length());
    EXPECT_EQ(10, line.Position());
}

TEST_F(CommandLineTest, DeletesOnEitherSideAndStopsAtTheEnds) {
    Type("abc");
    line.DeleteForward();
    EXPECT_STREQ(L"abc", line.Text().c_str());
    line.DeleteBackward();
    line.MoveTo(-5);
    line.DeleteBackward();
    EXPECT_STREQ(L"ab", line.Text().c_str());
    line.DeleteForward();
    EXPECT_STREQ(L"b", line.Text().c_str());
}

TEST_F(CommandLineTest, DrawsPromptAndTextOverTheWholeRow) {
    screen.FillChar(0, 23, 80, Cell{U'#', 0x1F});
    Type("ls");
    EXPECT_EQ("/home>ls", Drawn("/home>"));
    EXPECT_EQ(8, line.CursorColumn());
    EXPECT_EQ((Cell{U' ', 0x07}), screen.CellAt(79, 23));
}

TEST_F(CommandLineTest, ScrollsSoThatTheInsertionPointShows) {
    for (int i = 0; i < 100; i++)
        line.Insert(static_cast<wchar_t>(L'0' + i % 10));
    EXPECT_EQ(std::string(">") +
                  "2345678901234567890123456789012345678901234567890123456789"
                  "01234567890123456789",
              Drawn(">"));
    EXPECT_EQ(79, line.CursorColumn());
    line.MoveTo(5);
    Drawn(">");
    EXPECT_EQ(1, line.CursorColumn());
}

TEST_F(CommandLineTest, ScrollsBackWhenTheTextGetsShort) {
    for (int i = 0; i < 100; i++)
        line.Insert(L'x');
    Drawn(">");
    while (line.Text().Length() > 30)
        line.DeleteBackward();
    EXPECT_EQ(">" + std::string(30, 'x'), Drawn(">"));
    EXPECT_EQ(31, line.CursorColumn());
}

}  // namespace
}  // namespace zt
