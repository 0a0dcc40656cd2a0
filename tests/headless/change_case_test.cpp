// Ctrl-C: the letter case of names.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "tests/headless/box_rows.h"
#include "tests/support/fault_control.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;

// Where the box stands on a screen of 80 by 25.
constexpr int kLeft = 22, kTop = 2, kWidth = 36, kHeight = 17;

class ChangeCase : public testing::Test {
protected:
    SessionOptions Here(const std::string& ini = "") {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        if (!ini.empty()) home.File(".ztx/zt.ini", "[General Options]\n" + ini);
        return options;
    }
    bool IsOpen(const Session& session) { return Shows(session, "Change case of"); }
    std::vector<std::string> Names(const std::string& folder = "") { return tree.Names(folder); }
    // The value of a key in the saved configuration.
    std::string Saved(Session& session, const std::string& key) {
        session.Press("Shift-F9");
        const std::string text = home.Content(".ztx/zt.ini");
        const size_t at = text.find("\n" + key + "=");
        if (at == std::string::npos) return "not there";
        const size_t value = at + key.size() + 2;
        return text.substr(value, text.find('\n', value) - value);
    }
    static bool IsRoot() { return geteuid() == 0; }

    FileTree tree;
    FileTree home;
};

TEST_F(ChangeCase, AsksHow) {
    tree.File("ReadMe.Txt");
    Session session(Here());
    session.Press({"Down", "Ctrl-c"});
    EXPECT_THAT(
        BoxRows(session, kLeft, kTop, kWidth, kHeight),
        ElementsAre("╔══════════════════════════════════╗", "║          Change case of          ║",
                    "║            ReadMe.Txt            ║", "║                                  ║",
                    "║  Name         Extension          ║", "║                                  ║",
                    "║  (•)  Lower   (•) Lower          ║", "║  ( )  Upper   ( ) Upper          ║",
                    "║  ( )  Mixed   ( ) Mixed          ║", "║  ( )  None    ( ) None           ║",
                    "║                                  ║", "║  [ ]  Recurse into directories   ║",
                    "║  [X]  Change directories         ║", "║  [X]  Change files               ║",
                    "║                                  ║", "║        [ OK ]  [ Cancel ]        ║",
                    "╚══════════════════════════════════╝"));
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_THAT(Names(), ElementsAre("readme.txt"));
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "readme.txt"));
}

TEST_F(ChangeCase, HasAQuickKeyForEachElement) {
    const struct {
        const char* keys[2];
        const char* expected;
    } rows[] = {
        {{"Alt-l", "Alt-w"}, "ab cd.ef"}, {{"Alt-u", "Alt-w"}, "AB CD.ef"},
        {{"Alt-m", "Alt-p"}, "Ab Cd.EF"}, {{"Alt-n", "Alt-i"}, "aB cD.Ef"},
        {{"Alt-n", "Alt-e"}, "aB cD.eF"}, {{"Alt-u", "Alt-e"}, "AB CD.eF"},
    };
    for (const auto& row : rows) {
        tree.File("aB cD.eF");
        Session session(Here());
        session.Press({"Down", "Ctrl-c", row.keys[0], row.keys[1], "Alt-o"});
        EXPECT_FALSE(IsOpen(session));
        EXPECT_THAT(Names(), ElementsAre(row.expected)) << row.keys[0] << row.keys[1];
        tree.Remove(row.expected);
    }
}

TEST_F(ChangeCase, HasQuickKeysForItsBoxes) {
    tree.File("A");
    Session session(Here());
    session.Press({"Down", "Ctrl-c", "Alt-r", "Alt-d", "Alt-f"});
    EXPECT_EQ("[X]  Recurse", session.Piece(kLeft + 3, kTop + 11, 12));
    EXPECT_EQ("[ ]  Change d", session.Piece(kLeft + 3, kTop + 12, 13));
    EXPECT_EQ("[ ]  Change f", session.Piece(kLeft + 3, kTop + 13, 13));
    session.Press("Enter");
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_EQ("on", Saved(session, "CaseModRecurse"));
    EXPECT_EQ("off", Saved(session, "CaseModDirs"));
    EXPECT_EQ("off", Saved(session, "CaseModFiles"));
}

