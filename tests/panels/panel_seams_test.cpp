// What a panel asks of archives, of the tree and of the info kind, and what it tells them.
#include "panels/panel_seams.h"

#include <gmock/gmock.h>

#include <set>

#include "foundation/result_codes.h"
#include "panels/directory_reader.h"
#include "panels/entry_sorting.h"
#include "panels/panel_switching.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Lines(int count, const char* sign) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += sign;
    return text;
}

std::string Bytes(const Westring& name) {
    return NameToBytes(name).c_str();
}

class NoEntries : public IEntryScanner {
public:
    int First(entry*&) override { return kNoMoreEntries; }
    int Next(entry*&) override { return kNoMoreEntries; }
};

// Archives that are made of the names of what is in them.
class MadeArchives : public IPanelArchives {
public:
    std::set<std::string> archives, folders;
    std::vector<std::string> calls;
    std::vector<std::string> open;  // outermost first
    std::string realDirectory;

    void CloseLeft(CPanel& panel) override { CloseBeside(panel, panel.path); }
    std::unique_ptr<IEntryScanner> OpenListing(CPanel& panel) override {
        calls.push_back("list " + Bytes(panel.path));
        return std::make_unique<NoEntries>();
    }
    void CloseBeside(CPanel& panel, const Westring& path) override {
        while (!open.empty() && !(Bytes(path) + "/").starts_with(open.back() + "/")) {
            calls.push_back("close " + open.back());
            open.pop_back();
        }
        Note(panel);
    }
    bool Open(CPanel& panel, const Westring& path) override {
        calls.push_back("open " + Bytes(path));
        if (!archives.contains(Bytes(path))) return false;
        open.push_back(Bytes(path));
        Note(panel);
        return true;
    }
    bool HasDirectory(CPanel&, const Westring& path) override {
        return folders.contains(Bytes(path));
    }
    Westring RealDirectory(const CPanel&) override { return NameFromBytes(realDirectory.c_str()); }
    Westring LinkTarget(const CPanel&, const entry&) override { return "inside"; }
    int64_t DirectoryTotal(CPanel&, const Westring&, WalkProgress&, const StopWanted&) override {
        return 0;
    }

private:
    // The archive itself is never looked into here.
    void Note(CPanel& panel) {
        panel.archive = open.empty() ? nullptr : reinterpret_cast<ArchiveFile*>(this);
    }
};

class ArchivesOfAPanel : public PanelFixture {
protected:
    ArchivesOfAPanel() {
        tree.Folder("sub");
        tree.File("x.zip");
        tree.File("y.zip");
        archives.archives = {Path("x.zip"), Path("x.zip/in/n.zip"), Path("y.zip")};
        archives.folders = {Path("x.zip/in"), Path("x.zip/in/n.zip/deep")};
        archives.realDirectory = tree.Path();
        panels->seams.archives = &archives;
        Start();
    }
    std::string Path(const std::string& name) { return tree.PathOf(name); }
    bool ChangeTo(const std::string& name) {
        archives.calls.clear();
        return ChangeDirectory(left, tree.Wide(name));
    }
    MadeArchives archives;
};

TEST_F(ArchivesOfAPanel, OpensWhatLiesOnThePathComponentByComponent) {
    EXPECT_TRUE(ChangeTo("x.zip"));
    EXPECT_THAT(archives.calls, ElementsAre("open " + Path("x.zip")));
    EXPECT_EQ(PathOf(left), Path("x.zip"));
    EXPECT_TRUE(ChangeTo("x.zip/in/n.zip/deep"));
    EXPECT_THAT(archives.calls, ElementsAre("open " + Path("x.zip/in/n.zip")))
        << "the outer one is open";
    EXPECT_TRUE(ChangeTo("x.zip/in"));
    EXPECT_THAT(archives.calls, ElementsAre("close " + Path("x.zip/in/n.zip")));
    EXPECT_NE(left.archive, nullptr);
    EXPECT_TRUE(ChangeTo("y.zip"));
    EXPECT_THAT(archives.calls, ElementsAre("close " + Path("x.zip"), "open " + Path("y.zip")));
    EXPECT_TRUE(ChangeTo("sub"));
    EXPECT_THAT(archives.calls, ElementsAre("close " + Path("y.zip")));
    EXPECT_EQ(left.archive, nullptr);
    EXPECT_TRUE(ChangeTo("x.zip/in/n.zip/deep"));
    EXPECT_THAT(archives.calls,
                ElementsAre("open " + Path("x.zip"), "open " + Path("x.zip/in/n.zip")));
}

