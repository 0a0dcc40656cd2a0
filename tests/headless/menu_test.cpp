// The pull-down menu over the panels: an entry acts as its key.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr char kBar[] = "    Left    Files    Commands    Options    Right";

class Menu : public testing::Test {
protected:
    Menu() { tree.FileOfSize("b1", 10).FileOfSize("a2", 20).File(".hidden"); }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }

    FileTree tree;
};

TEST_F(Menu, OpensOnTheActiveSideAndEscLeavesInTwoSteps) {
    Session session(Here());
    const std::string before = session.Text();
    for (const char* key : {"F9", "Ctrl-n"}) {
        session.Press(key);
        EXPECT_EQ(kBar, session.Row(0)) << key;
        session.Press("Down");
        EXPECT_THAT(session.Row(2), HasSubstr("Brief       AlSh-F1"));
        session.Press("Esc");
        EXPECT_EQ(kBar, session.Row(0));
        session.Press("Esc");
        EXPECT_EQ(before, session.Text());
    }
    session.Press("Tab");
    session.Press("F9");
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr("Full Width  CtSh-F2"));
    session.Press({"Esc", "Esc"});
}

TEST_F(Menu, SortsTheSideItIsOpenOn) {
    Session session(Here());
    session.Press({"F9", "Enter"});
    session.Type("s");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "a2", "b1"));
    session.Press({"F9", "Enter"});
    session.Type("v");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "b1", "a2"));
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "a2", "b1"));
    session.Press({"F9", "Left", "Enter"});
    session.Type("v");
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "b1", "a2"));
}

TEST_F(Menu, ChangesTheStyleOfEitherSide) {
    Session session(Here());
    session.Press({"F9", "Enter"});
    session.Type("w");
    EXPECT_EQ(2u, Fields(PanelView(session, 0).Line(1)).size());
    session.Press({"F9", "Left", "Enter"});
    session.Type("a");
    EXPECT_EQ(5u, Fields(PanelView(session, 1).Line(1)).size());
    EXPECT_EQ(2u, Fields(PanelView(session, 0).Line(1)).size());
}

TEST_F(Menu, TogglesOptionsAndMarksThem) {
    Session session(Here());
    session.Press({"F9"});
    session.Type("o");
    EXPECT_THAT(session.Text(), Not(HasSubstr("\u221AHidden")));
    session.Type("h");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", ".hidden", "a2", "b1"));
    session.Press("Shift-F10");
    EXPECT_THAT(session.Text(), HasSubstr("\u221AHidden Files    Ctrl-H"));
    session.Press("Enter");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "a2", "b1"));
}

TEST_F(Menu, TurnsThePathPromptOff) {
    Session session(Here());
    EXPECT_THAT(session.Row(23), StartsWith(tree.Path() + ">"));
    session.Press("F9");
    session.Type("o");
    session.Type("p");
    EXPECT_EQ("", session.Row(23));
}

TEST_F(Menu, MakesThePanelsSmallAndTallAgain) {
    Session session(Here());
    session.Press("F9");
    session.Type("o");
    session.Type("f");
    EXPECT_THAT(session.Row(14), StartsWith("\u255A"));
    EXPECT_EQ("", session.Row(20));
    session.Press({"Shift-F10", "Enter"});
    EXPECT_THAT(session.Row(22), StartsWith("\u255A"));
}

TEST_F(Menu, ShowsSizesWithSeparators) {
    tree.FileOfSize("big", 123456);
    SessionOptions options = Here();
    options.environment["LANG"] = "en_US.UTF-8";
    Session session(options);
    session.Press("F9");
    session.Type("o");
    session.Type("u");
    EXPECT_EQ("123,456", PanelView(session, 0).FieldsOf("big")[1]);
}

TEST_F(Menu, ShowsTheClockOverTheRightPanel) {
    Session session(Here());
    session.Press("F9");
    session.Type("o");
    session.Type("l");
    EXPECT_THAT(session.Piece(74, 0, 6), testing::MatchesRegex("[ 1][0-9].[0-5][0-9][ap]"));
    session.Press("Ctrl-F2");
    EXPECT_THAT(session.Piece(74, 0, 6), testing::MatchesRegex("[ 1][0-9].[0-5][0-9][ap]"));
    session.Press({"Shift-F10", "Enter"});
    EXPECT_EQ("      ", session.Piece(74, 0, 6));
}

TEST_F(Menu, PassesOverEntriesWhoseCommandIsNotThere) {
    Session session(Here());
    const std::string before = session.Text();
    session.Press({"F9", "Right", "Enter", "Enter"});
    EXPECT_EQ(before, session.Text());
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(Menu, EndsWithTheInput) {
    Session session(Here());
    session.Press({"F9", "Enter"});
    session.CloseInput();
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
}

}  // namespace
}  // namespace zt::headless
