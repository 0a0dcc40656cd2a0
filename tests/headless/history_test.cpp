// The histories: the window of commands (Alt-F8), that of directories (Alt-\), those of input
// fields, and the file that keeps them.
#include "tests/headless/box_rows.h"
#include "tests/support/command_runs.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class Histories : public CommandRuns {
protected:
    SessionOptions WithHistory(const std::string& history) {
        home.File(".ztx/zt.hst", history);
        return InTree();
    }
    std::string Kept() { return home.Content(".ztx/zt.hst"); }
    static std::string Line(const Session& session) { return session.Row(session.Rows() - 2); }
    // The row of the window under its cursor bar, without the window's blanks.
    static std::string Chosen(const Session& session) {
        for (int row = 1; row < session.Rows() - 2; row++) {
            for (int column = 1; column < session.Columns() / 2; column++) {
                const bool begins = session.CharacterAt(column, row) == U'║' &&
                                    session.AttributeAt(column + 2, row) == kMenuBar;
                if (!begins) continue;
                std::string text;
                for (int i = column + 1; session.CharacterAt(i, row) != U'║'; i++)
                    text += static_cast<char>(session.CharacterAt(i, row));
                const size_t start = text.find_first_not_of(' ');
                const size_t end = text.find_last_not_of(' ');
                return start == std::string::npos ? "" : text.substr(start, end - start + 1);
            }
        }
        return "no bar";
    }
    static constexpr uint8_t kMenuBar = 0x0F;
};

// --- Commands ---

TEST_F(Histories, CommandsStandInAWindowOpenedOnTheNewest) {
    Session session(WithHistory("echo one\r\necho two\r\nls\r\n"));
    session.Press("Alt-F8");
    EXPECT_THAT(BoxRows(session, 34, 6, 12, 5), ElementsAre("╔ History ═╗",  //
                                                            "║ echo one ║",  //
                                                            "║ echo two ║",  //
                                                            "║ ls       ║",  //
                                                            "╚══════════╝"));
    EXPECT_EQ(Chosen(session), "ls");
}

TEST_F(Histories, TheWindowIsAsWideAsTheLongestAndNoWiderThanTheScreen) {
    Session session(WithHistory("123456789\r\n"));
    session.Press("Alt-F8");
    EXPECT_THAT(session.Text(), HasSubstr("║ 123456789  ║"));
    session.Press("Esc");
    Session wide(WithHistory(std::string(200, 'x') + "\r\n"));
    wide.Press("Alt-F8");
    EXPECT_THAT(wide.Text(), HasSubstr("║ ║ " + std::string(72, 'x') + " ║ ║"));
}

TEST_F(Histories, TheWindowIsNoHigherThanTheScreen) {
    std::string history;
    for (int i = 100; i < 150; i++)
        history += "echo " + std::to_string(i) + "\r\n";
    Session session(WithHistory(history));
    session.Press("Alt-F8");
    EXPECT_THAT(session.Text(), HasSubstr("echo 149"));
    EXPECT_THAT(session.Text(), HasSubstr("echo 131"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("echo 130")));
    session.Press("Home");
    EXPECT_THAT(session.Text(), HasSubstr("echo 100"));
}

TEST_F(Histories, AScreenOfFewRowsShowsOneCommand) {
    SessionOptions options = WithHistory("one\r\ntwo\r\n");
    options.rows = 6;
    Session session(options);
    session.Press("Alt-F8");
    EXPECT_TRUE(Shows(session, "║ two "));
    session.Press("Up");
    EXPECT_TRUE(Shows(session, "║ one "));
    session.Press("Ctrl-Enter");
    EXPECT_THAT(Line(session), EndsWith(">one"));
}

