// Looking for names by Alt and their first letters, with the search that keeps the keyboard and
// with the one that does not.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;
using testing::Not;

class QuickSearch : public testing::Test {
protected:
    QuickSearch() {
        tree.Folder("docs").File("alpha").File("beta1").File("Beta2").File("gamma");
        tree.File("beta1.bak");
    }
    SessionOptions Here(bool sticky, const std::string& more = "") {
        home.File(".ztx/zt.ini", std::string("StickyAlt=") + (sticky ? "on\n" : "off\n") + more);
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        return options;
    }
    static std::string Bar(const Session& session) { return PanelView(session, 0).BarName(); }
    static std::string Status(const Session& session) { return PanelView(session, 0).Status(); }
    static std::string Line(const Session& session) {
        const std::string row = session.Row(session.Rows() - 2);
        return row.substr(row.find('>') + 1);
    }

    FileTree tree;
    FileTree home;
};

TEST_F(QuickSearch, GoesWithEachAltLetter) {
    Session session(Here(false));
    session.Press("Alt-b");
    EXPECT_EQ("beta1", Bar(session));
    EXPECT_EQ("Search: b", Status(session));
    EXPECT_EQ(kTagged, session.AttributeAt(1, 21));
    session.Press({"Alt-e", "Alt-t", "Alt-a", "Alt-2"});
    EXPECT_EQ("Beta2", Bar(session));
    EXPECT_EQ("Search: beta2", Status(session));
}

TEST_F(QuickSearch, LeavesNothingWhereNothingMatches) {
    for (const bool sticky : {false, true}) {
        Session session(Here(sticky));
        session.Press({"Down", "Alt-x"});
        EXPECT_EQ("docs", Bar(session));
        EXPECT_EQ("docs", Status(session));
        session.Type("x");
        EXPECT_EQ("x", Line(session)) << "the keyboard is the command line's";
    }
}

TEST_F(QuickSearch, BeginsAnewAfterTheCursorMoved) {
    Session session(Here(false));
    session.Press({"Alt-b", "Alt-e", "Down", "Alt-g"});
    EXPECT_EQ("Search: g", Status(session));
    EXPECT_EQ("gamma", Bar(session));
}

TEST_F(QuickSearch, LeavesPlainLettersToTheCommandLine) {
    Session session(Here(false));
    session.Press("Alt-b");
    session.Type("et");
    EXPECT_EQ("et", Line(session));
    EXPECT_EQ("Search: b", Status(session));
    session.Press("Alt-Backspace");
    EXPECT_EQ("beta1", Status(session));
    EXPECT_EQ("et", Line(session));
}

TEST_F(QuickSearch, KeepsTheKeyboardWhileItIsSticky) {
    Session session(Here(true));
    session.Press("Alt-b");
    EXPECT_EQ("Search: b", Status(session));
    EXPECT_EQ(21, session.CursorRow());
    EXPECT_EQ(1 + 8 + 1, session.CursorColumn());
    EXPECT_EQ(15, session.Screen().CursorSize());
    session.Type("ETA");
    EXPECT_EQ("Search: bETA", Status(session));
    EXPECT_EQ("beta1", Bar(session));
    session.Press("Alt-2");
    EXPECT_EQ("Beta2", Bar(session));
    EXPECT_EQ("", Line(session));
    session.Type("zz");
    EXPECT_EQ("Search: bETA2", Status(session)) << "what matches nothing is dropped";
    session.Press("Esc");
    EXPECT_EQ("Beta2", Status(session));
    EXPECT_EQ(session.Rows() - 2, session.CursorRow());
    session.Type("z");
    EXPECT_EQ("z", Line(session));
}

TEST_F(QuickSearch, StepsThroughTheMatches) {
    for (const bool sticky : {false, true}) {
        SCOPED_TRACE(sticky);
        Session session(Here(sticky));
        session.Press({"Alt-b", "Alt-e"});
        const struct {
            const char* key;
            const char* name;
        } rows[] = {{"Alt-Up", "beta1"},   {"Alt-Down", "beta1.bak"}, {"Alt-Down", "Beta2"},
                    {"Alt-Down", "Beta2"}, {"Alt-Up", "beta1.bak"},   {"Alt-Up", "beta1"}};
        for (const auto& row : rows) {
            session.Press(row.key);
            EXPECT_EQ(row.name, Bar(session)) << row.key;
            EXPECT_EQ("Search: be", Status(session));
        }
    }
}

