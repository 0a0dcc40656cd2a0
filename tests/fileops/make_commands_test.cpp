// Making directories and links in panels whose trees, history and kind are a test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fileops/make_directory.h"
#include "fileops/make_link_command.h"
#include "tests/panels/panel_fixture.h"
#include "ui/field_history.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Bytes(const Westring& text) {
    return NameToBytes(text).c_str();
}

class RecordingKeeper : public ITreeKeeper {
public:
    void DirectoryAdded(CPanel& panel, const Westring& path) override {
        calls.push_back("added " + std::to_string(panel.side) + " " + Bytes(path));
    }
    bool DirectoryRemoved(CPanel&, const Westring&) override {
        calls.push_back("removed");
        return true;
    }
    void DirectoryRenamed(CPanel&, const Westring&, const Westring&) override {
        calls.push_back("renamed");
    }
    void Save(CPanel& panel) override { calls.push_back("save " + std::to_string(panel.side)); }
    bool Pick(CPanel&, Westring& path, int width) override {
        calls.push_back("pick " + std::to_string(width));
        path = picked;
        return !picked.IsEmpty();
    }

    std::vector<std::string> calls;
    Westring picked;  // empty: the user takes none
};

class FixedHistory : public IDirectoryChooser {
public:
    bool Pick(CPanel&, Westring& path) override {
        path = picked;
        return !picked.IsEmpty();
    }

    Westring picked;
};

class FixedTree : public IPanelTree {
public:
    void BuildRows(CPanel&) override {}
    void Link(CPanel&) override {}
    bool KnownTotal(const CPanel&, const wchar_t*, uint64_t&) override { return false; }
    void ReadDone(CPanel&, uint64_t) override {}
    void Follow(CPanel&, const Westring& path) override { followed = path; }
    Westring SelectedPath(const CPanel&) override { return selected; }
    void DrawRow(CPanel&, int, int) override {}
    void SetExpanded(CPanel&, bool, bool) override {}
    void ToSibling(CPanel&, int) override {}

    Westring selected;
    Westring followed;
};

class MakeCommands : public PanelFixture {
protected:
    MakeCommands() {
        tree.Folder("here");
        tree.Folder("there");
        panels->seams.trees = &keeper;
        panels->seams.history = &history;
    }
    ~MakeCommands() override { FieldHistory(kHistoryDestinations).Clear(); }

    void Type(const std::string& text) { screen->PushText(text); }
    void Key(int code) { screen->PushKey(code); }
    bool Exists(const std::string& name) {
        struct stat data;
        return lstat(tree.PathOf(name).c_str(), &data) == 0;
    }
    std::string LinkText(const std::string& name) {
        std::error_code error;
        return std::filesystem::read_symlink(tree.PathOf(name), error).string();
    }

    RecordingKeeper keeper;
    FixedHistory history;
    FixedTree pathTree;
};

TEST_F(MakeCommands, TellTheTreeOfANewDirectory) {
    Start("here", "there");
    Type("new");
    Key(kKeyEnter);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_THAT(keeper.calls, ElementsAre("added 0 " + tree.PathOf("here/new"), "save 0"));
    EXPECT_EQ("new", CurrentName(left));
}

TEST_F(MakeCommands, TellTheTreeNothingWhenThereIsNoNewDirectory) {
    tree.Folder("here/old");
    Start("here", "there");
    Type("old");
    Key(kKeyEnter);
    Key(kKeyEnter);
    MakeDirectoryCommand(*panels, 0);
    Type("none/new");
    Key(kKeyEnter);
    Key(kKeyEsc);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_THAT(keeper.calls, IsEmpty());
}

// The tree knows names as the panel shows them.
TEST_F(MakeCommands, TellTheTreeInCapitalsWhereCaseIsFolded) {
    Start("here", "there");
    ASSERT_FALSE(left.fileSystem.IsEmpty());
    settings.caseFilter = "x" + left.fileSystem + "y";
    Type("New");
    Key(kKeyEnter);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_TRUE(Exists("here/New"));
    EXPECT_THAT(keeper.calls, ElementsAre("added 0 " + tree.PathOf("here/NEW"), "save 0"));
    EXPECT_EQ("NEW", CurrentName(left));
}

TEST_F(MakeCommands, MakeTheDirectoryBesideTheListThatIsShown) {
    Start("here", "there");
    left.kind = kKindInfo;
    Type("new");
    Key(kKeyEnter);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_TRUE(Exists("there/new"));
    EXPECT_FALSE(Exists("here/new"));
    EXPECT_EQ("new", CurrentName(right));
}

