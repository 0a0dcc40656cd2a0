// Ctrl-Shift-F5: symbolic links.
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
using testing::Not;

class MakeLinks : public testing::Test {
protected:
    MakeLinks() { tree.Folder("here").Folder("there"); }

    // The left panel in "here", the right one in "there".
    SessionOptions Both(const std::string& ini = "") {
        SessionOptions options;
        options.directory = tree.PathOf("here");
        options.arguments = {"-r", tree.PathOf("there")};
        options.home = home.Path();
        if (!ini.empty()) home.File(".ztx/zt.ini", "[General Options]\n" + ini);
        return options;
    }
    static bool IsOpen(const Session& session) { return Shows(session, "Make symbolic link"); }
    // Of the destination, without the blanks at its end.
    std::string Field(const Session& session) {
        std::string text = session.Piece(4, 7, 72);
        return text.erase(text.find_last_not_of(' ') + 1);
    }
    void Replace(Session& session, const std::string& text) {
        session.Press({"Home", "Shift-End", "Del"});
        if (!text.empty()) session.Type(text);
    }
    std::string LinkText(const std::string& name) {
        std::error_code error;
        return std::filesystem::read_symlink(tree.PathOf(name), error).string();
    }
    static bool IsRoot() { return geteuid() == 0; }

    FileTree tree;
    FileTree home;
};

TEST_F(MakeLinks, ToOneFileAskForThePath) {
    tree.File("here/file");
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5"});
    EXPECT_EQ(tree.PathOf("there/file"), Field(session));
    Replace(session, "x");
    EXPECT_THAT(
        BoxRows(session, 2, 4, 76, 9),
        ElementsAre(
            "╔══════════════════════════════════════════════════════════════════════════╗",
            "║ Make symbolic link to \"file\" as                                          ║",
            "║                                                                          ║",
            "║ x                                                                       ↓║",
            "║                                                                          ║",
            "║ [ ]  Relative Link                                                       ║",
            "║                                                                          ║",
            "║              [ OK ]  [ Cancel ]  [ F10-Tree ]  [ Dir Hist ]              ║",
            "╚══════════════════════════════════════════════════════════════════════════╝"));
    session.Press("Esc");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_THAT(tree.Names("here"), ElementsAre("file"));
}

TEST_F(MakeLinks, ToOneFileAreMade) {
    tree.File("here/file").Folder("here/dir");
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5", "Enter", "Down", "Ctrl-Shift-F5", "Enter"});
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(tree.PathOf("here/file"), LinkText("there/file"));
    EXPECT_EQ(tree.PathOf("here/dir"), LinkText("there/dir"));
    EXPECT_EQ(3u, PanelView(session, 1).Names().size()) << session.Text();
}

TEST_F(MakeLinks, TakeTheNameThatWasTyped) {
    tree.File("here/file");
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5"});
    Replace(session, tree.PathOf("there/other name"));
    session.Press("Enter");
    EXPECT_EQ(tree.PathOf("here/file"), LinkText("there/other name"));
    // A name alone is one beside the file.
    session.Press("Ctrl-Shift-F5");
    Replace(session, "beside");
    session.Press("Enter");
    EXPECT_EQ(tree.PathOf("here/file"), LinkText("here/beside"));
}

TEST_F(MakeLinks, ToggleBetweenANameAndTheOtherDirectory) {
    tree.File("here/file");
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5"});
    for (const char* key : {"Alt-d", "F5", "F6"}) {
        session.Press(key);
        EXPECT_EQ("file", Field(session)) << key;
        session.Press(key);
        EXPECT_EQ(tree.PathOf("there/file"), Field(session)) << key;
    }
    session.Press("F5");
    session.Type("2");
    session.Press({"F6", "Enter"});
    EXPECT_EQ(tree.PathOf("here/file"), LinkText("there/file2"));
}

TEST_F(MakeLinks, MayBeRelativeAndThatLasts) {
    tree.File("here/file").File("here/z").Folder("there/deep");
    {
        Session session(Both());
        session.Press({"Down", "Ctrl-Shift-F5", "Alt-r", "Enter"});
        EXPECT_EQ("../here/file", LinkText("there/file"));
        session.Press("Ctrl-Shift-F5");
        EXPECT_TRUE(Shows(session, "[X]  Relative Link"));
        Replace(session, "beside");
        session.Press("Enter");
        EXPECT_EQ("file", LinkText("here/beside"));
        session.Press("Ctrl-Shift-F5");
        Replace(session, "../there/deep/down");
        session.Press({"Alt-o"});
        EXPECT_EQ("../../here/", LinkText("there/deep/down").substr(0, 11));
        session.Press("Shift-F9");
    }
    Session session(Both());
    session.Press({"End", "Ctrl-Shift-F5", "Enter"});
    EXPECT_EQ("../here/z", LinkText("there/z"));
}

