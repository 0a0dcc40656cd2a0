// F8 and Shift-F8: what goes, what stays, and how the dialogs look.
#include "tests/headless/delete_fixture.h"

#include <unistd.h>

#include <cstdlib>

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// `text` in the middle of `width` cells; an odd cell is left over at its right.
std::string Centred(const std::string& text, int width) {
    const int left = (width - static_cast<int>(text.size())) / 2;
    const int right = width - left - static_cast<int>(text.size());
    return std::string(static_cast<size_t>(left), ' ') + text +
           std::string(static_cast<size_t>(right), ' ');
}

// The rows of a box, frame included, from those inside it.
std::vector<std::string> Box(const std::vector<std::string>& inner, int width) {
    std::string line;
    for (int i = 0; i < width; i++)
        line += "═";
    std::vector<std::string> rows{"╔" + line + "╗"};
    for (const std::string& row : inner)
        rows.push_back("║" + row + "║");
    rows.push_back("╚" + line + "╝");
    return rows;
}

class Deleting : public DeleteFixture {};

// --- One object ---

TEST_F(Deleting, AsksAndRemovesTheFileUnderTheCursor) {
    File("a");
    File("b");
    Session session(Here());
    GoToName(session, "a");
    session.Press("F8");
    EXPECT_THAT(BoxRows(session, 27, 4, 26, 6),
                Box({" Do you wish to delete  ", Centred("a", 24), std::string(24, ' '),
                     "   [ OK ]  [ Cancel ]   "},
                    24))
        << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("b"));
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "b"));
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "b"));
}

TEST_F(Deleting, LeavesTheFileOnAnyOtherAnswer) {
    File("a");
    Session session(Here());
    GoToName(session, "a");
    const std::vector<std::string> rows[] = {{"Esc"}, {"Right", "Enter"}, {"Tab", "Tab", "Esc"}};
    for (const std::vector<std::string>& keys : rows) {
        session.Press("F8");
        EXPECT_TRUE(Shows(session, "Do you wish to delete"));
        for (const std::string& key : keys)
            session.Press(key);
        EXPECT_TRUE(IsOver(session));
        EXPECT_TRUE(Exists("a"));
    }
}

TEST_F(Deleting, LeavesTheParentEntryAlone) {
    File("a");
    Session session(Here());
    session.Press("F8");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(Deleting, IsIgnoredWithoutAFileList) {
    File("a");
    Session session(Here(kNoFirst));
    GoToName(session, "a");
    session.Press("Ctrl-o");
    session.Press("F8");
    session.Press("Ctrl-o");
    EXPECT_TRUE(Exists("a"));
}

TEST_F(Deleting, AsksMoreOfADirectory) {
    tree.Folder("top/dir");
    Session session(Here());
    GoToName(session, "dir");
    session.Press("F8");
    EXPECT_THAT(BoxRows(session, 17, 4, 46, 8),
                Box({Centred("Do you wish to delete", 44), Centred("dir", 44), std::string(44, ' '),
                     " Delete Read Only: (•) Ask ( ) All ( ) None ", std::string(44, ' '),
                     Centred("[ OK ]  [ Cancel ]", 44)},
                    44))
        << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session)) << "an empty one goes without a further question";
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Deleting, OffersNoUndeleteWhereThatIsKept) {
    File("a");
    tree.Folder("top/dir");
    SessionOptions options = Here();
    options.environment["DELDIR"] = "/var;/tmp";
    Session session(options);
    GoToName(session, "a");
    session.Press("F8");
    EXPECT_THAT(BoxRows(session, 27, 4, 26, 8),
                Box({" Do you wish to delete  ", Centred("a", 24), std::string(24, ' '),
                     " [ ]  No Undelete       ", std::string(24, ' '), "   [ OK ]  [ Cancel ]   "},
                    24))
        << session.Text();
    session.Press({"Alt-u", "Enter"});
    EXPECT_FALSE(Exists("a")) << "it is stored and has no further effect";
    GoToName(session, "dir");
    session.Press("F8");
    EXPECT_THAT(BoxRows(session, 17, 4, 46, 9),
                Box({Centred("Do you wish to delete", 44), Centred("dir", 44), std::string(44, ' '),
                     " Delete Read Only: (•) Ask ( ) All ( ) None ",
                     " [ ]  No Undelete                           ", std::string(44, ' '),
                     Centred("[ OK ]  [ Cancel ]", 44)},
                    44))
        << session.Text();
    session.Press("Esc");
    EXPECT_TRUE(Exists("dir"));
}

