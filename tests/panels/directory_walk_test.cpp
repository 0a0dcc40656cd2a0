// The walk that adds up what lies below a directory, on real trees.
#include "panels/directory_walk.h"

#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <map>

#include "panels/panel.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::Pair;

bool Never() {
    return false;
}

int OpenDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<int>(std::distance(begin(all), end(all)));
}

class Walk : public testing::Test {
protected:
    int64_t Total(const std::string& name = "", const StopWanted& stop = Never) {
        DirectoryWalk walk(progress, stop);
        return walk.Total(name.empty() ? tree.Path().c_str() : tree.PathOf(name).c_str());
    }
    TemporaryTree tree;
    WalkProgress progress;
};

TEST_F(Walk, AddsUpAllFilesBelow) {
    tree.File("a", 1000);
    tree.File(".hidden", 200);
    tree.Folder("sub");
    tree.File("sub/b", 30);
    tree.Folder("sub/.deep");
    tree.File("sub/.deep/c", 4);
    tree.Folder("empty");
    EXPECT_EQ(Total(), 1234);
    EXPECT_EQ(progress.Directories(), 4u);
    EXPECT_EQ(progress.Files(), 4u);
    EXPECT_EQ(progress.Bytes(), 1234u);
    EXPECT_EQ(Total("sub"), 34);
    EXPECT_EQ(progress.Bytes(), 1268u) << "the counts go on over several walks";
}

TEST_F(Walk, TakesSizesBeyondFourGibibytes) {
    tree.File("a", off_t{5} << 30);
    tree.File("b", off_t{6} << 30);
    EXPECT_EQ(Total(), int64_t{11} << 30);
}

TEST_F(Walk, CountsAFileForEachOfItsNames) {
    tree.File("a", 10);
    ASSERT_EQ(link(tree.PathOf("a").c_str(), tree.PathOf("b").c_str()), 0);
    EXPECT_EQ(Total(), 20);
    EXPECT_EQ(progress.Files(), 2u);
}

TEST_F(Walk, LeavesSymbolicLinksOut) {
    tree.File("a", 10);
    tree.Folder("sub");
    tree.Link("sub/file", "../a");
    tree.Link("sub/directory", "..");
    tree.Link("sub/broken", "nothing");
    tree.Link("sub/itself", "itself");
    EXPECT_EQ(Total("sub"), 0);
    EXPECT_EQ(progress.Files(), 0u);
    EXPECT_EQ(progress.Directories(), 1u);
}

TEST_F(Walk, CountsOtherThingsAsFilesWithoutSize) {
    ASSERT_EQ(mkfifo(tree.PathOf("pipe").c_str(), 0600), 0);
    EXPECT_EQ(Total(), 0);
    EXPECT_EQ(progress.Files(), 1u);
}

TEST_F(Walk, GivesNothingForWhatIsNoDirectory) {
    tree.File("a", 10);
    tree.Folder("sub");
    tree.File("sub/b", 10);
    tree.Link("link", "sub");
    EXPECT_EQ(Total("a"), 0);
    EXPECT_EQ(Total("missing"), 0);
    EXPECT_EQ(Total("link"), 0);
}

TEST_F(Walk, TakesNamesOfAnyBytes) {
    for (const char* name : {"\xFF\xFE", "line\nfeed", "-rf", " ", "*", "caf\xC3\xA9", "caf\xE9"}) {
        tree.Folder(name);
        tree.File(std::string(name) + "/" + name, 3);
    }
    const std::string longest(255, 'x');
    tree.Folder(longest);
    tree.File(longest + "/" + longest, 3);
    EXPECT_EQ(Total(), 24);
    EXPECT_EQ(progress.Directories(), 9u);
}

TEST_F(Walk, AddsNothingForWhatMayNotBeRead) {
    tree.File("a", 1);
    tree.Folder("closed");
    tree.File("closed/b", 10);
    tree.Folder("listed");
    tree.File("listed/c", 100);
    tree.Folder("open");
    tree.File("open/d", 1000);
    tree.Mode("closed", 0);
    tree.Mode("listed", 0744);
    const OrdinaryUser user;
    EXPECT_EQ(Total(), 1001);
    EXPECT_EQ(Total("closed"), 0);
}