TEST_F(MakeLinks, ToTaggedFilesAskForADirectory) {
    tree.File("here/a").File("here/b").File("here/c");
    Session session(Both());
    session.Press({"Down", "Ins", "Ins", "Ctrl-Shift-F5"});
    EXPECT_TRUE(Shows(session, " Make symbolic links to 2 files in "));
    EXPECT_EQ(tree.PathOf("there/"), Field(session));
    // There is no name to toggle.
    session.Press({"Alt-d", "F5", "F6"});
    EXPECT_EQ(tree.PathOf("there/"), Field(session));
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_THAT(tree.Names("there"), ElementsAre("a", "b"));
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/a"));
    EXPECT_THAT(PanelView(session, 0).Status(), Not(HasSubstr("selected")));
    EXPECT_EQ(kPanelColour, PanelView(session, 0).AttributeOf("a"));
}

TEST_F(MakeLinks, LetTheSelectionBeRestored) {
    tree.File("here/a").File("here/b").File("here/c");
    Session session(Both());
    session.Press({"Down", "Ins", "Ins", "Ctrl-Shift-F5", "Enter", "Alt-Grey+"});
    EXPECT_THAT(PanelView(session, 0).Status(), HasSubstr("2 selected files")) << session.Text();
    EXPECT_EQ(kTagged, PanelView(session, 0).AttributeOf("a"));
}

TEST_F(MakeLinks, FailWithTheSystemsError) {
    tree.File("here/a");
    FaultControl faults(tree.Path());
    SessionOptions options = Both();
    options.environment = faults.Environment();
    Session session(options);
    ASSERT_TRUE(faults.IsLoaded());
    const struct {
        int error;
        const char* text;
    } rows[] = {{ENOSPC, "No room for"},
                {EROFS, "Disk write protected, cannot write"},
                {EIO, "Error reading disk"},
                {EPERM, "Operation not permitted (1)"}};
    session.Press("Down");
    for (const auto& row : rows) {
        FaultOrder order;
        order.fault = faults::Fault::kError;
        order.error = row.error;
        order.first = 1;
        order.calls = faults::BitOf(faults::Call::kSymlink);
        faults.Arm(order);
        session.Press({"Ctrl-Shift-F5", "Enter"});
        EXPECT_TRUE(Shows(session, row.text)) << session.Text();
        EXPECT_FALSE(tree.Exists("there/a"));
        session.Press("Enter");  // tries again
        EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/a"));
        tree.Remove("there/a");
    }
}

TEST_F(MakeLinks, ToOneTaggedFileCountIt) {
    tree.File("here/a");
    Session session(Both());
    session.Press({"Down", "Ins", "Ctrl-Shift-F5"});
    EXPECT_TRUE(Shows(session, " Make symbolic link to 1 file in ")) << session.Text();
}

TEST_F(MakeLinks, OfAGroupMayBeRelative) {
    tree.File("here/a").Folder("here/d");
    Session session(Both("RelativeLinks=on\n"));
    session.Press({"Down", "Ins", "Ins", "Ctrl-Shift-F5", "Enter"});
    EXPECT_EQ("../here/a", LinkText("there/a"));
    EXPECT_EQ("../here/d", LinkText("there/d"));
}

TEST_F(MakeLinks, OfAGroupNeedADirectory) {
    tree.File("here/a").File("there/file").Link("there/way", ".");
    Session session(Both());
    session.Press({"Down", "Ins", "Ctrl-Shift-F5"});
    for (const std::string& wrong :
         {tree.PathOf("none"), tree.PathOf("there/file"), tree.PathOf("there/file/"),
          std::string("none"), std::string()}) {
        Replace(session, wrong);
        session.Press("Enter");
        EXPECT_TRUE(Shows(session, "Destination must be a valid directory")) << wrong;
        session.Press("Enter");
        EXPECT_TRUE(IsOpen(session)) << wrong;
    }
    Replace(session, tree.PathOf("there/way"));
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session)) << session.Text();
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/a"));
}

TEST_F(MakeLinks, OfAGroupTakeARelativeDirectory) {
    tree.File("here/a").Folder("here/sub");
    Session session(Both());
    session.Press({"End", "Ins", "Ctrl-Shift-F5"});
    Replace(session, "sub/");
    session.Press("Enter");
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("here/sub/a"));
}

