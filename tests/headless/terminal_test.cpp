// Programs of the full screen and shells, driven by keys through the whole program.
#include <unistd.h>

#include "tests/support/command_runs.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;
using testing::Not;

class Terminal : public CommandRuns {
protected:
    static bool IsInstalled(const char* program) {
        return access((std::string("/usr/bin/") + program).c_str(), X_OK) == 0;
    }
};

TEST_F(Terminal, AnEditorSavesAFile) {
    if (!IsInstalled("vim")) GTEST_SKIP() << "vim is not installed";
    Session session(InTree());
    ASSERT_TRUE(StartTyped(session, "vim -u NONE -N -n text", "~"));
    session.Type("ione");
    session.Press("Enter");
    session.Type("two");
    session.Press("Backspace");
    session.Press("Up");
    session.Type("ONE ");
    ASSERT_TRUE(session.WaitForText("tw"));
    session.Send(KeyPress("Esc"));
    session.Type(":wq");
    session.Send(KeyPress("Enter"));
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_EQ(tree.Content("text"), "onONE e\ntw\n");
    EXPECT_THAT(PanelView(session, 0).Names(), testing::ElementsAre("..", "text"));
    EXPECT_THAT(BehindThePanels(session), Not(HasSubstr("~\n~\n")));
}

TEST_F(Terminal, APagerOnManyLines) {
    if (!IsInstalled("less")) GTEST_SKIP() << "less is not installed";
    Session session(InTree());
    ASSERT_TRUE(StartTyped(session, "seq 100000 | less", "\n23\n"));
    session.Send(KeyPress("PgDn"));
    ASSERT_TRUE(session.WaitForText("\n46\n"));
    session.Send(KeyPress("End"));
    ASSERT_TRUE(session.WaitForText("\n100000\n"));
    session.Type("?^777$");
    session.Send(KeyPress("Enter"));
    ASSERT_TRUE(session.WaitForText("777\n778\n"));
    session.Type("q");
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_THAT(BehindThePanels(session), Not(HasSubstr("\n100000\n")));
}

TEST_F(Terminal, AManualPage) {
    if (!IsInstalled("man")) GTEST_SKIP() << "man is not installed";
    tree.File("page.1", ".TH PAGE 1\n.SH NAME\npage \\- a page of the manual\n");
    Session session(InTree());
    session.Type("man ./page.1 || sleep 1000");
    session.Send(KeyPress("Enter"));
    if (!session.WaitForText("a page of the manual")) {
        session.Press("Ctrl-c");
        GTEST_SKIP() << "manual pages cannot be shown here:\n" << session.Text();
    }
    session.Type("q");
    ASSERT_TRUE(WaitForPanels(session));
}

TEST_F(Terminal, APasswordIsNotSeen) {
    Session session(InTree());
    ASSERT_TRUE(StartTyped(session,
                           "stty -echo; printf 'Pass%s' 'word: '; read p; stty echo; "
                           "echo; printf %s \"$p\" > got",
                           "Password:"));
    session.Type("s3cret");
    session.Press("Enter");
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_EQ(tree.Content("got"), "s3cret");
    EXPECT_THAT(BehindThePanels(session), Not(HasSubstr("s3cret")));
}

TEST_F(Terminal, AProgramThatCrashesOnTheAlternateScreen) {
    Session session(InTree());
    RunTyped(session, "echo what stood here");
    RunTyped(session,
             "printf '\\033[?1049h\\033[31;42m\\033[2Jfull of \\033[?25lit'; kill -SEGV $$");
    const std::string behind = BehindThePanels(session);
    EXPECT_THAT(behind, HasSubstr("\nwhat stood here\n"));
    EXPECT_THAT(behind, Not(HasSubstr("full of")));
    EXPECT_TRUE(session.AtPrompt());
    RunTyped(session, "echo plain again");
    session.Press("Ctrl-o");
    int row = 0;
    while (row < session.Rows() && session.Row(row) != "plain again")
        row++;
    ASSERT_LT(row, session.Rows());
    EXPECT_EQ(session.AttributeAt(0, row), 0x07);
}

TEST_F(Terminal, AnotherEditorSavesAFile) {
    if (!IsInstalled("nano")) GTEST_SKIP() << "nano is not installed";
    Session session(InTree());
    ASSERT_TRUE(StartTyped(session, "nano -I text", "GNU nano"));
    session.Type("one");
    session.Press("Enter");
    session.Type("three");
    session.Press({"Home", "Del", "Del", "End", "Backspace", "Backspace", "Backspace"});
    session.Type("wo");
    session.Press("Up");
    session.Type("!");
    session.Send(KeyPress("Ctrl-o"));
    ASSERT_TRUE(session.WaitForText("File Name to Write: text"));
    session.Send(KeyPress("Enter"));
    ASSERT_TRUE(session.WaitForText("Wrote 2 lines"));
    session.Send(KeyPress("Ctrl-x"));
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_EQ(tree.Content("text"), "on!e\nwo\n");
    EXPECT_THAT(BehindThePanels(session), Not(HasSubstr("GNU nano")));
}

// They paint again and again by themselves.
TEST_F(Terminal, TablesOfProcesses) {
    const struct {
        const char* program;
        const char* heading;
    } rows[] = {{"top", "COMMAND"}, {"htop", "Command"}};
    int seen = 0;
    for (const auto& [program, heading] : rows) {
        if (!IsInstalled(program)) continue;
        seen++;
        Session session(InTree());
        ASSERT_TRUE(StartTyped(session, program, heading)) << program;
        session.Send(TypedText("q"));
        ASSERT_TRUE(WaitForPanels(session)) << program;
        RunTyped(session, "echo af''ter");
        EXPECT_THAT(BehindThePanels(session), HasSubstr("\nafter\n")) << program;
    }
    if (seen == 0) GTEST_SKIP() << "neither top nor htop is installed";
}

TEST_F(Terminal, AShellWithJobs) {
    Session session(InTree());
    ASSERT_TRUE(StartTyped(session, "PS1='ready: ' bash --norc --noprofile -i", "\nready:"));
    session.Type("echo u''p; sleep 1000");
    session.Send(KeyPress("Enter"));
    ASSERT_TRUE(session.WaitForText("\nup\n"));
    EXPECT_TRUE(session.WaitFor(
        [&] {
            session.Press("Ctrl-z");
            return session.Text().find("Stopped") != std::string::npos;
        },
        "the job stops"));
    EXPECT_TRUE(session.WaitFor(
        [&] {
            if (session.Title().rfind("Zanthe: /", 0) == 0) return true;
            session.Type("kill -KILL %1; wait; exit");
            session.Press("Enter");
            return false;
        },
        "the shell ends"));
    ASSERT_TRUE(WaitForPanels(session));
}

TEST_F(Terminal, RandomBytesHarmNothing) {
    Session session(InTree());
    RunTyped(session, "head -c 2000000 /dev/urandom");
    EXPECT_TRUE(PanelView(session, 0).IsShown());
    RunTyped(session, "touch still-here");
    EXPECT_TRUE(tree.Exists("still-here"));
}

}  // namespace
}  // namespace zt::headless
