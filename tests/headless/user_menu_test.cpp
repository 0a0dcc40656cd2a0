// The user menu: its file, its window, its commands.
#include <sys/stat.h>

#include "tests/headless/box_rows.h"
#include "tests/support/command_runs.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class UserMenu : public CommandRuns {
protected:
    // Keys by name; a single character is typed.
    static void Keys(Session& session, std::initializer_list<std::string_view> keys) {
        for (const std::string_view key : keys)
            key.size() == 1 ? session.Type(key) : session.Press(key);
        EXPECT_TRUE(WaitForPanels(session));
    }
    struct Place {
        int column = -1;
        int row = -1;
    };
    // Where the text, of plain letters, begins on the screen.
    static Place Find(const Session& session, const std::string& text) {
        for (int row = 0; row < session.Rows(); row++) {
            for (int column = 0; column + static_cast<int>(text.size()) <= session.Columns();
                 column++)
                if (session.Piece(column, row, static_cast<int>(text.size())) == text)
                    return {column, row};
        }
        ADD_FAILURE() << text;
        return {};
    }
    std::string Written(const std::string& name) { return tree.Content(name); }
};

TEST_F(UserMenu, WithoutAFileNothingHappens) {
    Session session(InTree());
    const std::string before = session.Text();
    session.Press({"F2", "Shift-F2"});
    EXPECT_EQ(session.Text(), before);
}

TEST_F(UserMenu, RunsTheCommandsOfAnEntry) {
    tree.File("zt.mnu",
              "A: First\n\techo one > out\n   echo two >> out\nB: Second\n echo b > out\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr(" User  Menu "));
    EXPECT_THAT(session.Text(), HasSubstr("A First"));
    EXPECT_THAT(session.Text(), HasSubstr("B Second"));
    Keys(session, {"Enter"});
    EXPECT_EQ(Written("out"), "one\ntwo\n");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "out", "zt.mnu"));
}

TEST_F(UserMenu, EntriesAreChosenByTheirKeys) {
    tree.File("zt.mnu",
              "a: Letter\n echo letter > out\nF2: Function\n echo f2 > out\n"
              "CF3: Ctrl\n echo cf3 > out\nsf12: Shift\n echo sf12 > out\n"
              "AF11: Alt\n echo af11 > out\n");
    Session session(InTree());
    const struct {
        const char* key;
        const char* out;
    } rows[] = {{"a", "letter\n"},
                {"F2", "f2\n"},
                {"Ctrl-F3", "cf3\n"},
                {"Shift-F12", "sf12\n"},
                {"Alt-F11", "af11\n"}};
    for (const auto& row : rows) {
        Keys(session, {"F2", row.key});
        EXPECT_EQ(Written("out"), row.out) << row.key;
    }
}

TEST_F(UserMenu, EscLeavesEverythingAlone) {
    tree.File("zt.mnu", "A: First\n echo one > out\n");
    Session session(InTree());
    const std::string before = session.Text();
    Keys(session, {"F2", "Esc"});
    EXPECT_FALSE(tree.Exists("out"));
    EXPECT_EQ(session.Text(), before);
}

TEST_F(UserMenu, TheNearestFileUpwardsCounts) {
    tree.Folder("a/b/c").File("a/zt.mnu", "A: In a\n echo > out-a\n");
    home.File(".ztx/zt.mnu", "A: Personal\n echo > out-personal\n");
    SessionOptions options = InTree();
    options.directory = tree.PathOf("a/b/c");
    Session session(options);
    Keys(session, {"F2", "Enter"});
    EXPECT_TRUE(tree.Exists("a/b/c/out-a"));
    Keys(session, {"Shift-F2", "Enter"});
    EXPECT_TRUE(tree.Exists("a/b/c/out-personal"));
    tree.Remove("a/zt.mnu");
    tree.Remove("a/b/c/out-personal");
    Keys(session, {"F2", "Enter"});
    EXPECT_TRUE(tree.Exists("a/b/c/out-personal"));
}

