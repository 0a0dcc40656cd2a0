// The size of the screen: the keys and settings that change it, and screens of odd sizes.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::EndsWith;

std::string Size(const Session& session) {
    return std::to_string(session.Columns()) + "x" + std::to_string(session.Rows());
}

// Text and colours of the whole screen.
std::string Picture(const Session& session) {
    std::ostringstream picture;
    picture << session.Text() << std::hex;
    for (int row = 0; row < session.Rows(); row++) {
        for (int column = 0; column < session.Columns(); column++)
            picture << int{session.AttributeAt(column, row)} << ' ';
        picture << '\n';
    }
    return picture.str();
}

class ScreenSize : public testing::Test {
protected:
    ScreenSize() {
        tree.Folder("dir");
        for (int i = 10; i < 90; i++)
            tree.File("file" + std::to_string(i));
    }

    // No outside viewer or editor: what this machine has of them must not come up.
    SessionOptions Here(int columns = 80, int rows = 25, const std::string& configuration = "") {
        home.File(".ztx/zt.ini", "[General Options]\nViewer2=\nEditor2=\n" + configuration);
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        options.columns = columns;
        options.rows = rows;
        return options;
    }

    // Whatever a person may do to a screen that is too small for it.
    void PlayOn(Session& session) {
        for (const char* key : {"Down",          "End",          "PgUp",          "PgDn",
                                "Home",          "Ins",          "Alt-Shift-F1",  "Right",
                                "Right",         "Left",         "End",           "PgUp",
                                "Alt-Shift-F4",  "Right",        "PgDn",          "Alt-Shift-F5",
                                "End",           "Alt-Shift-F3", "Tab",           "Ctrl-F8",
                                "Ctrl-h",        "Ctrl-h",       "Ctrl-o",        "Ctrl-o",
                                "Ctrl-F2",       "Ctrl-F2",      "Ctrl-Shift-F1", "Tab",
                                "Ctrl-Shift-F2", "Ctrl-u",       "Ctrl-r",        "Ctrl-f",
                                "Alt-Left",      "Esc",          "Alt-Right",     "Home",
                                "Down",          "Enter",        "Ctrl-PgUp",     "Ctrl--",
                                "F10",           "Esc"}) {
            session.Press(key);
        }
        session.Type("some text that is longer than the line");
        session.Press({"Ctrl-Home", "Ctrl-End", "Esc"});
        // Each menu, each dialog.
        session.Press({"F9", "Enter", "Right", "Right", "Right", "Right", "Esc", "Esc"});
        for (const char* dialog : {"c", "o", "n"}) {
            session.Press("F9");
            session.Type("o");
            session.Type(dialog);
            session.Press({"Tab", "Down", "Esc"});
        }
        session.Press("F9");
        session.Type("o");
        session.Type("c");
        session.Press({"Alt-p", "F4", "Alt-a"});
        session.Type("/x");
        session.Press({"Enter", "Down", "Esc", "Esc"});
        session.Press("F9");
        session.Type("o");
        session.Type("l");  // the clock
        ClickAround(session);
        session.Press("Alt-Shift-F1");
        ClickAround(session);
    }

    void ClickAround(Session& session) {
        const int columns = session.Columns();
        const int rows = session.Rows();
        for (const int column : {0, 1, columns / 2 - 1, columns / 2, columns - 1}) {
            for (int row = 0; row < rows; row += row < 8 || row > rows - 8 ? 1 : rows / 3) {
                session.Click(Mouse::kLeft, column, row);
                session.Press("Esc");
                session.Click(Mouse::kRight, column, row);
                session.Press({"Esc", "Esc"});
            }
        }
        session.Wheel(true, 0, 0);
        session.Wheel(false, columns - 1, rows - 1);
    }

    FileTree tree;
    FileTree home;
};

struct Cycle {
    const char* configuration;
    int start;
    std::vector<int> next;
};