TEST_F(QuickSearch, IsExtendedByAltRight) {
    for (const bool sticky : {false, true}) {
        SCOPED_TRACE(sticky);
        Session session(Here(sticky));
        session.Press({"Alt-b", "Alt-Right"});
        EXPECT_EQ("Search: beta", Status(session));
        session.Press("Alt-2");
        EXPECT_EQ("Search: beta2", Status(session));
        EXPECT_EQ("Beta2", Bar(session));
        session.Press("Alt-Right");
        EXPECT_EQ("Search: Beta2", Status(session)) << "spelled as the name";
    }
}

TEST_F(QuickSearch, IsExtendedByTabWhileItIsSticky) {
    for (const char* key : {"Shift-Tab", "Ctrl-Tab"}) {
        Session session(Here(true));
        session.Press({"Alt-b", key});
        EXPECT_EQ("Search: beta", Status(session)) << key;
        session.Type("1");
        EXPECT_EQ("Search: beta1", Status(session)) << key;
    }
}

TEST_F(QuickSearch, EndsWithItsLastCharacter) {
    for (const char* key : {"Backspace", "Alt-Backspace"}) {
        Session session(Here(true));
        session.Press({"Alt-b", "Alt-e", key});
        EXPECT_EQ("Search: b", Status(session)) << key;
        session.Press(key);
        EXPECT_EQ("beta1", Status(session)) << key;
        session.Type("x");
        EXPECT_EQ("x", Line(session));
    }
}

