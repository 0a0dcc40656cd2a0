// Paging back through what programs have written, in the whole program.
#include "tests/support/command_runs.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;
using testing::Not;

class ScrollBack : public testing::Test {
protected:
    ScrollBack() { tree.File("file"); }

    SessionOptions InTree() {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        options.environment["SHELL"] = "/bin/sh";
        return options;
    }

    FileTree home;
    FileTree tree;
};

TEST_F(ScrollBack, PagesThroughTheOutputOfCommands) {
    Session session(InTree());
    RunTyped(session, "seq 1 100");
    const std::string panels = session.Text();
    session.Press("Ctrl-b");
    EXPECT_THAT(session.Text(), HasSubstr("\n99\n100\n"));
    EXPECT_FALSE(PanelView(session, 0).IsShown());
    const std::string newest = session.Text();
    session.Press("PgUp");
    EXPECT_THAT(session.Text(), HasSubstr("\n70\n71\n"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("\n100\n")));
    session.Press({"Home", "Down", "Up", "End"});
    EXPECT_EQ(session.Text(), newest);
    session.Press("Esc");
    EXPECT_EQ(session.Text(), panels);
    // Looking at it has not changed it.
    session.Press("Ctrl-b");
    EXPECT_EQ(session.Text(), newest);
    session.Press("Esc");
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(ScrollBack, HasTheOutputOfEarlierCommandsToo) {
    Session session(InTree());
    RunTyped(session, "echo the first of all");
    RunTyped(session, "seq 1 60");
    session.Press({"Ctrl-b", "Home"});
    EXPECT_THAT(session.Text(), HasSubstr("\nthe first of all\n"));
    session.Press("Esc");
}

TEST_F(ScrollBack, KeepsColours) {
    Session session(InTree());
    RunTyped(session, "printf '\\033[31;44mred on blue\\033[0m\\n'; seq 1 60");
    session.Press({"Ctrl-b", "Home"});
    int row = 0;
    while (row < session.Rows() && session.Row(row) != "red on blue")
        row++;
    ASSERT_LT(row, session.Rows());
    EXPECT_EQ(session.AttributeAt(0, row), 0x14);
    EXPECT_EQ(session.AttributeAt(11, row), 0x07);
    session.Press("Esc");
}

TEST_F(ScrollBack, HasNothingOfFullScreenPrograms) {
    Session session(InTree());
    RunTyped(session, "printf '\\033[?1049h'; seq 1 60; printf '\\033[?1049l'");
    session.Press("Ctrl-b");
    EXPECT_THAT(session.Text(), Not(HasSubstr("\n59\n")));
    session.Press({"Home"});
    EXPECT_THAT(session.Text(), Not(HasSubstr("\n1\n2\n")));
    session.Press("Esc");
}

TEST_F(ScrollBack, IsNotThereWhenItIsOff) {
    home.File(".ztx/zt.ini", "[General Options]\nConsoleScrollback=off\n");
    Session session(InTree());
    RunTyped(session, "seq 1 100");
    const std::string before = session.Text();
    session.Press("Ctrl-b");
    EXPECT_EQ(session.Text(), before);
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(ScrollBack, AStepSendsOneRow) {
    Session session(InTree());
    RunTyped(session, "seq 1 100");
    session.Press({"Ctrl-b", "Up"});
    // One line is drawn; the others move.
    EXPECT_LT(session.LastTraffic().bytes, 400u);
    EXPECT_THAT(session.Text(), HasSubstr("\n99\n100\n"));
    session.Press("Esc");
}

}  // namespace
}  // namespace zt::headless
