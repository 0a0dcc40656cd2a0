// Ctrl-Tab: the list of earlier commands that begin as the command line does.
#include "tests/headless/box_rows.h"
#include "tests/support/command_runs.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

class LineCompletion : public CommandRuns {
protected:
    SessionOptions WithHistory(const std::string& history) {
        home.File(".ztx/zt.hst", history);
        return InTree();
    }
    static std::string Line(const Session& session) { return session.Row(session.Rows() - 2); }
};

TEST_F(LineCompletion, OffersTheCommandsThatBeginAsTheLine) {
    Session session(WithHistory("echo one\r\ntouch x\r\nEcho no\r\necho two\r\n echo\r\nech\r\n"));
    session.Type("echo");
    session.Press("Ctrl-Tab");
    EXPECT_THAT(BoxRows(session, 29, 6, 22, 5),
                ElementsAre("╔═ Line Completion ══╗",  //
                            "║ echo one           ║",  //
                            "║ echo two           ║",  //
                            "║ echo               ║",  //
                            "╚════════════════════╝"));
    session.Press({"Up", "Enter"});
    EXPECT_THAT(Line(session), EndsWith(">echo two"));
    session.Type("!");
    EXPECT_THAT(Line(session), EndsWith(">echo two!"));
}

TEST_F(LineCompletion, GoesByTheTextBeforeTheInsertionPoint) {
    Session session(WithHistory("ls -l\r\nls -a\r\nmake\r\n"));
    session.Type("ls -x");
    session.Press({"Left", "Ctrl-Tab", "Enter"});
    EXPECT_THAT(Line(session), EndsWith(">ls -a"));
}

TEST_F(LineCompletion, OffersAllForAnEmptyLine) {
    Session session(WithHistory("make\r\nls\r\n"));
    session.Press("Ctrl-Tab");
    EXPECT_TRUE(Shows(session, "║ make "));
    session.Press({"Home", "Enter"});
    EXPECT_THAT(Line(session), EndsWith(">make"));
}

TEST_F(LineCompletion, LeavesTheLineWhenNothingFits) {
    Session session(WithHistory("make\r\n"));
    session.Type("x");
    const std::string before = session.Text();
    session.Press("Ctrl-Tab");
    EXPECT_EQ(session.Text(), before);
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(LineCompletion, LeavesTheLineByEsc) {
    Session session(WithHistory("make all\r\n"));
    session.Type("ma");
    const std::string before = session.Text();
    session.Press({"Ctrl-Tab", "Esc"});
    EXPECT_EQ(session.Text(), before);
}

TEST_F(LineCompletion, RecallBeginsAnewAfterwards) {
    Session session(WithHistory("one\r\ntwo\r\nthree\r\n"));
    session.Press({"Ctrl-e", "Ctrl-e"});
    EXPECT_THAT(Line(session), EndsWith(">two"));
    session.Press({"Ctrl-Tab", "Enter", "Ctrl-e"});
    EXPECT_THAT(Line(session), EndsWith(">three"));
}

}  // namespace
}  // namespace zt::headless