TEST_F(ArchivesOfAPanel, RefusesPathsThatEndInNothing) {
    for (const char* name : {"x.zip/missing", "x.zip/in/missing/deep", "missing.zip", "sub/gone"}) {
        left.path = tree.Wide();
        archives.CloseBeside(left, left.path);
        EXPECT_FALSE(ChangeTo(name)) << name;
        EXPECT_EQ(PathOf(left), tree.Path()) << name;
    }
}

TEST_F(ArchivesOfAPanel, ListsTheArchiveAndStaysInTheDirectoryThatHoldsIt) {
    tree.File("sub/file");
    std::filesystem::current_path(Path("sub"));
    ASSERT_TRUE(ChangeTo("x.zip/in"));
    GoTo(*panels, 0, Westring());
    EXPECT_THAT(archives.calls, Contains("list " + Path("x.zip/in")));
    EXPECT_THAT(Names(left), ElementsAre("..")) << "also where the archive has none";
    EXPECT_TRUE(left.fileSystem.IsEmpty());
    EXPECT_EQ(std::filesystem::current_path().string(), tree.Path());
    Westring target;
    ResolveLinkTarget(left, *left.entries.At(0), target);
    EXPECT_STREQ(target.c_str(), L"inside");
}

TEST_F(ArchivesOfAPanel, LeavesTheArchiveThroughItsParentEntry) {
    ASSERT_TRUE(ChangeTo("x.zip"));
    GoTo(*panels, 0, Westring());
    EXPECT_THAT(Names(left), ElementsAre(".."));
    archives.calls.clear();
    GoTo(*panels, 0, "..");
    EXPECT_THAT(archives.calls, ElementsAre("close " + Path("x.zip")));
    EXPECT_EQ(PathOf(left), tree.Path());
    EXPECT_EQ(CurrentName(left), "x.zip");
    EXPECT_FALSE(left.fileSystem.IsEmpty());
}

class WatchingTree : public IPanelTree {
public:
    std::vector<uint64_t> totals;
    std::vector<std::string> followed;
    int rowsBuilt = 0;

    void BuildRows(CPanel&) override { ++rowsBuilt; }
    void Link(CPanel& panel) override { panel.tree = reinterpret_cast<CTree*>(this); }
    bool KnownTotal(const CPanel&, const wchar_t*, uint64_t&) override { return false; }
    void ReadDone(CPanel&, uint64_t filesTotal) override { totals.push_back(filesTotal); }
    void Follow(CPanel&, const Westring& path) override { followed.push_back(Bytes(path)); }
    Westring SelectedPath(const CPanel&) override {
        return Westring("/selected/") + Westring::Repeat(L'x', 40);
    }
    void DrawRow(CPanel&, int, int) override {}
    void SetExpanded(CPanel&, bool, bool) override {}
    void ToSibling(CPanel&, int) override {}
};

class TreeOfAPanel : public PanelFixture {
protected:
    TreeOfAPanel() {
        tree.Folder("dir");
        tree.File("a", 100);
        panels->seams.tree = &watching;
    }
    WatchingTree watching;
};

TEST_F(TreeOfAPanel, ReadsTheListOfAPanelInTheTreeStyleAtTheStart) {
    settings.sides[0].style = kStyleTree;
    Start();
    EXPECT_EQ(left.style, kStyleTree);
    EXPECT_THAT(Names(left), ElementsAre("..", "dir", "a"));
    EXPECT_EQ(left.window, nullptr) << "the window waits for the rows of the tree";
    EXPECT_EQ(watching.rowsBuilt, 0);
    ReadDirectory(left);
    EXPECT_EQ(watching.rowsBuilt, 1);
}

