// Tagging groups of entries: the question, its keys, what is tagged and what is left alone.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int32_t kShift = 4;
constexpr uint8_t kMessages = 0x70;  // the default of the colour class

class Selection : public testing::Test {
protected:
    Selection() {
        tree.Folder("dir")
            .FileOfSize("a.txt", 100)
            .FileOfSize("b.txt", 2048)
            .FileOfSize("c.bin", 9);
        tree.File("descript.ion", "1234");
    }
    SessionOptions Here(const std::string& configuration = "") {
        if (!configuration.empty()) home.File(".ztx/zt.ini", configuration + "\n");
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        return options;
    }
    static std::string Tagged(const Session& session, int side = 0) {
        const PanelView panel(session, side);
        std::string names;
        for (const std::string& name : panel.Names()) {
            const uint8_t attribute = panel.AttributeOf(name);
            if (attribute == kTagged || attribute == kHighlightTagged) names += name + " ";
        }
        return names;
    }
    static std::string Status(const Session& session) { return PanelView(session, 0).Status(); }
    // Opens the question with `key`, types, Enter.
    static void Group(Session& session, std::string_view key, std::string_view pattern) {
        session.Press(key);
        session.Type(pattern);
        session.Press("Enter");
    }

    FileTree tree;
    FileTree home;
};

TEST_F(Selection, AsksInABoxAtTheTop) {
    Session session(Here());
    session.Press("Ctrl-t");
    EXPECT_EQ("╔", session.Piece(23, 6, 1)) << session.Text();
    EXPECT_EQ("╗", session.Piece(56, 6, 1));
    EXPECT_EQ("╚", session.Piece(23, 15, 1));
    EXPECT_EQ(" Select the files               ", session.Piece(24, 7, 32));
    EXPECT_EQ("*" + std::string(29, ' ') + "↓", session.Piece(25, 8, 31));
    EXPECT_EQ(" Alt-D=Dirs ", session.Piece(43, 10, 12));
    EXPECT_EQ(kMessages, session.AttributeAt(23, 6));
    EXPECT_EQ(kMessages, session.AttributeAt(43, 10));
    session.Press("Esc");
    EXPECT_TRUE(session.AtPrompt());
    EXPECT_EQ("", Tagged(session));
}

TEST_F(Selection, NamesTheOperationAndTheDirectoriesInItsCaption) {
    const struct {
        const char* configuration;
        const char* key;
        const char* caption;
        const char* flipped;
    } rows[] = {
        {"TagDirs=off", "Grey+", "Select the files ", "Select the files/directories "},
        {"TagDirs=on", "Grey+", "Select the files/directories ", "Select the files "},
        {"TagDirs=off", "Ctrl-Shift-t", "Select the files/directories ", "Select the files "},
        {"TagDirs=on", "Ctrl-Shift-t", "Select the files ", "Select the files/directories "},
        // There is always something to take off a directory.
        {"TagDirs=off", "Grey-", "Unselect the files/directories ", "Unselect the files "},
        {"TagDirs=off", "Ctrl-y", "Unselect the files/directories ", "Unselect the files "},
        {"TagDirs=on", "Ctrl-y", "Unselect the files/directories ", "Unselect the files "},
        {"TagDirs=on", "Ctrl-Shift-y", "Unselect the files/directories ", "Unselect the files "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.configuration) + " " + row.key);
        Session session(Here(row.configuration));
        session.Press(row.key);
        EXPECT_THAT(session.Row(7), HasSubstr(row.caption));
        session.Press("Alt-d");
        EXPECT_THAT(session.Row(7), HasSubstr(row.flipped));
        session.Press("Alt-d");
        EXPECT_THAT(session.Row(7), HasSubstr(row.caption));
        session.Press("Esc");
        EXPECT_TRUE(session.AtPrompt());
    }
}

TEST_F(Selection, TagsByMask) {
    Session session(Here());
    Group(session, "Grey+", "*.txt");
    EXPECT_EQ("a.txt b.txt ", Tagged(session));
    EXPECT_EQ("2,148 bytes in 2 selected files", Status(session));
    Group(session, "Grey-", "a*");
    EXPECT_EQ("b.txt ", Tagged(session));
}

TEST_F(Selection, TagsByExpression) {
    Session session(Here());
    Group(session, "Ctrl-t", "*.txt & %size>1k | c*");
    EXPECT_EQ("b.txt c.bin ", Tagged(session));
    Group(session, "Ctrl-y", "!(%size<10)");
    EXPECT_EQ("c.bin ", Tagged(session));
}

