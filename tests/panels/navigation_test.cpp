// Going from directory to directory.
#include "panels/navigation.h"

#include <gmock/gmock.h>

#include "panels/cursor_movement.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;

class Navigation : public PanelFixture {
protected:
    std::string WorkingDirectory() { return std::filesystem::current_path().string(); }
    std::vector<std::string> History() {
        std::vector<std::string> paths;
        for (int i = 0; i < panels->directoryHistory.Count(); ++i) {
            paths.push_back(NameToBytes(*panels->directoryHistory.Peek(i)).c_str());
        }
        return paths;
    }
};

TEST_F(Navigation, EntersASubdirectory) {
    tree.Folder("dir");
    tree.File("dir/x");
    Start();
    left.searchText = "abc";
    left.savedTop = 1;
    left.savedCursor = 2;
    GoTo(*panels, 0, "dir");
    EXPECT_EQ(PathOf(left), tree.PathOf("dir"));
    EXPECT_THAT(Names(left), ElementsAre("..", "x"));
    EXPECT_EQ(left.cursor, 0);
    EXPECT_TRUE(left.searchText.IsEmpty());
    EXPECT_EQ(WorkingDirectory(), tree.PathOf("dir"));
    EXPECT_EQ(NameToBytes(left.lastPath).c_str(), tree.Path());
    EXPECT_EQ(left.lastTop, 1);
    EXPECT_EQ(left.lastCursor, 2);
    EXPECT_THAT(History(), ElementsAre(tree.Path()));
}

TEST_F(Navigation, LeavesForTheParentWithTheCursorOnTheChild) {
    for (int i = 0; i < 60; ++i)
        tree.Folder("d" + std::to_string(100 + i));
    Start("d150");
    GoTo(*panels, 0, "..");
    EXPECT_EQ(PathOf(left), tree.Path());
    EXPECT_EQ(CurrentName(left), "d150");
    EXPECT_EQ(left.cursor, left.visibleEntries - 1) << "on the last row, as it was not known";
    EXPECT_EQ(left.CurrentIndex(), 51);
    EXPECT_EQ(WorkingDirectory(), tree.Path());
}

TEST_F(Navigation, PutsAChildOfTheFirstPageInItsRow) {
    for (int i = 0; i < 60; ++i)
        tree.Folder("d" + std::to_string(100 + i));
    Start("d105");
    GoToParent(*panels, 0);
    EXPECT_EQ(left.top, 0);
    EXPECT_EQ(left.cursor, 6);
}

TEST_F(Navigation, GoesToTheFirstEntryWhenTheChildIsHidden) {
    tree.Folder(".hid");
    tree.File("a");
    Start(".hid");
    GoToParent(*panels, 0);
    EXPECT_EQ(left.CurrentIndex(), 0);
}

TEST_F(Navigation, DoesNothingAboveTheRoot) {
    Start();
    left.path = "/";
    GoTo(*panels, 0, Westring());
    const std::vector<std::string> before = History();
    GoTo(*panels, 0, "..");
    GoToParent(*panels, 0);
    EXPECT_EQ(PathOf(left), "/");
    EXPECT_EQ(History(), before);
}

TEST_F(Navigation, CutsToTheRoot) {
    Start();
    left.path = "/tmp";
    GoTo(*panels, 0, Westring());
    GoToParent(*panels, 0);
    EXPECT_EQ(PathOf(left), "/");
    EXPECT_EQ(CurrentName(left), "tmp");
    GoTo(*panels, 0, "tmp");
    EXPECT_EQ(PathOf(left), "/tmp") << "one slash only";
}

