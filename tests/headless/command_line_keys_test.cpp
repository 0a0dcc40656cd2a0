// Typing and editing on the command line, and bringing names and paths there.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class CommandLineKeys : public testing::Test {
protected:
    CommandLineKeys() { tree.Folder("sub").File("a b").File("plain"); }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        options.columns = 132;
        return options;
    }
    std::string Prompt() const { return tree.Path() + ">"; }
    std::string Line(const Session& session) const {
        const std::string row = session.Row(session.Rows() - 2);
        EXPECT_EQ(0u, row.find(Prompt())) << row;
        return row.substr(Prompt().size());
    }
    // Where the insertion point is in the text.
    int Place(const Session& session) const {
        EXPECT_EQ(session.Rows() - 2, session.CursorRow());
        return session.CursorColumn() - static_cast<int>(Prompt().size());
    }

    FileTree tree;
};

TEST_F(CommandLineKeys, TakeTextAndEditIt) {
    Session session(Here());
    session.Type("one two three");
    EXPECT_EQ("one two three", Line(session));
    EXPECT_EQ(13, Place(session));
    session.Press("Ctrl-s", 5);
    EXPECT_EQ(8, Place(session));
    session.Type("x");
    EXPECT_EQ("one two xthree", Line(session));
    session.Press({"Backspace", "Del"});
    EXPECT_EQ("one two hree", Line(session));
    session.Press("Ctrl-d");
    EXPECT_EQ(9, Place(session));
    session.Press("Ctrl-Home");
    EXPECT_EQ(0, Place(session));
    session.Press({"Backspace", "Ctrl-s"});
    EXPECT_EQ("one two hree", Line(session));
    session.Press("Ctrl-End");
    EXPECT_EQ(12, Place(session));
    session.Press({"Del", "Ctrl-d"});
    EXPECT_EQ("one two hree", Line(session));
}

TEST_F(CommandLineKeys, MoveAndDeleteByWords) {
    Session session(Here());
    session.Type("one two, three");
    session.Press("Ctrl-Left");
    EXPECT_EQ(9, Place(session));
    session.Press("Ctrl-Left");
    EXPECT_EQ(4, Place(session));
    session.Press("Ctrl-Right");
    EXPECT_EQ(7, Place(session));
    session.Press("Ctrl-Backspace");
    EXPECT_EQ("one , three", Line(session));
    session.Press("Ctrl-Home");
    session.Press("Ctrl-Del");
    EXPECT_EQ(" , three", Line(session));
}

TEST_F(CommandLineKeys, ShiftTheLongNameOnlyWhileTheLineIsEmpty) {
    FileTree names;
    names.File("0123456789012345678901234567890123456789012345678901234567890123456789end");
    SessionOptions options;
    options.directory = names.Path();
    Session session(options);
    session.Press("End");
    const PanelView panel(session, 0);
    EXPECT_THAT(panel.BarName(), testing::StartsWith("012"));
    session.Press({"Alt-Right", "Ctrl-d"});
    EXPECT_THAT(panel.BarName(), testing::StartsWith("234"));
    session.Press({"Alt-Left"});
    EXPECT_THAT(panel.BarName(), testing::StartsWith("123"));
    session.Type("x");
    session.Press({"Alt-Right", "Ctrl-d"});
    EXPECT_THAT(panel.BarName(), testing::StartsWith("123"));
    session.Press({"Esc", "Home"});
    session.Press("End");
    EXPECT_THAT(panel.BarName(), testing::StartsWith("012"));
}

TEST_F(CommandLineKeys, HoldNoMoreThan512Characters) {
    Session session(Here());
    session.Type(std::string(512, 'a'));
    session.Type("b");
    EXPECT_THAT(Line(session), EndsWith("aa"));
    session.Press({"Backspace"});
    session.Type("c");
    EXPECT_THAT(Line(session), EndsWith("ac"));
}

TEST_F(CommandLineKeys, EscClearsTheText) {
    Session session(Here());
    session.Type("text");
    session.Press("Esc");
    EXPECT_EQ("", Line(session));
    session.Press("Esc");
    EXPECT_TRUE(PanelView(session, 0).IsShown());
}

TEST_F(CommandLineKeys, EscSwitchesThePanelsWhereThatIsWanted) {
    FileTree home;
    home.File(".ztx/zt.ini", "EscPanelSwitch=on\n");
    SessionOptions options = Here();
    options.home = home.Path();
    Session session(options);
    session.Type("text");
    session.Press("Esc");
    EXPECT_TRUE(PanelView(session, 0).IsShown());
    session.Press("Esc");
    EXPECT_FALSE(PanelView(session, 0).IsShown());
    session.Press("Esc");
    EXPECT_TRUE(PanelView(session, 0).IsShown());
}

TEST_F(CommandLineKeys, BothPanelsOffHomeAndEndMoveInTheLine) {
    Session session(Here());
    session.Press("Ctrl-o");
    session.Type("text");
    session.Press("Home");
    EXPECT_EQ(0, Place(session));
    session.Press("End");
    EXPECT_EQ(4, Place(session));
    session.Press({"PgUp", "PgDn", "Up", "Down"});
    EXPECT_EQ("text", Line(session));
    EXPECT_FALSE(PanelView(session, 0).IsShown());
}

TEST_F(CommandLineKeys, PutInThePanelsPaths) {
    SessionOptions options = Here();
    options.arguments = {"-r", "/usr"};
    Session session(options);
    session.Press("Ctrl-]");
    EXPECT_EQ("/usr/", Line(session));
    session.Press({"Esc", "Ctrl-["});
    EXPECT_EQ(tree.Path() + "/", Line(session));
}

TEST_F(CommandLineKeys, PutInNamesAsTheShellTakesThem) {
    Session session(Here());
    session.Press({"Down", "Down"});
    ASSERT_EQ("a b", PanelView(session, 0).BarName());
    session.Press("Ctrl-Enter");
    EXPECT_EQ("a\\ b", Line(session));
    EXPECT_EQ(5, Place(session));
    session.Type("/x/");
    session.Press("Ctrl-Enter");
    EXPECT_EQ("a\\ b /x/a\\ b", Line(session));
    session.Press({"Esc", "Ctrl-f"});
    EXPECT_EQ(tree.Path() + "/a\\ b", Line(session));
}

TEST_F(CommandLineKeys, CopyNamesPathsAndTheLineItself) {
    Session session(Here());
    session.Press({"Down", "Down"});
    session.Press("Ctrl-Shift-Enter");
    EXPECT_EQ("a b", session.Clipboard());
    session.Press("Ctrl-Shift-f");
    EXPECT_EQ(tree.Path() + "/a b", session.Clipboard());
    session.Type("typed");
    session.Press("Ctrl-Ins");
    EXPECT_EQ("typed", session.Clipboard());
    session.Press("Esc");
    session.Press("Shift-Ins");
    EXPECT_EQ("typed", Line(session));
}

}  // namespace
}  // namespace zt::headless
