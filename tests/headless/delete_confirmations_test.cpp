// The questions of the delete command, each switched on and off.
#include "tests/headless/delete_fixture.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeleteConfirmations : public DeleteFixture {
protected:
    // Which of the questions is on the screen.
    static std::string Question(const Session& session) {
        if (IsOver(session)) return "";
        if (Shows(session, "Type \"YES\"")) return "word";
        if (Shows(session, "Delete tree?")) return "tree";
        if (Shows(session, "You are deleting")) return "group";
        if (Shows(session, "You have selected") || Shows(session, "Do you wish to delete"))
            return "first";
        return session.Text();
    }
    // Presses F8 and says yes to everything; gives the questions in order.
    static std::vector<std::string> Questions(Session& session) {
        std::vector<std::string> questions;
        session.Press("F8");
        while (!IsOver(session) && questions.size() < 10) {
            questions.push_back(Question(session));
            if (questions.back() == "word") session.Type("YES");
            session.Press("Enter");
        }
        return questions;
    }
    void OpenTree(Session& session) {
        GoToName(session, "dir");
        session.Press("F8");
    }
};

TEST_F(DeleteConfirmations, EachBitSwitchesItsQuestionOff) {
    for (int bits = 0; bits < 32; bits++) {
        if (bits & 8) continue;  // about leaving the program
        const std::string tree_ = bits & kNoWord ? "tree" : "word";
        {
            tree.File("top/dir/in");
            Session session(Here(bits));
            GoToName(session, "dir");
            std::vector<std::string> expected;
            if (!(bits & kNoFirst)) expected.push_back("first");
            if (!(bits & kNoTree)) expected.push_back(tree_);
            EXPECT_EQ(expected, Questions(session)) << bits;
            EXPECT_THAT(Names(), IsEmpty()) << bits;
        }
        {
            tree.File("top/dir/in").File("top/file");
            Session session(Here(bits));
            Tag(session, {"dir", "file"});
            std::vector<std::string> expected;
            if (!(bits & kNoFirst)) expected.push_back("first");
            if (!(bits & kNoGroup)) expected.push_back("group");
            if (!(bits & kNoTree)) expected.push_back(tree_);
            EXPECT_EQ(expected, Questions(session)) << bits;
            EXPECT_THAT(Names(), IsEmpty()) << bits;
        }
        {
            tree.File("top/file");
            Session session(Here(bits));
            GoToName(session, "file");
            session.Press({"Shift-F8", "Enter"});
            EXPECT_EQ(bits & kNoFirst ? "" : "first", Question(session)) << bits;
            if (!IsOver(session)) session.Press("Enter");
            EXPECT_THAT(Names(), IsEmpty()) << bits;
        }
    }
}

// What may not be taken back is asked in the colour of alerts.
TEST_F(DeleteConfirmations, HaveTheirColours) {
    constexpr int kMessages = 0x70, kAlerts = 0x4F;
    tree.File("top/dir/in");
    Session session(Here());
    Tag(session, {"dir"});
    const struct {
        const char* key;
        const char* question;
        int left, attribute;
    } rows[] = {
        {"F8", "first", 17, kMessages},
        {"Enter", "group", 19, kAlerts},
        {"Enter", "word", 24, kAlerts},
    };
    for (const auto& row : rows) {
        session.Press(row.key);
        EXPECT_EQ(row.question, Question(session));
        EXPECT_EQ("╔", session.Piece(row.left, 4, 1)) << session.Text();
        EXPECT_EQ(row.attribute, session.AttributeAt(row.left, 4)) << row.question;
        EXPECT_EQ(row.attribute, session.AttributeAt(40, 5)) << row.question;
    }
    session.Press({"Esc", "Shift-F8"});
    EXPECT_EQ("╔", session.Piece(2, 4, 1)) << session.Text();
    EXPECT_EQ(kMessages, session.AttributeAt(2, 4));
    session.Press("Esc");
}

TEST_F(DeleteConfirmations, ALongPathIsShortenedInTheGroupsBox) {
    const std::string name(120, 'n');
    tree.File("top/" + name + "/a");
    SessionOptions options = Here(kNoFirst);
    options.directory = tree.PathOf("top/" + name);
    Session session(options);
    Tag(session, {"a"});
    session.Press("F8");
    EXPECT_EQ("║ /tmp/..." + std::string(62, 'n') + " ║", session.Piece(3, 6, 74))
        << session.Text();
    EXPECT_EQ("║                           [ OK ]   [ Cancel ]", session.Piece(3, 8, 47));
    session.Press("Alt-o");
    EXPECT_FALSE(tree.Exists("top/" + name + "/a"));
}

TEST_F(DeleteConfirmations, FollowTheDialogOfTheOptions) {
    File("a");
    Session session(Here());
    session.Press("F9");
    session.Type("on");
    ASSERT_TRUE(Shows(session, " Confirmations ")) << session.Text();
    session.Type(" ");  // the first box: files and empty directories
    session.Press("Enter");
    GoToName(session, "a");
    session.Press("F8");
    EXPECT_TRUE(IsOver(session));
    EXPECT_FALSE(Exists("a"));
}

TEST_F(DeleteConfirmations, AFullDirectoryWantsTheWord) {
    tree.File("top/dir/in");
    Session session(Here(kNoFirst));
    OpenTree(session);
    const std::string path = tree.PathOf("top/dir");  // 27 characters
    EXPECT_THAT(
        BoxRows(session, 24, 4, 32, 7),
        ElementsAre("╔══════════════════════════════╗",  //
                    "║          Directory           ║",  //
                    "║ " + path + "  ║",                 //
                    "║         is not empty         ║",  //
                    "║         Delete tree?         ║",  //
                    "║       Type \"YES\"             ║", "╚══════════════════════════════╝"))
        << session.Text();
    EXPECT_EQ(24 + 1 + 20, session.CursorColumn());
    EXPECT_EQ(9, session.CursorRow());
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names("dir"), ElementsAre("in"));
}

