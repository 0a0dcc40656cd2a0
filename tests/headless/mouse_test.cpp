// The mouse on the main screen.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;

class MouseOnPanels : public testing::Test {
protected:
    MouseOnPanels() {
        tree.Folder("aa");
        tree.File("aa/inside");
        for (int i = 0; i < 60; i++)
            tree.File("f" + std::to_string(100 + i));
    }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }

    FileTree tree;
};

TEST_F(MouseOnPanels, AClickPutsTheBarThereAndMakesThePanelActive) {
    Session session(Here());
    session.Click(Mouse::kLeft, 5, 4);
    EXPECT_EQ("f101", PanelView(session, 0).BarName());
    session.Click(Mouse::kLeft, 45, 3);
    EXPECT_TRUE(PanelView(session, 1).IsActive());
    EXPECT_EQ("f100", PanelView(session, 1).BarName());
    EXPECT_EQ(-1, PanelView(session, 0).BarRow());
}

TEST_F(MouseOnPanels, AClickInTheBriefStyleFindsItsColumn) {
    Session session(Here());
    session.Press("Alt-Shift-F1");
    session.Click(Mouse::kLeft, 20, 1);
    EXPECT_THAT(PanelView(session, 0).Status(), testing::StartsWith("f117"));
    session.Click(Mouse::kLeft, 30, 2);
    EXPECT_THAT(PanelView(session, 0).Status(), testing::StartsWith("f137"));
    session.Press({"Home", "Alt-Shift-F4"});
    session.Click(Mouse::kLeft, 25, 1);
    EXPECT_THAT(PanelView(session, 0).Status(), testing::StartsWith("f117"));
}

TEST_F(MouseOnPanels, AClickBelowTheListDoesNothing) {
    Session session(Here());
    session.Press("Enter");
    SessionOptions options = Here();
    options.directory = tree.PathOf("aa");
    Session small(options);
    small.Click(Mouse::kLeft, 5, 10);
    EXPECT_EQ("..", PanelView(small, 0).BarName());
}

TEST_F(MouseOnPanels, ADoubleClickEntersADirectory) {
    Session session(Here());
    session.DoubleClick(Mouse::kLeft, 5, 2);
    EXPECT_EQ(tree.PathOf("aa"), PanelView(session, 0).Title());
    session.DoubleClick(Mouse::kLeft, 5, 1);
    EXPECT_EQ(tree.Path(), PanelView(session, 0).Title());
    EXPECT_EQ("aa", PanelView(session, 0).BarName());
}

TEST_F(MouseOnPanels, TheWheelMovesThreeEntries) {
    Session session(Here());
    session.Wheel(false, 5, 5);
    EXPECT_EQ("f101", PanelView(session, 0).BarName());
    session.Wheel(true, 5, 5);
    EXPECT_EQ("..", PanelView(session, 0).BarName());
}

TEST_F(MouseOnPanels, TheRightButtonTagsAndItsDragSpreadsTheState) {
    Session session(Here());
    session.Drag(Mouse::kRight, 5, 3, 5, 6);
    const PanelView panel(session, 0);
    for (const char* name : {"f100", "f101", "f102"}) {
        EXPECT_EQ(kTagged, panel.AttributeOf(name)) << name;
    }
    EXPECT_EQ(kHighlightTagged, panel.AttributeOf("f103"));
    EXPECT_THAT(panel.Status(), HasSubstr("in 4 selected files"));
    // f102 is tagged: the drag from it clears, also what was clear before.
    session.Drag(Mouse::kRight, 5, 5, 5, 7);
    EXPECT_EQ(kTagged, panel.AttributeOf("f101"));
    EXPECT_EQ(kPanelColour, panel.AttributeOf("f102"));
    EXPECT_EQ(kPanelColour, panel.AttributeOf("f103"));
    EXPECT_THAT(panel.Status(), HasSubstr("in 2 selected files"));
}

TEST_F(MouseOnPanels, TheParentIsNeverTagged) {
    Session session(Here());
    session.Click(Mouse::kRight, 5, 1);
    EXPECT_EQ("..", PanelView(session, 0).Status());
    session.Press("Ins");
    EXPECT_EQ("aa", PanelView(session, 0).Status());
    session.Press("Ins");
    EXPECT_THAT(PanelView(session, 0).Status(), HasSubstr("0 bytes in 1 selected file"));
}

TEST_F(MouseOnPanels, AFunctionKeyActsWhenReleasedWhereItWasPressed) {
    Session session(Here());
    session.Click(Mouse::kLeft, 66, 24);
    EXPECT_THAT(session.Row(0), HasSubstr("Commands"));
    session.Press({"Esc"});
    session.Drag(Mouse::kLeft, 66, 24, 20, 24);
    EXPECT_TRUE(session.AtPrompt());
    session.Drag(Mouse::kLeft, 78, 24, 78, 10);
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(MouseOnPanels, TheListScrollsWhileTheButtonIsHeldOnTheFrame) {
    Session session(Here());
    session.Send(MousePress(Mouse::kLeft, 10, 22));
    EXPECT_TRUE(session.WaitForText("f140"));
    session.Send(MouseRelease(Mouse::kLeft, 10, 22));
    EXPECT_TRUE(session.WaitForQuiet());
    session.Send(MousePress(Mouse::kLeft, 10, 0));
    EXPECT_TRUE(session.WaitForNoText("f119"));
    session.Send(MouseRelease(Mouse::kLeft, 10, 0));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_NE(-1, PanelView(session, 0).BarRow());
}

TEST_F(MouseOnPanels, TheRightButtonOnTheTopLineOpensTheMenu) {
    Session session(Here());
    session.Send(MousePress(Mouse::kRight, 22, 0));
    EXPECT_TRUE(session.WaitForText("    Left    Files    Commands"));
    session.Press({"Esc"});
    EXPECT_TRUE(session.AtPrompt());
}

}  // namespace
}  // namespace zt::headless