TEST_F(Selection, TagsDirectoriesWhenToldTo) {
    Session session(Here());
    session.Press({"Ctrl-t", "Alt-d", "Enter"});
    EXPECT_EQ("dir a.txt b.txt c.bin ", Tagged(session)) << "and never the parent";
    session.Press({"Grey-", "Alt-d", "Enter"});
    EXPECT_EQ("dir ", Tagged(session));
    session.Press({"Grey-", "Enter"});
    EXPECT_EQ("", Tagged(session));
}

TEST_F(Selection, ReachesProtectedNamesOnlyOneByOne) {
    Session session(Here());
    Group(session, "Grey+", "*");
    EXPECT_THAT(Tagged(session), Not(HasSubstr("descript.ion")));
    session.Press({"Ctrl-Grey-", "Ctrl-Grey+"});
    EXPECT_THAT(Tagged(session), Not(HasSubstr("descript.ion")));
    session.Press({"End", "Ins"});
    EXPECT_THAT(Tagged(session), HasSubstr("descript.ion"));
    session.Press("Grey*");
    EXPECT_EQ("descript.ion ", Tagged(session));
    Group(session, "Grey-", "*");
    EXPECT_EQ("", Tagged(session));
    // The right button is a tag of its own too.
    session.Click(Mouse::kRight, 3, 6);
    EXPECT_EQ("descript.ion ", Tagged(session)) << session.Text();
}

TEST_F(Selection, TellsWhatIsWrongWithAnExpressionAndAsksAgain) {
    Session session(Here());
    const struct {
        const char* pattern;
        const char* message;
    } rows[] = {
        {"(*.c", ") expected"},
        {"%size>", "Value expected"},
        {"%foo=1", "Unknown operator '%foo'"},
        {"%size~5", "Invalid comparitor '~'"},
    };
    for (const auto& row : rows) {
        Group(session, "Grey+", row.pattern);
        EXPECT_THAT(session.Text(), HasSubstr("Error in search expression")) << row.pattern;
        EXPECT_THAT(session.Text(), HasSubstr(row.message)) << row.pattern;
        session.Press("Enter");
        EXPECT_THAT(session.Text(), Not(HasSubstr("Error in search"))) << row.pattern;
        EXPECT_THAT(session.Row(8), HasSubstr(row.pattern)) << "the question goes on";
        session.Press("Esc");
        EXPECT_TRUE(session.AtPrompt());
        EXPECT_EQ("", Tagged(session));
    }
    Group(session, "Grey+", "(*.bin");
    session.Press({"Enter", "End"});
    session.Type(")");
    session.Press("Enter");
    EXPECT_EQ("c.bin ", Tagged(session));
}

TEST_F(Selection, TakesAnExpressionLongerThanItsField) {
    Session session(Here());
    std::string pattern = "(c.*";
    for (int i = 0; i < 60; ++i)
        pattern += " | name" + std::to_string(i) + ".*";
    Group(session, "Grey+", pattern + ") | a*");
    EXPECT_EQ("a.txt c.bin ", Tagged(session));
}

TEST_F(Selection, WantsSomeExpression) {
    Session session(Here());
    session.Press({"Grey+", "Del", "Backspace", "Home", "Shift-End", "Del", "Enter"});
    EXPECT_THAT(session.Text(), HasSubstr("File mask expected"));
    session.Press({"Esc", "Esc"});
    EXPECT_EQ("", Tagged(session));
}

TEST_F(Selection, OffersTheLastExpressionAgainOnBothSides) {
    Session session(Here());
    Group(session, "Grey+", "*.bin");
    session.Press({"Tab", "Grey+"});
    EXPECT_EQ("*.bin ", session.Piece(25, 8, 6));
    session.Press("Enter");
    EXPECT_EQ("c.bin ", Tagged(session, 1));
    session.Press("Ctrl-y");
    EXPECT_EQ("*.bin ", session.Piece(25, 8, 6));
    session.Type("never");
    session.Press({"Esc", "Ctrl-t"});
    EXPECT_EQ("*.bin ", session.Piece(25, 8, 6)) << "what Esc leaves is forgotten";
}

