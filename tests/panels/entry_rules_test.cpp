// What the system's record of a file becomes.
#include "panels/entry_rules.h"

#include <gtest/gtest.h>

#include <memory>

namespace zt {
namespace {

using EntryPointer = std::unique_ptr<entry, void (*)(entry*)>;

EntryPointer Make(const wchar_t* name) {
    return {NewEntry(name), FreeEntry};
}

TEST(EntryRules, HidesNamesWithAFullStopInFront) {
    const struct {
        const wchar_t* name;
        bool hidden;
    } rows[] = {{L"a", false}, {L".", true},   {L"..", false}, {L"...", true}, {L"..a", true},
                {L".a", true}, {L"a.", false}, {L"", false},   {L".a.b", true}};
    for (const auto& row : rows)
        EXPECT_EQ(IsHiddenName(row.name), row.hidden) << row.name;
}

TEST(EntryRules, DecidesReadOnlyByTheModeBits) {
    const ProcessIdentity who{1000, 100};
    const struct {
        mode_t mode;
        uid_t user;
        gid_t group;
        bool readOnly;
    } rows[] = {
        {0644, 1000, 100, false},  // the owner may write
        {0644, 1001, 100, true},   // another user's
        {0664, 1001, 100, false},  // the group may write
        {0664, 1001, 101, true},   // another group
        {0666, 1001, 101, false},  // everyone may
        {0444, 1000, 100, true},   // nobody may
        {0002, 1000, 100, false},  // others may: the owner is not looked at
        {0060, 1000, 100, false}, {0600, 1001, 100, true}, {0, 1000, 100, true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsReadOnlyFor(who, row.mode, row.user, row.group), row.readOnly)
            << std::oct << row.mode << " " << std::dec << row.user << ":" << row.group;
    }
}

TEST(EntryRules, GroupsParentDirectoriesHiddenFilesAndOthers) {
    const struct {
        const wchar_t* name;
        int flags;
        char group;
    } rows[] = {{L"..", kDirectory, '1'},
                {L"d", kDirectory, 'A'},
                {L".d", kDirectory | kHidden, 'A'},
                {L"l", kDirectory | kSymbolicLink, 'A'},
                {L".f", kHidden, 'B'},
                {L"f", kHiddenByArchive, 'B'},
                {L"f", 0, 'C'},
                {L"l", kSymbolicLink | kBrokenLink, 'C'}};
    for (const auto& row : rows) {
        EntryPointer e = Make(row.name);
        e->flags = static_cast<uint16_t>(row.flags);
        EXPECT_EQ(GroupOf(*e), row.group) << row.name << std::hex << row.flags;
    }
}

struct stat Record(mode_t mode, off_t size, time_t seconds) {
    struct stat data = {};
    data.st_mode = mode;
    data.st_size = size;
    data.st_mtim.tv_sec = seconds;
    data.st_mtim.tv_nsec = 5;
    data.st_uid = 70000;
    data.st_gid = 65537;
    return data;
}

TEST(EntryRules, FillsAPlainFile) {
    EntryPointer e = Make(L"f");
    FillEntry(*e, Record(S_IFREG | 04751, 1234, 99), nullptr, ProcessIdentity{70000, 1});
    EXPECT_EQ(e->size, 1234u);
    EXPECT_EQ(e->flags, 0);
    EXPECT_EQ(e->mode, S_IFREG | 04751);
    EXPECT_EQ(e->uid, 70000 - 65536) << "the low 16 bits";
    EXPECT_EQ(e->gid, 1);
    EXPECT_EQ(e->time, (TTime{5, 99}));
}

TEST(EntryRules, GivesADirectoryNoSize) {
    EntryPointer e = Make(L".d");
    FillEntry(*e, Record(S_IFDIR | 0777, 4096, 0), nullptr, ProcessIdentity{1, 1});
    EXPECT_EQ(e->size, 0u);
    EXPECT_EQ(e->flags, kDirectory | kHidden);
}

TEST(EntryRules, TakesSizeModeAndKindOfALinkFromItsTarget) {
    EntryPointer e = Make(L"l");
    const struct stat target = Record(S_IFREG | 0400, 77, 5);
    FillEntry(*e, Record(S_IFLNK | 0777, 3, 9), &target, ProcessIdentity{1, 1});
    EXPECT_EQ(e->size, 77u);
    EXPECT_EQ(e->mode, S_IFREG | 0400);
    EXPECT_EQ(e->flags, kSymbolicLink | kReadOnlyForUser);
    EXPECT_EQ(e->time.seconds, 9) << "the link's own";

    const struct stat directory = Record(S_IFDIR | 0777, 4096, 5);
    FillEntry(*e, Record(S_IFLNK | 0777, 3, 9), &directory, ProcessIdentity{1, 1});
    EXPECT_EQ(e->size, 0u);
    EXPECT_EQ(e->flags, kSymbolicLink | kDirectory);
}

TEST(EntryRules, KeepsTheOwnDataOfABrokenLink) {
    EntryPointer e = Make(L"l");
    FillEntry(*e, Record(S_IFLNK | 0777, 3, 9), nullptr, ProcessIdentity{1, 1});
    EXPECT_EQ(e->size, 3u);
    EXPECT_EQ(e->mode, S_IFLNK | 0777);
    EXPECT_EQ(e->flags, kSymbolicLink | kBrokenLink);
}

}  // namespace
}  // namespace zt
