// The dialog of copying and moving: its forms, its keys and its buttons.
#include "tests/headless/copy_fixture.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int kLeft = 2;  // of a box 76 wide on 80 columns

class CopyDialog : public CopyFixture {
protected:
    CopyDialog() { tree.File("src/a.txt", "text").Folder("src/dir").Link("src/link", "a.txt"); }

    // The rows of the box that begins at `top`, without their frame and the blanks at their ends.
    static std::vector<std::string> Rows(const Session& session, int top, int count) {
        std::vector<std::string> rows;
        for (int row = 0; row < count; row++) {
            std::string text = session.Piece(kLeft + 1, top + 1 + row, 74);
            text.erase(text.find_last_not_of(' ') + 1);
            rows.push_back(text);
        }
        return rows;
    }
    static void HasFrame(const Session& session, int top, int height) {
        EXPECT_EQ(U'\u2554', session.CharacterAt(kLeft, top)) << session.Text();
        EXPECT_EQ(U'\u2557', session.CharacterAt(kLeft + 75, top));
        EXPECT_EQ(U'\u255A', session.CharacterAt(kLeft, top + height - 1)) << session.Text();
        EXPECT_EQ(U'\u255D', session.CharacterAt(kLeft + 75, top + height - 1));
    }
    static std::string Field(const Session& session) {
        std::string text = session.Piece(kLeft + 2, RowOfField(session), 72);
        text.erase(text.find_last_not_of(' ') + 1);
        return text;
    }
    static int RowOfField(const Session& session) {
        for (int row = 0; row < session.Rows(); row++) {
            if (session.CharacterAt(kLeft, row) == U'\u2554') return row + 3;
        }
        ADD_FAILURE() << "no box:\n" << session.Text();
        return 0;
    }
    // The suggestion, cut to what the field shows.
    std::string Suggested(const std::string& name) {
        const std::string text = tree.PathOf("dst") + "/" + name;
        EXPECT_LT(text.size(), 72u);
        return text;
    }
};

constexpr const char* kButtons = "              [ OK ]  [ Cancel ]  [ F10-Tree ]  [ Dir Hist ]";

TEST_F(CopyDialog, OfAFileHasNoOptions) {
    Session session(Here());
    GoToName(session, "a.txt");
    session.Press("F5");
    HasFrame(session, 4, 7);
    EXPECT_THAT(Rows(session, 4, 5),
                testing::ElementsAre(
                    " Copy \"a.txt\" to", "",
                    " " + Field(session) + std::string(72 - Field(session).size(), ' ') + "\u2193",
                    "", kButtons));
    EXPECT_EQ(Suggested("a.txt"), Field(session));
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    session.Press("F6");
    HasFrame(session, 4, 7);
    EXPECT_EQ(" Move/Rename \"a.txt\" to", Rows(session, 4, 1)[0]);
    session.Press("Esc");
    EXPECT_TRUE(tree.Names("dst").empty());
}

TEST_F(CopyDialog, OfADirectoryAsksForBoth) {
    Session session(Here());
    GoToName(session, "dir");
    session.Press("F5");
    HasFrame(session, 3, 10);
    const std::vector<std::string> rows = Rows(session, 3, 8);
    EXPECT_EQ(" Copy \"dir\" to", rows[0]);
    EXPECT_EQ(" Overwrite (\u2022) Ask    ( ) Always ( ) Never  ( ) If Older", rows[4]);
    EXPECT_EQ(" [ ]  Dereference Symbolic Links", rows[5]);
    EXPECT_EQ("", rows[6]);
    EXPECT_EQ(kButtons, rows[7]);
    session.Press("Esc");
    session.Press("F6");
    HasFrame(session, 4, 9);
    const std::vector<std::string> moving = Rows(session, 4, 7);
    EXPECT_EQ(" Move/Rename \"dir\" to", moving[0]);
    EXPECT_EQ(rows[4], moving[4]);
    EXPECT_EQ("", moving[5]);
    EXPECT_EQ(kButtons, moving[6]);
    session.Press("Esc");
}