TEST_F(DeleteConfirmations, TheWordMayHaveAnyCase) {
    for (const char* word : {"YES", "yes", "Yes", "yEs"}) {
        tree.File("top/dir/in");
        Session session(Here(kNoFirst));
        OpenTree(session);
        session.Type(word);
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session)) << word;
        EXPECT_THAT(Names(), IsEmpty()) << word;
    }
}

TEST_F(DeleteConfirmations, AnyOtherWordIsARefusal) {
    tree.File("top/dir/in").File("top/file");
    for (const char* word : {"", "y", "ye", "no", "yess", " yes", "yes ", "oui"}) {
        Session session(Here(kNoFirst | kNoGroup));
        Tag(session, {"dir", "file"});
        session.Press("F8");
        EXPECT_EQ("word", Question(session));
        if (*word) session.Type(word);
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session)) << word;
        EXPECT_THAT(Names(), ElementsAre("dir", "file")) << "the group ends too";
        EXPECT_THAT(Names("dir"), ElementsAre("in"));
    }
}

TEST_F(DeleteConfirmations, TheWordIsNotLongerThanItsField) {
    tree.File("top/dir/in");
    Session session(Here(kNoFirst));
    OpenTree(session);
    session.Type("yes-of-course");
    EXPECT_TRUE(Shows(session, "es-")) << session.Text();
    EXPECT_FALSE(Shows(session, "s-o"));
    session.Press({"Backspace", "Enter"});
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeleteConfirmations, AFullDirectoryHasButtonsWithoutTheWord) {
    tree.File("top/dir/in");
    Session session(Here(kNoFirst | kNoWord));
    OpenTree(session);
    EXPECT_EQ("║ [ OK ]  [ Cancel ]  [ All ]  ║", session.Piece(24, 9, 32)) << session.Text();
    EXPECT_EQ("╚══════════════════════════════╝", session.Piece(24, 10, 32));
    session.Press("Esc");
    EXPECT_THAT(Names("dir"), ElementsAre("in"));
}

TEST_F(DeleteConfirmations, TheButtonsOfAFullDirectory) {
    const struct {
        std::vector<std::string> keys;
        bool goes;
    } rows[] = {
        {{"Enter"}, true},
        {{"' "}, true},
        {{"Alt-o"}, true},
        {{"'y"}, true},
        {{"'a"}, true},
        {{"Right", "Right", "Enter"}, true},  // All
        {{"Right", "Enter"}, false},          // Cancel
        {{"'n"}, false},
        {{"Esc"}, false},
    };
    for (const auto& row : rows) {
        tree.File("top/dir/in");
        Session session(Here(kNoFirst | kNoWord));
        OpenTree(session);
        for (const std::string& key : row.keys) {
            if (key[0] == '\'') {
                session.Type(key.substr(1));
            } else {
                session.Press(key);
            }
        }
        EXPECT_TRUE(IsOver(session)) << row.keys.front();
        EXPECT_EQ(!row.goes, Exists("dir")) << row.keys.front();
    }
}

TEST_F(DeleteConfirmations, AllIsForTheRestOfTheCommand) {
    for (const char* name : {"top/d1/in", "top/d2/in", "top/d3/in"})
        tree.File(name);
    Session session(Here(kNoFirst | kNoGroup | kNoWord));
    Tag(session, {"d1", "d2", "d3"});
    session.Press("F8");
    EXPECT_TRUE(Shows(session, "/d1 ")) << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "/d2 ")) << session.Text();
    session.Type("a");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
    tree.File("top/d4/in");
    session.Press("Ctrl-r");
    GoToName(session, "d4");
    session.Press("F8");
    EXPECT_EQ("tree", Question(session)) << "forgotten after the command";
    session.Press("Esc");
}

TEST_F(DeleteConfirmations, OneYesIsEnoughForATree) {
    for (const char* name : {"top/dir/a/b/c/in", "top/dir/a/in", "top/dir/d/in"})
        tree.File(name);
    Session session(Here(kNoFirst | kNoWord));
    OpenTree(session);
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeleteConfirmations, AHiddenFileMakesADirectoryFull) {
    tree.File("top/dir/.hidden");
    SessionOptions options = Here(kNoFirst | kNoWord);
    home.File(".ztx/zt.ini", "Confirmations=17\n");
    Session session(options);
    OpenTree(session);
    EXPECT_EQ("tree", Question(session));
    session.Press("Esc");
    EXPECT_THAT(Names("dir"), ElementsAre(".hidden"));
}

TEST_F(DeleteConfirmations, ALongPathIsShortenedInTheBox) {
    const std::string name(120, 'n');
    tree.File("top/" + name + "/in");
    Session session(Here(kNoFirst | kNoWord));
    session.Press({"Down", "F8"});
    EXPECT_EQ("║ /tmp/..." + std::string(62, 'n') + " ║", session.Piece(3, 6, 74))
        << session.Text();
    EXPECT_EQ("║                      [ OK ]  [ Cancel ]  [ All ]", session.Piece(3, 9, 50));
    session.Press("Enter");
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeleteConfirmations, WithTheWindowClosedEndsEverything) {
    tree.File("top/dir/in");
    Session session(Here(kNoFirst));
    OpenTree(session);
    EXPECT_EQ("word", Question(session));
    session.CloseInput();
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_THAT(Names("dir"), ElementsAre("in"));
}

}  // namespace
}  // namespace zt::headless
