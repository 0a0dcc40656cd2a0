// The delete commands in a panel that shows a tree: what they are about is the path under the
// cursor, and which tree is saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fileops/delete_command.h"
#include "fileops/delete_named_command.h"
#include "panels/cursor_movement.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;

class SavingKeeper : public ITreeKeeper {
public:
    void DirectoryAdded(CPanel&, const Westring&) override {}
    bool DirectoryRemoved(CPanel& panel, const Westring& path) override {
        calls.push_back("removed " + std::to_string(panel.side) + " " + NameToBytes(path).c_str());
        return true;
    }
    void DirectoryRenamed(CPanel&, const Westring&, const Westring&) override {}
    void Save(CPanel& panel) override { calls.push_back("save " + std::to_string(panel.side)); }
    bool Pick(CPanel&, Westring&, int) override { return false; }

    std::vector<std::string> calls;
};

class FixedTree : public IPanelTree {
public:
    void BuildRows(CPanel&) override {}
    void Link(CPanel&) override {}
    bool KnownTotal(const CPanel&, const wchar_t*, uint64_t&) override { return false; }
    void ReadDone(CPanel&, uint64_t) override {}
    void Follow(CPanel&, const Westring&) override {}
    Westring SelectedPath(const CPanel&) override { return selected; }
    void DrawRow(CPanel&, int, int) override {}
    void SetExpanded(CPanel&, bool, bool) override {}
    void ToSibling(CPanel&, int) override {}

    Westring selected;
};

// The left panel shows a tree whose cursor is on "elsewhere/deep"; its list has that row only.
class DeletingInATree : public PanelFixture {
protected:
    DeletingInATree() {
        tree.Folder("here");
        tree.Folder("here/deep");
        tree.Folder("elsewhere");
        tree.Folder("elsewhere/deep");
        Start("here");
        FindName(left, L"deep");
        panels->seams.tree = &pathTree;
        panels->seams.trees = &keeper;
        pathTree.selected = tree.Wide("elsewhere/deep");
        left.tree = right.tree = reinterpret_cast<CTree*>(&standIn);
        left.style = kStyleTree;
    }
    ~DeletingInATree() override {
        left.style = kStyleFull;
        left.tree = right.tree = nullptr;
        panels->seams.tree = nullptr;
        panels->seams.trees = nullptr;
    }
    bool Exists(const std::string& name) { return std::filesystem::exists(tree.PathOf(name)); }

    SavingKeeper keeper;
    FixedTree pathTree;
    char standIn = 0;  // for trees that are never looked into
};

TEST_F(DeletingInATree, TakesThePathUnderTheCursor) {
    screen->PushKey(kKeyEnter);
    DeleteCommand(left);
    EXPECT_FALSE(Exists("elsewhere/deep"));
    EXPECT_TRUE(Exists("here/deep"));
    const std::string path = tree.PathOf("elsewhere/deep");
    EXPECT_THAT(keeper.calls, ElementsAre("removed 0 " + path, "removed 1 " + path, "save 0"));
    EXPECT_EQ(kAbortIdle, abortState);
}

TEST_F(DeletingInATree, ByNameSuggestsThePathUnderTheCursor) {
    screen->PushKey(kKeyEnter);
    screen->PushKey(kKeyEnter);
    DeleteNamedCommand(left);
    EXPECT_FALSE(Exists("elsewhere/deep"));
    EXPECT_TRUE(Exists("here/deep"));
    const std::string path = tree.PathOf("elsewhere/deep");
    EXPECT_THAT(keeper.calls, ElementsAre("removed 0 " + path, "removed 1 " + path, "save 0"));
}

TEST_F(DeletingInATree, SavesTheOtherPanelsTreeAfterAGroup) {
    Tag(left, "deep");
    settings.confirmations = 7;
    DeleteCommand(left);
    EXPECT_FALSE(Exists("here/deep"));
    ASSERT_FALSE(keeper.calls.empty());
    EXPECT_EQ("save 1", keeper.calls.back());
}

TEST_F(DeletingInATree, LeavesEverythingOnEsc) {
    screen->PushKey(kKeyEsc);
    DeleteCommand(left);
    screen->PushKey(kKeyEsc);
    DeleteNamedCommand(left);
    EXPECT_TRUE(Exists("elsewhere/deep"));
    EXPECT_TRUE(keeper.calls.empty());
    EXPECT_EQ(kAbortIdle, abortState);
}

}  // namespace
}  // namespace zt