TEST_F(ChangeCase, RemembersTheModesAfterEscToo) {
    tree.File("Abc.Def");
    {
        Session session(Here());
        session.Press({"Down", "Ctrl-c", "Alt-u", "Alt-e", "Esc"});
        EXPECT_THAT(Names(), ElementsAre("Abc.Def"));
        EXPECT_EQ("un", Saved(session, "CaseMod"));
    }
    Session session(Here());
    session.Press({"Down", "Ctrl-c", "Enter"});
    EXPECT_THAT(Names(), ElementsAre("ABC.Def"));
}

TEST_F(ChangeCase, TakesOddModesOfTheConfigurationForNone) {
    for (const char* modes : {"", "u", "xy", "LU"}) {
        tree.File("aBc.dEf");
        Session session(Here("CaseMod=" + std::string(modes) + "\n"));
        session.Press({"Down", "Ctrl-c"});
        const bool upper = std::string(modes) == "u";
        EXPECT_EQ(upper ? "( )  None " : "(•)  None ", session.Piece(kLeft + 3, kTop + 9, 10))
            << modes;
        EXPECT_EQ("(•) None", session.Piece(kLeft + 16, kTop + 9, 8)) << modes;
        session.Press("Enter");
        EXPECT_THAT(Names(), ElementsAre(upper ? "ABC.dEf" : "aBc.dEf")) << modes;
        tree.Remove(Names()[0]);
    }
}

TEST_F(ChangeCase, ChangesDirectoriesAndFilesAsAsked) {
    const struct {
        const char* ini;
        std::vector<std::string> expected;
    } rows[] = {
        {"CaseModDirs=off\n", {"Dir", "file"}},
        {"CaseModFiles=off\n", {"File", "dir"}},
        {"CaseModDirs=off\nCaseModFiles=off\n", {"Dir", "File"}},
        {"CaseModDirs=on\n", {"dir", "file"}},
    };
    for (const auto& row : rows) {
        tree.Folder("Dir").File("File");
        Session session(Here(row.ini));
        session.Press({"Down", "Ins", "Ins", "Ctrl-c"});
        EXPECT_TRUE(Shows(session, " 2 files "));
        session.Press("Enter");
        EXPECT_EQ(row.expected, Names()) << row.ini;
        for (const std::string& name : Names())
            tree.Remove(name);
    }
}

TEST_F(ChangeCase, LeavesWhatIsInDirectoriesWithoutRecursion) {
    tree.File("Dir/Inner");
    Session session(Here());
    session.Press({"Down", "Ctrl-c", "Enter"});
    EXPECT_THAT(Names(), ElementsAre("dir"));
    EXPECT_THAT(Names("dir"), ElementsAre("Inner"));
}

TEST_F(ChangeCase, EntersDirectories) {
    tree.File("dir/Inner").File("dir/sub/Deep").File("dir/sub/deeper/Deepest").Folder("dir/empty");
    Session session(Here("CaseModRecurse=on\n"));
    session.Press({"Down", "Ctrl-c", "Enter"});
    EXPECT_THAT(Names("dir"), ElementsAre("empty", "inner", "sub"));
    EXPECT_THAT(Names("dir/sub"), ElementsAre("deep", "deeper"));
    EXPECT_THAT(Names("dir/sub/deeper"), ElementsAre("deepest"));
    EXPECT_EQ("dir", PanelView(session, 0).BarName());
}

// It is looked for under its old name.
TEST_F(ChangeCase, DoesNotEnterADirectoryThatItHasRenamed) {
    tree.File("Dir/Inner").File("other/Sub/Deep");
    Session session(Here("CaseModRecurse=on\n"));
    session.Press({"Down", "Ins", "Ins", "Ctrl-c", "Enter"});
    EXPECT_FALSE(Shows(session, "File not found"));
    EXPECT_THAT(Names("dir"), ElementsAre("Inner"));
    EXPECT_THAT(Names("other"), ElementsAre("sub"));
    EXPECT_THAT(Names("other/sub"), ElementsAre("Deep"));
}