TEST_F(Navigation, RestoresTopAndNameAfterOtherDirectories) {
    ManyFiles(100);
    for (int i = 0; i < 5; ++i)
        tree.Folder("d" + std::to_string(i));
    tree.Folder("d3/e");
    Start();
    MoveCursor(left, 90);
    const int top = left.top;
    ASSERT_GT(top, 0);
    FindName(left, L"f00080");
    GoTo(*panels, 0, "d3");
    GoTo(*panels, 0, "e");
    GoTo(*panels, 0, "..");
    GoTo(*panels, 0, "..");
    EXPECT_EQ(CurrentName(left), "d3") << "the child that was left goes before the remembered name";
    GoTo(*panels, 0, "d3");
    EXPECT_NE(left.positions.Lookup(tree.Wide()), nullptr);
    EXPECT_STREQ(left.positions.Lookup(tree.Wide())->name.c_str(), L"d3");
}

TEST_F(Navigation, TakesTheRememberedTop) {
    for (int i = 0; i < 100; ++i)
        tree.Folder("d" + std::to_string(100 + i));
    Start();
    MoveCursor(left, 50);
    MoveCursor(left, -5);
    const int top = left.top, cursor = left.cursor;
    const std::string name = CurrentName(left);
    GoTo(*panels, 0, NameFromBytes(name.c_str()));
    GoTo(*panels, 0, "..");
    EXPECT_EQ(left.top, top);
    EXPECT_EQ(left.cursor, cursor);
    EXPECT_EQ(CurrentName(left), name);
}

TEST_F(Navigation, TakesTopAndCursorThatAreGiven) {
    ManyFiles(100);
    Start();
    GoTo(*panels, 0, Westring(), false, 30, 5);
    EXPECT_EQ(left.top, 30);
    EXPECT_EQ(left.cursor, 5);
    GoTo(*panels, 0, Westring(), false, 300, 5);
    EXPECT_EQ(left.top, 0) << "past the end";
}

TEST_F(Navigation, EntersAndLeavesDirectoriesOfAnyName) {
    const std::vector<std::string> names = {
        "with blank", "new\nline", "raw\xE9", "\xC3\xA9", "quote'\"",           "back\\slash",
        "...",        "....",      "tab\t",   "\x01",     std::string(255, 'n')};
    for (const std::string& name : names) {
        tree.Folder(name);
        tree.File(name + "/inside");
    }
    settings.hidden = true;
    Start();
    for (const std::string& name : names) {
        GoTo(*panels, 0, NameFromBytes(name.c_str()));
        EXPECT_EQ(PathOf(left), tree.PathOf(name));
        EXPECT_THAT(Names(left), ElementsAre("..", "inside"));
        EXPECT_EQ(WorkingDirectory(), tree.PathOf(name));
        const Westring there = left.path;
        GoTo(*panels, 0, "..");
        EXPECT_EQ(CurrentName(left), name);
        EXPECT_TRUE(ChangeDirectory(left, there)) << name;
        EXPECT_EQ(PathOf(left), tree.PathOf(name));
        left.path = tree.Wide();
    }
}

TEST_F(Navigation, RefusesAPathThatIsTooLong) {
    Start();
    Westring deep = tree.Wide();
    std::string bytes = tree.Path();
    while (bytes.size() + 101 < 512) {
        bytes += "/" + std::string(100, 'd');
        ASSERT_EQ(mkdir(bytes.c_str(), 0755), 0);
    }
    ASSERT_EQ(mkdir((bytes + "/" + std::string(200, 'e')).c_str(), 0755), 0);
    left.path = NameFromBytes(bytes.c_str());
    GoTo(*panels, 0, Westring());
    screen->PushKey(13);
    GoTo(*panels, 0, NameFromBytes(std::string(200, 'e').c_str()));
    EXPECT_EQ(screen->PendingEvents(), 0) << "a box took the key";
    EXPECT_EQ(PathOf(left), bytes);
    screen->PushKey(13);
    EXPECT_FALSE(
        ChangeDirectory(left, NameFromBytes((bytes + "/" + std::string(200, 'e')).c_str())));
    EXPECT_EQ(screen->PendingEvents(), 0);
    EXPECT_EQ(PathOf(left), bytes);
}