TEST_F(ScreenSize, AltF9GoesThroughTheLines) {
    const Cycle cycles[] = {
        {"", 25, {50, 25, 50}},
        {"", 30, {50, 25}},
        {"", 49, {50, 25}},
        {"", 60, {25, 50, 25}},
        {"Lines=40\n", 40, {50, 25, 40, 50}},
        {"Lines=60\n", 60, {25, 50, 60, 25}},
        {"Lines=50\n", 50, {25, 50}},
        {"Lines=20\n", 20, {50, 25, 50}},
    };
    for (const Cycle& cycle : cycles) {
        SCOPED_TRACE(cycle.configuration + std::to_string(cycle.start));
        const bool set = *cycle.configuration != 0;
        Session session(Here(80, set ? 25 : cycle.start, cycle.configuration));
        ASSERT_EQ(cycle.start, session.Rows());
        for (const int lines : cycle.next) {
            session.Press("Alt-F9");
            EXPECT_EQ("80x" + std::to_string(lines), Size(session));
        }
    }
}

TEST_F(ScreenSize, AltShiftF9GoesThroughTheColumns) {
    const Cycle cycles[] = {
        {"", 80, {132, 80, 132}},
        {"", 100, {80}},
        {"", 200, {80}},
        {"Columns=100\n", 100, {80, 132, 100, 80}},
        {"Columns=132\n", 132, {80, 132}},
        {"Columns=200\n", 200, {80, 132, 200}},
    };
    for (const Cycle& cycle : cycles) {
        SCOPED_TRACE(cycle.configuration + std::to_string(cycle.start));
        const bool set = *cycle.configuration != 0;
        Session session(Here(set ? 80 : cycle.start, 25, cycle.configuration));
        ASSERT_EQ(cycle.start, session.Columns());
        for (const int columns : cycle.next) {
            session.Press("Alt-Shift-F9");
            EXPECT_EQ(std::to_string(columns) + "x25", Size(session));
        }
    }
}

// Nothing of the old screen is left, and all of the new one is drawn.
TEST_F(ScreenSize, AChangedScreenLooksAsOneOfThatSizeFromTheStart) {
    const struct {
        const char* key;
        int columns, rows;
    } rows[] = {{"Alt-F9", 80, 50}, {"Alt-Shift-F9", 132, 25}};
    for (const auto& row : rows) {
        for (const char* configuration :
             {"", "Clock=off\nRightShowing=off\n", "LeftStyle=brief\n"}) {
            Session fresh(Here(row.columns, row.rows, configuration));
            Session changed(Here(80, 25, configuration));
            const std::string before = Picture(changed);
            changed.Press(row.key);
            EXPECT_EQ(Picture(fresh), Picture(changed)) << row.key << configuration;
            EXPECT_THAT(changed.Row(row.rows - 1), EndsWith("10Quit"));
            changed.Press(row.key);
            EXPECT_EQ(before, Picture(changed)) << row.key << configuration;
        }
    }
}

TEST_F(ScreenSize, TheClockStandsInTheNewCorner) {
    Session session(Here(80, 25, "Clock=on\nTimeMode=24\nRightShowing=off\n"));
    session.Press("Alt-Shift-F9");
    EXPECT_THAT(session.Piece(127, 0, 5), testing::MatchesRegex("[ 12][0-9].[0-5][0-9]"));
    EXPECT_EQ("     ", session.Piece(75, 0, 5));
}

TEST_F(ScreenSize, TextCanBeSelectedOnTheWholeNewScreen) {
    Session session(Here());
    session.Press({"Ctrl-o", "Alt-F9"});
    EXPECT_EQ(48, session.Screen().Selectable().height);
    session.Press("Ctrl-o");
    EXPECT_EQ(0, session.Screen().Selectable().height);
    Session off(Here(80, 25, "LeftShowing=off\nRightShowing=off\n"));
    EXPECT_EQ(80, off.Screen().Selectable().width);
    EXPECT_EQ(23, off.Screen().Selectable().height);
}