TEST_F(ChangeCase, EntersDirectoriesThatKeepTheirNames) {
    tree.File("Dir/Sub/Deep");
    Session session(Here("CaseModRecurse=on\nCaseModDirs=off\n"));
    session.Press({"Down", "Ctrl-c", "Enter"});
    EXPECT_THAT(Names("Dir/Sub"), ElementsAre("deep"));
}

TEST_F(ChangeCase, DoesNotFollowLinksToDirectories) {
    FileTree elsewhere;
    elsewhere.File("Untouched");
    tree.Folder("dir").Link("dir/there", elsewhere.Path()).Link("dir/loop", ".").File("dir/Inner");
    tree.Link("start", elsewhere.Path());
    Session session(Here("CaseModRecurse=on\n"));
    session.Press({"Down", "Ins", "Ins", "Ctrl-c", "Enter"});
    EXPECT_THAT(elsewhere.Names(), ElementsAre("Untouched"));
    EXPECT_THAT(Names("dir"), ElementsAre("inner", "loop", "there"));
}

TEST_F(ChangeCase, LeavesTheParentAlone) {
    tree.File("work/Inner").File("Beside");
    SessionOptions options = Here("CaseModRecurse=on\n");
    options.directory = tree.PathOf("work");
    Session session(options);
    session.Press("Ctrl-c");
    EXPECT_TRUE(IsOpen(session));
    session.Press("Enter");
    EXPECT_THAT(Names(), ElementsAre("Beside", "work"));
    EXPECT_THAT(Names("work"), ElementsAre("Inner"));
}

TEST_F(ChangeCase, TakesNobodysName) {
    tree.File("Name", "upper").File("name", "lower").File("Other");
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ins", "Ctrl-c", "Enter"});
    EXPECT_TRUE(Shows(session, "File exists (17)")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("Name")));
    session.Type("s");
    EXPECT_THAT(Names(), ElementsAre("Name", "name", "other"));
    EXPECT_EQ("upper", tree.Content("Name"));
    EXPECT_EQ("lower", tree.Content("name"));
}

TEST_F(ChangeCase, TriesAgainWhenTheNameHasBecomeFree) {
    tree.File("Name", "upper").File("name", "lower");
    Session session(Here());
    session.Press("Down");
    if (PanelView(session, 0).BarName() != "Name") session.Press("Down");
    session.Press({"Ctrl-c", "Enter"});
    session.Type("r");
    EXPECT_TRUE(Shows(session, "File exists (17)"));
    tree.Remove("name");
    session.Press("Enter");
    EXPECT_FALSE(Shows(session, "File exists"));
    EXPECT_THAT(Names(), ElementsAre("name"));
    EXPECT_EQ("upper", tree.Content("name"));
}

TEST_F(ChangeCase, EndsTheWalkWhenCancelled) {
    tree.File("Aa").File("aa").File("Bb");
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ins", "Ctrl-c", "Enter"});
    EXPECT_TRUE(Shows(session, "File exists (17)"));
    session.Press("Esc");
    EXPECT_THAT(Names(), ElementsAre("Aa", "Bb", "aa"));
}

TEST_F(ChangeCase, EndsTheWalkFromInsideADirectory) {
    tree.File("d/Aa").File("d/aa").File("E");
    Session session(Here("CaseModRecurse=on\n"));
    session.Press({"Down", "Ins", "Ins", "Ctrl-c", "Enter"});
    EXPECT_TRUE(Shows(session, "File exists (17)")) << session.Text();
    EXPECT_TRUE(Shows(session, "Processing files in " + tree.Path().substr(0, 5)));
    EXPECT_TRUE(Shows(session, " Changing file case "));
    session.Press("Esc");
    EXPECT_FALSE(Shows(session, " Changing file case "));
    EXPECT_THAT(Names(), ElementsAre("E", "d"));
}

