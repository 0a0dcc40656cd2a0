// Directories and names that make trouble: odd bytes, links, no rights, gone, large.
#include "tests/support/panel_view.h"

#include <algorithm>

#include <unistd.h>

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class OddDirectories : public testing::Test {
protected:
    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }

    FileTree tree;
};

TEST_F(OddDirectories, ShowsAndEntersADirectoryOfAnyName) {
    for (const std::string& name : OddNames()) {
        FileTree one;
        one.File(name + "/found");
        SessionOptions options;
        options.directory = one.Path();
        Session session(options);
        const PanelView panel(session, 0);
        ASSERT_EQ(2u, panel.Names().size()) << testing::PrintToString(name) << session.Text();
        session.Press({"Down", "Enter"});
        EXPECT_THAT(panel.Names(), ElementsAre("..", "found")) << testing::PrintToString(name);
        session.Press("Enter");
        EXPECT_EQ(one.Path(), panel.Title()) << testing::PrintToString(name);
        EXPECT_EQ(1, panel.BarRow()) << testing::PrintToString(name);
    }
}

TEST_F(OddDirectories, KeepsTwoNamesThatLookAlikeApart) {
    tree.File("x\xC3\xBF/utf8").File("x\xFF/byte");  // both show as x and U+00FF
    Session session(Here());
    const PanelView panel(session, 0);
    EXPECT_THAT(panel.Names(), ElementsAre("..", "xÿ", "xÿ"));
    std::vector<std::string> inside;
    for (int down : {1, 2}) {
        session.Press("Home");
        session.Press("Down", down);
        session.Press("Enter");
        ASSERT_EQ(2u, panel.Names().size()) << session.Text();
        inside.push_back(panel.Names()[1]);
        session.Press("Enter");
        EXPECT_EQ(down, panel.BarRow());
    }
    std::sort(inside.begin(), inside.end());
    EXPECT_THAT(inside, ElementsAre("byte", "utf8"));
}

TEST_F(OddDirectories, StartsInADirectoryOfOddBytes) {
    tree.File("\xFE\xFF/deep\x01/found");
    SessionOptions options;
    options.directory = tree.PathOf("\xFE\xFF");
    options.arguments = {"-r", tree.PathOf("\xFE\xFF/deep\x01")};
    Session session(options);
    EXPECT_EQ(tree.PathOf("þÿ"), PanelView(session, 0).Title());
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "found"));
    EXPECT_EQ("Zanthe: " + tree.PathOf("þÿ"), session.Title());
}

TEST_F(OddDirectories, CutsALongNameWithASign) {
    tree.File(std::string(255, 'n'));
    Session session(Here());
    const PanelView panel(session, 0);
    EXPECT_THAT(panel.Line(1), HasSubstr("n►"));
    EXPECT_EQ("│", session.Piece(14, 1, 1)) << session.Text();
    EXPECT_EQ("│", session.Piece(14, 2, 1)) << session.Text();
}

TEST_F(OddDirectories, ShowsLinksWithTheirTargets) {
    tree.Folder("dir").File("file", "12345").Link("to-dir", "dir").Link("to-file", "file");
    tree.Link("broken", "nowhere").Link("circle1", "circle2").Link("circle2", "circle1");
    SessionOptions options = Here();
    options.columns = 132;
    Session session(options);
    const PanelView panel(session, 0);
    EXPECT_THAT(session.Text(), HasSubstr("to-dir » dir"));
    EXPECT_THAT(session.Text(), HasSubstr("to-file » file"));
    EXPECT_THAT(session.Text(), HasSubstr("broken » nowhere"));
    EXPECT_THAT(session.Text(), HasSubstr("circle1 » circle2"));
    const auto arrowOf = [&](const std::string& text) {
        for (int row = 0; row < panel.Height(); row++) {
            const std::string line = panel.Line(row);
            if (!line.starts_with(text + " ")) continue;
            return session.AttributeAt(panel.Left() + 2 + static_cast<int>(text.size()), row + 1);
        }
        return uint8_t{0};
    };
    EXPECT_EQ(0x1C, arrowOf("broken"));
    EXPECT_EQ(0x1E, arrowOf("to-file"));
}

TEST_F(OddDirectories, EntersALinkToADirectory) {
    tree.File("dir/inner").Link("link", "dir").Link("dots", ".");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Down", "Down", "Enter"});
    EXPECT_EQ(tree.PathOf("link"), panel.Title());
    EXPECT_THAT(panel.Names(), ElementsAre("..", "inner"));
    session.Press("Enter");
    EXPECT_EQ(tree.Path(), panel.Title());
    EXPECT_TRUE(panel.BarName().starts_with("link")) << panel.BarName();
}