TEST_F(ScreenSize, IsSetByTheConfiguration) {
    const struct {
        const char* configuration;
        const char* size;
    } rows[] = {
        {"Lines=30\nColumns=100\n", "100x30"},
        {"Lines=250\n", "80x250"},
        {"Lines=251\n", "80x25"},  // too many
        {"Lines=12\n", "80x12"},
        {"Columns=60\n", "80x25"},
        {"Lines=0\nColumns=0\n", "80x25"},
        {"Lines=-5\nColumns=-5\n", "80x25"},
    };
    for (const auto& row : rows) {
        Session session(Here(80, 25, row.configuration));
        EXPECT_EQ(row.size, Size(session)) << row.configuration;
        EXPECT_TRUE(session.AtPrompt());
        EXPECT_EQ(session.Rows() - 2, session.CursorRow());
    }
}

TEST_F(ScreenSize, OfADisplayIsKeptButForTooFewColumns) {
    const struct {
        int columns, rows;
        const char* size;
    } rows[] = {
        {80, 25, "80x25"}, {79, 25, "80x25"},  {80, 24, "80x24"},     {200, 60, "200x60"},
        {20, 5, "80x5"},   {100, 20, "80x20"}, {400, 200, "400x200"}, {1, 1, "80x1"},
        {1, 25, "80x25"},  {81, 26, "81x26"},
    };
    for (const auto& row : rows) {
        Session session(Here(row.columns, row.rows));
        EXPECT_EQ(row.size, Size(session)) << row.columns << "x" << row.rows;
        EXPECT_TRUE(session.AtPrompt());
    }
}

TEST_F(ScreenSize, OfFewLinesIsSurvived) {
    for (const int rows : {1, 2, 3, 4, 5, 6, 7, 8, 12}) {
        SCOPED_TRACE(rows);
        Session session(Here(80, rows));
        PlayOn(session);
        EXPECT_FALSE(session.HasEnded());
        session.Press("Alt-F9");
        EXPECT_EQ(50, session.Rows());
        EXPECT_EQ(48, session.CursorRow());
    }
}

TEST_F(ScreenSize, OfFewLinesWithSmallPanelsIsSurvived) {
    for (const int rows : {1, 3, 5, 8}) {
        SCOPED_TRACE(rows);
        Session session(Here(80, rows, "FullScreen=off\nClock=on\n"));
        PlayOn(session);
        EXPECT_FALSE(session.HasEnded());
    }
}

// Through the dialog a screen can get narrower than any at the start.
TEST_F(ScreenSize, OfFewColumnsIsSurvived) {
    for (const auto& [columns, lines] :
         {std::pair{"5", "25"}, {"1", "25"}, {"12", "3"}, {"4", "9"}}) {
        SCOPED_TRACE(columns);
        Session session(Here());
        session.Press("F9");
        session.Type("o");
        session.Type("c");
        session.Press("Alt-n");
        session.Type(lines);
        session.Press("Alt-o");
        session.Type(columns);
        session.Press("Enter");
        ASSERT_EQ(std::string(columns) + "x" + lines, Size(session));
        PlayOn(session);
        EXPECT_FALSE(session.HasEnded());
        session.Press("Alt-Shift-F9");
        EXPECT_EQ(80, session.Columns());
    }
}

TEST_F(ScreenSize, OfManyCellsIsFilled) {
    Session session(Here(400, 200));
    EXPECT_TRUE(PanelView(session, 0).IsShown());
    EXPECT_EQ(194, PanelView(session, 0).Height());
    EXPECT_THAT(session.Row(199), EndsWith("10Quit"));
    session.Press({"End", "Alt-Shift-F1", "Right", "Ctrl-Shift-F1", "Tab"});
    EXPECT_TRUE(PanelView(session, 1, true).IsShown());
}

}  // namespace
}  // namespace zt::headless
