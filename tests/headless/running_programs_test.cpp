// Typed commands: where they run, what of them is seen, what they change.
#include <fstream>

#include "tests/support/command_runs.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class RunningPrograms : public CommandRuns {
protected:
    testing::AssertionResult Appears(Session& session, const std::string& name) {
        return session.WaitFor([&] { return tree.Exists(name); }, name.c_str());
    }
    std::string History() { return home.Content(".ztx/zt.hst"); }
};

TEST_F(RunningPrograms, LeaveTheirOutputBehindThePanels) {
    Session session(InTree());
    RunTyped(session, "echo one; echo two");
    EXPECT_THAT(session.Text(), Not(HasSubstr("two\n")));
    EXPECT_THAT(BehindThePanels(session), HasSubstr(">echo one; echo two\none\ntwo\n"));
    EXPECT_TRUE(PanelView(session, 0).IsShown());
    EXPECT_TRUE(PanelView(session, 1).IsShown());
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(RunningPrograms, BeginOnALineOfTheirOwn) {
    Session session(InTree());
    RunTyped(session, "printf open");
    RunTyped(session, "echo next");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("\nopen\n"));
    EXPECT_THAT(BehindThePanels(session), HasSubstr(">echo next\nnext\n"));
}

TEST_F(RunningPrograms, MakeThePanelsReadAgain) {
    Session session(InTree());
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre(".."));
    RunTyped(session, "touch made");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "made"));
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "made"));
}

TEST_F(RunningPrograms, WorkInThePanelsDirectory) {
    tree.Folder("left").Folder("right");
    SessionOptions options = InTree();
    options.arguments = {"-l", tree.PathOf("left"), "-r", tree.PathOf("right")};
    Session session(options);
    RunTyped(session, "touch 1");
    session.Press("Tab");
    RunTyped(session, "touch 2");
    EXPECT_THAT(tree.Names("left"), ElementsAre("1"));
    EXPECT_THAT(tree.Names("right"), ElementsAre("2"));
}

TEST_F(RunningPrograms, ArePromptedByThePathOrItsBeginning) {
    Session session(InTree());
    RunTyped(session, "echo x");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("\n" + tree.Path() + ">echo x\nx\n"));
    home.File("off.ini", "[General Options]\nPathPrompt=off\n");
    SessionOptions options = InTree();
    options.arguments = {home.PathOf("off.ini")};
    Session brief(options);
    RunTyped(brief, "echo x");
    EXPECT_THAT(BehindThePanels(brief), HasSubstr("\n/t>echo x\nx\n"));
}

TEST_F(RunningPrograms, HaveATerminalOfTheScreensSize) {
    SessionOptions options = InTree();
    options.columns = 100;
    options.rows = 30;
    Session session(options);
    RunTyped(session, "stty size; tty; echo $TERM");
    EXPECT_THAT(BehindThePanels(session),
                testing::ContainsRegex("\n30 100\n/dev/pts/[0-9]+\nxterm\n"));
}

TEST_F(RunningPrograms, TakeWhatIsTyped) {
    Session session(InTree());
    ASSERT_TRUE(
        StartTyped(session, "printf 'Name%s' '? '; read name; echo Hello, $name.", "Name?"));
    EXPECT_EQ(session.Title(), "Zanthe: printf 'Name%s' '? '; read name; echo Hello, $name.");
    session.Type("J\xC3\xB6rg");
    session.Press("Enter");
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_THAT(BehindThePanels(session), HasSubstr("Name? J\xC3\xB6rg\nHello, J\xC3\xB6rg.\n"));
    EXPECT_EQ(session.Title(), "Zanthe: " + tree.Path());
}

TEST_F(RunningPrograms, EndByCtrlC) {
    Session session(InTree());
    ASSERT_TRUE(StartTyped(
        session, "trap 'echo caught; exit' INT; echo 'going'; while :; do sleep 0.01; done",
        "going\n"));
    session.Press("Ctrl-c");
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_THAT(BehindThePanels(session), HasSubstr("going\n^Ccaught\n"));
    RunTyped(session, "touch after");
    EXPECT_TRUE(tree.Exists("after"));
}

TEST_F(RunningPrograms, LoseNothingOfALargeOutput) {
    Session session(InTree());
    RunTyped(session, "seq 30000");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("\n29998\n29999\n30000\n"));
}

TEST_F(RunningPrograms, ThatAreNotThereAreTheShellsBusiness) {
    Session session(InTree());
    RunTyped(session, "no-such-program-here");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("no-such-program-here: not found"));
}

TEST_F(RunningPrograms, RunInTheConsoleByTheirMark) {
    Session session(InTree());
    RunTyped(session, "# echo marked");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("># echo marked\nmarked\n"));
}

TEST_F(RunningPrograms, RunByThemselvesByTheirMark) {
    Session session(InTree());
    RunTyped(session, "sh -c 'until test -e go; do sleep 0.01; done; touch went' &");
    EXPECT_TRUE(session.AtPrompt());
    EXPECT_FALSE(tree.Exists("went"));
    tree.File("go");
    EXPECT_TRUE(Appears(session, "went"));
}