TEST_F(MakeCommands, MakeTheDirectoryUnderTheRowOfTheTree) {
    tree.Folder("there/deep");
    Start("here", "there");
    panels->seams.tree = &pathTree;
    pathTree.selected = tree.Wide("there/deep");
    left.style = kStyleTree;
    Type("new");
    Key(kKeyEnter);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_TRUE(Exists("there/deep/new"));
    ASSERT_FALSE(keeper.calls.empty());
    EXPECT_EQ("added 0 " + tree.PathOf("there/deep/new"), keeper.calls[0]);
    // Rows of other directories may have the same name.
    EXPECT_EQ(tree.PathOf("there/deep/new"), Bytes(pathTree.followed));
    Type("none/new");
    Key(kKeyEnter);
    Key(kKeyEsc);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_NE(tree.PathOf("there/deep/none/new"), Bytes(pathTree.followed));
    left.style = kStyleFull;
}

TEST_F(MakeCommands, LeaveTheCursorWhenTheDirectoryIsFurtherDown) {
    tree.Folder("here/sub");
    tree.File("here/new");
    Start("here", "there");
    Type("sub/new/");
    Key(kKeyEnter);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_TRUE(Exists("here/sub/new"));
    EXPECT_EQ("..", CurrentName(left));
    EXPECT_THAT(keeper.calls, ElementsAre("added 0 " + tree.PathOf("here/sub/new"), "save 0"));
}

// The panel with the list is in an archive, where nothing can be made.
TEST_F(MakeCommands, MakeNoDirectoryBesideAnArchive) {
    Start("here", "there");
    left.kind = kKindInfo;
    char standIn = 0;
    right.archive = reinterpret_cast<ArchiveFile*>(&standIn);
    Type("new");
    Key(kKeyEnter);
    MakeDirectoryCommand(*panels, 0);
    right.archive = nullptr;
    EXPECT_FALSE(Exists("there/new"));
    EXPECT_FALSE(Exists("here/new"));
}

class LinkCommand : public MakeCommands {
protected:
    LinkCommand() {
        tree.File("here/a");
        tree.File("here/b");
    }
    void PutOnA() {
        Start("here", "there");
        left.cursor = left.entries.Find(L"a");
        ASSERT_GT(left.cursor, 0);
    }
};

TEST_F(LinkCommand, TakesADirectoryFromTheTree) {
    PutOnA();
    keeper.picked = tree.Wide("there/picked");
    Key(kKeyF10);
    Key(kKeyEnter);
    MakeLinkCommand(left, right.path);
    EXPECT_THAT(keeper.calls, ElementsAre("pick 38"));
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/picked"));
}

TEST_F(LinkCommand, AddsWhatIsTypedToTheDirectoryFromTheTree) {
    PutOnA();
    keeper.picked = tree.Wide("there");
    Key(kKeyF10);
    Type("/named");
    Key(kKeyEnter);
    MakeLinkCommand(left, L"/nowhere");
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/named"));
}

TEST_F(LinkCommand, KeepsItsTextWhenNothingIsPicked) {
    PutOnA();
    Key(kKeyF10);
    Key(0x1002B);
    Key(kKeyEnter);
    MakeLinkCommand(left, right.path);
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/a"));
}

TEST_F(LinkCommand, TakesADirectoryFromTheHistoryWithASlashBehindIt) {
    PutOnA();
    history.picked = tree.Wide("there");
    Key(0x1002B);
    Type("named");
    Key(kKeyEnter);
    MakeLinkCommand(left, L"/nowhere");
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/named"));
}

TEST_F(LinkCommand, DoesNothingAtKeysWhoseWindowsAreMissing) {
    PutOnA();
    panels->seams.trees = nullptr;
    panels->seams.history = nullptr;
    Key(kKeyF10);
    Key(0x1002B);
    Key(kKeyEnter);
    MakeLinkCommand(left, right.path);
    EXPECT_EQ(tree.PathOf("here/a"), LinkText("there/a"));
}

TEST_F(LinkCommand, MarksWhatItHasLinkedForRestoring) {
    Start("here", "there");
    Tag(left, "a");
    Tag(left, "b");
    tree.File("there/b");
    Key(kKeyEnter);
    Key(kKeyEsc);
    MakeLinkCommand(left, right.path);
    EXPECT_EQ(0, Find(left, "a")->tagged);
    EXPECT_EQ(1, Find(left, "a")->wasTagged);
    EXPECT_EQ(1, Find(left, "b")->tagged);
    EXPECT_EQ(0, Find(left, "b")->wasTagged);
    EXPECT_EQ(1, left.taggedCount);
}

TEST_F(LinkCommand, EndsAtTheQuitEvent) {
    PutOnA();
    screen->PushEvent(TEvent{static_cast<int32_t>(EventKind::kQuit), 0, 0, 0, 0, 0});
    MakeLinkCommand(left, right.path);
    MakeDirectoryCommand(*panels, 0);
    EXPECT_FALSE(Exists("there/a"));
}

}  // namespace
}  // namespace zt
