// Ctrl-A: mode, owner and group of one file or of the tagged ones.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "tests/headless/box_rows.h"
#include "tests/support/fault_control.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Where the box stands on a screen of 80 by 25, and its first check box.
constexpr int kLeft = 17, kTop = 3, kWidth = 45, kHeight = 10;
constexpr int kBoxColumn = kLeft + 1 + 8, kBoxRow = kTop + 1 + 3;

class FileAttributes : public testing::Test {
protected:
    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }
    SessionOptions AsOrdinaryUser() {
        SessionOptions options = Here();
        options.user = OrdinaryUser();
        return options;
    }

    mode_t ModeOf(const std::string& name) {
        struct stat data;
        if (stat(tree.PathOf(name).c_str(), &data) != 0) ADD_FAILURE() << name;
        return data.st_mode & 07777;
    }
    struct stat Own(const std::string& name) {
        struct stat data = {};
        if (lstat(tree.PathOf(name).c_str(), &data) != 0) ADD_FAILURE() << name;
        return data;
    }
    // The marks of the boxes in a row of the form, as "XX .": read, write, execute, special.
    std::string Marks(const Session& session, int row) {
        std::string marks;
        for (int column = 0; column < 4; ++column) {
            const char32_t mark = session.CharacterAt(kBoxColumn + 4 * column + 1, kBoxRow + row);
            marks += mark == 0xB7 ? '.' : static_cast<char>(mark);
        }
        return marks;
    }
    std::string Marks(const Session& session) {
        return Marks(session, 0) + "|" + Marks(session, 1) + "|" + Marks(session, 2);
    }
    bool IsOpen(const Session& session) { return Shows(session, " File  Attributes "); }
    static bool IsRoot() { return geteuid() == 0; }

    FileTree tree;
};

TEST_F(FileAttributes, OfOneFileAreAForm) {
    tree.File("readme.txt").Mode("readme.txt", 04751);
    if (!IsRoot()) GTEST_SKIP() << "the names of the owners are root's";
    ASSERT_EQ(0, chown(tree.PathOf("readme.txt").c_str(), 0, 65534));
    tree.Mode("readme.txt", 04751);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    EXPECT_THAT(BoxRows(session, kLeft, kTop, kWidth, kHeight),
                ElementsAre("╔════════════ File  Attributes ═════════════╗",
                            "║                readme.txt                 ║",
                            "║                                           ║",
                            "║         R   W   X   S                     ║",
                            "║ User   [X] [X] [X] [X]     Owner root     ║",
                            "║ Group  [X] [ ] [X] [ ]     Group nogroup  ║",
                            "║ Other  [ ] [ ] [X] [ ]                    ║",
                            "║                                           ║",
                            "║       [ OK ]  [ Cancel ]  [ Help ]        ║",
                            "╚═══════════════════════════════════════════╝"));
    EXPECT_EQ(kBoxColumn + 1, session.CursorColumn());
    EXPECT_EQ(kBoxRow, session.CursorRow());
}

TEST_F(FileAttributes, OfAGroupAreAFormThatKeeps) {
    tree.File("a").File("b");
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ctrl-a"});
    EXPECT_THAT(BoxRows(session, kLeft, kTop, kWidth, kHeight),
                ElementsAre("╔════════════ File  Attributes ═════════════╗",
                            "║                                           ║",
                            "║                                           ║",
                            "║         R   W   X   S                     ║",
                            "║ User   [·] [·] [·] [·]     Owner          ║",
                            "║ Group  [·] [·] [·] [·]     Group          ║",
                            "║ Other  [·] [·] [·] [·]                    ║",
                            "║                                           ║",
                            "║       [ OK ]  [ Cancel ]  [ Help ]        ║",
                            "╚═══════════════════════════════════════════╝"));
}