TEST_F(QuickSearch, HandsOtherKeysOn) {
    const struct {
        const char* key;
        const char* bar;
        const char* status;
    } rows[] = {
        {"Down", "beta1.bak", "beta1.bak"},
        {"Up", "alpha", "alpha"},
        {"Home", "..", ".."},
        {"Ins", "beta1.bak", "0 bytes in 1 selected file"},
        {"PgDn", "gamma", "gamma"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        Session session(Here(true));
        session.Press({"Alt-b", row.key});
        EXPECT_EQ(row.bar, Bar(session));
        EXPECT_EQ(row.status, Status(session));
    }
}

TEST_F(QuickSearch, EntersTheDirectoryItFound) {
    tree.File("docs/inner");
    Session session(Here(true));
    session.Press({"Alt-d", "Enter"});
    EXPECT_EQ(tree.PathOf("docs"), PanelView(session, 0).Title());
    EXPECT_EQ("..", Status(session));
}

TEST_F(QuickSearch, HandsMenuAndDialogKeysOn) {
    Session session(Here(true));
    session.Press({"Alt-b", "F9"});
    EXPECT_THAT(session.Row(0), HasSubstr("Commands"));
    session.Press("Esc");
    session.Press({"Alt-b", "Grey+"});
    EXPECT_THAT(session.Row(7), HasSubstr("Select the files"));
    session.Press("Esc");
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(QuickSearch, HandsTheMouseOn) {
    Session session(Here(true));
    session.Press("Alt-b");
    session.Click(Mouse::kLeft, 3, 3);
    EXPECT_EQ("alpha", Bar(session));
    EXPECT_EQ("alpha", Status(session));
    session.Press("Alt-b");
    session.Click(Mouse::kRight, 45, 3);
    EXPECT_EQ("alpha", PanelView(session, 1).BarName());
    EXPECT_EQ("0 bytes in 1 selected file", PanelView(session, 1).Status());
}

TEST_F(QuickSearch, IsEndedByAClickThatMovesTheCursor) {
    Session session(Here(false));
    session.Press({"Alt-b", "Alt-e"});
    ASSERT_EQ("beta1", Bar(session));
    const int row = PanelView(session, 0).BarRow() + 1;
    session.Click(Mouse::kLeft, 3, row);
    EXPECT_EQ("Search: be", Status(session)) << "the cursor was there already";
    session.Click(Mouse::kLeft, 3, row + 1);
    EXPECT_EQ("beta1.bak", Status(session));
}

TEST_F(QuickSearch, IsEndedByEveryCursorKey) {
    for (const bool sticky : {false, true}) {
        Session session(Here(sticky));
        for (const char* key : {"Up", "Down", "Left", "Right", "Home", "End", "PgUp", "PgDn"}) {
            session.Press({"Home", "Alt-b", "Alt-e"});
            EXPECT_EQ("Search: be", Status(session)) << key;
            session.Press(key);
            EXPECT_EQ(Bar(session), Status(session)) << key << sticky;
        }
    }
}

TEST_F(QuickSearch, EndsWithTheWheel) {
    Session session(Here(true));
    session.Press("Alt-a");
    session.Wheel(false, 3, 3);
    EXPECT_EQ("Beta2", Bar(session));
}

TEST_F(QuickSearch, IsEndedByEscWhateverEscDoes) {
    for (const bool sticky : {false, true}) {
        Session session(Here(sticky, "EscPanelSwitch=on\n"));
        session.Press({"Alt-b", "Esc"});
        EXPECT_FALSE(PanelView(session, 0).IsShown());
        session.Press("Esc");
        EXPECT_EQ("beta1", Status(session));
    }
}

TEST_F(QuickSearch, LeavesTheBackSlashToItsCommand) {
    SessionOptions options = Here(true);
    options.arguments = {"-r", tree.PathOf("docs")};
    Session session(options);
    session.Press("Alt-b");
    session.Press("Ctrl-Shift-\\");
    EXPECT_EQ(tree.PathOf("docs"), PanelView(session, 0).Title());
}

TEST_F(QuickSearch, IsNotForPanelsThatAreOff) {
    Session session(Here(true));
    session.Press("Ctrl-o");
    const std::string before = session.Text();
    session.Press("Alt-b");
    EXPECT_EQ(before, session.Text());
    session.Type("b");
    EXPECT_EQ("b", Line(session));
}

TEST_F(QuickSearch, FindsNamesOfAnyBytes) {
    tree.File("caf\xE9").File("\xC3\xA9t\xC3\xA9").File("#1").File("_u");
    Session session(Here(false));
    session.Send({{0, 0x1FFFF, 1, 0, 0, 0xC9}, {0, kModifiersChanged, 0, 0, 0, 0}});
    ASSERT_TRUE(session.WaitForQuiet());
    EXPECT_EQ("\xC3\xA9t\xC3\xA9", Bar(session));
    session.Press({"Home", "Alt-c", "Alt-Right"});
    EXPECT_EQ("Search: caf\xC3\xA9", Status(session)) << "an old encoding shows as it is meant";
    session.Press("Home");
    session.Send({{0, 0x1000C, 1, 0, 0, '_'}, {0, kModifiersChanged, 0, 0, 0, 0}});
    ASSERT_TRUE(session.WaitForQuiet());
    EXPECT_EQ("_u", Bar(session));
}

TEST_F(QuickSearch, ShowsTheEndOfALongText) {
    const std::string name = "n" + std::string(60, 'o') + "end";
    tree.File(name).File("n");
    Session session(Here(true));
    session.Press({"End", "Alt-n"});
    session.Type(name.substr(1));
    EXPECT_EQ("Search: " + name.substr(name.size() - 30), Status(session));
    EXPECT_EQ(1 + 40 / 2 - 2, session.CursorColumn());
}

TEST_F(QuickSearch, HasMoreRoomForItsCursorInAPanelOfFullWidth) {
    const std::string name = "n" + std::string(40, 'o');
    tree.File(name);
    Session session(Here(true));
    session.Press({"Ctrl-Shift-F1", "Alt-n"});
    session.Type(std::string(25, 'o'));
    EXPECT_EQ(1 + 8 + 26, session.CursorColumn());
    session.Type(std::string(15, 'o'));
    EXPECT_EQ(1 + 80 / 2 - 2, session.CursorColumn()) << "not past the middle";
}

TEST_F(QuickSearch, ScrollsToWhatItFinds) {
    for (int i = 0; i < 100; ++i)
        tree.File("m" + std::to_string(100 + i));
    tree.File("zeta");
    Session session(Here(true));
    session.Press("Alt-z");
    EXPECT_EQ("zeta", Bar(session));
    session.Press({"Esc", "Alt-a"});
    EXPECT_EQ("alpha", Bar(session)) << "round the end";
}

}  // namespace
}  // namespace zt::headless
