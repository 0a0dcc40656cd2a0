// What a process may do with an entry.
#include "panels/effective_permissions.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zt {
namespace {

OwnedEntry Made(mode_t mode, int uid, int gid) {
    OwnedEntry e(NewEntry(L"e"));
    e->mode = static_cast<uint16_t>(mode);
    if (S_ISDIR(mode)) e->flags = kDirectory;
    e->uid = static_cast<uint16_t>(uid);
    e->gid = static_cast<uint16_t>(gid);
    return e;
}

TEST(EffectivePermissions, TakeTheTripletOfTheFirstThatApplies) {
    const ProcessRights rights(1000, {100, 200});
    const struct {
        mode_t mode;
        int uid, gid;
        int expected;
    } rows[] = {
        {S_IFREG | 0421, 1000, 100, 4},  // the owner's, though the group is the process's too
        {S_IFREG | 0421, 1000, 999, 4},
        {S_IFREG | 0421, 1001, 100, 2},
        {S_IFREG | 0421, 1001, 200, 2},  // a group that is not the effective one
        {S_IFREG | 0421, 1001, 999, 1},
        {S_IFREG | 0077, 1000, 100, 0},  // an owner without rights gets none from the others
        {S_IFREG | 0707, 1001, 100, 0},
        {S_IFREG | 0770, 1001, 999, 0},
        {S_IFREG | 07000, 1000, 100, 0},  // the bits above the triplets are none of them
        {S_IFDIR | 0555, 1000, 100, 5},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(rights.Of(*Made(row.mode, row.uid, row.gid)), row.expected)
            << std::oct << row.mode << std::dec << " " << row.uid << ":" << row.gid;
    }
}

TEST(EffectivePermissions, LetTheSuperuserReadAndWrite) {
    const ProcessRights rights(0, {0});
    const struct {
        mode_t mode;
        int uid, gid;
        int expected;
    } rows[] = {
        {S_IFREG | 0000, 1000, 1000, 6},
        {S_IFREG | 0644, 1000, 1000, 6},
        {S_IFREG | 0755, 1000, 1000, 7},
        {S_IFREG | 0754, 1000, 1000, 6},  // the others' triplet tells of execution
        {S_IFREG | 0710, 1000, 0, 7},
        {S_IFREG | 0700, 0, 1000, 7},
        {S_IFREG | 0077, 0, 0, 6},
        {S_IFDIR | 0000, 1000, 1000, 7},
        {S_IFDIR | 0755, 0, 0, 7},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(rights.Of(*Made(row.mode, row.uid, row.gid)), row.expected)
            << std::oct << row.mode << std::dec << " " << row.uid << ":" << row.gid;
    }
}

TEST(EffectivePermissions, CompareTheIdsThatAnEntryCanHold) {
    const ProcessRights rights(70000, {70001});
    EXPECT_EQ(rights.Of(*Made(S_IFREG | 0421, 70000 & 0xFFFF, 5)), 4);
    EXPECT_EQ(rights.Of(*Made(S_IFREG | 0421, 5, 70001 & 0xFFFF)), 2);
}

TEST(EffectivePermissions, AreThoseOfTheRunningProcess) {
    const ProcessRights rights = ProcessRights::OfThisProcess();
    const int user = static_cast<int>(geteuid());
    const int group = static_cast<int>(getegid());
    EXPECT_EQ(rights.Of(*Made(S_IFREG | 0700, user, 12345)), 7);
    EXPECT_EQ(rights.Of(*Made(S_IFREG | 0070, user + 1, group)), 7);
    EXPECT_EQ(rights.Of(*Made(S_IFREG | 0077, user + 1, group + 1)) & kMayExecute, kMayExecute);
}

}  // namespace
}  // namespace zt