TEST_F(Deleting, OffersNoUndeleteOnlyForThePlacesNamed) {
    File("a");
    for (const char* places : {"/var", "", "/tm"}) {
        SessionOptions options = Here();
        options.environment["DELDIR"] = places;
        Session session(options);
        GoToName(session, "a");
        session.Press("F8");
        EXPECT_EQ(std::string(places) == "/tm", Shows(session, "No Undelete")) << places;
        session.Press("Esc");
    }
}

TEST_F(Deleting, MakesRoomForALongName) {
    const std::string name(71, 'n');
    const std::string odd(61, 'm');
    File(name);
    File(odd);
    Session session(Here());
    session.Press("End");
    session.Press("F8");
    EXPECT_EQ("║ " + std::string(69, 'n') + "► ║", session.Piece(3, 6, 74)) << session.Text();
    session.Press("Esc");
    session.Press("Up");
    session.Press("F8");
    EXPECT_EQ("║ " + odd + "  ║", session.Piece(7, 6, 66)) << session.Text();
    session.Press("Enter");
    EXPECT_THAT(Names(), ElementsAre(name));
}

TEST_F(Deleting, RemovesALinkToADirectoryAsAFile) {
    tree.File("outside/precious").Link("top/link", "../outside");
    Session session(Here());
    GoToName(session, "link");
    session.Press("F8");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session)) << "without the question for a directory that is not empty";
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(tree.Names("outside"), ElementsAre("precious"));
}

TEST_F(Deleting, TakesEveryName) {
    std::vector<std::string> names = OddNames();
    for (const char* name : {"$(touch x)", "`x`", "a;b", "...", "~", "%s", "a\\..\\b"})
        names.push_back(name);
    for (const std::string& name : names) {
        tree.Remove("top").Folder("top").File("top/zzz");
        File(name, "content");
        Session session(Here());
        session.Press("Down");
        if (PanelView(session, 0).BarName() == "zzz") session.Press("Down");
        session.Press("F8");
        EXPECT_TRUE(Shows(session, "Do you wish to delete")) << testing::PrintToString(name);
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session)) << testing::PrintToString(name);
        EXPECT_THAT(Names(), ElementsAre("zzz")) << testing::PrintToString(name);
    }
}

TEST_F(Deleting, KeepsNamesThatLookAlikeApart) {
    File("x\xC3\xBF");
    File("x\xFF");
    tree.File("top/y\xC3\xBF/in").File("top/y\xFF/in");
    Session session(Here(kNoFirst | kNoGroup | kNoTree));
    // Directories come first: both look alike, and one of each pair is taken.
    session.Press({"Down", "Ins", "Down", "Ins"});
    session.Press("F8");
    EXPECT_TRUE(IsOver(session));
    const std::vector<std::string> left = Names();
    ASSERT_EQ(2u, left.size());
    EXPECT_EQ('x', left[0][0]);
    EXPECT_EQ('y', left[1][0]);
    EXPECT_THAT(Names(left[1]), ElementsAre("in"));
}

// --- A group ---

