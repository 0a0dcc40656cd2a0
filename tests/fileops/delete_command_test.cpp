// Deleting the tagged entries of a panel, or the current one, once that has been confirmed.
#include "fileops/delete_command.h"

#include "panels/panel_pair.h"
#include "tests/fileops/delete_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Remembers which panel's tree was saved.
class SavedTrees : public ITreeKeeper {
public:
    std::vector<int> saved;

    void DirectoryAdded(CPanel&, const Westring&) override {}
    bool DirectoryRemoved(CPanel&, const Westring&) override { return true; }
    void DirectoryRenamed(CPanel&, const Westring&, const Westring&) override {}
    void Save(CPanel& panel) override { saved.push_back(panel.side); }
    bool Pick(CPanel&, Westring&, int) override { return false; }
};

class DeletingTheGroup : public Deletion {
protected:
    DeletingTheGroup() {
        panel.path = tree.Wide();
        panels.seams.trees = &trees;
    }

    // An entry as a read would have it, and what it stands for on the disk.
    void Add(const std::string& name, uint16_t flags, bool tagged = true) {
        entry* made = NewEntry(NameFromBytes(name.c_str()).c_str());
        made->flags = flags;
        made->tagged = tagged;
        panel.entries.Append(*made);
        FreeEntry(made);
        panel.taggedCount += tagged;
    }
    void AddFile(const std::string& name, bool tagged = true) {
        tree.File(name);
        Add(name, 0, tagged);
    }
    void AddFolder(const std::string& name, bool tagged = true) {
        tree.Folder(name);
        Add(name, kDirectory, tagged);
    }

    PanelPair panels;
    CPanel& panel = panels.panel[0];
    SavedTrees trees;
    char standIn = 0;  // for a tree that is never looked into
};

TEST_F(DeletingTheGroup, GoesThroughTheListInItsOrder) {
    AddFolder("dir");
    AddFile("z");
    AddFile("kept", false);
    AddFile("a");
    DeleteExecute(operation, panel);
    EXPECT_THAT(user.log, ElementsAre("show z", "show a", "hide"));
    EXPECT_THAT(Names(), ElementsAre("kept"));
}