TEST_F(UserMenu, ShowsOnlyEntriesWhoseConditionHolds) {
    tree.File("x.c").File("zt.mnu",
                          "A @ *.c: For C\n echo > out-a\nB@%attrib=D: For directories\n"
                          " echo > out-b\nC: Always\n echo > out-c\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("B For directories"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("For C")));
    session.Press({"Esc", "Down", "F2"});
    EXPECT_THAT(session.Text(), HasSubstr("A For C"));
    EXPECT_THAT(session.Text(), HasSubstr("C Always"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("For directories")));
    Keys(session, {"Enter"});
    EXPECT_THAT(tree.Names(), ElementsAre("out-a", "x.c", "zt.mnu"));
}

TEST_F(UserMenu, OpensMenusOfMenus) {
    tree.File("zt.mnu",
              "A: Plain\n echo plain > out\nB: Deeper\n{\n1: Inner\n echo inner > out\n"
              "2: Deepest\n{\nX: Last\n echo last > out\n}\n}\nC: Behind\n echo behind > out\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("B Deeper:>"));
    session.Type("b");
    EXPECT_THAT(session.Text(), HasSubstr(" Deeper "));
    EXPECT_THAT(session.Text(), HasSubstr("1 Inner"));
    session.Press("Esc");
    EXPECT_THAT(session.Text(), HasSubstr(" User  Menu "));
    EXPECT_THAT(session.Text(), Not(HasSubstr("1 Inner")));
    Keys(session, {"b", "1"});
    EXPECT_EQ(Written("out"), "inner\n");
    Keys(session, {"F2", "b", "2", "x"});
    EXPECT_EQ(Written("out"), "last\n");
    Keys(session, {"F2", "c"});
    EXPECT_EQ(Written("out"), "behind\n");
}

// The window is in the middle, a third of the free rows down; a menu of its own begins where the
// window ends.
TEST_F(UserMenu, TheWindowsFitTheirRows) {
    tree.File("zt.mnu",
              "A: Some description\n echo\nCF12: Two\n{\n1: Inner, a little wider\n2: In\n{\n"
              "X: Last of all the menus\n}\n}\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(BoxRows(session, 28, 7, 24, 4), ElementsAre("╔═════ User  Menu ═════╗",  //
                                                            "║A    Some description ║",  //
                                                            "║CF12 Two            :>║",  //
                                                            "╚══════════════════════╝"));
    session.Press("Ctrl-F12");
    EXPECT_THAT(BoxRows(session, 51, 7, 26, 4), ElementsAre("╔═════════ Two ══════════╗",  //
                                                            "║1 Inner, a little wider ║",  //
                                                            "║2 In                  :>║",  //
                                                            "╚════════════════════════╝"));
    // Where there is no room it moves to the left.
    session.Type("2");
    EXPECT_THAT(BoxRows(session, 55, 7, 25, 3), ElementsAre("╔═════════ In ══════════╗",  //
                                                            "║X Last of all the menus║",  //
                                                            "╚═══════════════════════╝"));
    session.Press({"Esc", "Esc"});
    EXPECT_FALSE(Shows(session, "Inner"));
    EXPECT_TRUE(Shows(session, "A    Some description "));
}

TEST_F(UserMenu, TheWindowIsNoWiderThanTheScreen) {
    const std::string wide(100, 'x');
    tree.File("zt.mnu", "A: " + wide + "\n{\nB: " + wide + "\n echo\n}\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_EQ(session.Piece(1, 8, 78), "║A " + std::string(74, 'x') + "║");
    session.Press("Enter");
    EXPECT_EQ(session.Piece(2, 8, 78), "║B " + std::string(74, 'x') + "║");
}

// One row is left of a list where there is no room for it.
TEST_F(UserMenu, AScreenOfFewRowsShowsOneEntry) {
    tree.File("zt.mnu", "A: First\n echo a > out\nB: Second\n echo b > out\n");
    SessionOptions options = InTree();
    options.rows = 7;
    Session session(options);
    session.Press("F2");
    EXPECT_TRUE(Shows(session, "A First"));
    session.Press("Down");
    EXPECT_TRUE(Shows(session, "B Second"));
    Keys(session, {"Enter"});
    EXPECT_EQ(Written("out"), "b\n");
}

TEST_F(UserMenu, TheMouseChooses) {
    tree.File("zt.mnu", "A: First\n echo a > out\nB: Deeper\n{\nC: Inner\n echo c > out\n}\n");
    Session session(InTree());
    const std::string before = session.Text();
    session.Press("F2");
    session.Click(Mouse::kLeft, 5, 20);
    EXPECT_EQ(session.Text(), before);
    session.Press("F2");
    const Place deeper = Find(session, "B Deeper");
    session.DoubleClick(Mouse::kLeft, deeper.column, deeper.row);
    const Place inner = Find(session, "C Inner");
    session.DoubleClick(Mouse::kLeft, inner.column, inner.row);
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(Written("out"), "c\n");
}

TEST_F(UserMenu, AFolderOrAPipeOfTheNameIsNoMenu) {
    tree.Folder("a/zt.mnu").Folder("a/b").File("zt.mnu", "A: Above\n echo > out\n");
    ASSERT_EQ(mkfifo(tree.PathOf("a/b/zt.mnu").c_str(), 0600), 0);
    SessionOptions options = InTree();
    options.directory = tree.PathOf("a/b");
    Session session(options);
    Keys(session, {"F2", "Enter"});
    EXPECT_TRUE(tree.Exists("a/b/out"));
}

TEST_F(UserMenu, AMenuBehindCommandsIsDropped) {
    tree.File("zt.mnu",
              "A: With commands\n echo a > out\n{\nX: Lost\n echo lost > out\n}\nB: Next\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("B Next"));
    EXPECT_THAT(session.Text(), Not(HasSubstr(":>")));
    Keys(session, {"a"});
    EXPECT_EQ(Written("out"), "a\n");
}

TEST_F(UserMenu, AClosingBraceAloneEndsTheFile) {
    tree.File("zt.mnu", "A: First\n echo > a\n  }\nB: Not read\n echo > b\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("A First"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("Not read")));
}

TEST_F(UserMenu, IncludesOtherFiles) {
    tree.Folder("more")
        .File("more/extra", "X: Included\n echo x > out\n")
        .File("zt.mnu",
              "A: First\n{\n!include more/extra\n}\n!include more/none\nB: Last\n echo b > out\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("Unable to open included menu"));
    EXPECT_THAT(session.Text(), HasSubstr("more/none"));
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr("B Last"));
    Keys(session, {"a", "x"});
    EXPECT_EQ(Written("out"), "x\n");
}

TEST_F(UserMenu, FilesThatIncludeThemselvesEnd) {
    tree.File("zt.mnu", "A: First\n echo a > out\n!include zt.mnu\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("Unable to open included menu"));
    Keys(session, {"Enter", "a"});
    EXPECT_EQ(Written("out"), "a\n");
}

TEST_F(UserMenu, PassesOverWhatIsNoEntry) {
    tree.File("zt.mnu",
              "\xEF\xBB\xBF// comment: here\r\n lost command\r\n: no key\r\nno colon\r\n"
              "XYZ: no such key\r\n echo lost > out\r\nF13: no such key\r\n@ *: no key\r\n"
              "A: Right\r\n\r\n   \r\n echo right > out\r\n");
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("A Right"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("no such")));
    Keys(session, {"Enter"});
    EXPECT_EQ(Written("out"), "right\n");
}

TEST_F(UserMenu, ExpandsMacrosForEachTaggedFile) {
    tree.File("a b").File("$(x)").File("zt.mnu",
                                       "A: Each\n printf '[%s]' !f >> out\nB: All\n"
                                       " printf '[%s]' !t !d > out\n");
    Session session(InTree());
    Keys(session, {"Down", "Ins", "Ins", "F2", "a"});
    EXPECT_EQ(Written("out"), "[$(x)][a b]");
    Keys(session, {"F2", "b"});
    EXPECT_EQ(Written("out"), "[$(x)][a b][" + tree.Path() + "]");
}

TEST_F(UserMenu, AsksAndStopsAtEsc) {
    tree.File("zt.mnu",
              "A: Ask\n echo before > out\n echo !{What to write:} >> out\n echo after >> out\n");
    Session session(InTree());
    session.Press("F2");
    session.Type("a");
    ASSERT_TRUE(session.WaitForText("What to write:"));
    session.Type("words");
    Keys(session, {"Enter"});
    EXPECT_EQ(Written("out"), "before\nwords\nafter\n");
    session.Press("F2");
    session.Type("a");
    ASSERT_TRUE(session.WaitForText("What to write:"));
    Keys(session, {"Esc"});
    EXPECT_EQ(Written("out"), "before\n");
}

TEST_F(UserMenu, AMacroOfAFileStandsBesideThoseOfAll) {
    tree.File("1.c").File("2.c").File("zt.mnu", "A: Each\n echo !b !t !{Word} !! >> out\n");
    Session session(InTree());
    session.Press({"Down", "Ins", "Ins", "F2"});
    session.Type("a");
    ASSERT_TRUE(session.WaitForText("Word"));
    session.Type("once");
    Keys(session, {"Enter"});
    EXPECT_EQ(Written("out"), "1 1.c 2.c once !\n2 1.c 2.c once !\n");
}

TEST_F(UserMenu, CdTakesThePanelAlong) {
    tree.Folder("sub").File("zt.mnu", "A: Go\n cd sub\n echo here > out\nB: Wrong\n cd none\n");
    Session session(InTree());
    Keys(session, {"F2", "a"});
    EXPECT_EQ(Written("sub/out"), "here\n");
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("sub"));
    Keys(session, {"F2", "b"});
    EXPECT_THAT(session.Text(), HasSubstr("Invalid path"));
    session.Press("Enter");
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("sub"));
}

TEST_F(UserMenu, CdIsKnownByWhatFollowsIt) {
    tree.Folder("a b/sub").File("zt.mnu",
                                "A: Up\n cd ..\n pwd > a\nB: Up at once\n cd..\n"
                                "C: File\n cd !f\nD: Another\n cdx() { echo x > d; }; cdx\n");
    SessionOptions options = InTree();
    options.directory = tree.PathOf("a b/sub");
    Session session(options);
    Keys(session, {"F2", "a"});
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("a b"));
    EXPECT_EQ(Written("a b/a"), tree.PathOf("a b") + "\n");
    Keys(session, {"F2", "b"});
    EXPECT_EQ(PanelView(session, 0).Title(), tree.Path());
    Keys(session, {"Down", "F2", "c"});
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("a b"));
    Keys(session, {"F2", "d"});
    EXPECT_EQ(Written("a b/d"), "x\n");
}

