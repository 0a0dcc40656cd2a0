// Deleting a directory with all that is in it.
#include "tests/fileops/delete_fixture.h"

#include <pthread.h>
#include <sys/resource.h>

#include "fileops/raw_listing.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class DeletingATree : public Deletion {
protected:
    // Folders a, a/b, a/b/c with a file "f" in each.
    void MakeThree() {
        for (const char* folder : {"a", "a/b", "a/b/c"}) {
            tree.Folder(folder);
            tree.File(std::string(folder) + "/f");
        }
    }
    // A folder "outside" with a file; what a swapped link points to.
    void MakeOutside() {
        tree.Folder("outside");
        tree.File("outside/precious");
    }
    bool OutsideIsWhole() const { return Names("outside") == std::vector<std::string>{"precious"}; }
    void Rename(const std::string& from, const std::string& to) {
        ASSERT_EQ(0, rename(tree.PathOf(from).c_str(), tree.PathOf(to).c_str())) << from;
    }

    int polls = 0;
};

TEST_F(DeletingATree, RemovesEverythingBelow) {
    MakeThree();
    tree.Folder("a/empty");
    tree.File("a/b/.hidden");
    ASSERT_EQ(0, mkfifo(tree.PathOf("a/b/c/fifo").c_str(), 0600));
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(user.Questions(), ElementsAre("tree a"));
    EXPECT_EQ("hide", user.log.back());
    EXPECT_EQ(0, operation.deleteTreeDepth);
}

TEST_F(DeletingATree, ShowsEachFile) {
    MakeThree();
    EXPECT_EQ(1, Directory("a"));
    user.log.erase(user.log.begin());
    EXPECT_THAT(user.log, UnorderedElementsAre("show a/f", "show a/b/f", "show a/b/c/f", "hide"));
}

TEST_F(DeletingATree, UnlinksLinksAndFollowsNone) {
    MakeOutside();
    tree.Folder("a");
    tree.Link("a/folder", "../outside");
    tree.Link("a/file", "../outside/precious");
    tree.Link("a/itself", ".");
    tree.Link("a/up", "..");
    tree.Link("a/broken", "nothing");
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(Names(), ElementsAre("outside"));
    EXPECT_TRUE(OutsideIsWhole());
}

TEST_F(DeletingATree, LeavesWhatAMaskDoesNotName) {
    MakeThree();
    tree.File("a/one.txt");
    tree.File("a/b/two.TXT");
    tree.Folder("a/only");
    tree.File("a/only/three.txt");
    tree.Folder("a/d.txt");
    tree.File("a/d.txt/f");
    const Westring mask = "*.txt";
    EXPECT_EQ(1, Directory("a", &mask));
    EXPECT_THAT(Names("a"), ElementsAre("b", "d.txt", "f"));
    EXPECT_THAT(Names("a/b"), ElementsAre("c", "f"));
    EXPECT_THAT(Names("a/d.txt"), ElementsAre("f"));
    EXPECT_THAT(user.Questions(), ElementsAre("tree a")) << "what stays is not asked about";
}

TEST_F(DeletingATree, StopsAtEsc) {
    tree.Folder("a");
    for (int i = 0; i < 20; i++)
        tree.File("a/" + std::to_string(i));
    user.onPoll = [&] { user.pressesEsc = ++polls == 6; };
    EXPECT_EQ(-1, Directory("a"));
    EXPECT_EQ(6, polls) << "before each entry";
    EXPECT_EQ(15u, Names("a").size());
    EXPECT_EQ("hide", user.log.back());
    EXPECT_EQ(0, operation.deleteTreeDepth);
}

TEST_F(DeletingATree, StopsAtEscAnyDepth) {
    MakeThree();
    for (int wanted = 1; wanted <= 5; wanted++) {
        polls = 0;
        user.onPoll = [&] { user.pressesEsc = ++polls == wanted; };
        const int result = Directory("a");
        if (Exists("a")) {
            EXPECT_EQ(-1, result) << wanted;
        } else {
            MakeThree();
        }
        user.pressesEsc = false;
    }
}

TEST_F(DeletingATree, StopsAtBreak) {
    MakeThree();
    abortState = kAbortPossible;
    user.onPoll = [] { abortState = kAbortRequested; };
    EXPECT_EQ(-1, Directory("a"));
    EXPECT_TRUE(Exists("a"));
    user.onPoll = nullptr;
    abortState = kAbortPossible;
    EXPECT_EQ(1, Directory("a"));
}

TEST_F(DeletingATree, GoesOnAfterAFileThatStays) {
    tree.Folder("a");
    tree.Folder("a/sub");
    tree.File("a/sub/f");
    tree.File("a/x");
    tree.File("a/y");
    // The first file of the walk is replaced by a folder with something in it: unlink refuses.
    user.onPoll = [&] {
        if (!Exists("a/x") || Exists("a/x/in")) return;
        ASSERT_EQ(0, unlink(tree.PathOf("a/x").c_str()));
        tree.Folder("a/x");
        tree.File("a/x/in");
    };
    user.answers = {'s'};
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(user.Questions(), ElementsAre("tree a", "error 21: a/x"));
    EXPECT_THAT(Names("a"), ElementsAre("x")) << "left as not empty, without a word";
}