TEST_F(ChangeCase, ShowsHowFarAGroupIs) {
    tree.File("aa").File("bb").File("Cc").File("cc");
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ins", "Ins", "Ctrl-c", "Enter"});
    ASSERT_TRUE(Shows(session, "File exists (17)")) << session.Text();
    // Two of four are done; the box of the error covers the middle of the bar.
    EXPECT_TRUE(Shows(session, " Changing file case "));
    EXPECT_THAT(session.Text(), HasSubstr("║ █████████║"));
    EXPECT_THAT(session.Text(), HasSubstr("║░░░░░░░░░ ║"));
    session.Type("s");
}

TEST_F(ChangeCase, ShowsHowFarItIsInADirectory) {
    tree.File("d/a").File("d/Bb").File("d/bb").File("E");
    Session session(Here("CaseModRecurse=on\n"));
    session.Press({"Down", "Ins", "Ins", "Ctrl-c", "Enter"});
    ASSERT_TRUE(Shows(session, "File exists (17)")) << session.Text();
    // The box of the error covers the middle; the sides of the window are to be seen.
    const std::string text = session.Text();
    EXPECT_THAT(text, HasSubstr("Changing file case"));
    EXPECT_THAT(text, ContainsRegex("║ Processing files in [^║]*║"));
    EXPECT_THAT(text, ContainsRegex("║ [123] +[║╔]"));
    session.Type("s");
}

TEST_F(ChangeCase, EntersADirectoryWhoseNameWasTaken) {
    tree.File("Dir/Inner").File("dir");
    Session session(Here("CaseModRecurse=on\n"));
    session.Press({"Down", "Ctrl-c", "Enter"});
    ASSERT_TRUE(Shows(session, "File exists (17)")) << session.Text();
    session.Type("s");
    EXPECT_THAT(Names(), ElementsAre("Dir", "dir"));
    EXPECT_THAT(Names("Dir"), ElementsAre("inner"));
}

TEST_F(ChangeCase, AbbreviatesALongName) {
    tree.File(std::string(60, 'n'));
    Session session(Here());
    session.Press({"Down", "Ctrl-c"});
    EXPECT_TRUE(Shows(session, "║    " + std::string(25, 'n') + "\u25BA    ║")) << session.Text();
}

TEST_F(ChangeCase, SkipsWhatMayNotBeRenamed) {
    if (!IsRoot()) GTEST_SKIP() << "a directory of another owner is needed";
    tree.File("Locked/Inner");
    SessionOptions options = Here();
    options.directory = tree.PathOf("Locked");
    home.GiveTo(OrdinaryUser());
    options.user = OrdinaryUser();
    Session session(options);
    session.Press({"Down", "Ctrl-c", "Enter"});
    EXPECT_TRUE(Shows(session, "Access Denied")) << session.Text();
    EXPECT_TRUE(Shows(session, "[ Retry ]  [ Skip ]  [ Cancel ]"));
    session.Type("s");
    EXPECT_THAT(Names("Locked"), ElementsAre("Inner"));
}

TEST_F(ChangeCase, TellsOfADirectoryThatCannotBeRead) {
    if (!IsRoot()) GTEST_SKIP() << "an ordinary user is needed";
    tree.File("locked/Inner").File("other/Inner").GiveTo(OrdinaryUser()).Mode("locked", 0);
    SessionOptions options = Here("CaseModRecurse=on\n");
    home.GiveTo(OrdinaryUser());
    options.user = OrdinaryUser();
    Session session(options);
    session.Press({"Down", "Ins", "Ins", "Ctrl-c", "Enter"});
    EXPECT_TRUE(Shows(session, "Access Denied")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("locked")));
    session.Type("s");
    EXPECT_FALSE(Shows(session, "Access Denied"));
    EXPECT_THAT(Names("other"), ElementsAre("inner"));
}

