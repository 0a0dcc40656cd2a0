// The instruments of the tests that nothing is lost: the injector of faults against small programs,
// the snapshots, the hostile names, the small file systems.
#include <cerrno>
#include <fstream>
#include <set>

#include "tests/support/fault_control.h"
#include "tests/support/hostile_names.h"
#include "tests/support/session.h"
#include "tests/support/small_file_system.h"
#include "tests/support/tree_snapshot.h"

namespace zt::headless {
namespace {

using faults::Call;
using faults::Fault;
using testing::HasSubstr;

class FaultInjector : public testing::Test {
protected:
    // The status of a shell's command under the order; standard error is in `errors`.
    int Run(const std::string& command, const FaultOrder& order) {
        ProcessOptions options;
        options.program = "/bin/sh";
        options.arguments = {"-c", command};
        options.directory = tree.PathOf("in");
        options.environment = control.Environment();
        // The shell needs no sanitizer's library before the injector.
        std::string& library = options.environment["LD_PRELOAD"];
        library.erase(0, library.rfind(':') + 1);
        options.environment["PATH"] = "/usr/bin:/bin";
        options.environment["LC_ALL"] = "C";
        control.Arm(order);
        ChildProcess process;
        EXPECT_TRUE(process.Start(options));
        char bytes[4096];
        errors.clear();
        for (ssize_t n; (n = read(process.ErrorFd(), bytes, sizeof bytes)) > 0;)
            errors.append(bytes, static_cast<size_t>(n));
        while (!process.HasEnded()) {
        }
        return process.Status();
    }