TEST_F(UserMenu, TheFirstEntryOfAKeyIsChosen) {
    tree.File("zt.mnu",
              "A: One\n echo one > out\nXF5: Bare number\n echo five > out\n"
              "a: Two\n echo two > out\n");
    Session session(InTree());
    Keys(session, {"F2", "End", "A"});
    EXPECT_EQ(Written("out"), "one\n");
    Keys(session, {"F2", "Ctrl-e"});
    EXPECT_EQ(Written("out"), "five\n");
}

TEST_F(UserMenu, ACommandThatFailsEndsItselfOnly) {
    tree.File("a").File("b").File("zt.mnu", "A: Each\n echo !f >> out; false\n echo next >> out\n");
    Session session(InTree());
    Keys(session, {"Down", "Ins", "Ins", "F2", "a"});
    EXPECT_EQ(Written("out"), "a\nnext\n");
}

TEST_F(UserMenu, ScrollsWhenItIsLong) {
    std::string file;
    for (int i = 0; i < 26; i++)
        file += std::string(1, static_cast<char>('A' + i)) + ": Entry\n echo " + std::to_string(i) +
                " > out\n";
    tree.File("zt.mnu", file);
    Session session(InTree());
    session.Press("F2");
    EXPECT_THAT(session.Text(), HasSubstr("Q Entry"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("R Entry")));
    EXPECT_EQ(session.Piece(33, 2, 14), "╔ User  Menu ╗");
    EXPECT_EQ(session.Piece(33, 20, 14), "╚════════════╝");
    session.Press({"End"});
    EXPECT_THAT(session.Text(), HasSubstr("Z Entry"));
    Keys(session, {"Enter"});
    EXPECT_EQ(Written("out"), "25\n");
}

}  // namespace
}  // namespace zt::headless