TEST_F(ChangeCase, OfAFileThatIsGoneIsToldOf) {
    tree.File("A").File("B");
    Session session(Here());
    session.Press({"Down", "Ins", "Ins", "Ctrl-c"});
    tree.Remove("A");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "File not found")) << session.Text();
    session.Press("Enter");
    EXPECT_THAT(Names(), ElementsAre("b"));
}

TEST_F(ChangeCase, KeepsTheBytesOfNamesThatAreNoText) {
    std::vector<std::string> expected;
    for (const std::string& name : OddNames()) {
        tree.File(name);
        std::string upper = name;
        for (char& byte : upper) {
            if (byte >= 'a' && byte <= 'z') byte = static_cast<char>(byte - 'a' + 'A');
        }
        if (upper == "UMLAUT\xC3\xA4") upper = "UMLAUT\xC3\x84";
        expected.push_back(upper);
    }
    std::sort(expected.begin(), expected.end());
    Session session(Here("CaseMod=uu\n"));
    session.Press("Down");
    session.Press("Ins", static_cast<int>(expected.size()));
    session.Press({"Ctrl-c", "Enter"});
    EXPECT_EQ(expected, Names());
}

TEST_F(ChangeCase, OfManyFilesGoesThroughAll) {
    for (int i = 0; i < 300; ++i)
        tree.File("dir/File" + std::to_string(i));
    Session session(Here("CaseModRecurse=on\n"));
    session.Press({"Down", "Ctrl-c", "Enter"});
    const std::vector<std::string> names = Names("dir");
    EXPECT_EQ(300u, names.size());
    for (const std::string& name : names)
        EXPECT_EQ("file", name.substr(0, 4));
}

// In a directory where any rename would be refused.
TEST_F(ChangeCase, ThatAltersNothingRenamesNothing) {
    if (!IsRoot()) GTEST_SKIP() << "a directory of another owner is needed";
    tree.File("name.txt").File("other");
    home.GiveTo(OrdinaryUser());
    SessionOptions options = Here();
    options.user = OrdinaryUser();
    Session session(options);
    session.Press({"Down", "Ins", "Ins", "Ctrl-c", "Enter"});
    EXPECT_FALSE(Shows(session, "Access Denied")) << session.Text();
    session.Press({"Ctrl-c", "Alt-n", "Alt-u", "Enter"});
    EXPECT_TRUE(Shows(session, "Access Denied")) << session.Text();
    session.Press("Esc");
}

// A file system that does not know a rename that replaces nothing.
TEST_F(ChangeCase, TakesNobodysNameOnAnOldFileSystem) {
    tree.File("Aa", "upper").File("Bb").File("bb", "lower");
    FaultControl faults(tree.Path());
    SessionOptions options = Here();
    options.environment = faults.Environment();
    for (const int error : {EINVAL, ENOSYS}) {
        Session session(options);
        ASSERT_TRUE(faults.IsLoaded());
        FaultOrder order;
        order.fault = faults::Fault::kError;
        order.error = error;
        order.first = 1;
        order.calls = faults::BitOf(faults::Call::kRename);
        faults.Arm(order);
        session.Press({"Down", "Ctrl-c", "Enter"});
        EXPECT_EQ(1u, faults.Hits());
        EXPECT_FALSE(tree.Exists("Aa"));
        EXPECT_EQ("upper", tree.Content("aa"));
        faults.Arm(order);
        session.Press("Down");
        if (PanelView(session, 0).BarName() != "Bb") session.Press("Down");
        ASSERT_EQ("Bb", PanelView(session, 0).BarName());
        session.Press({"Ctrl-c", "Enter"});
        EXPECT_EQ(1u, faults.Hits());
        EXPECT_TRUE(Shows(session, "File exists (17)")) << session.Text();
        session.Press("Esc");
        EXPECT_EQ("lower", tree.Content("bb"));
        tree.Remove("aa").File("Aa", "upper");
    }
}

}  // namespace
}  // namespace zt::headless