TEST_F(FileAttributes, ADigitSetsTheRowOfTheFocus) {
    tree.File("f").Mode("f", 0000);
    Session session(Here());
    session.Press("Down");
    const char* const marks[] = {"    ", "  X ", " X  ", " XX ", "X   ", "X X ", "XX  ", "XXX "};
    for (int digit = 0; digit < 8; ++digit) {
        session.Press("Ctrl-a");
        session.Press({"Right", "Right"});
        session.Type(std::to_string(digit));
        EXPECT_EQ(marks[digit], Marks(session, 0));
        EXPECT_EQ(kBoxColumn + 1, session.CursorColumn()) << digit;
        session.Press("Tab");
        session.Type(std::to_string(7 - digit));
        EXPECT_EQ(marks[7 - digit], Marks(session, 1));
        session.Press("Tab");
        session.Type(std::to_string(digit));
        EXPECT_EQ(kBoxRow + 2, session.CursorRow()) << digit;
        session.Press("Enter");
        EXPECT_FALSE(IsOpen(session));
        EXPECT_EQ(static_cast<mode_t>(digit << 6 | (7 - digit) << 3 | digit), ModeOf("f"));
    }
}

TEST_F(FileAttributes, ADigitLeavesTheSpecialBit) {
    tree.File("f").Mode("f", 04644);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    session.Type("7");
    EXPECT_EQ("XXXX", Marks(session, 0));
    session.Press("Enter");
    EXPECT_EQ(04744u, ModeOf("f"));
}

TEST_F(FileAttributes, EightAndNineMeanNothing) {
    tree.File("f").Mode("f", 0644);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    session.Type("89zq");
    EXPECT_EQ("XX  |X   |X   ", Marks(session));
    EXPECT_TRUE(IsOpen(session));
}

TEST_F(FileAttributes, ASmallLetterChangesTheRowOfTheFocus) {
    tree.File("f").Mode("f", 0000);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    session.Type("rws");
    EXPECT_EQ("XX X|    |    ", Marks(session));
    session.Type("w");
    session.Press("Tab");
    session.Type("xs");
    session.Press("Tab");
    session.Type("rs");
    EXPECT_EQ("X  X|  XX|X  X", Marks(session));
    session.Press("Enter");
    EXPECT_EQ(07414u, ModeOf("f"));
}

TEST_F(FileAttributes, ACapitalCopiesTheFirstRowToAll) {
    tree.File("f").Mode("f", 0007);
    Session session(Here());
    session.Press({"Down", "Ctrl-a", "Tab", "Tab"});
    session.Type("RS");
    EXPECT_EQ("X  X|X  X|XXXX", Marks(session));
    session.Type("W");
    session.Type("W");
    session.Type("X");
    EXPECT_EQ("X XX|X XX|X XX", Marks(session));
    session.Press("Enter");
    EXPECT_EQ(07555u, ModeOf("f"));
}

TEST_F(FileAttributes, LettersAreTextInAField) {
    tree.File("f").Mode("f", 0644);
    Session session(Here());
    session.Press({"Down", "Ctrl-a", "Tab", "Tab", "Tab"});
    session.Type("rwxs7R");
    EXPECT_EQ("XX  |X   |X   ", Marks(session));
    EXPECT_THAT(session.Row(kBoxRow), HasSubstr("Owner rwxs7R"));
}

TEST_F(FileAttributes, OnAButtonDigitsAndSmallLettersHaveNoRow) {
    tree.File("f").Mode("f", 0644);
    Session session(Here());
    session.Press({"Down", "Ctrl-a", "Shift-Tab"});
    session.Type("7x0");
    EXPECT_EQ("XX  |X   |X   ", Marks(session));
    session.Type("X");
    EXPECT_EQ("XXX |X X |X X ", Marks(session));
}

TEST_F(FileAttributes, SpaceInsAndDelChangeABox) {
    tree.File("f").Mode("f", 0000);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    session.Type(" ");
    session.Press({"Right", "Ins", "Right", "Ins", "Del", "Right"});
    session.Type(" ");
    EXPECT_EQ("XX X", Marks(session, 0));
    session.Type(" ");
    session.Press("Enter");
    EXPECT_EQ(0600u, ModeOf("f"));
}

TEST_F(FileAttributes, AClickChangesTheBoxUnderIt) {
    tree.File("f").Mode("f", 0000);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    // Each of the three cells of each box.
    for (int column = 0; column < 4; ++column) {
        for (int cell = 0; cell < 3; ++cell) {
            session.Click(Mouse::kLeft, kBoxColumn + 4 * column + cell, kBoxRow + cell);
        }
    }
    EXPECT_EQ("XXXX|XXXX|XXXX", Marks(session));
    session.Press("Enter");
    EXPECT_EQ(07777u, ModeOf("f"));
}

