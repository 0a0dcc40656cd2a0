// Keys that turn panels on and off and change sides, and keys that jump to another directory.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class PanelKeys : public testing::Test {
protected:
    PanelKeys() { tree.Folder("a").Folder("b"); }

    SessionOptions InFolders() {
        SessionOptions options;
        options.arguments = {"-l", tree.PathOf("a"), "-r", tree.PathOf("b")};
        return options;
    }
    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }
    // "a" and "b" for the panels that show, in capitals at full width; then the active one.
    std::string Shown(const Session& session) {
        std::string sides;
        if (PanelView(session, 0).IsShown()) sides += "a";
        if (PanelView(session, 1).IsShown()) sides += "b";
        const PanelView full(session, 0, true);
        if (sides.empty() && full.IsShown()) sides = full.Title() == tree.PathOf("a") ? "A" : "B";
        return sides + " " + session.Title().substr(session.Title().size() - 1);
    }

    FileTree tree;
};

TEST_F(PanelKeys, TurnPanelsOnAndOff) {
    const struct {
        std::vector<std::string_view> keys;
        const char* shown;
    } rows[] = {
        {{"Ctrl-F1"}, "b b"},
        {{"Ctrl-F1", "Ctrl-F1"}, "ab b"},
        {{"Ctrl-F2"}, "a a"},
        {{"Ctrl-F1", "Ctrl-F2"}, " b"},
        {{"Ctrl-F1", "Ctrl-F2", "Ctrl-F1"}, "a a"},
        {{"Ctrl-F2", "Tab"}, "a a"},  // there is nothing to switch to
        {{"Ctrl-p"}, "a a"},
        {{"Ctrl-p", "Ctrl-p"}, "ab a"},
        {{"Tab", "Ctrl-p"}, "b b"},
        {{"Ctrl-o"}, " a"},
        {{"Ctrl-o", "Tab"}, " b"},
        {{"Ctrl-o", "Tab", "Ctrl-o"}, "ab b"},
        {{"Ctrl-F2", "Ctrl-o", "Ctrl-o"}, "a a"},
        {{"Ctrl-F1", "Ctrl-F2", "Ctrl-o"}, "ab b"},  // something must come on
        {{"Ctrl-o", "Ctrl-F2"}, "b b"},
        // At full width one panel hides the other.
        {{"Ctrl-Shift-F1"}, "A a"},
        {{"Ctrl-Shift-F1", "Ctrl-Shift-F1"}, "ab a"},
        {{"Ctrl-Shift-F2"}, "B b"},
        {{"Ctrl-Shift-F2", "Ctrl-Shift-F2"}, "ab b"},
        {{"Ctrl-Shift-F1", "Ctrl-Shift-F2"}, "B b"},
        {{"Ctrl-Shift-F1", "Tab"}, "B b"},
        {{"Ctrl-Shift-F1", "Tab", "Tab"}, "A a"},
        {{"Ctrl-Shift-F1", "Tab", "Ctrl-Shift-F2"}, "ab b"},
        {{"Ctrl-Shift-F1", "Ctrl-F2"}, "b b"},
        {{"Ctrl-Shift-F1", "Ctrl-p"}, "b b"},
        {{"Ctrl-Shift-F1", "Ctrl-F2", "Ctrl-F1"}, "A a"},
        {{"Ctrl-Shift-F1", "Ctrl-F1"}, " a"},
        {{"Ctrl-Shift-F1", "Ctrl-F1", "Ctrl-F1"}, "A a"},
        {{"Ctrl-Shift-F1", "Ctrl-o"}, " a"},
        {{"Ctrl-Shift-F1", "Ctrl-o", "Ctrl-o"}, "A a"},
        {{"Ctrl-F1", "Ctrl-Shift-F1"}, "A a"},
        {{"Ctrl-F2", "Ctrl-Shift-F1", "Ctrl-Shift-F1"}, "a a"},  // the other stays off
    };
    for (const auto& row : rows) {
        Session session(InFolders());
        for (const std::string_view key : row.keys)
            session.Press(key);
        EXPECT_EQ(row.shown, Shown(session)) << testing::PrintToString(row.keys);
        const bool off = row.shown[0] == ' ';
        EXPECT_EQ(off ? 23 : 0, session.Screen().Selectable().height);
    }
}

TEST_F(PanelKeys, LeaveNothingOnTheScreenWhenPanelsGo) {
    Session session(InFolders());
    session.Press({"Ctrl-Shift-F1", "Tab", "Ctrl-Shift-F2", "Ctrl-o"});
    for (int row = 0; row < 23; row++)
        EXPECT_EQ("", session.Row(row)) << row;
}