TEST_F(Deleting, AsksTwiceAboutAGroup) {
    for (const char* name : {"a", "b", "c"})
        File(name);
    Session session(Here());
    Tag(session, {"a", "c"});
    session.Press("F8");
    EXPECT_THAT(BoxRows(session, 17, 4, 46, 8),
                Box({Centred("You have selected 2 files", 44), Centred("Delete?", 44),
                     std::string(44, ' '), " Delete Read Only: (•) Ask ( ) All ( ) None ",
                     std::string(44, ' '), Centred("[ OK ]  [ Cancel ]", 44)},
                    44))
        << session.Text();
    session.Press("Enter");
    EXPECT_THAT(BoxRows(session, 19, 4, 42, 6),
                Box({" You are deleting 2 selected files from ", Centred(tree.PathOf("top"), 40),
                     std::string(40, ' '), "           [ OK ]   [ Cancel ]          "},
                    40))
        << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("b"));
}

TEST_F(Deleting, SaysFileForAGroupOfOne) {
    File("a");
    Session session(Here());
    Tag(session, {"a"});
    session.Press("F8");
    EXPECT_TRUE(Shows(session, " You have selected 1 file ")) << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "You are deleting 1 selected files from"));
    session.Press("Esc");
    EXPECT_TRUE(Exists("a"));
    EXPECT_TRUE(IsTagged(session, "a"));
}

TEST_F(Deleting, KeepsTheTagsWhenTheGroupIsNotConfirmed) {
    File("a");
    File("b");
    Session session(Here());
    Tag(session, {"a", "b"});
    session.Press({"F8", "Esc"});
    EXPECT_TRUE(IsOver(session));
    session.Press({"F8", "Enter", "Esc"});
    EXPECT_TRUE(IsOver(session));
    session.Press({"F8", "Enter", "Right", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("a", "b"));
    EXPECT_TRUE(IsTagged(session, "a") && IsTagged(session, "b"));
}

TEST_F(Deleting, TakesDirectoriesAndFilesOfAGroup) {
    File("file");
    tree.File("top/dir/in").Folder("top/empty").File("outside/precious");
    tree.Link("top/link", "../outside");
    Session session(Here(kNoWord));
    Tag(session, {"dir", "empty", "file", "link"});
    session.Press({"F8", "Enter", "Enter"});
    EXPECT_TRUE(Shows(session, "Delete tree?"));
    EXPECT_TRUE(Shows(session, "top/dir "));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(tree.Names("outside"), ElementsAre("precious"));
}

TEST_F(Deleting, EndsTheGroupWhenATreeIsRefused) {
    File("file");
    tree.File("top/dir/in");
    Session session(Here(kNoWord));
    Tag(session, {"dir", "file"});
    session.Press({"F8", "Enter", "Enter"});
    EXPECT_TRUE(Shows(session, "Delete tree?"));
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("dir", "file"));
    EXPECT_TRUE(IsTagged(session, "dir") && IsTagged(session, "file"));
}

// The second key of a burst comes while the walk is on its way. Where the machine is so busy that
// the walk gets to its end before that, it is begun again with other files.
class EscOnTheWay : public DeleteFixture {
protected:
    static constexpr int kRounds = 20;

    static void Burst(Session& session, const char* first) {
        session.Send({*KeyEvent(first), *KeyEvent("Esc")});
        EXPECT_TRUE(session.WaitForQuiet());
        EXPECT_TRUE(IsOver(session));
    }
};

TEST_F(EscOnTheWay, EndsTheGroup) {
    constexpr int kFiles = 300;
    std::vector<std::string> left;
    for (int round = 0; round < kRounds && left.empty(); round++) {
        for (int i = 0; i < kFiles; i++)
            File("f" + std::to_string(1000 + i));
        Session session(Here(kNoFirst | kNoGroup));
        session.Press("Down");
        session.Press("Ins", kFiles);
        Burst(session, "F8");
        left = Names();
        if (left.empty()) continue;
        EXPECT_THAT(PanelView(session, 0).Status(),
                    testing::HasSubstr(" " + std::to_string(left.size()) + " selected file"));
    }
    EXPECT_FALSE(left.empty());
}