    FileTree tree = FileTree();
    FaultControl control{tree.Path() + "/in"};
    std::string errors;
};

// The shell itself is the program; what it starts is left alone.
constexpr const char* kReadTwoLines = "{ read a; read b; } <file";
constexpr const char* kWrite = "echo some text >out";

TEST_F(FaultInjector, OnlyCounts) {
    tree.File("in/file", "1\n2\n").File("other", "3\n");
    ASSERT_EQ(0, Run("read a <../other; read b <file", {}));
    EXPECT_TRUE(control.IsLoaded());
    EXPECT_NE(0u, control.Find(Call::kOpen, "/in/file")) << control.History();
    EXPECT_EQ(0u, control.Hits());
    ASSERT_EQ(0, Run("read b <" + tree.PathOf("other"), {}));
    EXPECT_EQ(0u, control.Find(Call::kOpen, "/other")) << control.History();
}

TEST_F(FaultInjector, FailsTheCallOfThatNumber) {
    tree.File("in/file", "1\n2\n");
    ASSERT_EQ(0, Run(kReadTwoLines, {}));
    const uint32_t open = control.Find(Call::kOpen, "/in/file");
    ASSERT_NE(0u, open) << control.History();
    FaultOrder order;
    order.fault = Fault::kError;
    order.error = EIO;
    order.first = open;
    EXPECT_NE(0, Run(kReadTwoLines, order));
    EXPECT_THAT(errors, HasSubstr("error"));
    EXPECT_EQ(1u, control.Hits());
    order.first = control.Seen() + 100;
    EXPECT_EQ(0, Run(kReadTwoLines, order));
    EXPECT_EQ(0u, control.Hits());
}

TEST_F(FaultInjector, CountsOnlyTheCallsThatAreAskedFor) {
    tree.File("in/file", "1\n2\n");
    FaultOrder order;
    order.calls = BitOf(Call::kOpen);
    ASSERT_EQ(0, Run(kReadTwoLines, order));
    EXPECT_EQ(1u, control.Seen()) << control.History();
}

TEST_F(FaultInjector, WritesHalf) {
    tree.Folder("in");
    FaultOrder order;
    order.calls = BitOf(Call::kWrite);
    ASSERT_EQ(0, Run(kWrite, order));
    ASSERT_NE(0u, control.Seen());
    EXPECT_EQ("some text\n", tree.Content("in/out"));
    order.fault = Fault::kShort;
    order.first = 1;
    Run(kWrite, order);
    EXPECT_EQ(1u, control.Hits());
    EXPECT_EQ(2u, control.Seen()) << "the shell writes the rest";
    EXPECT_EQ("some text\n", tree.Content("in/out"));
}

TEST_F(FaultInjector, KillsTheProgram) {
    tree.File("in/file", "1\n2\n");
    FaultOrder order;
    order.fault = Fault::kKill;
    order.calls = BitOf(Call::kOpen);
    order.first = 1;
    EXPECT_EQ(-SIGKILL, Run(kReadTwoLines, order));
}

TEST(TreeSnapshots, SeeEveryDifference) {
    FileTree tree;
    tree.File("a", "1").File("sub/b", "22").Link("l", "a").Time("a", 1000);
    const TreeSnapshot before = TakeSnapshot(tree.Path());
    EXPECT_EQ("", Differences(before, TakeSnapshot(tree.Path())));
    EXPECT_EQ(4u, before.size());
    tree.Time("a", 1001);
    EXPECT_THAT(Differences(before, TakeSnapshot(tree.Path())), HasSubstr("changed: a"));
    tree.Time("a", 1000).Mode("a", 0600);
    EXPECT_THAT(Differences(before, TakeSnapshot(tree.Path())), HasSubstr("changed: a"));
    tree.Mode("a", before.at("a").rights).File("sub/b", "23");
    EXPECT_FALSE(TakeSnapshot(tree.Path()).at("sub/b").HoldsSameAs(before.at("sub/b")));
    tree.Remove("l").Link("l", "b");
    EXPECT_THAT(Differences(before, TakeSnapshot(tree.Path())), HasSubstr("changed: l"));
    tree.Remove("l").File("new\n");
    EXPECT_THAT(Differences(before, TakeSnapshot(tree.Path())), HasSubstr("gone: l"));
    EXPECT_THAT(Differences(before, TakeSnapshot(tree.Path())), HasSubstr("new: new\\x0A"));
}

TEST(HostileNameList, IsAsHostileAsItSays) {
    const std::vector<std::string> names = HostileNames(1000);
    EXPECT_EQ(1000u, std::set<std::string>(names.begin(), names.end()).size());
    size_t full = 0, dash = 0, feed = 0, legacy = 0;
    for (const std::string& name : names) {
        ASSERT_FALSE(name.empty());
        ASSERT_LE(name.size(), 255u);
        ASSERT_EQ(std::string::npos, name.find('/'));
        ASSERT_EQ(std::string::npos, name.find('\0'));
        full += name.size() == 255;
        dash += name[0] == '-';
        feed += name.find('\n') != std::string::npos;
        legacy += name.find('\xE4') != std::string::npos;
    }
    EXPECT_GT(full, 50u);
    EXPECT_GT(dash, 50u);
    EXPECT_GT(feed, 50u);
    EXPECT_GT(legacy, 50u);
    EXPECT_EQ(names, HostileNames(1000)) << "the same ones each time";
    FileTree tree;
    for (const std::string& name : names)
        tree.File(name, name);
    EXPECT_EQ(1000u, TakeSnapshot(tree.Path()).size());
}

TEST(SmallFileSystems, AreFullWhenTheyAre) {
    FileTree tree;
    tree.Folder("small");
    SmallFileSystem small(tree.PathOf("small"), 1 << 16);
    if (!small.IsMounted()) GTEST_SKIP() << small.Reason();
    EXPECT_LE(small.FreeBytes(), 1u << 16);
    std::ofstream file(tree.PathOf("small/file"), std::ios::binary);
    file << std::string(1 << 17, 'x');
    file.close();
    EXPECT_TRUE(file.fail());
    ASSERT_TRUE(small.MakeReadOnly());
    std::ofstream other(tree.PathOf("small/other"));
    EXPECT_FALSE(other.is_open());
}

TEST(SmallFileSystems, TellWhyTheyAreNot) {
    SmallFileSystem none("/nonexistent", 1 << 16);
    EXPECT_FALSE(none.IsMounted());
    EXPECT_NE("", none.Reason());
}

}  // namespace
}  // namespace zt::headless