TEST_F(Walk, LeavesNoDescriptorOpen) {
    for (int i = 0; i < 50; ++i)
        tree.Folder("d" + std::to_string(i));
    const int before = OpenDescriptors();
    EXPECT_EQ(Total(), 0);
    EXPECT_EQ(OpenDescriptors(), before);
    int asks = 0;
    EXPECT_EQ(Total("", [&asks] { return ++asks == 20; }), DirectoryWalk::kStopped);
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(Walk, StopsBeforeItBegins) {
    tree.File("a", 1);
    EXPECT_EQ(Total("", [] { return true; }), DirectoryWalk::kStopped);
    EXPECT_EQ(progress.Files(), 0u);
    EXPECT_EQ(progress.Directories(), 0u);
}

TEST_F(Walk, StopsWithinADirectoryOfFiles) {
    for (int i = 0; i < 500; ++i)
        tree.File(std::to_string(i));
    int asks = 0;
    EXPECT_EQ(Total("", [&asks] { return ++asks == 3; }), DirectoryWalk::kStopped);
    EXPECT_GT(progress.Files(), 0u);
    EXPECT_LT(progress.Files(), 500u);
}

TEST_F(Walk, StopsAtEveryDepth) {
    std::string name = "d";
    for (int depth = 0; depth < 20; ++depth, name += "/d") {
        tree.Folder(name);
        tree.File(name + "/f", 1);
    }
    int all = 0;
    EXPECT_EQ(Total("d", [&all] { return ++all < 0; }), 20);
    for (int stopAt = 1; stopAt < all; ++stopAt) {
        int asks = 0;
        EXPECT_EQ(Total("d", [&] { return ++asks == stopAt; }), DirectoryWalk::kStopped) << stopAt;
        EXPECT_EQ(asks, stopAt) << "all levels end at once";
    }
}

TEST_F(Walk, TellsWhereItIs) {
    tree.Folder("sub");
    tree.Folder("sub/deep");
    std::vector<std::string> paths;
    EXPECT_EQ(Total("sub",
                    [&] {
                        if (paths.empty() || paths.back() != progress.Path())
                            paths.push_back(progress.Path());
                        return false;
                    }),
              0);
    EXPECT_THAT(paths,
                ElementsAre(tree.PathOf("sub"), tree.PathOf("sub/deep"), tree.PathOf("sub")));
}

// A chain of directories with names of 100 bytes; in each a file of a byte, and before and behind
// the next one a directory with a file of ten.
class DeepWalk : public Walk {
protected:
    ~DeepWalk() override { RemoveChain(); }

    void MakeChain(int levels) {
        int at = open(tree.Path().c_str(), O_RDONLY | O_DIRECTORY);
        for (int i = 0; i < levels; ++i) {
            Side(at, "before");
            ASSERT_EQ(mkdirat(at, kName.c_str(), 0755), 0) << i;
            Side(at, "later");
            const int next = openat(at, kName.c_str(), O_RDONLY | O_DIRECTORY);
            close(at);
            at = next;
            MakeFile(at, "f", 1);
        }
        close(at);
        levels_ = levels;
    }
    static void Side(int at, const char* name) {
        ASSERT_EQ(mkdirat(at, name, 0755), 0);
        MakeFile(at, (std::string(name) + "/g").c_str(), 10);
    }
    static void MakeFile(int at, const char* name, off_t size) {
        const int file = openat(at, name, O_CREAT | O_WRONLY, 0644);
        ASSERT_GE(file, 0);
        EXPECT_EQ(ftruncate(file, size), 0);
        close(file);
    }
    // Level by level from the top, since no path reaches its end.
    void RemoveChain() {
        const int at = open(tree.Path().c_str(), O_RDONLY | O_DIRECTORY);
        for (int i = 0; i < levels_; ++i) {
            renameat(at, kName.c_str(), at, "old");
            for (const char* side : {"old/before", "old/later"}) {
                unlinkat(at, (std::string(side) + "/g").c_str(), 0);
                unlinkat(at, side, AT_REMOVEDIR);
            }
            unlinkat(at, "old/f", 0);
            renameat(at, ("old/" + kName).c_str(), at, kName.c_str());
            unlinkat(at, "old", AT_REMOVEDIR);
        }
        close(at);
    }

    const std::string kName = std::string(100, 'n');
    int levels_ = 0;
};

TEST_F(DeepWalk, ComesBackFromThousandsOfLevelsWithFewDescriptors) {
    constexpr int kLevels = 3000;  // a path of 300 kB
    MakeChain(kLevels);
    rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit few{static_cast<rlim_t>(OpenDescriptors() + 40), before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
    EXPECT_EQ(Total(), kLevels * 21);
    EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(progress.Directories(), 1u + 3 * kLevels);
    EXPECT_EQ(progress.Files(), 3u * kLevels);
    EXPECT_EQ(progress.Path(), tree.Path());
}

TEST_F(DeepWalk, FindsItsWayWhenABranchIsMovedAway) {
    constexpr int kLevels = 80;
    MakeChain(kLevels);
    tree.Folder("elsewhere");
    const std::string from = kName + "/" + kName + "/" + kName;
    const std::string to = "elsewhere/moved";
    const size_t deepest = tree.Path().size() + kLevels * (kName.size() + 1);
    bool isMoved = false;
    const auto moveAtTheEnd = [&] {
        if (!isMoved && progress.Path().size() >= deepest) {
            isMoved = rename(tree.PathOf(from).c_str(), tree.PathOf(to).c_str()) == 0;
        }
        return false;
    };
    // Above where the branch was, the two other directories of each level are still to come, or
    // have been counted; what came in between by its new place may be counted twice, never less.
    EXPECT_GE(Total("", moveAtTheEnd), kLevels * 21);
    EXPECT_TRUE(isMoved);
    ASSERT_EQ(rename(tree.PathOf(to).c_str(), tree.PathOf(from).c_str()), 0);
}

// The nodes of a tree are the paths that were asked for.
class PathTotals : public ITreeTotals {
public:
    TREENODE* NodeOf(CPanel&, const Westring& path) override {
        return Node(NameToBytes(path).c_str());
    }
    TREENODE* ChildOf(TREENODE& node, const wchar_t* name) override {
        if (wcscmp(name, L"unknown") == 0) return nullptr;
        return Node(Path(node) + "/" + NameToBytes(name).c_str());
    }
    void SetTotal(TREENODE& node, uint64_t bytes) override { totals[Path(node)] = bytes; }
    bool HasChanged(CPanel&) override { return false; }

    TREENODE* Node(const std::string& path) {
        return reinterpret_cast<TREENODE*>(&*nodes_.insert({path, 0}).first);
    }
    std::map<std::string, uint64_t> totals;

private:
    std::string Path(TREENODE& node) {
        return reinterpret_cast<std::pair<const std::string, int>&>(node).first;
    }
    std::map<std::string, int> nodes_;
};

TEST_F(Walk, TellsTheTreeTheTotalOfEachDirectoryItHolds) {
    tree.Folder("a");
    tree.File("a/f", 1);
    tree.Folder("a/b");
    tree.File("a/b/f", 20);
    tree.Folder("a/unknown");
    tree.File("a/unknown/f", 300);
    tree.Folder("a/unknown/c");
    PathTotals totals;
    DirectoryWalk walk(progress, Never, &totals);
    EXPECT_EQ(walk.Total(tree.PathOf("a").c_str(), totals.Node("/a")), 321);
    EXPECT_THAT(totals.totals, ElementsAre(Pair("/a", 321u), Pair("/a/b", 20u)));
}

TEST_F(Walk, TellsTheTreeNothingOfAWalkThatWasStopped) {
    tree.Folder("a");
    tree.Folder("a/b");
    PathTotals totals;
    int asks = 0;
    DirectoryWalk walk(
        progress, [&] { return ++asks == 2; }, &totals);
    EXPECT_EQ(walk.Total(tree.PathOf("a").c_str(), totals.Node("/a")), DirectoryWalk::kStopped);
    EXPECT_TRUE(totals.totals.empty());
}

// In a child process with mounts of its own. The status is what went wrong.
int WalkOverMounts(const TemporaryTree& tree) {
    if (unshare(CLONE_NEWNS) != 0) return 77;
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return 77;
    const std::string mounted = tree.PathOf("mounted");
    const std::string bound = tree.PathOf("bound");
    if (mount("tmpfs", mounted.c_str(), "tmpfs", 0, nullptr) != 0) return 77;
    if (mount(tree.PathOf("other").c_str(), bound.c_str(), nullptr, MS_BIND, nullptr) != 0)
        return 77;
    const int file = open((mounted + "/f").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
    if (file < 0 || ftruncate(file, 500) != 0) return 1;
    close(file);
    WalkProgress progress;
    DirectoryWalk walk(progress, Never);
    if (walk.Total(tree.Path().c_str()) != 27) return 2;
    if (progress.Directories() != 2) return 3;
    return walk.Total(mounted.c_str()) == 500 ? 0 : 4;
}

TEST_F(Walk, StaysOutOfMountPointsButTheOneItIsGiven) {
    tree.File("a", 7);
    tree.Folder("mounted");
    tree.Folder("bound");
    tree.Folder("other");
    tree.File("other/f", 20);
    const pid_t child = fork();
    if (child == 0) _exit(WalkOverMounts(tree));
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == 77) GTEST_SKIP() << "may not mount anything here";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace zt