TEST_F(FileAttributes, OfAGroupHaveThreeStates) {
    tree.File("a").Mode("a", 0640).File("b").Mode("b", 0017).File("c").Mode("c", 0444);
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ctrl-a"});
    session.Type(" ");
    session.Press("Right");
    session.Type("  ");
    EXPECT_EQ("X ..", Marks(session, 0));
    session.Press("Enter");
    EXPECT_EQ(0440u, ModeOf("a"));
    EXPECT_EQ(0417u, ModeOf("b"));
    EXPECT_EQ(0444u, ModeOf("c"));
    // A letter goes round them too.
    session.Press("Ctrl-a");
    session.Type("r");
    EXPECT_EQ("X...", Marks(session, 0));
    session.Type("r");
    EXPECT_EQ(" ...", Marks(session, 0));
    session.Type("r");
    EXPECT_EQ("....", Marks(session, 0));
    session.Type("XS");
    EXPECT_EQ("..XX|..XX|..XX", Marks(session));
    session.Press("Enter");
    EXPECT_EQ(07551u, ModeOf("a"));
    EXPECT_EQ(07517u, ModeOf("b"));
}

TEST_F(FileAttributes, OfAGroupTakeADigitWhole) {
    tree.File("a").Mode("a", 0777).File("b").Mode("b", 0000);
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ctrl-a", "Tab"});
    session.Type("5");
    EXPECT_EQ("....|X X.|....", Marks(session));
    session.Press("Enter");
    EXPECT_EQ(0757u, ModeOf("a"));
    EXPECT_EQ(0050u, ModeOf("b"));
}

TEST_F(FileAttributes, OfAGroupThatIsLeftAloneKeepEachFilesOwn) {
    tree.File("a").Mode("a", 04751).File("b").Mode("b", 0000).Folder("d").Mode("d", 01700);
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ins", "Ctrl-a", "Enter"});
    EXPECT_EQ(04751u, ModeOf("a"));
    EXPECT_EQ(0u, ModeOf("b"));
    EXPECT_EQ(01700u, ModeOf("d"));
}

TEST_F(FileAttributes, LeaveTheTagsAndShowAtOnce) {
    tree.File("a").Mode("a", 0644).File("b").Mode("b", 0644);
    Session session(Here());
    session.Press({"Alt-Shift-F5", "Down", "Ins", "Ins", "Ctrl-a"});
    session.Type("0");
    session.Press("Enter");
    EXPECT_EQ("---r--r--", PanelView(session, 0).FieldsOf("a").at(2)) << session.Text();
    EXPECT_THAT(PanelView(session, 0).Status(), HasSubstr("2 selected files"));
}

TEST_F(FileAttributes, EscChangesNothing) {
    tree.File("f").Mode("f", 0644);
    Session session(Here());
    session.Press("Down");
    const std::string before = session.Text();
    session.Press("Ctrl-a");
    session.Type("777");
    session.Press("Esc");
    EXPECT_EQ(before, session.Text());
    EXPECT_EQ(0644u, ModeOf("f"));
}

TEST_F(FileAttributes, TheHelpKeyLeavesTheFormStanding) {
    tree.File("f").Mode("f", 0644);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    session.Type("7");
    session.Press({"F1", "Esc"});
    if (IsOpen(session)) session.Press("Esc");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(0644u, ModeOf("f"));
}

TEST_F(FileAttributes, AnUnknownUserOrGroupIsToldOf) {
    tree.File("f").Mode("f", 0644);
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    session.Type("7");
    session.Press({"Tab", "Tab", "Tab"});
    session.Type("no such one");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "Invalid user"));
    EXPECT_EQ(0644u, ModeOf("f"));
    session.Press("Enter");
    EXPECT_TRUE(IsOpen(session));
    session.Press({"Home", "Shift-End", "Del", "Tab"});
    session.Type("nor this");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "Invalid group"));
    session.Press("Esc");
    EXPECT_TRUE(IsOpen(session));
    session.Press({"Home", "Shift-End", "Del", "Enter"});
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(0744u, ModeOf("f"));
}

TEST_F(FileAttributes, AFieldTakesTwentyCharacters) {
    tree.File("f");
    Session session(Here());
    session.Press({"Down", "Ctrl-a", "Tab", "Tab", "Tab"});
    session.Type("abcdefghijklmnopqrstuvwxyz");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "Invalid user"));
    EXPECT_TRUE(Shows(session, " abcdefghijklmnopqrst "));
}

