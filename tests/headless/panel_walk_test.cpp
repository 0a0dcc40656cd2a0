// Walking the file system in the panels: cursor and page keys, Enter, "..", Tab.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;

// Two digits, so that names sort as numbers do.
std::string Numbered(int number) {
    return "f" + std::to_string(number / 10) + std::to_string(number % 10);
}

class PanelWalk : public testing::Test {
protected:
    // ".." and f00 to f49: 51 entries, of which 19 show.
    void ManyFiles() {
        for (int i = 0; i < 50; i++)
            tree.File(Numbered(i));
    }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }

    FileTree tree;
};

TEST_F(PanelWalk, MovesTheBarAndStopsAtBothEnds) {
    tree.File("a").File("b");
    Session session(Here());
    const PanelView panel(session, 0);
    EXPECT_EQ("..", panel.BarName());
    session.Press("Up");
    EXPECT_EQ("..", panel.BarName());
    session.Press("Down");
    EXPECT_EQ("a", panel.BarName());
    session.Press("Down", 5);
    EXPECT_EQ("b", panel.BarName());
    session.Press("Home");
    EXPECT_EQ("..", panel.BarName());
    session.Press("End");
    EXPECT_EQ("b", panel.BarName());
    EXPECT_EQ(-1, PanelView(session, 1).BarRow());
}

TEST_F(PanelWalk, ScrollsByOneRowAtEachEdge) {
    ManyFiles();
    Session session(Here());
    const PanelView panel(session, 0);
    ASSERT_EQ(19, panel.Height());
    session.Press("Down", 18);
    EXPECT_EQ("f17", panel.BarName());
    EXPECT_EQ("..", panel.Names().front());
    session.Press("Down");
    EXPECT_EQ("f18", panel.BarName());
    EXPECT_EQ("f00", panel.Names().front());
    EXPECT_EQ(18, panel.BarRow());
    session.Press("Up", 18);
    EXPECT_EQ("f00", panel.BarName());
    EXPECT_EQ(0, panel.BarRow());
    session.Press("Up");
    EXPECT_EQ("..", panel.BarName());
    EXPECT_EQ("f17", panel.Names().back());
}

TEST_F(PanelWalk, PagesForward) {
    ManyFiles();
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press("PgDn");
    EXPECT_EQ("f18", panel.BarName());  // the first row of the next page
    EXPECT_EQ(0, panel.BarRow());
    session.Press("PgDn");  // a whole page would end past the list
    EXPECT_EQ("f31", panel.Names().front());
    EXPECT_EQ("f49", panel.Names().back());
    EXPECT_EQ("f31", panel.BarName());
    session.Press("PgDn");
    EXPECT_EQ("f49", panel.BarName());
    session.Press("PgDn");
    EXPECT_EQ("f49", panel.BarName());
}

TEST_F(PanelWalk, PagesBack) {
    ManyFiles();
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"End", "PgUp"});
    EXPECT_EQ("f30", panel.BarName());  // the last row of the page above
    EXPECT_EQ(18, panel.BarRow());
    EXPECT_EQ("f12", panel.Names().front());
    session.Press("PgUp");  // less than a page is left
    EXPECT_EQ("..", panel.Names().front());
    EXPECT_EQ("f17", panel.BarName());
    session.Press("PgUp");
    EXPECT_EQ("..", panel.BarName());
}

TEST_F(PanelWalk, JumpsToBothEndsOfALongList) {
    ManyFiles();
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press("End");
    EXPECT_EQ("f49", panel.BarName());
    EXPECT_EQ(18, panel.BarRow());
    session.Press("Home");
    EXPECT_EQ("..", panel.BarName());
    EXPECT_EQ(0, panel.BarRow());
}

TEST_F(PanelWalk, MovesByColumnsInTheBriefStyles) {
    ManyFiles();
    Session session(Here());
    session.Press("Alt-Shift-F1");
    const PanelView panel(session, 0);
    session.Press("Right");
    EXPECT_EQ("f18", panel.Status().substr(0, 3));
    session.Press("Right");
    EXPECT_EQ("f37", panel.Status().substr(0, 3));
    session.Press("Right");
    EXPECT_EQ("f49", panel.Status().substr(0, 3));
    session.Press({"Left", "Left"});
    EXPECT_EQ("f11", panel.Status().substr(0, 3));
    session.Press("Left");
    EXPECT_EQ("..", panel.Status().substr(0, 2));
}

TEST_F(PanelWalk, EntersADirectoryAndComesBackToIt) {
    tree.File("a/inner").Folder("b").File("c");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Down"});
    EXPECT_EQ("b", panel.BarName());
    session.Press("Enter");
    EXPECT_EQ(tree.PathOf("b"), panel.Title());
    EXPECT_EQ("Zanthe: " + tree.PathOf("b"), session.Title());
    EXPECT_THAT(panel.Names(), ElementsAre(".."));
    session.Press("Enter");
    EXPECT_EQ(tree.Path(), panel.Title());
    EXPECT_EQ("b", panel.BarName());
    session.Press({"Up", "Enter"});
    EXPECT_THAT(panel.Names(), ElementsAre("..", "inner"));
    EXPECT_EQ(tree.Path(), PanelView(session, 1).Title());
}