TEST_F(Selection, ForgetsTheExpressionWithTheProgram) {
    {
        Session session(Here());
        Group(session, "Grey+", "*.bin");
    }
    Session session(Here());
    session.Press("Grey+");
    EXPECT_EQ("* ", session.Piece(25, 8, 2));
}

TEST_F(Selection, KeepsAHistoryOfExpressions) {
    Session session(Here());
    for (const char* pattern : {"*.one", "*.two"})
        Group(session, "Grey+", pattern);
    session.Press({"Grey+", "Alt-Down"});
    EXPECT_THAT(session.Text(), HasSubstr("*.one"));
    session.Press({"Up", "Enter"});
    EXPECT_EQ("*.one ", session.Piece(25, 8, 6)) << session.Text();
    session.Press("Esc");
    // The other fields have histories of their own.
    session.Press({"Alt-F8"});
    EXPECT_THAT(session.Text(), Not(HasSubstr("*.two")));
}

TEST_F(Selection, TagsAllFiles) {
    Session session(Here());
    session.Press("Ctrl-Grey+");
    EXPECT_EQ("a.txt b.txt c.bin ", Tagged(session));
    session.Press("Ctrl-Shift-Grey+");
    EXPECT_EQ("dir a.txt b.txt c.bin ", Tagged(session));
    session.Press("Ctrl-Grey-");
    EXPECT_EQ("", Tagged(session));
    session.Press({"Ctrl-Shift-Grey+", "Ctrl-Shift-Grey-"});
    EXPECT_EQ("", Tagged(session));
}

TEST_F(Selection, TagsAllWithDirectoriesWhereTheSettingSaysSo) {
    Session session(Here("TagDirs=on"));
    session.Press("Ctrl-Grey+");
    EXPECT_EQ("dir a.txt b.txt c.bin ", Tagged(session));
    session.Press({"Ctrl-Grey-", "Ctrl-Shift-Grey+"});
    EXPECT_EQ("a.txt b.txt c.bin ", Tagged(session));
    session.Press({"Ctrl-Grey-", "Grey*"});
    EXPECT_EQ("dir a.txt b.txt c.bin ", Tagged(session));
}

TEST_F(Selection, IsInverted) {
    Session session(Here());
    Group(session, "Grey+", "*.txt");
    session.Press("Grey*");
    EXPECT_EQ("c.bin ", Tagged(session));
    // Shift takes the directories too; a menu's code comes without modifiers.
    session.Send({{0, 0x40002A, kShift, 0, 0, 0}, {0, kModifiersChanged, 0, 0, 0, 0}});
    ASSERT_TRUE(session.WaitForQuiet());
    EXPECT_EQ("dir a.txt b.txt ", Tagged(session));
}

TEST_F(Selection, IsReachedByTheMenu) {
    Session session(Here());
    const auto menu = [&session](char letter) {
        session.Press("F9");
        session.Type("f");
        EXPECT_THAT(session.Text(), HasSubstr("Select Group"));
        session.Type(std::string(1, letter));
    };
    menu('g');
    EXPECT_THAT(session.Row(7), HasSubstr("Select the files"));
    session.Type("*.txt");
    session.Press("Enter");
    EXPECT_EQ("a.txt b.txt ", Tagged(session));
    menu('i');
    EXPECT_EQ("c.bin ", Tagged(session));
    menu('n');
    EXPECT_THAT(session.Row(7), HasSubstr("Unselect the files"));
    session.Press("Esc");
    menu('s');
    EXPECT_EQ("", Tagged(session)) << "no operation has finished anything";
}

TEST_F(Selection, GivesBackOnlyWhatAnOperationTook) {
    Session session(Here());
    session.Press({"Ctrl-Grey+", "Alt-Grey+"});
    EXPECT_EQ("", Tagged(session));
    EXPECT_EQ("..", Status(session));
}

TEST_F(Selection, SurvivesARereadAndAnotherOrder) {
    Session session(Here());
    Group(session, "Grey+", "*.txt");
    tree.FileOfSize("a.txt", 50).Remove("b.txt").File("d.txt");
    session.Press("Ctrl-r");
    EXPECT_EQ("a.txt ", Tagged(session));
    EXPECT_EQ("50 bytes in 1 selected file", Status(session));
    session.Press("Ctrl-F6");
    EXPECT_EQ("a.txt ", Tagged(session));
    session.Press("Ctrl-h");
    EXPECT_EQ("a.txt ", Tagged(session));
    session.Press({"Home", "Down", "Enter", "Ctrl-PgUp"});
    EXPECT_EQ("", Tagged(session)) << "but not leaving the directory";
}