TEST_F(EscOnTheWay, EndsATree) {
    bool isLeft = false;
    for (int round = 0; round < kRounds && !isLeft; round++) {
        for (int i = 0; i < 1000; i++)
            tree.File("top/dir/f" + std::to_string(i));
        Session session(Here(kNoFirst | kNoWord));
        GoToName(session, "dir");
        session.Press("F8");
        EXPECT_TRUE(Shows(session, "Delete tree?"));
        Burst(session, "Enter");
        isLeft = Exists("dir");
        if (isLeft) {
            EXPECT_FALSE(Names("dir").empty());
        }
    }
    EXPECT_TRUE(isLeft);
}

TEST_F(Deleting, RemovesDescriptionsWithTheirFiles) {
    File("a");
    File("b c");
    File("d");
    File("descript.ion", "a one\r\n\"b c\" two\r\nd three\r\n");
    Session session(Here(kNoFirst | kNoGroup));
    Tag(session, {"a", "b c"});
    session.Press("F8");
    EXPECT_THAT(Names(), ElementsAre("d", "descript.ion"));
    EXPECT_EQ("d three\r\n", tree.Content("top/descript.ion"));
    GoToName(session, "d");
    session.Press("F8");
    EXPECT_THAT(Names(), IsEmpty()) << "the file goes with its last line";
}

TEST_F(Deleting, AcceptsADescriptionFileThatIsGone) {
    File("descript.ion");
    File("z");
    Session session(Here(kNoFirst | kNoGroup));
    Tag(session, {"descript.ion", "z"});
    tree.Remove("top/descript.ion");
    session.Press("F8");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Deleting, RemovesADeepTree) {
    std::string path = "top/deep";
    for (int i = 0; i < 60; i++)
        path += "/" + std::string(50, 'd');
    tree.File(path + "/last");
    Session session(Here(kNoFirst | kNoTree));
    GoToName(session, "deep");
    session.Press("F8");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

// --- By name ---

TEST_F(Deleting, ByNameAsksForTheName) {
    File("a");
    Session session(Here());
    session.Press("Shift-F8");
    EXPECT_THAT(BoxRows(session, 2, 4, 76, 7),
                Box({" Delete the file:" + std::string(57, ' '), std::string(74, ' '),
                     std::string(74, ' '), std::string(74, ' '), Centred("[ OK ]  [ Cancel ]", 74)},
                    74))
        << session.Text();
    session.Press("Esc");
    GoToName(session, "a");
    session.Press("Shift-F8");
    EXPECT_EQ("║ a  ", session.Piece(2, 7, 5));
    session.Press("Enter");
    const std::string path = tree.PathOf("top/a");
    const int width = static_cast<int>(path.size() + path.size() % 2) + 2;
    EXPECT_THAT(
        BoxRows(session, (80 - width - 2) / 2, 4, width + 2, 6),
        Box({Centred("Do you wish to delete", width), Centred(path, width),
             std::string(static_cast<size_t>(width), ' '), Centred("[ OK ]  [ Cancel ]", width)},
            width))
        << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre(".."));
}

