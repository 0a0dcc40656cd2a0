// Deleting a directory.
#include "tests/fileops/delete_fixture.h"

#include <sys/mount.h>

#include "panels/panel_pair.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeletingADirectory : public Deletion {};

TEST_F(DeletingADirectory, RemovesAnEmptyOneWithoutAQuestion) {
    tree.Folder("a");
    EXPECT_EQ(1, Directory("a"));
    tree.Folder("b");
    EXPECT_EQ(1, Directory("b///"));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(user.log, IsEmpty());
}

TEST_F(DeletingADirectory, AsksBeforeAFullOneGoes) {
    tree.Folder("a");
    tree.File("a/inside");
    user.treeAnswer = 'n';
    EXPECT_EQ(-1, Directory("a"));
    EXPECT_THAT(user.log, ElementsAre("tree a"));
    EXPECT_THAT(Names("a"), ElementsAre("inside"));
    EXPECT_GE(painter.stops, 1);
    user.treeAnswer = 'y';
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(user.log, ElementsAre("tree a", "tree a", "show a/inside", "hide"));
    EXPECT_FALSE(Exists("a"));
}

TEST_F(DeletingADirectory, CountsHiddenFiles) {
    tree.Folder("a");
    tree.File("a/.hidden");
    user.treeAnswer = 'n';
    EXPECT_EQ(-1, Directory("a"));
    EXPECT_THAT(user.log, ElementsAre("tree a"));
    EXPECT_TRUE(Exists("a/.hidden"));
}

TEST_F(DeletingADirectory, TakesAllForTheFollowingOnesToo) {
    for (const char* name : {"a", "b"}) {
        tree.Folder(name);
        tree.File(std::string(name) + "/inside");
    }
    user.treeAnswer = 'a';
    EXPECT_EQ(1, Directory("a"));
    EXPECT_TRUE(operation.deleteTreeAll);
    EXPECT_EQ(1, Directory("b"));
    EXPECT_THAT(user.Questions(), ElementsAre("tree a"));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeletingADirectory, AsksNothingWhereTheSettingsSaySo) {
    tree.Folder("a");
    tree.File("a/inside");
    settings.confirmations = 4;
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(user.Questions(), IsEmpty());
    EXPECT_THAT(Names(), IsEmpty());
    for (const int others : {1 | 2 | 8 | 16}) {
        tree.Folder("a");
        tree.File("a/inside");
        settings.confirmations = others;
        EXPECT_EQ(1, Directory("a"));
        EXPECT_THAT(user.Questions(), ElementsAre("tree a"));
    }
}

TEST_F(DeletingADirectory, LeavesTheParentAlone) {
    tree.Folder("a");
    ASSERT_EQ(0, chdir(tree.PathOf("a").c_str()));
    EXPECT_EQ(0, DeleteDirectory(operation, nullptr, L"..", nullptr, nullptr));
    ASSERT_EQ(0, chdir("/"));
    EXPECT_TRUE(Exists("a"));
    EXPECT_THAT(user.log, IsEmpty());
}

TEST_F(DeletingADirectory, TellsOfOneThatIsNotThere) {
    user.answers = {'y'};
    EXPECT_EQ(0, Directory("a"));
    EXPECT_EQ(0, Directory("a")) << "Esc ends this one only";
    EXPECT_THAT(user.log, ElementsAre("error 2: a", "error 2: a"));
}

TEST_F(DeletingADirectory, RefusesWhatIsNone) {
    tree.File("file");
    tree.Folder("folder");
    tree.File("folder/inside");
    tree.Link("link", "folder");
    user.answers = {'y', 'y', 'y'};
    EXPECT_EQ(0, Directory("file"));
    EXPECT_EQ(0, Directory("link"));
    EXPECT_EQ(0, Directory("link/"));
    EXPECT_THAT(user.log, ElementsAre("ask Directory does not exist, cannot delete: file",
                                      "ask Directory does not exist, cannot delete: link",
                                      "ask Directory does not exist, cannot delete: link"));
    EXPECT_THAT(Names(), ElementsAre("file", "folder", "link"));
    EXPECT_THAT(Names("folder"), ElementsAre("inside"));
}

TEST_F(DeletingADirectory, RefusesAPathThatLeadsPastTheRoot) {
    EXPECT_EQ(0, DeleteDirectory(operation, nullptr, L"/../x", nullptr, &painter));
    EXPECT_THAT(user.log, ElementsAre("ask Directory does not exist, cannot delete: /../x"));
    EXPECT_GE(painter.stops, 1);
}

TEST_F(DeletingADirectory, TriesAgainWhenThatIsTheAnswer) {
    user.answers = {'r', 's'};
    EXPECT_EQ(0, Directory("a"));
    EXPECT_THAT(user.log, ElementsAre("error 2: a", "error 2: a"));
}

