// F7: a new directory.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "tests/headless/box_rows.h"
#include "tests/support/fault_control.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class MakeDirectory : public testing::Test {
protected:
    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }
    static bool IsOpen(const Session& session) { return Shows(session, "Create the directory"); }
    void Make(Session& session, const std::string& name) {
        session.Press("F7");
        if (!name.empty()) session.Type(name);
        session.Press("Enter");
    }
    bool IsDirectory(const std::string& name) {
        struct stat data;
        return lstat(tree.PathOf(name).c_str(), &data) == 0 && S_ISDIR(data.st_mode);
    }
    static bool IsRoot() { return geteuid() == 0; }

    FileTree tree;
};

TEST_F(MakeDirectory, AsksForItsName) {
    Session session(Here());
    session.Press("F7");
    EXPECT_THAT(
        BoxRows(session, 2, 4, 76, 6),
        ElementsAre(
            "╔══════════════════════════════════════════════════════════════════════════╗",
            "║ Create the directory                                                     ║",
            "║                                                                          ║",
            "║                                                                          ║",
            "║                            [ OK ]  [ Cancel ]                            ║",
            "╚══════════════════════════════════════════════════════════════════════════╝"));
    EXPECT_EQ(4, session.CursorColumn());
    EXPECT_EQ(6, session.CursorRow());
    session.Press("Esc");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_TRUE(tree.Names().empty());
}

TEST_F(MakeDirectory, MakesItAndGoesToIt) {
    tree.File("a").File("z").Folder("b");
    Session session(Here());
    session.Press({"Down", "Ins"});
    Make(session, "new");
    EXPECT_TRUE(IsDirectory("new"));
    EXPECT_EQ("new", PanelView(session, 0).BarName());
    for (const int side : {0, 1}) {
        EXPECT_THAT(PanelView(session, side).Names(), ElementsAre("..", "b", "new", "a", "z"));
    }
    // Other entries keep their tags.
    EXPECT_THAT(session.Text(), HasSubstr("selected file"));
}

TEST_F(MakeDirectory, MakesItInTheActivePanel) {
    FileTree other;
    SessionOptions options = Here();
    options.arguments = {"-r", other.Path()};
    Session session(options);
    session.Press("Tab");
    Make(session, "new");
    EXPECT_THAT(other.Names(), ElementsAre("new"));
    EXPECT_TRUE(tree.Names().empty());
    EXPECT_EQ("new", PanelView(session, 1).BarName());
}

TEST_F(MakeDirectory, MakesItWithBothPanelsOff) {
    Session session(Here());
    session.Press("Ctrl-o");
    Make(session, "new");
    EXPECT_TRUE(IsDirectory("new"));
    session.Press("Ctrl-o");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "new"));
}

TEST_F(MakeDirectory, TrimsWhatWasTyped) {
    Session session(Here());
    Make(session, "  two words \t");
    EXPECT_THAT(tree.Names(), ElementsAre("two words"));
    EXPECT_EQ("two words", PanelView(session, 0).BarName());
}

TEST_F(MakeDirectory, EndsWithoutAName) {
    Session session(Here());
    const std::string before = session.Text();
    for (const char* text : {"", "   "}) {
        Make(session, text);
        EXPECT_EQ(before, session.Text());
    }
    EXPECT_TRUE(tree.Names().empty());
}

TEST_F(MakeDirectory, GivesAllRightsButThoseOfTheMask) {
    const mode_t mask = umask(0);
    umask(mask);
    Session session(Here());
    Make(session, "new");
    struct stat data;
    ASSERT_EQ(0, stat(tree.PathOf("new").c_str(), &data));
    EXPECT_EQ(0777u & ~mask, data.st_mode & 07777);
}

TEST_F(MakeDirectory, SaysThatADirectoryExists) {
    tree.Folder("there");
    Session session(Here());
    Make(session, "there");
    EXPECT_TRUE(Shows(session, "Directory already exists")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("there")));
    session.Press("Enter");
    EXPECT_FALSE(Shows(session, "already exists"));
    EXPECT_EQ("..", PanelView(session, 0).BarName());
}

TEST_F(MakeDirectory, SaysThatAFileExists) {
    tree.File("there").Link("link", "nowhere");
    Session session(Here());
    for (const char* name : {"there", "link"}) {
        Make(session, name);
        EXPECT_TRUE(Shows(session, "File already exists named")) << session.Text();
        EXPECT_TRUE(Shows(session, tree.PathOf(name)));
        session.Press("Esc");
        EXPECT_FALSE(Shows(session, "already exists"));
        EXPECT_FALSE(IsDirectory(name));
    }
}