TEST_F(OddDirectories, ReportsAnUnreadableDirectoryAndStepsBack) {
    tree.Folder("open").File("shut/secret").Mode("shut", 0);
    tree.GiveTo(OrdinaryUser());
    SessionOptions options = Here();
    options.user = OrdinaryUser();
    Session session(options);
    const PanelView panel(session, 0);
    session.Press({"Down", "Down"});
    EXPECT_EQ("shut", panel.BarName());
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr("Permission denied"));
    EXPECT_THAT(session.Text(), HasSubstr(tree.PathOf("shut")));
    session.Press("Enter");
    EXPECT_EQ(tree.Path(), panel.Title());
    EXPECT_EQ("shut", panel.BarName());
    EXPECT_THAT(panel.Names(), ElementsAre("..", "open", "shut"));
}

TEST_F(OddDirectories, ListsADirectoryWhoseEntriesMayNotBeLookedAt) {
    tree.File("list/a").File("list/b").Mode("list", 0444);
    tree.GiveTo(OrdinaryUser());
    SessionOptions options = Here();
    options.user = OrdinaryUser();
    Session session(options);
    session.Press({"Down", "Enter"});
    EXPECT_TRUE(session.AtPrompt()) << session.Text();
    const PanelView panel(session, 0);
    EXPECT_EQ(tree.PathOf("list"), panel.Title());
    EXPECT_THAT(panel.Names(), ElementsAre("..", "a", "b"));
    EXPECT_THAT(panel.FieldsOf("a"), ElementsAre("a", "0", "01/01/70", "12:00a"));
}

TEST_F(OddDirectories, NoticesThatTheDirectoryVanished) {
    tree.File("gone/a");
    Session session(Here());
    session.Press({"Down", "Enter"});
    const PanelView panel(session, 0);
    ASSERT_EQ(tree.PathOf("gone"), panel.Title());
    tree.Remove("gone");
    session.Press("Ctrl-r");
    EXPECT_FALSE(session.AtPrompt());
    EXPECT_THAT(session.Text(), HasSubstr("error resolving path: No such file or directory"));
    EXPECT_THAT(session.Text(), HasSubstr(" " + tree.PathOf("gone") + " "));
    session.Press("Enter");
    EXPECT_TRUE(session.AtPrompt());
    EXPECT_EQ(tree.PathOf("gone"), panel.Title());
    EXPECT_THAT(panel.Names(), ElementsAre(".."));
    session.Press("Enter");
    EXPECT_EQ(tree.Path(), panel.Title()) << session.Text();
    EXPECT_THAT(panel.Names(), ElementsAre(".."));
}

TEST_F(OddDirectories, NoticesThatTheDirectoryToEnterVanished) {
    tree.Folder("gone").File("other");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press("Down");
    tree.Remove("gone");
    session.Press("Enter");
    EXPECT_FALSE(session.AtPrompt());
    EXPECT_THAT(session.Text(), HasSubstr("error resolving path: No such file or directory"));
    EXPECT_THAT(session.Text(), HasSubstr(" " + tree.PathOf("gone") + " "));
    session.Press("Esc");
    EXPECT_TRUE(session.AtPrompt());
    EXPECT_THAT(panel.Names(), ElementsAre(".."));
    session.Press("Enter");
    EXPECT_EQ(tree.Path(), panel.Title());
    EXPECT_THAT(panel.Names(), ElementsAre("..", "other"));
}

TEST_F(OddDirectories, StartsWhereTheWorkingDirectoryIsGone) {
    tree.Folder("gone");
    SessionOptions options;
    options.directory = tree.PathOf("gone");
    options.removeDirectory = true;
    Session session(options);
    EXPECT_FALSE(session.HasEnded());
    EXPECT_TRUE(session.AtPrompt()) << session.Text();
    EXPECT_EQ("/", PanelView(session, 0).Title()) << "nothing tells where it was";
    EXPECT_EQ("/", PanelView(session, 1).Title());
    session.Press("Tab");
    EXPECT_TRUE(PanelView(session, 1).IsActive());
}

TEST_F(OddDirectories, ReadsALargeDirectory) {
    for (int i = 0; i < 20000; i++)
        tree.File("f" + std::to_string(100000 + i));
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press("End");
    EXPECT_EQ("f119999", panel.BarName());
    session.Press({"Home", "Down"});
    EXPECT_EQ("f100000", panel.BarName());
    session.Press({"End", "PgUp", "Ctrl-F8", "Ctrl-F3"});
    EXPECT_EQ("f119980", panel.BarName());
}

TEST_F(OddDirectories, ReadsAgainAndKeepsTheBar) {
    tree.File("b").File("d");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Down"});
    tree.File("a").File("c").Remove("b");
    session.Press("Ctrl-r");
    EXPECT_THAT(panel.Names(), ElementsAre("..", "a", "c", "d"));
    EXPECT_EQ("d", panel.BarName());
}

}  // namespace
}  // namespace zt::headless