TEST_F(RunningPrograms, AreHungUpWhenTheDisplayGoesAway) {
    Session session(InTree());
    ASSERT_TRUE(StartTyped(
        session, "trap 'touch hung-up; exit' HUP; echo ready; while :; do sleep 0.01; done",
        "ready\n"));
    session.CloseInput();
    ASSERT_TRUE(session.WaitForEnd());
    for (int i = 0; i < 1000 && !tree.Exists("hung-up"); i++)
        usleep(10000);
    EXPECT_TRUE(tree.Exists("hung-up"));
}

TEST_F(RunningPrograms, AreNotStartedInADirectoryThatIsGone) {
    tree.Folder("gone");
    SessionOptions options = InTree();
    options.directory = tree.PathOf("gone");
    Session session(options);
    tree.Remove("gone");
    session.Type("touch ../made");
    session.Press("Enter");
    EXPECT_TRUE(session.WaitForText("No such file or directory")) << session.Text();
    session.Press("Enter");
    EXPECT_FALSE(tree.Exists("made"));
}

TEST_F(RunningPrograms, AreRememberedOverSessions) {
    {
        Session session(InTree());
        RunTyped(session, "  echo first  ");
        RunTyped(session, "echo second");
        RunTyped(session, "   ");
    }
    EXPECT_EQ(History(), "echo first\r\necho second\r\n");
    Session session(InTree());
    session.Press({"Ctrl-e", "Ctrl-e"});
    EXPECT_THAT(session.Row(session.Rows() - 2), EndsWith(">echo first"));
}

TEST_F(RunningPrograms, GetATerminalOfTheirOwnByAltEnter) {
    home.File("own.ini", "[General Options]\nBackground=echo separate [!]\n");
    SessionOptions options = InTree();
    options.arguments = {home.PathOf("own.ini")};
    Session session(options);
    session.Type("ls");
    session.Press("Alt-Enter");
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_THAT(BehindThePanels(session), HasSubstr("\nseparate [ls]\n"));
}

// --- cd ---

TEST_F(RunningPrograms, CdTakesThePanelAlong) {
    tree.Folder("sub/deep").Folder("with blank").Folder("$odd");
    SessionOptions options = InTree();
    options.environment["WHERE"] = tree.PathOf("sub");
    Session session(options);
    const struct {
        const char* command;
        std::string path;
    } steps[] = {
        {"cd sub", tree.PathOf("sub")},
        {"cd", tree.PathOf("sub")},
        {"cd deep", tree.PathOf("sub/deep")},
        {"cd ..", tree.PathOf("sub")},
        {"cd..", tree.Path()},
        {"CD sub/deep", tree.PathOf("sub/deep")},
        {"cd ...", tree.Path()},
        {"cd .\\sub\\deep", tree.PathOf("sub/deep")},
        {"cd .", tree.PathOf("sub/deep")},
        {"cd ~/", home.Path()},
        {"cd $WHERE", tree.PathOf("sub")},
        {"cd   ../with blank  ", tree.PathOf("with blank")},
        {"cd ..", tree.Path()},
        {"cd with\\ blank", tree.PathOf("with blank")},
        {"cd ../\\$odd", tree.PathOf("$odd")},
        {"cd \\", "/"},
    };
    for (const auto& step : steps) {
        RunTyped(session, step.command);
        EXPECT_EQ(PanelView(session, 0).Title(), step.path) << step.command << session.Text();
    }
}

TEST_F(RunningPrograms, CdPutsTheCursorOnTop) {
    tree.Folder("sub").File("sub/a").File("sub/b");
    Session session(InTree());
    session.Press({"Down"});
    RunTyped(session, "cd sub");
    EXPECT_EQ(PanelView(session, 0).BarName(), "..");
}

TEST_F(RunningPrograms, CdSaysWhenThereIsNoWay) {
    tree.File("file");
    Session session(InTree());
    for (const char* wrong : {"no/such", "file"}) {
        session.Type(std::string("cd ") + wrong);
        session.Press("Enter");
        EXPECT_THAT(session.Text(), HasSubstr("Invalid path")) << wrong;
        EXPECT_THAT(session.Text(), HasSubstr(wrong));
        session.Press("Enter");
        EXPECT_EQ(PanelView(session, 0).Title(), tree.Path());
    }
}

TEST_F(RunningPrograms, CdIsOnlyCd) {
    Session session(InTree());
    RunTyped(session, "cdrecord-is-no-cd");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("cdrecord-is-no-cd: not found"));
}

TEST_F(RunningPrograms, VcdWithoutItsProgramDoesNothing) {
    Session session(InTree());
    const std::string before = session.Text();
    RunTyped(session, "vcd sub");
    EXPECT_EQ(session.Text(), before);
}

// --- set ---

TEST_F(RunningPrograms, SetIsSeenByProgramsAndGoesAgain) {
    home.File("own.ini", "[Environment]\nFOO=configured\n");
    SessionOptions options = InTree();
    options.arguments = {home.PathOf("own.ini")};
    Session session(options);
    RunTyped(session, "echo [$FOO]");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("\n[configured]\n"));
    RunTyped(session, "set FOO=a = b");
    RunTyped(session, "echo \"[$FOO]\"");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("\n[a = b]\n"));
    RunTyped(session, "SET FOO=");
    RunTyped(session, "echo again [$FOO]");
    EXPECT_THAT(BehindThePanels(session), HasSubstr("\nagain [configured]\n"));
}

}  // namespace
}  // namespace zt::headless