TEST_F(TreeOfAPanel, FollowsTheOtherPanel) {
    settings.sides[0].style = kStyleTree;
    Start();
    watching.followed.clear();
    GoTo(*panels, 1, "dir");
    EXPECT_THAT(watching.followed, Contains(tree.PathOf("dir")));
    watching.followed.clear();
    GoTo(*panels, 0, Westring());
    EXPECT_THAT(watching.followed, IsEmpty()) << "the other one has no tree";
}

TEST_F(TreeOfAPanel, HearsTheTotalOfAReadOnce) {
    Start();
    EXPECT_THAT(watching.totals, ElementsAre(100u)) << "the right panel took the list over";
    watching.totals.clear();
    RereadBoth(*panels);
    EXPECT_THAT(watching.totals, ElementsAre(100u));
}

TEST_F(TreeOfAPanel, StoresAnOrderWithoutSortingTheTree) {
    settings.sides[0].style = kStyleTree;
    Start();
    SetSort(left, kSortName + kReversed);
    EXPECT_EQ(left.sort, kSortName + kReversed);
    EXPECT_EQ(settings.sides[0].sort, kSortName + kReversed);
    EXPECT_THAT(Names(left), ElementsAre("..", "dir", "a"));
    SetSort(left, kSortUnsorted);
    EXPECT_EQ(watching.rowsBuilt, 0);
}

TEST_F(TreeOfAPanel, ShowsItsTitleAndTheSelectedPath) {
    Start();
    left.style = kStyleTree;
    ReadDirectory(left);
    DrawPanel(left);
    EXPECT_EQ(FrameRow(left, 0),
              "\u2554" + Lines(16, "\u2550") + " TREE " + Lines(16, "\u2550") + "\u2557");
    EXPECT_EQ(AttributeAt(left, 17, -1), 0x30) << "as the title of the active panel";
    EXPECT_EQ(FrameRow(left, 20), "\u255F" + Lines(38, "\u2500") + "\u2562");
    EXPECT_EQ(FrameRow(left, 22), "\u255A" + Lines(38, "\u2550") + "\u255D");
    EXPECT_EQ(ClientRow(left, 20), "/selected/..." + std::string(25, 'x'));
    EXPECT_EQ(AttributeAt(left, 0, 20), 0x1B);
}

TEST_F(TreeOfAPanel, LeavesTheWorkingDirectoryToTheOtherPanel) {
    settings.sides[0].style = kStyleTree;
    Start("", "dir");
    Activate(*panels, 0);
    EXPECT_EQ(std::filesystem::current_path().string(), tree.PathOf("dir"));
}

class WatchingInfo : public IPanelInfo {
public:
    std::vector<int> drawn;  // sides
    void Draw(CPanel& panel) override { drawn.push_back(panel.side); }
};

class InfoOfAPanel : public PanelFixture {
protected:
    InfoOfAPanel() {
        tree.Folder("dir");
        tree.File("a");
        panels->seams.info = &info;
        settings.sides[1].type = kKindInfo;
        Start();
    }
    WatchingInfo info;
};

TEST_F(InfoOfAPanel, HasItsListAllTheSame) {
    EXPECT_EQ(right.kind, kKindInfo);
    EXPECT_THAT(Names(right), ElementsAre("..", "dir", "a"));
    EXPECT_NE(right.window, nullptr);
    EXPECT_THAT(info.drawn, Contains(1));
}

TEST_F(InfoOfAPanel, IsDrawnAgainWhenTheOtherPanelReads) {
    info.drawn.clear();
    ReadDirectory(left);
    EXPECT_THAT(info.drawn, ElementsAre(1));
}

TEST_F(InfoOfAPanel, ReadsWhenItBecomesAFilePanel) {
    tree.File("b");
    GoTo(*panels, 1, Westring(), true);
    EXPECT_TRUE(right.needRead);
    EXPECT_THAT(Names(right), ElementsAre("..", "dir", "a"));
    SetStyle(right, kStyleFull, 1);
    RefreshPanels(*panels);
    EXPECT_FALSE(right.needRead);
    EXPECT_THAT(Names(right), ElementsAre("..", "dir", "a", "b"));
}

}  // namespace
}  // namespace zt