TEST_F(MakeDirectory, MakesNoParents) {
    tree.Folder("sub");
    Session session(Here());
    Make(session, "sub/new");
    EXPECT_TRUE(IsDirectory("sub/new"));
    Make(session, "none/new");
    EXPECT_TRUE(Shows(session, "File not found")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("none/new")));
    session.Press("Enter");
    EXPECT_FALSE(Shows(session, "File not found"));
    EXPECT_FALSE(tree.Exists("none"));
    tree.File("file");
    Make(session, "file/new");
    EXPECT_TRUE(Shows(session, "Path not found")) << session.Text();
    session.Press("Esc");
}

TEST_F(MakeDirectory, IsRefusedWhereTheUserMayNotWrite) {
    if (!IsRoot()) GTEST_SKIP() << "a directory of another owner is needed";
    SessionOptions options = Here();
    options.user = OrdinaryUser();
    Session session(options);
    Make(session, "new");
    EXPECT_TRUE(Shows(session, "Access Denied")) << session.Text();
    EXPECT_TRUE(Shows(session, "[ Retry ]  [ Skip ]  [ Cancel ]"));
    session.Type("r");
    EXPECT_TRUE(Shows(session, "Access Denied"));
    session.Type("s");
    EXPECT_FALSE(Shows(session, "Access Denied"));
    EXPECT_FALSE(tree.Exists("new"));
    Make(session, "new");
    tree.Mode("", 0777);
    session.Press("Enter");
    EXPECT_FALSE(Shows(session, "Access Denied"));
    EXPECT_TRUE(IsDirectory("new"));
    EXPECT_EQ("new", PanelView(session, 0).BarName());
}

TEST_F(MakeDirectory, FailsWithTheSystemsError) {
    FaultControl faults(tree.Path());
    SessionOptions options = Here();
    options.environment = faults.Environment();
    Session session(options);
    ASSERT_TRUE(faults.IsLoaded());
    const struct {
        int error;
        const char* text;
    } rows[] = {{ENOSPC, "No room for"},
                {EROFS, "Disk write protected, cannot write"},
                {EDQUOT, "Disk quota exceeded (122)"},
                // It is not there, whatever the call says.
                {EEXIST, "File exists (17)"}};
    for (const auto& row : rows) {
        FaultOrder order;
        order.fault = faults::Fault::kError;
        order.error = row.error;
        order.first = 1;
        order.calls = faults::BitOf(faults::Call::kMakeDirectory);
        faults.Arm(order);
        Make(session, "new");
        EXPECT_TRUE(Shows(session, row.text)) << session.Text();
        EXPECT_FALSE(tree.Exists("new"));
        session.Press("Enter");  // tries again
        EXPECT_TRUE(IsDirectory("new"));
        EXPECT_EQ("new", PanelView(session, 0).BarName());
        tree.Remove("new");
    }
}

TEST_F(MakeDirectory, TakesNamesOfAnyCharacters) {
    Session session(Here());
    const std::vector<std::string> names = {"quote'single",
                                            "quote\"double",
                                            "back\\slash",
                                            "-dash",
                                            "*star",
                                            "?mark",
                                            "a b",
                                            "umlaut\xC3\xA4",
                                            "wide\xE4\xB8\xAD\xE6\x96\x87",
                                            std::string(255, 'n'),
                                            "$HOME",
                                            "!x",
                                            "~"};
    for (const std::string& name : names) {
        Make(session, name);
        EXPECT_TRUE(IsDirectory(name)) << name << "\n" << session.Text();
    }
    EXPECT_EQ(names.size(), tree.Names().size());
}

TEST_F(MakeDirectory, RefusesANameThatIsTooLong) {
    Session session(Here());
    Make(session, std::string(256, 'n'));
    EXPECT_TRUE(Shows(session, "Name too long")) << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(tree.Names().empty());
}

TEST_F(MakeDirectory, TakesOnlyFiveHundredAndTwelveCharacters) {
    Session session(Here());
    session.Press("F7");
    session.Type(std::string(254, 'a') + "/" + std::string(257, 'b') + "cccc");
    session.Press("End");
    EXPECT_THAT(session.Row(6), Not(HasSubstr("c")));
    session.Press("Esc");
}

}  // namespace
}  // namespace zt::headless