TEST_F(Selection, ShowsWhatItTaggedUnderTheBarAndOnLaterPages) {
    for (int i = 0; i < 40; ++i)
        tree.File("z" + std::to_string(10 + i));
    Session session(Here());
    session.Press("End");
    Group(session, "Ctrl-t", "z*");
    EXPECT_EQ("z49", PanelView(session, 0).BarName());
    EXPECT_EQ(kHighlightTagged, PanelView(session, 0).AttributeOf("z49"));
    EXPECT_EQ(kTagged, PanelView(session, 0).AttributeOf("z48"));
    EXPECT_EQ("0 bytes in 40 selected files", Status(session));
    session.Press({"Home", "PgDn"});
    EXPECT_EQ(kTagged, PanelView(session, 0).AttributeOf("z30"));
}

TEST_F(Selection, WorksOnNamesOfAnyBytes) {
    const std::vector<std::string> names = OddNames();
    for (const std::string& name : names)
        tree.File("odd/" + name);
    SessionOptions options = Here();
    options.directory = tree.PathOf("odd");
    Session session(options);
    session.Press("Ctrl-h");
    Group(session, "Grey+", "*");
    EXPECT_EQ("0 bytes in " + std::to_string(tree.Names("odd").size()) + " selected files",
              Status(session));
    session.Press("Ctrl-Grey-");
    EXPECT_THAT(Status(session), Not(HasSubstr("selected")));
    session.Press("Grey*");
    EXPECT_EQ("0 bytes in " + std::to_string(tree.Names("odd").size()) + " selected files",
              Status(session));
}

TEST_F(Selection, AsksOnAScreenWithoutRoomForTheBox) {
    for (const auto& [columns, rows] : {std::pair{80, 12}, std::pair{30, 25}, std::pair{24, 8}}) {
        SessionOptions options = Here("SizeCountPause=on");
        options.columns = columns;
        options.rows = rows;
        Session session(options);
        session.Press("Grey+");
        session.Press({"Alt-d", "Enter"});
        EXPECT_TRUE(session.AtPrompt()) << columns << "x" << rows << "\n" << session.Text();
        session.Press({"Ctrl-q", "Enter", "Alt-b", "Alt-Right", "Esc", "Ctrl-Grey-"});
        EXPECT_TRUE(session.AtPrompt()) << columns << "x" << rows << "\n" << session.Text();
    }
}

TEST_F(Selection, NeedsAPanelOfFiles) {
    Session session(Here());
    session.Press("Ctrl-o");
    const std::string before = session.Text();
    for (const char* key : {"Ctrl-t", "Ctrl-y", "Grey+", "Grey-", "Grey*", "Ctrl-Grey+",
                            "Ctrl-Grey-", "Alt-Grey+", "Ctrl-q", "F3", "Alt-Up", "Alt-Down"}) {
        session.Press(key);
        EXPECT_EQ(before, session.Text()) << key;
    }
    session.Press("Ctrl-o");
    EXPECT_EQ("", Tagged(session));
}

TEST_F(Selection, InsOnTheParentMovesAndTagsNothing) {
    Session session(Here());
    session.Press("Ins");
    EXPECT_EQ("dir", PanelView(session, 0).BarName());
    EXPECT_EQ("", Tagged(session));
    session.Press("Ins");
    EXPECT_EQ("0 bytes in 1 selected file", Status(session)) << "its total is not known";
}

TEST_F(Selection, GoesFromTagToTag) {
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Alt-Down", "Alt-Up"});
    EXPECT_EQ("..", panel.BarName()) << "nothing is tagged";
    Group(session, "Grey+", "*.txt");
    const struct {
        const char* key;
        const char* name;
    } rows[] = {{"Alt-Down", "a.txt"}, {"Alt-Down", "b.txt"}, {"Alt-Down", "b.txt"},
                {"Alt-Up", "a.txt"},   {"Alt-Up", "a.txt"},   {"End", "descript.ion"},
                {"Alt-Up", "b.txt"}};
    for (const auto& row : rows) {
        session.Press(row.key);
        EXPECT_EQ(row.name, panel.BarName()) << row.key;
    }
}

}  // namespace
}  // namespace zt::headless