TEST_F(DeletingATree, StopsWhenABoxIsLeftByEsc) {
    tree.Folder("a");
    tree.File("a/x");
    bool once = true;
    user.onPoll = [&] {
        if (!once) return;
        once = false;
        ASSERT_EQ(0, unlink(tree.PathOf("a/x").c_str()));
    };
    EXPECT_EQ(-1, Directory("a"));
    EXPECT_THAT(user.Questions(), ElementsAre("tree a", "error 2: a/x"));
    EXPECT_TRUE(Exists("a"));
}

// --- A directory that changes under the walk ---

TEST_F(DeletingATree, DoesNotFollowALinkThatTookTheTopsPlace) {
    MakeOutside();
    MakeThree();
    bool swapped = false;
    user.onPoll = [&] {
        if (swapped) return;
        swapped = true;
        Rename("a", "moved");
        tree.Link("a", "outside");
    };
    user.answers = {'y', 'y'};
    EXPECT_EQ(1, Directory("a"));
    EXPECT_TRUE(OutsideIsWhole());
    EXPECT_THAT(user.Questions(),
                ElementsAre("tree a", "ask Directory does not exist, cannot delete: a"));
    EXPECT_TRUE(Exists("a")) << "the link is not the directory that was to go";
}

TEST_F(DeletingATree, DoesNotFollowALinkThatTookAFoldersPlaceBeforeItIsEntered) {
    MakeOutside();
    tree.Folder("a");
    tree.Folder("a/b");
    bool swapped = false;
    user.onPoll = [&] {
        if (swapped) return;
        swapped = true;
        Rename("a/b", "moved");
        tree.Link("a/b", "../outside");
    };
    user.answers = {'y'};
    EXPECT_EQ(1, Directory("a"));
    EXPECT_TRUE(OutsideIsWhole());
    EXPECT_THAT(user.Questions(),
                ElementsAre("tree a", "ask Directory does not exist, cannot delete: a/b"));
}

TEST_F(DeletingATree, DoesNotFollowALinkThatTookAFoldersPlaceWhileItIsEmptied) {
    MakeOutside();
    tree.Folder("a");
    tree.Folder("a/b");
    tree.File("a/b/precious");
    tree.File("a/b/other");
    bool swapped = false;
    user.onPoll = [&] {
        // The first poll is before "b", the second inside it.
        if (swapped || user.log.size() != 1 || ++polls < 2) return;
        swapped = true;
        Rename("a/b", "moved");
        tree.Link("a/b", "../outside");
    };
    user.answers = {'y'};
    EXPECT_EQ(1, Directory("a"));
    EXPECT_TRUE(swapped);
    EXPECT_TRUE(OutsideIsWhole());
    EXPECT_THAT(Names("moved"), IsEmpty()) << "it was this one that was being emptied";
}

TEST_F(DeletingATree, DoesNotGoOnInAnotherParent) {
    // Deeper than the directories that stay open, so that the way back leads through "..".
    constexpr int kDepth = 60;
    tree.Folder("elsewhere");
    tree.File("elsewhere/precious");
    tree.Folder("a");
    std::string path = "a";
    std::vector<std::string> folders{path};
    for (int i = 0; i < kDepth; i++) {
        path += "/d";
        tree.Folder(path);
        folders.push_back(path);
    }
    tree.File(path + "/last");
    bool moved = false;
    user.onPoll = [&] {
        if (moved || !Exists(path + "/last")) return;
        if (++polls <= kDepth) return;
        moved = true;
        Rename(folders[10], "elsewhere/d");
    };
    user.answers = {'s'};
    EXPECT_EQ(-1, Directory("a"));
    EXPECT_TRUE(moved);
    EXPECT_THAT(Names("elsewhere"), testing::Contains("precious"));
    ASSERT_EQ(2u, user.Questions().size());
    EXPECT_THAT(user.Questions()[1], testing::StartsWith("error 116: a/d"));
}

// --- Depth ---

struct DeepRun {
    FileOperation& operation;
    Westring path;
    int result;
};

void* RunDeep(void* argument) {
    auto& run = *static_cast<DeepRun*>(argument);
    run.result = DeleteDirectory(run.operation, nullptr, run.path, nullptr, nullptr);
    return nullptr;
}

// As on a thread of 256 KiB.
int OnASmallStack(FileOperation& operation, const Westring& path) {
    DeepRun run{operation, path, -99};
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 256 * 1024);
    pthread_t thread;
    EXPECT_EQ(0, pthread_create(&thread, &attributes, RunDeep, &run));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    return run.result;
}

void MakeDeep(const std::string& top, int levels, const std::string& name) {
    ASSERT_EQ(0, mkdir(top.c_str(), 0755));
    int folder = open(top.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < levels; i++) {
        ASSERT_EQ(0, mkdirat(folder, name.c_str(), 0755)) << i;
        const int file = openat(folder, "file", O_CREAT | O_WRONLY, 0644);
        ASSERT_GE(file, 0);
        close(file);
        const int next = openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY);
        ASSERT_GE(next, 0);
        close(folder);
        folder = next;
    }
    close(folder);
}