TEST_F(DeletingTheGroup, TakesTheCurrentEntryWithoutOne) {
    AddFile("a", false);
    AddFile("b", false);
    panel.cursor = 1;
    DeleteExecute(operation, panel);
    EXPECT_THAT(user.log, ElementsAre("show b", "hide"));
    EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(DeletingTheGroup, NeverTakesTheParent) {
    Add("..", kDirectory, false);
    DeleteExecute(operation, panel);
    EXPECT_TRUE(Exists(""));
    EXPECT_THAT(user.log, IsEmpty());
}

TEST_F(DeletingTheGroup, UnlinksALinkToADirectory) {
    tree.Folder("outside");
    tree.File("outside/precious");
    tree.Link("link", "outside");
    Add("link", kDirectory | kSymbolicLink);
    DeleteExecute(operation, panel);
    EXPECT_THAT(Names(), ElementsAre("outside"));
    EXPECT_THAT(Names("outside"), ElementsAre("precious"));
    EXPECT_THAT(user.Questions(), IsEmpty());
}

TEST_F(DeletingTheGroup, EndsAtEsc) {
    for (const char* name : {"a", "b", "c"})
        AddFile(name);
    int polls = 0;
    user.onPoll = [&] { user.pressesEsc = ++polls == 2; };
    DeleteExecute(operation, panel);
    EXPECT_THAT(Names(), ElementsAre("b", "c"));
    EXPECT_EQ("hide", user.log.back());
}

TEST_F(DeletingTheGroup, EndsAtBreak) {
    for (const char* name : {"a", "b", "c"})
        AddFile(name);
    abortState = kAbortPossible;
    user.onPoll = [] { abortState = kAbortRequested; };
    DeleteExecute(operation, panel);
    EXPECT_THAT(Names(), ElementsAre("b", "c")) << "what is being done is done";
    user.log.clear();
    DeleteExecute(operation, panel);
    EXPECT_THAT(user.log, ElementsAre("hide")) << "nothing is begun any more";
}

TEST_F(DeletingTheGroup, EndsAtARefusedTree) {
    AddFolder("dir");
    tree.File("dir/in");
    AddFile("a");
    user.treeAnswer = 'n';
    DeleteExecute(operation, panel);
    EXPECT_THAT(user.log, ElementsAre("tree dir", "hide"));
    EXPECT_THAT(Names(), ElementsAre("a", "dir"));
}

TEST_F(DeletingTheGroup, GoesOnAfterAFailureThatIsSkipped) {
    for (const char* name : {"a", "b", "c"})
        AddFile(name);
    ASSERT_EQ(0, unlink(tree.PathOf("b").c_str()));
    user.answers = {'y'};
    DeleteExecute(operation, panel);
    EXPECT_THAT(user.Questions(), ElementsAre("error 2: b"));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeletingTheGroup, EndsAtAFailureThatIsCancelled) {
    for (const char* name : {"a", "b", "c"})
        AddFile(name);
    ASSERT_EQ(0, unlink(tree.PathOf("a").c_str()));
    DeleteExecute(operation, panel);
    EXPECT_THAT(Names(), ElementsAre("b", "c"));
}

TEST_F(DeletingTheGroup, WritesTheDescriptionsOnce) {
    for (const char* name : {"a", "b", "c"})
        AddFile(name);
    Write("descript.ion", "a 1\nkept 2\nc 3\n");
    struct stat before, after;
    ASSERT_EQ(0, stat(tree.PathOf("descript.ion").c_str(), &before));
    user.onPoll = [&] {
        ASSERT_EQ(0, stat(tree.PathOf("descript.ion").c_str(), &after));
        EXPECT_EQ(before.st_ino, after.st_ino);
    };
    DeleteExecute(operation, panel);
    EXPECT_EQ("kept 2\n", Content("descript.ion"));
}

TEST_F(DeletingTheGroup, WritesTheDescriptionsWhenItEndsEarly) {
    for (const char* name : {"a", "b"})
        AddFile(name);
    Write("descript.ion", "a 1\nb 2\n");
    int polls = 0;
    user.onPoll = [&] { user.pressesEsc = ++polls == 2; };
    DeleteExecute(operation, panel);
    EXPECT_EQ("b 2\n", Content("descript.ion"));
}

TEST_F(DeletingTheGroup, WorksInADirectoryWhosePathTheSystemDoesNotTake) {
    // Below 4096 bytes for the directory, above with a name.
    std::string path = tree.Path();
    while (path.size() + 201 < 4090) {
        path += "/" + std::string(200, 'd');
        ASSERT_EQ(0, mkdir(path.c_str(), 0755));
    }
    const std::string name(250, 'n');
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY);
    close(openat(folder, name.c_str(), O_CREAT | O_WRONLY, 0644));
    panel.path = NameFromBytes(path.c_str());
    Add(name, 0);
    DeleteExecute(operation, panel);
    EXPECT_EQ(-1, faccessat(folder, name.c_str(), F_OK, 0));
    EXPECT_THAT(user.Questions(), IsEmpty());
    close(folder);
}

TEST_F(DeletingTheGroup, SavesTheTreeWhenThereWereDirectories) {
    panel.tree = reinterpret_cast<CTree*>(&standIn);
    AddFile("a");
    DeleteExecute(operation, panel);
    EXPECT_THAT(trees.saved, IsEmpty());
    AddFolder("dir");
    tree.File("a");
    DeleteExecute(operation, panel);
    EXPECT_THAT(trees.saved, ElementsAre(0));
}

TEST_F(DeletingTheGroup, SavesTheTreeAfterASingleDirectory) {
    panel.tree = reinterpret_cast<CTree*>(&standIn);
    AddFolder("dir", false);
    DeleteExecute(operation, panel);
    EXPECT_THAT(trees.saved, ElementsAre(0));
    EXPECT_FALSE(Exists("dir"));
}

}  // namespace
}  // namespace zt