TEST_F(MakeLinks, TellOfANameThatIsTaken) {
    tree.File("here/a").File("here/b").File("here/c").File("there/b");
    Session session(Both());
    session.Press({"Down", "Ins", "Ins", "Ins", "Ctrl-Shift-F5", "Enter"});
    EXPECT_TRUE(Shows(session, "File exists (17)")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("here/b")));
    EXPECT_TRUE(Shows(session, "[ Retry ]  [ Skip ]  [ Cancel ]"));
    session.Type("r");
    EXPECT_TRUE(Shows(session, "File exists (17)"));
    session.Type("s");
    EXPECT_EQ(tree.PathOf("here/c"), LinkText("there/c"));
    EXPECT_EQ("", LinkText("there/b"));
    // One that was passed over is done too.
    EXPECT_THAT(PanelView(session, 0).Status(), Not(HasSubstr("selected")));
}

TEST_F(MakeLinks, EndWhenCancelledAndKeepTheRestTagged) {
    tree.File("here/a").File("here/b").File("here/c").File("there/b");
    Session session(Both());
    session.Press({"Down", "Ins", "Ins", "Ins", "Ctrl-Shift-F5", "Enter", "Esc"});
    EXPECT_FALSE(Shows(session, "File exists"));
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/a"));
    EXPECT_FALSE(tree.Exists("there/c"));
    EXPECT_THAT(PanelView(session, 0).Status(), HasSubstr("2 selected files"));
    EXPECT_NE(kTagged, PanelView(session, 0).AttributeOf("a"));
    EXPECT_EQ(kTagged, PanelView(session, 0).AttributeOf("b"));
}

TEST_F(MakeLinks, AreTriedAgain) {
    tree.File("here/a").File("there/a");
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5", "Enter"});
    EXPECT_TRUE(Shows(session, "File exists (17)")) << session.Text();
    tree.Remove("there/a");
    session.Type("r");
    EXPECT_FALSE(Shows(session, "File exists"));
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/a"));
}

TEST_F(MakeLinks, TellOfADirectoryThatIsNotThere) {
    tree.File("here/a");
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5"});
    Replace(session, tree.PathOf("none/a"));
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "File not found")) << session.Text();
    session.Press("Enter");
    EXPECT_FALSE(Shows(session, "File not found"));
    session.Press("Ctrl-Shift-F5");
    Replace(session, std::string(256, 'n'));
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "Name too long")) << session.Text();
    session.Press("Esc");
}

TEST_F(MakeLinks, AreRefusedWhereTheUserMayNotWrite) {
    if (!IsRoot()) GTEST_SKIP() << "a directory of another owner is needed";
    tree.File("here/a");
    home.GiveTo(OrdinaryUser());
    SessionOptions options = Both();
    options.user = OrdinaryUser();
    Session session(options);
    session.Press({"Down", "Ctrl-Shift-F5", "Enter"});
    EXPECT_TRUE(Shows(session, "Access Denied")) << session.Text();
    session.Type("s");
    EXPECT_FALSE(tree.Exists("there/a"));
}

TEST_F(MakeLinks, ToTheParentAreNotMade) {
    Session session(Both());
    const std::string before = session.Text();
    session.Press("Ctrl-Shift-F5");
    EXPECT_EQ(before, session.Text());
}

TEST_F(MakeLinks, AbbreviateALongName) {
    tree.File("here/" + std::string(60, 'n'));
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5"});
    EXPECT_TRUE(Shows(session, " to \"" + std::string(44, 'n') + "\u25BA\" as")) << session.Text();
}

TEST_F(MakeLinks, RememberTheDestination) {
    tree.File("here/a");
    Session session(Both());
    session.Press({"Down", "Ctrl-Shift-F5"});
    Replace(session, tree.PathOf("there/first"));
    session.Press({"Enter", "Ctrl-Shift-F5", "Alt-Down", "Enter"});
    EXPECT_EQ(tree.PathOf("there/first"), Field(session));
}

TEST_F(MakeLinks, ToNamesOfAnyBytes) {
    for (const std::string& name : OddNames())
        tree.File("here/" + name);
    Session session(Both());
    session.Press("Down");
    session.Press("Ins", static_cast<int>(OddNames().size()));
    session.Press({"Ctrl-Shift-F5", "Enter"});
    for (const std::string& name : OddNames())
        EXPECT_EQ(tree.PathOf("here/" + name), LinkText("there/" + name)) << name;
    EXPECT_EQ(OddNames().size(), tree.Names("there").size());
    // And each alone, relative.
    for (const std::string& name : OddNames())
        tree.Remove("there/" + name);
    session.Press({"Home", "Down"});
    for (size_t i = 0; i < OddNames().size(); ++i) {
        session.Press("Ctrl-Shift-F5");
        if (i == 0) session.Press("Alt-r");
        session.Press({"Enter", "Down"});
    }
    for (const std::string& name : OddNames())
        EXPECT_EQ("../here/" + name, LinkText("there/" + name)) << name;
}

}  // namespace
}  // namespace zt::headless