TEST_F(Histories, EnterRunsTheCommandAgainAndMakesItTheNewest) {
    Session session(WithHistory("echo 1 >> out\r\necho 2 >> out\r\necho 3 >> out\r\n"));
    session.Press({"Alt-F8", "Up", "Enter"});
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(tree.Content("out"), "2\n");
    session.Press("Alt-F8");
    EXPECT_EQ(Chosen(session), "echo 2 >> out");
    EXPECT_EQ(BoxRows(session, 31, 7, 17, 1)[0], "║ echo 1 >> out  ");
    EXPECT_EQ(BoxRows(session, 31, 8, 17, 1)[0], "║ echo 3 >> out  ");
    EXPECT_EQ(BoxRows(session, 31, 9, 17, 1)[0], "║ echo 2 >> out  ");
    session.Press("Esc");
    EXPECT_EQ(Kept(), "echo 1 >> out\r\necho 2 >> out\r\necho 3 >> out\r\necho 2 >> out\r\n");
    Session next(InTree());
    next.Press({"Ctrl-e", "Ctrl-e"});
    EXPECT_THAT(Line(next), EndsWith(">echo 3 >> out"));
}

TEST_F(Histories, AltEnterRunsTheCommandInATerminalOfItsOwn) {
    home.File(".ztx/zt.ini", "Background=echo own [!] > out\n");
    Session session(WithHistory("first\r\nsecond\r\n"));
    session.Press({"Alt-F8", "Up", "Alt-Enter"});
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(tree.Content("out"), "own [first]\n");
}

TEST_F(Histories, CtrlEnterBringsTheCommandToTheLine) {
    Session session(WithHistory("touch no\r\ntouch yes\r\n"));
    session.Type("lost");
    session.Press({"Alt-F8", "Ctrl-Enter"});
    EXPECT_THAT(Line(session), EndsWith(">touch yes"));
    session.Type("!");
    EXPECT_THAT(Line(session), EndsWith(">touch yes!"));
    EXPECT_THAT(tree.Names(), ElementsAre());
}

TEST_F(Histories, EscLeavesTheLineAndTheScreen) {
    Session session(WithHistory("touch no\r\n"));
    session.Type("typed");
    const std::string before = session.Text();
    session.Press({"Alt-F8", "Esc"});
    EXPECT_EQ(session.Text(), before);
    EXPECT_TRUE(session.AtPrompt());
    EXPECT_THAT(tree.Names(), ElementsAre());
}