TEST_F(Navigation, ChangesToDirectoriesThatExist) {
    tree.Folder("a");
    tree.Folder("a/b");
    tree.File("file");
    tree.Link("link", "a");
    Start("a");
    const struct {
        std::string path;
        std::string result;  // empty: refused
    } rows[] = {
        {tree.PathOf("a/b"), tree.PathOf("a/b")},
        {"b", tree.PathOf("a/b")},
        {"..", tree.Path()},
        {"../a/./b/", tree.PathOf("a/b")},
        {tree.PathOf("link"), tree.PathOf("link")},
        {"/", "/"},
        {"//", "/"},
        {"missing", ""},
        {"../file", ""},
        {tree.PathOf("missing/b"), ""},
        {"../../../../../..", ""},
    };
    for (const auto& row : rows) {
        left.path = tree.Wide("a");
        EXPECT_EQ(ChangeDirectory(left, NameFromBytes(row.path.c_str())), !row.result.empty())
            << row.path;
        EXPECT_EQ(PathOf(left), row.result.empty() ? tree.PathOf("a") : row.result) << row.path;
    }
}

TEST_F(Navigation, RecordsTheDirectoriesThatWereLeft) {
    tree.Folder("a");
    tree.Folder("b");
    Start();
    const auto go = [&](const char* name) {
        ASSERT_TRUE(ChangeDirectory(left, tree.Wide(name)));
        GoTo(*panels, 0, Westring());
    };
    go("a");
    go("b");
    go("a");
    EXPECT_THAT(History(), ElementsAre(tree.Path(), tree.PathOf("a"), tree.PathOf("b")));
    GoTo(*panels, 0, Westring());
    EXPECT_EQ(History().size(), 3u) << "a re-read leaves nothing";
}

TEST_F(Navigation, GoesBackAndForth) {
    tree.Folder("a");
    ManyFiles(50);
    Start();
    MoveCursor(left, 30);
    left.savedTop = left.top;
    left.savedCursor = left.cursor;
    const std::string name = CurrentName(left);
    ASSERT_TRUE(ChangeDirectory(left, tree.Wide("a")));
    GoTo(*panels, 0, Westring());
    EXPECT_TRUE(GoBack(*panels, 0));
    EXPECT_EQ(PathOf(left), tree.Path());
    EXPECT_EQ(CurrentName(left), name);
    EXPECT_THAT(History(), ElementsAre(tree.PathOf("a"))) << "the newest item was taken off";
    EXPECT_TRUE(GoBack(*panels, 0));
    EXPECT_EQ(PathOf(left), tree.PathOf("a"));
}

TEST_F(Navigation, StaysWhereThereIsNoWayBack) {
    Start();
    EXPECT_FALSE(GoBack(*panels, 0));
    left.lastPath = tree.Wide("gone");
    EXPECT_FALSE(GoBack(*panels, 0));
    EXPECT_EQ(PathOf(left), tree.Path());
}

TEST_F(Navigation, SurvivesAWorkingDirectoryThatIsGone) {
    tree.Folder("dir");
    std::filesystem::current_path(tree.PathOf("dir"));
    tree.Remove("dir");
    Start();
    EXPECT_EQ(left.Count(), 1);
    EXPECT_FALSE(ChangeDirectory(left, "missing"));
    GoTo(*panels, 0, Westring());
    EXPECT_EQ(WorkingDirectory(), tree.Path());
}

TEST_F(Navigation, RereadsBothPanelsAndStaysInTheActiveDirectory) {
    tree.Folder("a");
    tree.Folder("b");
    Start("a", "b");
    tree.File("a/new", 5);
    tree.File("b/new");
    for (const int active : {0, 1}) {
        panels->active = active;
        RereadBoth(*panels);
        EXPECT_THAT(Names(left), ElementsAre("..", "new"));
        EXPECT_THAT(Names(right), ElementsAre("..", "new"));
        EXPECT_EQ(WorkingDirectory(), tree.PathOf(active == 0 ? "a" : "b"));
    }
    Tag(left, "new");
    RereadBoth(*panels, true);
    EXPECT_EQ(left.taggedCount, 1);
    RereadBoth(*panels, false);
    EXPECT_EQ(left.taggedCount, 0);
}

}  // namespace
}  // namespace zt