TEST_F(PanelWalk, EntersAndLeavesByCtrlPgDnAndCtrlPgUp) {
    tree.File("a/deep/x").Folder("b");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Ctrl-PgDn", "Down", "Ctrl-PgDn"});
    EXPECT_EQ(tree.PathOf("a/deep"), panel.Title());
    session.Press("Ctrl-PgUp");
    EXPECT_EQ("deep", panel.BarName());
    session.Press("Ctrl-PgUp");
    EXPECT_EQ("a", panel.BarName());
}

TEST_F(PanelWalk, PutsTheBarOnTheDirectoryThatWasLeftBelowTheFirstPage) {
    for (int i = 0; i < 50; i++)
        tree.Folder(Numbered(i));
    SessionOptions options;
    options.directory = tree.PathOf("f40");
    Session session(options);
    session.Press("Enter");
    const PanelView panel(session, 0);
    EXPECT_EQ("f40", panel.BarName());
    EXPECT_EQ(18, panel.BarRow());
}

TEST_F(PanelWalk, RestoresWhereTheBarStoodEvenAfterOtherDirectories) {
    for (int i = 0; i < 50; i++)
        tree.File(Numbered(i) + "/inner/deep");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press("End");
    session.Press("Up", 5);
    const std::string before = session.Text();
    EXPECT_EQ("f44", panel.BarName());
    EXPECT_EQ(13, panel.BarRow());
    session.Press({"Enter", "Down", "Enter", "Ctrl-PgUp", "Ctrl-PgUp"});
    EXPECT_EQ(before, session.Text());
    EXPECT_EQ(13, panel.BarRow());
}

TEST_F(PanelWalk, HasNoParentAtTheRoot) {
    SessionOptions options;
    options.directory = "/";
    Session session(options);
    const PanelView panel(session, 0);
    EXPECT_EQ("/", panel.Title());
    for (const std::string& name : panel.Names())
        EXPECT_NE("..", name);
    const std::vector<std::string> before = panel.Names();
    session.Press("Ctrl-PgUp");
    EXPECT_EQ("/", panel.Title());
    EXPECT_EQ(before, panel.Names());
}

TEST_F(PanelWalk, GoesBackToTheDirectoryBefore) {
    tree.File("a/x").File("b");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Enter", "Ctrl--"});
    EXPECT_EQ(tree.Path(), panel.Title());
    EXPECT_EQ("a", panel.BarName());
}

TEST_F(PanelWalk, SwitchesThePanelByTab) {
    tree.File("a").File("b");
    Session session(Here());
    const PanelView left(session, 0), right(session, 1);
    session.Press({"Down", "Tab"});
    EXPECT_FALSE(left.IsActive());
    EXPECT_TRUE(right.IsActive());
    EXPECT_EQ(-1, left.BarRow());
    EXPECT_EQ("..", right.BarName());
    session.Press({"End", "Shift-Tab"});
    EXPECT_TRUE(left.IsActive());
    EXPECT_EQ("a", left.BarName());
    session.Press("Tab");
    EXPECT_EQ("b", right.BarName());
}

TEST_F(PanelWalk, GivesTheCommandLineThePathOfTheActivePanel) {
    tree.Folder("a").Folder("b");
    SessionOptions options;
    options.arguments = {"-l", tree.PathOf("a"), "-r", tree.PathOf("b")};
    Session session(options);
    EXPECT_EQ(tree.PathOf("a") + ">", session.Row(23));
    session.Press("Tab");
    EXPECT_EQ(tree.PathOf("b") + ">", session.Row(23));
    EXPECT_EQ("Zanthe: " + tree.PathOf("b"), session.Title());
}

TEST_F(PanelWalk, ShowsTheStatusOfTheEntryUnderTheBar) {
    tree.FileOfSize("file", 1234).Time("file", UtcTime(2021, 3, 4, 5, 6));
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Alt-Shift-F3", "Down"});
    const std::vector<std::string> fields = Fields(panel.Status());
    EXPECT_THAT(fields, ElementsAre("file", "1234", "03/04/21", "5:06a"));
}

TEST_F(PanelWalk, ShiftsALongNameUnderTheBarOnly) {
    const std::string name = "abcdefghijklmnopqrstuvwxyz0123456789";
    tree.File(name).File("b");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press("Down");
    EXPECT_EQ("a", panel.Line(1).substr(0, 1));
    session.Press("Alt-Right");
    EXPECT_EQ("b", panel.Line(1).substr(0, 1));
    session.Press({"Down", "Up"});
    EXPECT_EQ("a", panel.Line(1).substr(0, 1));
    session.Press("Alt-Left");
    EXPECT_EQ("a", panel.Line(1).substr(0, 1));
}

TEST_F(PanelWalk, WalksWithTheMouse) {
    tree.File("a/inner").File("b").File("c");
    Session session(Here());
    const PanelView left(session, 0), right(session, 1);
    session.Click(Mouse::kLeft, 3, 3);
    EXPECT_EQ("b", left.BarName());
    session.Click(Mouse::kLeft, 43, 4);
    EXPECT_TRUE(right.IsActive());
    EXPECT_EQ("c", right.BarName());
    session.Wheel(true, 43, 4);
    EXPECT_EQ("..", right.BarName());
    session.Wheel(false, 43, 4);
    EXPECT_EQ("c", right.BarName());
    session.DoubleClick(Mouse::kLeft, 43, 2);
    EXPECT_EQ(tree.PathOf("a"), right.Title());
    EXPECT_THAT(right.Names(), ElementsAre("..", "inner"));
}

}  // namespace
}  // namespace zt::headless