TEST_F(DeletingATree, NeedsNeitherStackNorDescriptorsForDepth) {
    constexpr int kLevels = 5000;
    MakeDeep(tree.PathOf("a"), kLevels, std::string(100, 'd'));
    settings.confirmations = 4;
    rlimit before;
    ASSERT_EQ(0, getrlimit(RLIMIT_NOFILE, &before));
    rlimit few = before;
    few.rlim_cur = 80;
    ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &few));
    int files = 0;
    user.onPoll = [&] { files++; };
    user.notesShows = false;  // paths of half a million bytes
    EXPECT_EQ(1, OnASmallStack(operation, tree.Wide("a")));
    ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &before));
    EXPECT_EQ(2 * kLevels, files);
    EXPECT_FALSE(Exists("a"));
}

TEST_F(DeletingATree, StopsDeepBelow) {
    constexpr int kLevels = 300;
    MakeDeep(tree.PathOf("a"), kLevels, "d");
    Write("a/descript.ion", "file this\nd that\n");
    user.onPoll = [&] { user.pressesEsc = ++polls == 2 * kLevels; };
    EXPECT_EQ(-1, Directory("a"));
    EXPECT_TRUE(Exists("a"));
    user.onPoll = nullptr;
    user.pressesEsc = false;
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(Names(), IsEmpty());
}

// --- Descriptions ---

TEST_F(DeletingATree, KeepsTheDescriptionsOfWhatStays) {
    tree.Folder("a");
    tree.Folder("a/b");
    for (const char* name : {"a/one.txt", "a/two.bin", "a/b/three.txt", "a/b/four.bin"})
        tree.File(name);
    Write("a/descript.ion", "one.txt 1\ntwo.bin 2\nb folder\n");
    Write("a/b/descript.ion", "four.bin 4\r\nthree.txt 3\r\n");
    const Westring mask = "*.txt";
    EXPECT_EQ(1, Directory("a", &mask));
    EXPECT_EQ("two.bin 2\nb folder\n", Content("a/descript.ion"));
    EXPECT_EQ("four.bin 4\r\n", Content("a/b/descript.ion"));
}

TEST_F(DeletingATree, KeepsTheDescriptionsOfWhatStaysWhenStopped) {
    tree.Folder("a");
    std::string all;
    for (int i = 0; i < 10; i++) {
        tree.File("a/" + std::to_string(i));
        all += std::to_string(i) + " text\n";
    }
    Write("a/descript.ion", all);
    user.onPoll = [&] { user.pressesEsc = ++polls == 5; };
    EXPECT_EQ(-1, Directory("a"));
    const std::vector<std::string> left = Names("a");
    std::string expected;
    bool hasFile = false;
    for (const std::string& name : left) {
        if (name == "descript.ion") {
            hasFile = true;
        } else {
            expected += name + " text\n";
        }
    }
    EXPECT_EQ(7u, left.size());
    EXPECT_EQ(hasFile ? expected : "not there", Content("a/descript.ion"));
}

// --- A large directory ---

TEST_F(DeletingATree, TakesEachEntryOfALargeDirectoryOnce) {
    constexpr size_t kFiles = RawListing::kSortedFrom + 500;
    tree.Folder("a");
    tree.Folder("a/sub");
    for (size_t i = 0; i < kFiles; i++)
        tree.File("a/" + std::to_string(i * 7919 % kFiles));
    user.notesShows = false;
    user.onPoll = [&] { polls++; };
    EXPECT_EQ(1, Directory("a"));
    EXPECT_EQ(kFiles + 1, static_cast<size_t>(polls));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(user.Questions(), ElementsAre("tree a"));
}

// --- Names ---

TEST_F(DeletingATree, KeepsFoldersThatLookAlikeApart) {
    tree.Folder("a");
    tree.Folder("a/x\xFF");
    tree.File("a/x\xFF/inside");
    tree.Folder("x\xC3\xBF");
    tree.File("x\xC3\xBF/inside");
    EXPECT_EQ(1, Directory("a"));
    EXPECT_THAT(Names(), ElementsAre("x\xC3\xBF"));
    EXPECT_THAT(Names("x\xC3\xBF"), ElementsAre("inside"));
}

TEST_F(DeletingATree, TakesAnyName) {
    const std::string names[] = {"-rf",
                                 "*",
                                 "$(x)",
                                 "a b",
                                 "'",
                                 "\"",
                                 "a\nb",
                                 "\xFE\xFF",
                                 "\\",
                                 "...",
                                 std::string(255, 'n')};
    tree.Folder("top");
    for (const std::string& name : names) {
        tree.Folder("top/" + name);
        tree.File("top/" + name + "/" + name);
    }
    EXPECT_EQ(1, Directory("top"));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(user.Questions(), ElementsAre("tree top"));
}

}  // namespace
}  // namespace zt