TEST_F(FileAttributes, OwnerAndGroupAreGivenByName) {
    if (!IsRoot()) GTEST_SKIP() << "only root may give files away";
    tree.File("f").Mode("f", 04755).Folder("d");
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ctrl-a", "Tab", "Tab", "Tab"});
    session.Type("nobody");
    session.Press("Tab");
    session.Type("nogroup");
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session)) << session.Text();
    for (const char* name : {"f", "d"}) {
        EXPECT_EQ(65534u, Own(name).st_uid) << name;
        EXPECT_EQ(65534u, Own(name).st_gid) << name;
    }
    EXPECT_EQ(04755u, ModeOf("f"));
}

TEST_F(FileAttributes, OfANumberWithoutANameAreLeftAlone) {
    if (!IsRoot()) GTEST_SKIP() << "only root may give files away";
    tree.File("f").Mode("f", 0644);
    ASSERT_EQ(0, chown(tree.PathOf("f").c_str(), 3999999, 3999999));
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    EXPECT_EQ("Owner        ", session.Piece(kLeft + 29, kBoxRow, 13));
    session.Type("7");
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session)) << session.Text();
    EXPECT_EQ(0744u, ModeOf("f"));
    EXPECT_EQ(3999999u, Own("f").st_uid);
}

TEST_F(FileAttributes, OfALinkAreItsTargets) {
    tree.File("target").Mode("target", 0600).Link("link", "target");
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    EXPECT_EQ("XX  |    |    ", Marks(session));
    session.Type("7");
    session.Press("Enter");
    EXPECT_EQ(0700u, ModeOf("target"));
    EXPECT_EQ("target", std::filesystem::read_symlink(tree.PathOf("link")));
}

TEST_F(FileAttributes, OfABrokenLinkFail) {
    tree.Link("link", "nowhere");
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    session.Type("0");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "No such file or directory")) << session.Text();
    session.Type("s");
    EXPECT_FALSE(IsOpen(session));
}

class RefusedAttributes : public FileAttributes {
protected:
    RefusedAttributes() {
        if (!IsRoot()) return;
        tree.File("a").Mode("a", 0644).File("b").Mode("b", 0644).File("c").Mode("c", 0644);
        EXPECT_EQ(0, chown(tree.PathOf("b").c_str(), OrdinaryUser(), OrdinaryUser()));
    }
    void SetUp() override {
        if (!IsRoot()) GTEST_SKIP() << "another owner's files are needed";
    }
    // All three tagged, "rwx" wanted for the user.
    void Begin(Session& session) {
        session.Press({"Down", "Ins", "Ins", "Ins", "Ctrl-a"});
        session.Type("7");
        session.Press("Enter");
    }
};

TEST_F(RefusedAttributes, AreToldOfWithThePath) {
    Session session(AsOrdinaryUser());
    Begin(session);
    EXPECT_TRUE(Shows(session, "Operation not permitted")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("a")));
    EXPECT_TRUE(Shows(session, "[ Retry ]  [ Skip ]  [ Cancel ]"));
}

TEST_F(RefusedAttributes, SkippedLetTheOthersBeChanged) {
    Session session(AsOrdinaryUser());
    Begin(session);
    session.Type("s");
    EXPECT_TRUE(Shows(session, tree.PathOf("c"))) << session.Text();
    session.Type("s");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(0644u, ModeOf("a"));
    EXPECT_EQ(0744u, ModeOf("b"));
    EXPECT_EQ(0644u, ModeOf("c"));
}

TEST_F(RefusedAttributes, AreTriedAgain) {
    Session session(AsOrdinaryUser());
    Begin(session);
    session.Type("r");
    EXPECT_TRUE(Shows(session, "Operation not permitted"));
    ASSERT_EQ(0, chown(tree.PathOf("a").c_str(), OrdinaryUser(), OrdinaryUser()));
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, tree.PathOf("c"))) << session.Text();
    EXPECT_EQ(0744u, ModeOf("a"));
    ASSERT_EQ(0, chown(tree.PathOf("c").c_str(), OrdinaryUser(), OrdinaryUser()));
    session.Type("r");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(0744u, ModeOf("c"));
}