TEST_F(PanelKeys, ReverseTheUnsortedOrderIntoItself) {
    for (const char* name : {"m", "x", "c"})
        tree.File(name);
    Session session(Here());
    session.Press("Ctrl-F7");
    const std::string before = session.Text();
    session.Press("Ctrl-F8");
    EXPECT_EQ(before, session.Text());
    session.Press("Ctrl-F8");
    EXPECT_EQ(before, session.Text());
}

TEST_F(PanelKeys, SortWithoutChangingTheLabels) {
    Session session(Here());
    const std::string before = session.Row(24);
    session.Press("Ctrl-F5");
    EXPECT_EQ(before, session.Row(24));
}

// The mount point of a path as the system tells it.
std::string MountPointOf(const std::string& path) {
    std::ifstream mounts("/proc/self/mounts");
    std::string longest = "/";
    for (std::string device, place, rest; mounts >> device >> place; std::getline(mounts, rest)) {
        const bool above = path == place || path.starts_with(place + "/");
        if (above && place.size() > longest.size()) longest = place;
    }
    return longest;
}

TEST_F(PanelKeys, GoToTheTopOfTheFileSystem) {
    for (const std::string& start : {tree.PathOf("a"), std::string("/proc/sys/kernel"),
                                     std::string("/dev/pts"), std::string("/")}) {
        if (!std::filesystem::is_directory(start)) continue;
        SessionOptions options;
        options.arguments = {"-l", start};
        Session session(options);
        session.Press("Ctrl-\\");
        EXPECT_EQ(MountPointOf(start), PanelView(session, 0).Title()) << start;
        session.Press("Ctrl-\\");
        EXPECT_EQ(MountPointOf(start), PanelView(session, 0).Title()) << start;
    }
}

TEST_F(PanelKeys, FollowLinks) {
    tree.File("a/file").File("b/x\\y").File("zz");
    tree.Link("1", "a").Link("2", tree.PathOf("b")).Link("3", "a/file").Link("4", "b/x\\y");
    tree.Link("5", "b/../a/file").Link("6", "b/missing").Link("7", "no/where").Link("8", "zz");
    const struct {
        const char* name;
        const char* folder;  // below the tree
        const char* bar;
    } rows[] = {
        {"1", "/a", ".."},         {"2", "/b", ".."},   {"3", "/a", "file"},
        {"4", "/b", "x\\y"},       {"5", "/a", "file"}, {"6", "/b", ".."},  // the place is there
        {"7", "", "7 » no/where"}, {"8", "", "zz"},     {"zz", "", "zz"},
    };
    for (const auto& row : rows) {
        Session session(Here());
        const PanelView panel(session, 0);
        for (int i = 0; i < 20 && !panel.BarName().starts_with(row.name); i++)
            session.Press("Down");
        ASSERT_THAT(panel.BarName(), StartsWith(row.name));
        session.Press("Ctrl-g");
        EXPECT_EQ(tree.Path() + row.folder, panel.Title()) << row.name;
        std::string bar = panel.BarName();
        if (!bar.empty() && bar.back() == '@') bar = bar.substr(0, bar.find_last_not_of(" @") + 1);
        EXPECT_EQ(row.bar, bar) << row.name;
    }
}

TEST_F(PanelKeys, GoBackToThePageAndTheEntry) {
    for (int i = 10; i < 80; i++)
        tree.Folder("f" + std::to_string(i));
    Session session(Here());
    const PanelView panel(session, 0);
    EXPECT_EQ(tree.Path(), panel.Title());
    session.Press("Ctrl--");  // there is no way back yet
    EXPECT_EQ(tree.Path(), panel.Title());
    session.Press("End");
    session.Press("Up", 5);
    const std::string before = session.Text();
    const std::string name = panel.BarName();
    session.Press("Enter");
    EXPECT_EQ(tree.PathOf(name), panel.Title());
    session.Press("Ctrl--");
    EXPECT_EQ(before, session.Text());
    session.Press("Ctrl--");
    EXPECT_EQ(tree.PathOf(name), panel.Title());
}

TEST_F(PanelKeys, GoToTheOtherPanelsPath) {
    Session session(InFolders());
    session.Press({"Tab", "Ctrl-Shift-\\"});
    EXPECT_EQ(tree.PathOf("a"), PanelView(session, 1).Title());
    EXPECT_TRUE(PanelView(session, 1).IsActive());
    EXPECT_EQ(tree.PathOf("a") + ">", session.Row(23));
}

}  // namespace
}  // namespace zt::headless