TEST_F(Histories, WithoutCommandsNoWindowOpens) {
    Session session(InTree());
    const std::string before = session.Text();
    session.Press("Alt-F8");
    EXPECT_EQ(session.Text(), before);
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(Histories, ATextIsSearchedUpwardsAndDownwards) {
    Session session(WithHistory("make a1\r\nls\r\nmake a2\r\ncat\r\nmake a3\r\nend\r\n"));
    session.Press({"Alt-F8", "F7"});
    EXPECT_EQ(session.Piece(10, 10, 1) + session.Piece(69, 10, 1), "╔╗");
    EXPECT_EQ(session.Piece(10, 11, 60), "║ Search:" + std::string(50, ' ') + "║");
    EXPECT_EQ(session.Piece(10, 13, 1) + session.Piece(69, 13, 1), "╚╝");
    session.Type("make");
    session.Press("Enter");
    EXPECT_EQ(Chosen(session), "make a3");
    session.Press("Shift-F7");
    EXPECT_EQ(Chosen(session), "make a2");
    session.Press("Shift-F7");
    EXPECT_EQ(Chosen(session), "make a1");
    session.Press("Shift-F7");
    EXPECT_THAT(session.Text(), HasSubstr("String not found"));
    session.Press("Enter");
    EXPECT_EQ(Chosen(session), "make a1");
    session.Press("Alt-F7");
    EXPECT_EQ(Chosen(session), "make a2");
    session.Press({"Alt-F7", "Alt-F7"});
    EXPECT_THAT(session.Text(), HasSubstr("String not found"));
    session.Press({"Enter", "Esc"});
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(Histories, TheSearchIsForPlainTextFromTheLineItStandsOn) {
    Session session(WithHistory("Make\r\nma*\r\nmake\r\n"));
    session.Press({"Alt-F8", "F7"});
    session.Type("*");
    session.Press("Enter");
    EXPECT_EQ(Chosen(session), "ma*");
    session.Press({"End", "F7"});
    session.Type("make");
    session.Press("Enter");
    EXPECT_EQ(Chosen(session), "make");
    session.Press("F7");
    session.Type("M");
    session.Press("Enter");
    EXPECT_EQ(Chosen(session), "Make");
    session.Press("F7");
    session.Press("Esc");
    EXPECT_EQ(Chosen(session), "Make");
}

TEST_F(Histories, DelAsksAndRemovesTheCommand) {
    Session session(
        WithHistory("one\r\n10\x19"
                    "field\r\n two\r\nthree\r\ntwo\r\n"));
    session.Press({"Alt-F8", "Home", "Del"});
    EXPECT_THAT(session.Text(), HasSubstr("Remove command from history?"));
    session.Press("Esc");
    EXPECT_EQ(Chosen(session), "one");
    session.Press({"End", "Del", "Enter"});
    EXPECT_EQ(Kept(),
              "one\r\n10\x19"
              "field\r\nthree\r\n");
    EXPECT_EQ(Chosen(session), "three");
    EXPECT_FALSE(Shows(session, "two"));
    session.Press({"Del", "Enter", "Del", "Enter"});
    EXPECT_FALSE(Shows(session, " History "));
    EXPECT_TRUE(session.AtPrompt());
    EXPECT_EQ(Kept(),
              "10\x19"
              "field\r\n");
    session.Press("Alt-F8");
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(Histories, OldCommandsGoWhenThereAreTooMany) {
    home.File(".ztx/zt.ini", "MaxHist=3\nMaxFieldHist=2\n");
    Session session(
        WithHistory("1\r\n2\r\n10\x19"
                    "a\r\n3\r\n10\x19"
                    "b\r\n4\r\n10\x19"
                    "c\r\n"));
    session.Press("Alt-F8");
    EXPECT_THAT(session.Text(), Not(HasSubstr("║ 1 ")));
    EXPECT_THAT(session.Text(), HasSubstr("║ 2 "));
    EXPECT_EQ(Kept(),
              "2\r\n3\r\n4\r\n10\x19"
              "b\r\n10\x19"
              "c\r\n");
}

TEST_F(Histories, AreSharedByRunningSessionsWithNothingLost) {
    Session one(WithHistory("old\r\n"));
    Session two(InTree());
    RunTyped(one, "echo 1");
    RunTyped(two, "echo 2");
    RunTyped(one, "echo 3");
    EXPECT_EQ(Kept(), "old\r\necho 1\r\necho 2\r\necho 3\r\n");
    // Each offers what it knows; what one removes, the other's lines stay.
    one.Press("Alt-F8");
    EXPECT_FALSE(Shows(one, "echo 2"));
    EXPECT_EQ(Chosen(one), "echo 3");
    one.Press({"Del", "Enter", "Esc"});
    EXPECT_EQ(Kept(), "old\r\necho 1\r\necho 2\r\n");
    RunTyped(two, "echo 4");
    EXPECT_EQ(Kept(), "old\r\necho 1\r\necho 2\r\necho 4\r\n");
    Session three(InTree());
    three.Press("Alt-F8");
    for (const char* text : {"old", "echo 1", "echo 2", "echo 4"})
        EXPECT_TRUE(Shows(three, text)) << text;
}

// --- Input fields ---

TEST_F(Histories, OfFieldsLastOverSessions) {
    {
        Session session(WithHistory("make\r\n"));
        session.Press({"Alt-F8", "F7"});
        session.Type("ak");
        session.Press({"Enter", "F7"});
        session.Type("ma");
        session.Press({"Enter", "Esc"});
    }
    EXPECT_EQ(Kept(),
              "make\r\n5\x19"
              "ak\r\n5\x19"
              "ma\r\n");
    Session session(InTree());
    session.Press({"Alt-F8", "F7", "Alt-Down"});
    EXPECT_TRUE(Shows(session, "ak"));
    session.Press({"Home", "Enter", "Enter"});
    EXPECT_EQ(Kept(),
              "make\r\n5\x19"
              "ak\r\n5\x19"
              "ma\r\n5\x19"
              "ak\r\n");
}

// --- Directories ---

TEST_F(Histories, DirectoriesAreOfferedByBothKeys) {
    tree.Folder("one").Folder("two");
    Session session(InTree());
    RunTyped(session, "cd one");
    RunTyped(session, "cd ../two");
    RunTyped(session, "cd ..");
    for (const char* key : {"Alt-\\", "Alt-Shift-F8"}) {
        session.Press(key);
        EXPECT_TRUE(Shows(session, " Directory History ")) << key;
        EXPECT_EQ(Chosen(session), tree.PathOf("two")) << key;
        session.Press("Esc");
        EXPECT_EQ(PanelView(session, 0).Title(), tree.Path());
    }
    session.Press({"Alt-\\", "Up", "Enter"});
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("one"));
    // What was left again is the newest and stands once.
    session.Press("Alt-\\");
    for (const std::string& path :
         {tree.Path(), tree.PathOf("two"), tree.PathOf("one"), tree.PathOf("one")}) {
        EXPECT_EQ(Chosen(session), path);
        session.Press("Up");
    }
}

TEST_F(Histories, OfDirectoriesAreAWindowOfTheirOwn) {
    Session session(InTree());
    for (const char* command : {"cd /usr", "cd /", "cd /etc"})
        RunTyped(session, command);
    session.Press("Alt-\\");
    ASSERT_EQ(tree.Path().size(), 19u);
    EXPECT_THAT(BoxRows(session, 28, 6, 23, 5), ElementsAre("╔═ Directory History ═╗",  //
                                                            "║" + tree.Path() + "  ║",  //
                                                            "║/usr                 ║",  //
                                                            "║/                    ║",  //
                                                            "╚═════════════════════╝"));
}

TEST_F(Histories, WithoutDirectoriesNoWindowOpens) {
    Session session(InTree());
    const std::string before = session.Text();
    session.Press("Alt-\\");
    EXPECT_EQ(session.Text(), before);
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(Histories, OfDirectoriesKeepTheLastHundred) {
    for (int i = 100; i < 205; i++)
        tree.Folder("d" + std::to_string(i));
    Session session(InTree());
    for (int i = 100; i < 205; i++)
        RunTyped(session, "cd " + tree.PathOf("d" + std::to_string(i)));
    session.Press({"Alt-\\", "Home"});
    EXPECT_EQ(Chosen(session), tree.PathOf("d104"));
    // As high as the screen less five rows, and the frame.
    EXPECT_TRUE(Shows(session, tree.PathOf("d123")));
    EXPECT_FALSE(Shows(session, tree.PathOf("d124")));
    session.Press("End");
    EXPECT_EQ(Chosen(session), tree.PathOf("d203"));
}

TEST_F(Histories, OfDirectoriesSayWhenOneIsGone) {
    tree.Folder("one");
    Session session(InTree());
    RunTyped(session, "cd one");
    RunTyped(session, "cd ..");
    tree.Remove("one");
    session.Press({"Alt-\\", "Enter"});
    EXPECT_THAT(session.Text(), HasSubstr("Invalid Directory"));
    session.Press("Enter");
    EXPECT_EQ(PanelView(session, 0).Title(), tree.Path());
}

TEST_F(Histories, OfDirectoriesHelpToCopy) {
    tree.Folder("target").File("file", "content");
    Session session(InTree());
    RunTyped(session, "cd target");
    RunTyped(session, "cd ..");
    session.Press({"Down", "Down"});
    ASSERT_EQ(PanelView(session, 0).BarName(), "file");
    session.Press({"F5", "Alt-\\"});
    EXPECT_TRUE(Shows(session, " Directory History "));
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr(tree.PathOf("target") + "/"));
    session.Press("Enter");
    ASSERT_TRUE(session.WaitFor([&] { return tree.Exists("target/file"); }, "the copy"));
    EXPECT_EQ(tree.Content("target/file"), "content");
}

}  // namespace
}  // namespace zt::headless