TEST_F(CopyDialog, OfALinkMayDereference) {
    Session session(Here());
    GoToName(session, "link");
    session.Press("F5");
    HasFrame(session, 4, 9);
    const std::vector<std::string> rows = Rows(session, 4, 7);
    EXPECT_EQ(" Copy \"link\" to", rows[0]);
    EXPECT_EQ(" [ ]  Dereference Symbolic Links", rows[4]);
    EXPECT_EQ("", rows[5]);
    EXPECT_EQ(kButtons, rows[6]);
    session.Press("Esc");
    session.Press("F6");
    HasFrame(session, 4, 7);
    session.Press("Esc");
}

TEST_F(CopyDialog, OfAGroupCounts) {
    Session session(Here());
    Tag(session, {"a.txt"});
    session.Press("F5");
    HasFrame(session, 3, 10);
    EXPECT_EQ(" Copy 1 file  to", Rows(session, 3, 1)[0]);
    EXPECT_EQ(Suggested(""), Field(session));
    session.Press("Esc");
    session.Press("F6");
    HasFrame(session, 4, 9);
    EXPECT_EQ(" Move 1 file  to", Rows(session, 4, 1)[0]);
    session.Press("Esc");
    Tag(session, {"link"});
    session.Press("F5");
    EXPECT_EQ(" Copy 2 files to", Rows(session, 3, 1)[0]);
    session.Press("Esc");
    EXPECT_TRUE(IsTagged(session, "a.txt"));
}

TEST_F(CopyDialog, StandsInTheMiddleOfALargerScreen) {
    SessionOptions options = Here();
    options.columns = 132;
    options.rows = 50;
    Session session(options);
    session.Press({"Home", "Down", "F5"});
    EXPECT_EQ(U'\u2554', session.CharacterAt(28, 10)) << session.Text();
    EXPECT_EQ(U'\u255D', session.CharacterAt(28 + 75, 19));
    session.Press("Esc");
}

TEST_F(CopyDialog, AbbreviatesALongName) {
    const std::string name(80, 'n');
    tree.File("src/" + name).Remove("src/dir");
    Session session(Here());
    session.Press("End");
    session.Press("F5");
    EXPECT_TRUE(HasBox(session, {" Copy \"" + std::string(54, 'n') + "\u25BA\" to"}));
    session.Press("Esc");
}

TEST_F(CopyDialog, SuggestsTheNameAloneForARename) {
    Session session(Here());
    GoToName(session, "a.txt");
    for (const char* key : {"Shift-F5", "Shift-F6"}) {
        session.Press(key);
        EXPECT_EQ("a.txt", Field(session)) << key;
        session.Press("Esc");
    }
}

TEST_F(CopyDialog, NeedsSomethingToCopy) {
    Session session(Here());
    const std::string before = session.Text();
    for (const char* key : {"F5", "F6", "Shift-F5", "Shift-F6"}) {
        session.Press(key);
        EXPECT_EQ(before, session.Text()) << key;
    }
    // With something tagged the cursor may stand on "..".
    Tag(session, {"a.txt"});
    EXPECT_EQ("..", PanelView(session, 0).BarName());
    session.Press("F5");
    EXPECT_TRUE(HasBox(session, {"Copy 1 file  to"}));
    session.Press("Esc");
}

TEST_F(CopyDialog, TogglesBetweenTheBareNameAndTheOtherDirectory) {
    Session session(Here());
    GoToName(session, "a.txt");
    for (const char* key : {"Alt-d", "F5", "F6"}) {
        session.Press("F5");
        EXPECT_EQ(Suggested("a.txt"), Field(session));
        session.Press(key);
        EXPECT_EQ("a.txt", Field(session)) << key;
        session.Press(key);
        EXPECT_EQ(Suggested("a.txt"), Field(session)) << key;
        // The cursor stands behind it; what is typed is added.
        session.Type("x");
        EXPECT_EQ(Suggested("a.txtx"), Field(session)) << key;
        session.Press("Esc");
    }
}

TEST_F(CopyDialog, DoesNotToggleForAGroup) {
    Session session(Here());
    Tag(session, {"a.txt"});
    session.Press("F5");
    for (const char* key : {"F5", "F6"}) {
        session.Press(key);
        EXPECT_EQ(Suggested(""), Field(session)) << key;
    }
    // There Alt-D is the check box.
    session.Press("Alt-d");
    EXPECT_EQ(Suggested(""), Field(session));
    EXPECT_TRUE(HasBox(session, {"Copy 1 file  to"}));
    session.Press("Esc");
}

