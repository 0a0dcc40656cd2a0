// The mount table and the mount of a path.
#include "panels/mount_table.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

class MountTable : public PanelFixture {
protected:
    std::string Write(const std::string& text) {
        const std::string name = tree.PathOf("mtab");
        std::ofstream(name) << text;
        return name;
    }
    MountPointStore list;
};

TEST_F(MountTable, ReadsEntriesInTheOrderOfTheFile) {
    const std::string table = Write(
        "proc /proc proc rw 0 0\n"
        "/dev/sda1 / ext4 rw 0 0\n"
        "\n"
        "# a remark\n"
        "short line\n"
        "/dev/sdb1 /with\\040blank\\134and\\011tab vfat rw 0 0\n");
    ASSERT_TRUE(ReadMountTable(list, true, table.c_str()));
    ASSERT_EQ(list.Count(), 3) << "a line of two words is none";
    EXPECT_STREQ(list.Peek(0)->mountPoint.c_str(), L"/proc");
    EXPECT_STREQ(list.Peek(1)->device.c_str(), L"/dev/sda1");
    EXPECT_STREQ(list.Peek(1)->fileSystem.c_str(), L"ext4");
    EXPECT_STREQ(list.Peek(2)->mountPoint.c_str(), L"/with blank\\and\ttab");
    EXPECT_EQ(list.Peek(2)->totalBytes, -1);
}

TEST_F(MountTable, LeavesOutWhatHasNoDevice) {
    const std::string table = Write("proc /proc proc rw\n/dev/sda1 / ext4 rw\nsysfs /sys sysfs\n");
    ASSERT_TRUE(ReadMountTable(list, false, table.c_str()));
    ASSERT_EQ(list.Count(), 1);
    EXPECT_STREQ(list.Peek(0)->mountPoint.c_str(), L"/");
}

TEST_F(MountTable, EmptiesTheListWhenTheTableCannotBeRead) {
    ASSERT_TRUE(ReadMountTable(list, true, Write("a / b\n").c_str()));
    EXPECT_FALSE(ReadMountTable(list, true, tree.PathOf("missing").c_str()));
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(MountTable, SurvivesLongLines) {
    const std::string table =
        Write("/dev/x /" + std::string(5000, 'y') + " ext4\n/dev/sda1 / ext4 rw\n");
    ASSERT_TRUE(ReadMountTable(list, true, table.c_str()));
    EXPECT_STREQ(list.Peek(list.Count() - 1)->mountPoint.c_str(), L"/");
}

TEST_F(MountTable, FindsTheLongestMountPointThatAPathLiesOn) {
    ASSERT_TRUE(ReadMountTable(
        list, true, Write("one / a\ntwo /home b\nthree /home/x c\nfour /home d\n").c_str()));
    const struct {
        const char* path;
        const wchar_t* device;
    } rows[] = {{"/", L"one"},        {"/homes", L"one"},    {"/home", L"two"},
                {"/home/y", L"two"},  {"/home/x", L"three"}, {"/home/x/z", L"three"},
                {"/home/xy", L"two"}, {"/hom", L"one"}};
    for (const auto& row : rows) {
        const TMountPoint* mount = FindMountOf(list, row.path);
        ASSERT_NE(mount, nullptr) << row.path;
        EXPECT_STREQ(mount->device.c_str(), row.device) << row.path;
    }
}

TEST_F(MountTable, FindsNoneInAnEmptyTable) {
    EXPECT_EQ(FindMountOf(list, "/a"), nullptr);
}

TEST_F(MountTable, LooksUpAPathThroughItsLinks) {
    tree.Link("link", "/proc");
    Westring type, point;
    ASSERT_TRUE(LookUpMount(tree.Wide("link"), type, point));
    EXPECT_STREQ(type.c_str(), L"proc");
    EXPECT_STREQ(point.c_str(), L"/proc");
}

TEST_F(MountTable, ReportsAPathThatCannotBeResolved) {
    screen->PushKey(13);
    Westring type, point;
    EXPECT_FALSE(LookUpMount(tree.Wide("gone"), type, point));
    EXPECT_EQ(screen->PendingEvents(), 0) << "a box took the key";
}

}  // namespace
}  // namespace zt