TEST_F(DeletingADirectory, TellsOfAMountPoint) {
    tree.Folder("a");
    if (mount("none", tree.PathOf("a").c_str(), "tmpfs", 0, nullptr) != 0)
        GTEST_SKIP() << "nothing can be mounted here";
    user.answers = {'s'};
    EXPECT_EQ(0, Directory("a"));
    EXPECT_THAT(user.log, ElementsAre("error 16: a"));
    tree.File("a/inside");
    user.log.clear();
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(user.Questions(), ElementsAre("tree a", "error 16: a"));
    EXPECT_THAT(Names("a"), IsEmpty());
    EXPECT_EQ(0, umount(tree.PathOf("a").c_str()));
}

TEST_F(DeletingADirectory, KeepsItsDescriptionUnlessItsPathIsABareName) {
    tree.Folder("a");
    tree.Folder("b");
    Write("descript.ion", "a one\nb two\nc three\n");
    EXPECT_EQ(1, Directory("a"));
    EXPECT_EQ("a one\nb two\nc three\n", Content("descript.ion"));
    ASSERT_EQ(0, chdir(tree.Path().c_str()));
    EXPECT_EQ(1, DeleteDirectory(operation, nullptr, L"b", nullptr, nullptr));
    ASSERT_EQ(0, chdir("/"));
    EXPECT_EQ("a one\nc three\n", Content("descript.ion"));
}

TEST_F(DeletingADirectory, KeepsNamesThatLookAlikeApart) {
    for (const char* name : {"x\xC3\xBF", "x\xFF"}) {
        tree.Folder(name);
        tree.File(std::string(name) + "/inside");
    }
    EXPECT_EQ(1, Directory("x\xFF"));
    EXPECT_THAT(Names(), ElementsAre("x\xC3\xBF"));
    EXPECT_THAT(Names("x\xC3\xBF"), ElementsAre("inside"));
}

// Remembers what it was told.
class KeptTrees : public ITreeKeeper {
public:
    std::vector<std::string> log;
    int ignorant = -1;  // the side whose tree knows of nothing

    void DirectoryAdded(CPanel&, const Westring&) override {}
    bool DirectoryRemoved(CPanel& panel, const Westring& path) override {
        log.push_back(std::to_string(panel.side) + " " + NameToBytes(path).c_str());
        return panel.side != ignorant;
    }
    void DirectoryRenamed(CPanel&, const Westring&, const Westring&) override {}
    void Save(CPanel&) override { log.push_back("save"); }
    bool Pick(CPanel&, Westring&, int) override { return false; }
};

class DeletingBesideTrees : public Deletion {
protected:
    DeletingBesideTrees() { panels.seams.trees = &trees; }
    int Remove(const Westring& path) {
        return DeleteDirectory(operation, &panels, path, nullptr, nullptr);
    }
    CTree* SomeTree() { return reinterpret_cast<CTree*>(&standIn); }  // never looked into

    KeptTrees trees;
    PanelPair panels;
    char standIn = 0;
};

TEST_F(DeletingBesideTrees, TellsTheTreeOfEachPanel) {
    panels.panel[0].tree = panels.panel[1].tree = SomeTree();
    tree.Folder("a");
    tree.Folder("a/b");
    EXPECT_EQ(1, Remove(tree.Wide("a")));
    EXPECT_THAT(trees.log, ElementsAre("0 " + tree.PathOf("a/b"), "1 " + tree.PathOf("a/b"),
                                       "0 " + tree.PathOf("a"), "1 " + tree.PathOf("a")));
}

TEST_F(DeletingBesideTrees, EndsAtTheFirstPanelWithoutOne) {
    panels.panel[1].tree = SomeTree();
    tree.Folder("a");
    EXPECT_EQ(1, Remove(tree.Wide("a")));
    EXPECT_THAT(trees.log, IsEmpty());
}

TEST_F(DeletingBesideTrees, EndsAtATreeThatDoesNotKnowIt) {
    panels.panel[0].tree = panels.panel[1].tree = SomeTree();
    for (const int side : {1, 0}) {
        trees.ignorant = side;
        tree.Folder("a");
        EXPECT_EQ(1, Remove(tree.Wide("a")));
    }
    EXPECT_THAT(trees.log, ElementsAre("0 " + tree.PathOf("a"), "1 " + tree.PathOf("a"),  //
                                       "0 " + tree.PathOf("a")));
}

TEST_F(DeletingBesideTrees, TellsTheWholePathOfABareName) {
    panels.panel[0].tree = SomeTree();
    tree.Folder("a");
    ASSERT_EQ(0, chdir(tree.Path().c_str()));
    EXPECT_EQ(1, Remove(L"a"));
    ASSERT_EQ(0, chdir("/"));
    EXPECT_THAT(trees.log, ElementsAre("0 " + tree.PathOf("a")));
}

TEST_F(DeletingBesideTrees, SaysNothingOfADirectoryThatStays) {
    panels.panel[0].tree = SomeTree();
    tree.Folder("a");
    tree.File("a/inside");
    user.treeAnswer = 'n';
    EXPECT_EQ(-1, Remove(tree.Wide("a")));
    EXPECT_THAT(trees.log, IsEmpty());
}

}  // namespace
}  // namespace zt