TEST_F(RefusedAttributes, CancelledEndTheWalkAndKeepTheForm) {
    Session session(AsOrdinaryUser());
    Begin(session);
    session.Press("Esc");
    EXPECT_TRUE(IsOpen(session));
    EXPECT_EQ("XXX.|....|....", Marks(session));
    EXPECT_EQ(0644u, ModeOf("b"));
    session.Press("Esc");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_THAT(PanelView(session, 0).Status(), HasSubstr("3 selected files"));
}

// What is as wanted already is not asked of the system, which would refuse it.
TEST_F(RefusedAttributes, AreNotAskedForWhenTheyStay) {
    Session session(AsOrdinaryUser());
    session.Press({"Down", "Ctrl-a"});
    EXPECT_TRUE(Shows(session, "Owner root"));
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session)) << session.Text();
    session.Press({"Ins", "Ins", "Ins", "Ctrl-a", "Enter"});
    EXPECT_FALSE(IsOpen(session)) << session.Text();
}

TEST_F(RefusedAttributes, OfAnOwnerAreToldOf) {
    Session session(AsOrdinaryUser());
    session.Press({"Down", "Down", "Ctrl-a", "Tab", "Tab", "Tab"});
    session.Type("root");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "Operation not permitted")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("b")));
    session.Press("Esc");
    EXPECT_TRUE(IsOpen(session));
}

TEST_F(FileAttributes, OfAFileThatIsGoneAreToldOf) {
    tree.File("a").Mode("a", 0644).File("b").Mode("b", 0644);
    Session session(Here());
    session.Press({"Down", "Ins", "Ins"});
    tree.Remove("a");
    session.Press("Ctrl-a");
    session.Type("7");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "No such file or directory")) << session.Text();
    session.Type("s");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(0744u, ModeOf("b"));
}

TEST_F(FileAttributes, ThatFailAreToldOfInTheSystemsWords) {
    tree.File("f").Mode("f", 0644);
    FaultControl faults(tree.Path());
    SessionOptions options = Here();
    options.environment = faults.Environment();
    Session session(options);
    ASSERT_TRUE(faults.IsLoaded());
    FaultOrder order;
    order.fault = faults::Fault::kError;
    order.error = EROFS;
    order.first = 1;
    order.calls = faults::BitOf(faults::Call::kMode);
    faults.Arm(order);
    session.Press({"Down", "Ctrl-a"});
    session.Type("7");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, " Read-only file system ")) << session.Text();
    session.Press("Enter");  // tries again
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(0744u, ModeOf("f"));
}

TEST_F(FileAttributes, TakeNamesOfAnyBytes) {
    for (const std::string& name : OddNames())
        tree.File(name).Mode(name, 0644);
    Session session(Here());
    const size_t count = OddNames().size();
    session.Press("Down");
    session.Press("Ins", static_cast<int>(count));
    session.Press("Ctrl-a");
    session.Type("4");
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session)) << session.Text();
    for (const std::string& name : OddNames())
        EXPECT_EQ(0444u, ModeOf(name)) << name;
    // One by one, with the name in the form.
    session.Press({"Home", "Down"});
    session.Press("Ins", static_cast<int>(count));
    session.Press({"Home", "Down"});
    for (size_t i = 0; i < count; ++i) {
        session.Press("Ctrl-a");
        session.Type("6");
        session.Press({"Enter", "Down"});
    }
    for (const std::string& name : OddNames())
        EXPECT_EQ(0644u, ModeOf(name)) << name;
}

TEST_F(FileAttributes, OfTheParentAreTheDirectorysOwn) {
    tree.Folder("parent/here").Mode("parent", 0700).Mode("parent/here", 0755);
    SessionOptions options = Here();
    options.directory = tree.PathOf("parent/here");
    Session session(options);
    session.Press("Ctrl-a");
    EXPECT_EQ("XXX |    |    ", Marks(session));
    session.Press("Tab");
    session.Type("5");
    session.Press("Enter");
    EXPECT_EQ(0750u, ModeOf("parent"));
    EXPECT_EQ(0755u, ModeOf("parent/here"));
}

TEST_F(FileAttributes, AbbreviateALongName) {
    tree.File(std::string(255, 'n'));
    Session session(Here());
    session.Press({"Down", "Ctrl-a"});
    EXPECT_EQ("║" + std::string(42, 'n') + "\u25BA║", session.Piece(kLeft, kTop + 1, kWidth));
}

}  // namespace
}  // namespace zt::headless