TEST_F(CopyDialog, QuickKeysSetTheOptions) {
    Session session(Here());
    Tag(session, {"a.txt", "link"});
    session.Press("F5");
    const struct {
        const char* key;
        const char* row;
    } rows[] = {
        {"Alt-a", " Overwrite ( ) Ask    (\u2022) Always ( ) Never  ( ) If Older"},
        {"Alt-e", " Overwrite ( ) Ask    ( ) Always (\u2022) Never  ( ) If Older"},
        {"Alt-l", " Overwrite ( ) Ask    ( ) Always ( ) Never  (\u2022) If Older"},
        {"Alt-k", " Overwrite (\u2022) Ask    ( ) Always ( ) Never  ( ) If Older"},
    };
    for (const auto& row : rows) {
        session.Press(row.key);
        EXPECT_EQ(row.row, Rows(session, 3, 5)[4]) << row.key;
    }
    EXPECT_EQ(" [ ]  Dereference Symbolic Links", Rows(session, 3, 6)[5]);
    session.Press("Alt-d");
    EXPECT_EQ(" [X]  Dereference Symbolic Links", Rows(session, 3, 6)[5]);
    session.Type(" ");
    EXPECT_EQ(" [ ]  Dereference Symbolic Links", Rows(session, 3, 6)[5]);
    session.Press("Esc");
}

TEST_F(CopyDialog, EveryWayOutThatCopiesNothing) {
    Session session(Here());
    GoToName(session, "a.txt");
    session.Press({"F5", "Esc"});
    EXPECT_TRUE(IsOver(session));
    session.Press({"F5", "Tab", "Right", "Enter"});  // Cancel
    EXPECT_TRUE(IsOver(session));
    session.Press("F5");
    session.Click(Mouse::kLeft, 0, 0);
    EXPECT_TRUE(IsOver(session));
    // Nothing to copy to.
    session.Press("F5");
    Destination(session, "");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    session.Press("F5");
    Destination(session, "   ");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(tree.Names("dst").empty());
}

TEST_F(CopyDialog, EveryWayOutThatCopies) {
    Session session(Here());
    GoToName(session, "a.txt");
    const std::vector<std::vector<std::string_view>> ways = {
        {"F5", "Enter"}, {"F5", "Tab", "Enter"}, {"F5", "Tab", " "}, {"F5", "Alt-o"}};
    for (const auto& keys : ways) {
        for (const std::string_view key : keys) {
            if (key == " ") {
                session.Type(key);
            } else {
                session.Press(key);
            }
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ("text", tree.Content("dst/a.txt"));
        tree.Remove("dst/a.txt");
    }
}

// The buttons for the tree and the directories of before lead back to the dialog.
TEST_F(CopyDialog, ChoosesADirectoryOfBefore) {
    tree.Folder("other");
    Session session(Here());
    session.Press({"Ctrl-PgUp", "Home", "Down"});
    GoToName(session, "other");
    session.Press({"Enter", "Ctrl-PgUp"});
    GoToName(session, "src");
    session.Press("Enter");
    GoToName(session, "a.txt");
    for (const char* key : {"Alt-h", "Alt-\\"}) {
        session.Press("F5");
        session.Press(key);
        EXPECT_TRUE(HasBox(session, {tree.PathOf("other")})) << key;
        // The newest is the last one; the one before is "other".
        session.Press("Esc");
        EXPECT_EQ(Suggested("a.txt"), Field(session)) << "nothing was chosen";
        session.Press(key);
        session.Press({"Up", "Enter"});
        EXPECT_THAT(Field(session), testing::EndsWith("/")) << session.Text();
        session.Press("Esc");
    }
}

TEST_F(CopyDialog, RemembersDestinations) {
    Session session(Here());
    GoToName(session, "a.txt");
    session.Press("F5");
    Destination(session, tree.PathOf("dst") + "/first");
    session.Press("Enter");
    session.Press("F5");
    session.Press("Alt-Down");
    EXPECT_TRUE(HasBox(session, {tree.PathOf("dst") + "/first"}));
    session.Press("Enter");
    EXPECT_EQ(Suggested("first"), Field(session));
    session.Press("Esc");
}

}  // namespace
}  // namespace zt::headless
