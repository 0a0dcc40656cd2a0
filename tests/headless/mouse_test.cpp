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

TEST_F(MouseOnPanels, ADragOnTheTopLineOpensTheMenuAgainUnlessItWasLeft) {
    Session session(Here());
    session.Press("F9");
    session.Type("op");  // chosen: not cancelled
    session.Send(MouseMove(Mouse::kRight, 22, 0));
    EXPECT_TRUE(session.WaitForText("    Left    Files    Commands"));
    session.Press("Esc");
    session.Send(MouseMove(Mouse::kRight, 22, 0));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(MouseOnPanels, AFunctionKeyIsThatOfTheButtonAndTheModifiers) {
    const auto click = [](Session& session, Mouse button, int column, int32_t modifiers) {
        WireEvent press = MousePress(button, column, 24);
        WireEvent release = MouseRelease(button, column, 24);
        press.modifiers = release.modifiers = modifiers;
        session.Send({press, release, {0, kModifiersChanged, 0, 0, 0, 0}});
        EXPECT_TRUE(session.WaitForQuiet());
    };
    constexpr int32_t kAlt = 1, kCtrl = 2, kShift = 4;
    Session right(Here());
    click(right, Mouse::kRight, 64, 0);  // Alt-F9
    EXPECT_EQ(50, right.Rows());
    Session alt(Here());
    click(alt, Mouse::kLeft, 64, kAlt);
    EXPECT_EQ(50, alt.Rows());
    Session ctrl(Here());
    click(ctrl, Mouse::kLeft, 8, kCtrl);  // Ctrl-F2
    EXPECT_FALSE(PanelView(ctrl, 1).IsShown());
    Session shift(Here());
    click(shift, Mouse::kLeft, 79, kShift);  // Shift-F10
    EXPECT_THAT(shift.Row(0), HasSubstr("Commands"));
}

TEST_F(MouseOnPanels, AKeysPlaceBeginsAColumnEarly) {
    Session session(Here());
    session.Click(Mouse::kLeft, 70, 24);  // F9's last column
    EXPECT_THAT(session.Row(0), HasSubstr("Commands"));
    session.Press("Esc");
    session.Click(Mouse::kLeft, 71, 24);  // F10
    EXPECT_THAT(session.Text(), HasSubstr("want to exit"));
    session.Press("Esc");
}

TEST_F(MouseOnPanels, APanelOfFullWidthTakesEveryColumn) {
    Session session(Here());
    session.Press("Ctrl-Shift-F1");
    session.Click(Mouse::kLeft, 75, 4);
    EXPECT_EQ("f101", PanelView(session, 0, true).BarName());
    session.Press("Tab");
    session.Click(Mouse::kLeft, 3, 5);
    EXPECT_EQ("f102", PanelView(session, 1, true).BarName());
}

TEST_F(MouseOnPanels, AClickWhereNoPanelShowsDoesNothing) {
    Session session(Here());
    session.Press("Ctrl-F2");
    const std::string before = session.Text();
    for (const Mouse button : {Mouse::kLeft, Mouse::kRight}) {
        for (const int row : {0, 1, 5, 19, 20, 22, 23}) {
            if (row == 0 && button == Mouse::kRight) continue;  // the menu
            session.Click(button, 60, row);
            EXPECT_EQ(before, session.Text()) << row;
        }
    }
    session.DoubleClick(Mouse::kLeft, 60, 2);
    EXPECT_EQ(before, session.Text());
    session.Press("Ctrl-o");
    const std::string empty = session.Text();
    session.Click(Mouse::kRight, 5, 5);
    session.Click(Mouse::kRight, 5, 22);
    session.Wheel(false, 5, 5);
    EXPECT_EQ(empty, session.Text());
}

TEST_F(MouseOnPanels, TheFrameMovesAnEntryAtATimeAndTagsWithTheRightButton) {
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Down"});
    session.Click(Mouse::kRight, 5, 20);
    EXPECT_EQ("f101", panel.BarName());
    EXPECT_THAT(panel.Status(), HasSubstr("in 1 selected file"));
    session.Click(Mouse::kLeft, 5, 22);
    EXPECT_EQ("f102", panel.BarName());
    session.Click(Mouse::kLeft, 5, 0);
    EXPECT_EQ("f101", panel.BarName());
    session.Click(Mouse::kLeft, 45, 21);  // the other panel's
    EXPECT_TRUE(PanelView(session, 1).IsActive());
    EXPECT_EQ("aa", PanelView(session, 1).BarName());
    session.Click(Mouse::kLeft, 5, 23);  // the command line is no frame
    EXPECT_EQ("aa", PanelView(session, 1).BarName());
}

TEST_F(MouseOnPanels, AClickOnTheLastFrameColumnFindsTheLastEntryColumn) {
    Session session(Here());
    session.Press("Alt-Shift-F1");
    session.Click(Mouse::kLeft, 39, 2);
    EXPECT_THAT(PanelView(session, 0).Status(), testing::StartsWith("f137"));
    session.Click(Mouse::kLeft, 0, 2);
    EXPECT_THAT(PanelView(session, 0).Status(), testing::StartsWith("aa"));
}

TEST_F(MouseOnPanels, AClickInTheOtherPanelTakesPromptAndTitleAlong) {
    SessionOptions options = Here();
    options.arguments = {"-r", tree.PathOf("aa")};
    Session session(options);
    session.Click(Mouse::kLeft, 45, 2);
    EXPECT_EQ(tree.PathOf("aa") + ">", session.Row(23));
    EXPECT_EQ("Zanthe: " + tree.PathOf("aa"), session.Title());
    session.DoubleClick(Mouse::kLeft, 5, 2);
    EXPECT_EQ(tree.PathOf("aa"), PanelView(session, 0).Title());
    EXPECT_TRUE(PanelView(session, 0).IsActive());
}

}  // namespace
}  // namespace zt::headless