TEST_F(Deleting, ByNameTakesATypedName) {
    File("a");
    File("with blank");
    tree.File("elsewhere/c").Folder("elsewhere/empty").File("elsewhere/full/in");
    Session session(Here(kNoWord));
    const struct {
        std::string typed, name;
        bool isTree;
    } rows[] = {
        {"with blank", "top/with blank", false},
        {"../elsewhere/c", "elsewhere/c", false},
        {tree.PathOf("elsewhere/empty"), "elsewhere/empty", false},
        {"..\\elsewhere\\full", "elsewhere/full", true},
    };
    GoToName(session, "a");
    for (const auto& row : rows) {
        session.Press("Shift-F8");
        session.Type(row.typed);
        session.Press("Enter");
        EXPECT_TRUE(Shows(session, "Do you wish to delete")) << session.Text();
        session.Press("Enter");
        EXPECT_EQ(row.isTree, Shows(session, "Delete tree?")) << row.typed;
        if (row.isTree) session.Press("Enter");
        EXPECT_TRUE(IsOver(session)) << row.typed;
        EXPECT_FALSE(tree.Exists(row.name)) << row.typed;
    }
    EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(Deleting, ByNameTakesNoMoreThanItsField) {
    File("ab");
    File("abc");
    Session session(Here());
    session.Press("Shift-F8");
    std::string typed;
    for (int i = 0; i < 255; i++)
        typed += "./";
    session.Type(typed + "abc");  // 513 characters
    EXPECT_EQ("║ " + (typed + "ab").substr(512 - 71) + "  ║", session.Piece(2, 7, 76))
        << "with the cursor behind its end";
    session.Press({"Enter", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("abc"));
}

TEST_F(Deleting, ByNameAsksInABoxOfALeastWidth) {
    char folder[] = "/tmp/qXXXXXX";
    ASSERT_TRUE(mkdtemp(folder));
    const std::string path = folder;
    Session session(Here());
    session.Press("Shift-F8");
    session.Type(path);
    session.Press("Enter");
    EXPECT_THAT(BoxRows(session, 27, 4, 26, 6),
                Box({Centred("Do you wish to delete", 24), Centred(path, 24), std::string(24, ' '),
                     Centred("[ OK ]  [ Cancel ]", 24)},
                    24))
        << session.Text();
    session.Press("Enter");
    EXPECT_EQ(-1, access(folder, F_OK));
}

TEST_F(Deleting, ByNameTellsOfAWrongNameAndStays) {
    File("a");
    Session session(Here());
    const struct {
        std::string typed, message;
    } rows[] = {
        {"nothing", "File not found"},
        {"../../../../../../..", "Invalid Path"},
        {"a/below", "File not found"},
    };
    for (const auto& row : rows) {
        session.Press("Shift-F8");
        session.Type(row.typed);
        session.Press("Enter");
        EXPECT_TRUE(Shows(session, row.message)) << session.Text();
        session.Press("Enter");
        EXPECT_TRUE(Shows(session, "Delete the file:")) << "the dialog stays";
        EXPECT_FALSE(Shows(session, row.message));
        EXPECT_TRUE(Shows(session, row.typed)) << session.Text();
        session.Press("Esc");
        EXPECT_TRUE(IsOver(session));
    }
    session.Press({"Shift-F8", "Enter"});
    EXPECT_TRUE(Shows(session, "File not found")) << "no name is not the panel's own directory";
    session.Press({"Enter", "Esc"});
    EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(Deleting, ByNameMayBeRefused) {
    File("a");
    Session session(Here());
    GoToName(session, "a");
    for (const char* key : {"Esc", "Right"}) {
        session.Press({"Shift-F8", "Enter", key});
        if (!IsOver(session)) session.Press("Enter");
        EXPECT_TRUE(IsOver(session));
        EXPECT_TRUE(Exists("a"));
    }
}

TEST_F(Deleting, ByNameRemovesALinkAndNotItsTarget) {
    tree.File("outside/precious").Link("top/link", "../outside").Link("top/loop", "loop");
    Session session(Here(kNoFirst));
    for (const char* name : {"link", "loop"}) {
        GoToName(session, name);
        session.Press({"Shift-F8", "Enter"});
        EXPECT_TRUE(IsOver(session));
        EXPECT_FALSE(Exists(name));
    }
    EXPECT_THAT(tree.Names("outside"), ElementsAre("precious"));
}

TEST_F(Deleting, ByNameTakesTheNameUnderTheCursorWhateverItIs) {
    for (const std::string& name : OddNames()) {
        tree.Remove("top").Folder("top").File("top/zzz");
        File(name);
        Session session(Here(kNoFirst));
        session.Press("Down");
        if (PanelView(session, 0).BarName() == "zzz") session.Press("Down");
        session.Press({"Shift-F8", "Enter"});
        EXPECT_TRUE(IsOver(session)) << testing::PrintToString(name);
        EXPECT_THAT(Names(), ElementsAre("zzz")) << testing::PrintToString(name);
    }
}

}  // namespace
}  // namespace zt::headless
