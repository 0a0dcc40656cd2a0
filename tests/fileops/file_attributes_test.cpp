// The mode that the boxes make, and the system calls behind the form.
#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>

#include <cerrno>

#include "fileops/file_attributes_change.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

AttributeStates All(uint8_t state) {
    AttributeStates states;
    states.fill(state);
    return states;
}

// One box of the group form in another state than "keep".
AttributeStates Only(int row, int column, uint8_t state) {
    AttributeStates states = All(kAttributeKeep);
    states[static_cast<size_t>(AttributeIndex(row, column))] = state;
    return states;
}

TEST(AttributeStatesOfAMode, AreNineBoxesAndThree) {
    const struct {
        uint16_t mode;
        AttributeStates states;
    } rows[] = {
        {0000, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {0777, {1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0}},
        {07000, {0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1}},
        {0640, {1, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0}},
        {04751, {1, 1, 1, 1, 0, 1, 0, 0, 1, 1, 0, 0}},
        {02010, {0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0}},
        {01002, {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.states, StatesOfMode(row.mode)) << std::oct << row.mode;
        EXPECT_EQ(row.mode, ModeWithStates(07777, row.states, false)) << std::oct << row.mode;
        EXPECT_EQ(row.mode, ModeWithStates(0, row.states, false)) << std::oct << row.mode;
    }
}

TEST(AttributeStatesOfAMode, StandForEveryMode) {
    for (unsigned mode = 0; mode <= 07777; ++mode) {
        const auto bits = static_cast<uint16_t>(mode);
        EXPECT_EQ(bits, ModeWithStates(0123, StatesOfMode(bits), false));
    }
}

TEST(AttributeStatesOfAGroup, KeepEachFilesOwnBits) {
    for (const uint16_t mode :
         std::initializer_list<uint16_t>{0, 0644, 0755, 07777, 04711, 01777}) {
        EXPECT_EQ(mode, ModeWithStates(mode, All(kAttributeKeep), true)) << std::oct << mode;
        EXPECT_EQ(07777, ModeWithStates(mode, All(kAttributeSet), true)) << std::oct << mode;
        EXPECT_EQ(0, ModeWithStates(mode, All(kAttributeClear), true)) << std::oct << mode;
    }
}

TEST(AttributeStatesOfAGroup, ChangeOneBitEach) {
    const uint16_t bits[kAttributeRows][kAttributeColumns] = {
        {0400, 0200, 0100, 04000}, {0040, 0020, 0010, 02000}, {0004, 0002, 0001, 01000}};
    for (int row = 0; row < kAttributeRows; ++row) {
        for (int column = 0; column < kAttributeColumns; ++column) {
            const unsigned bit = bits[row][column];
            EXPECT_EQ(bit, ModeWithStates(0, Only(row, column, kAttributeSet), true));
            EXPECT_EQ(07777 & ~bit,
                      ModeWithStates(07777, Only(row, column, kAttributeClear), true));
        }
    }
}

TEST(AttributeStatesOfAGroup, LeaveTheTypeOfTheFile) {
    EXPECT_EQ(S_IFDIR | 0700, ModeWithStates(S_IFDIR | 0755, StatesOfMode(0700), false));
    EXPECT_EQ(S_IFREG | 0755, ModeWithStates(S_IFREG | 0755, All(kAttributeKeep), true));
}

TEST(NextState, GoesRoundTwoOrThree) {
    EXPECT_EQ(1, NextAttributeState(0, false));
    EXPECT_EQ(0, NextAttributeState(1, false));
    EXPECT_EQ(1, NextAttributeState(0, true));
    EXPECT_EQ(2, NextAttributeState(1, true));
    EXPECT_EQ(0, NextAttributeState(2, true));
}

class AttributeChanges : public PanelFixture {
protected:
    mode_t ModeOf(const std::string& name) {
        struct stat data;
        return stat(tree.PathOf(name).c_str(), &data) == 0 ? data.st_mode & 07777 : 0xFFFF;
    }
    struct stat Own(const std::string& name) {
        struct stat data = {};
        EXPECT_EQ(0, lstat(tree.PathOf(name).c_str(), &data)) << name;
        return data;
    }
    // Of the single form.
    int Change(const std::string& name, uint16_t before, uint16_t wanted) {
        AttributeChange change;
        change.states = StatesOfMode(wanted);
        return ChangeAttributes(tree.Wide(name), before, change);
    }
    static bool IsRoot() { return geteuid() == 0; }
};

TEST_F(AttributeChanges, SetTheMode) {
    tree.File("f");
    tree.Folder("d");
    for (const uint16_t mode : std::initializer_list<uint16_t>{0600, 0755, 0, 04755, 01777}) {
        EXPECT_EQ(0, Change("f", 0644, mode));
        EXPECT_EQ(mode, ModeOf("f")) << std::oct << mode;
        EXPECT_EQ(0, Change("d", 0, mode));
        EXPECT_EQ(mode == 0 ? 0755 : mode, ModeOf("d")) << std::oct << mode;
        tree.Mode("d", 0755);
    }
}

// What is on the disk does not count: the entry is as it is to be.
TEST_F(AttributeChanges, AreNotMadeWhereTheEntryIsAsWanted) {
    tree.File("f");
    EXPECT_EQ(0, Change("f", 0600, 0600));
    EXPECT_EQ(0644u, ModeOf("f"));
}

TEST_F(AttributeChanges, OfALinkAreItsTargets) {
    tree.File("f");
    tree.Link("l", "f");
    EXPECT_EQ(0, Change("l", 0644, 0751));
    EXPECT_EQ(0751u, ModeOf("f"));
}

TEST_F(AttributeChanges, FailWithTheSystemsError) {
    tree.Link("broken", "nowhere");
    EXPECT_EQ(ENOENT, Change("gone", 0644, 0600));
    EXPECT_EQ(ENOENT, Change("broken", 0777, 0600));
    tree.File("f");
    EXPECT_EQ(ENOTDIR, Change("f/below", 0644, 0600));
}

TEST_F(AttributeChanges, OfAnothersFileAreRefused) {
    if (!IsRoot()) GTEST_SKIP() << "an ordinary user has no files of another one here";
    tree.File("f");
    const OrdinaryUser user;
    EXPECT_EQ(EPERM, Change("f", 0644, 0600));
    AttributeChange change;
    change.states = StatesOfMode(0644);
    change.user = geteuid();
    EXPECT_EQ(EPERM, ChangeAttributes(tree.Wide("f"), 0644, change));
}

TEST_F(AttributeChanges, GiveTheFileAway) {
    if (!IsRoot()) GTEST_SKIP() << "only root may give files away";
    tree.File("f");
    AttributeChange change;
    change.states = StatesOfMode(0644);
    change.user = 65534;
    EXPECT_EQ(0, ChangeAttributes(tree.Wide("f"), 0644, change));
    EXPECT_EQ(65534u, Own("f").st_uid);
    EXPECT_EQ(0u, Own("f").st_gid);
    change.user.reset();
    change.group = 65534;
    EXPECT_EQ(0, ChangeAttributes(tree.Wide("f"), 0644, change));
    EXPECT_EQ(65534u, Own("f").st_uid);
    EXPECT_EQ(65534u, Own("f").st_gid);
}

// The system takes the set-id bits away from a file that gets another owner.
TEST_F(AttributeChanges, KeepSetIdBitsThroughAChangeOfOwner) {
    if (!IsRoot()) GTEST_SKIP() << "only root may give files away";
    tree.File("f");
    tree.Mode("f", 06755);
    AttributeChange change;
    change.states = StatesOfMode(06755);
    change.user = 65534;
    EXPECT_EQ(0, ChangeAttributes(tree.Wide("f"), 06755, change));
    EXPECT_EQ(06755u, ModeOf("f"));
    EXPECT_EQ(65534u, Own("f").st_uid);
}

TEST_F(AttributeChanges, OfALinksOwnerAreItsTargets) {
    if (!IsRoot()) GTEST_SKIP() << "only root may give files away";
    tree.File("f");
    tree.Link("l", "f");
    AttributeChange change;
    change.states = StatesOfMode(0644);
    change.user = 65534;
    EXPECT_EQ(0, ChangeAttributes(tree.Wide("l"), 0644, change));
    EXPECT_EQ(65534u, Own("f").st_uid);
    EXPECT_EQ(0u, Own("l").st_uid);
}

TEST_F(AttributeChanges, ShowInTheEntryAfterwards) {
    tree.File("f", 10);
    tree.Folder("d");
    Start();
    Tag(left, "f");
    entry& file = *Find(left, "f");
    entry& folder = *Find(left, "d");
    folder.size = 777;
    folder.level = 1;
    tree.Mode("f", 0400);
    tree.Mode("d", 0500);
    ASSERT_EQ(0, truncate(tree.PathOf("f").c_str(), 25));
    RefreshEntry(left, file, tree.Wide("f"));
    RefreshEntry(left, folder, tree.Wide("d"));
    EXPECT_EQ(0400, file.mode & 07777);
    EXPECT_TRUE(file.flags & kReadOnlyForUser);
    EXPECT_EQ(25u, file.size);
    EXPECT_EQ(25u, left.taggedBytes);
    EXPECT_EQ(1, file.tagged);
    EXPECT_EQ(0500, folder.mode & 07777);
    EXPECT_EQ(777u, folder.size);
}

TEST_F(AttributeChanges, LeaveTheEntryOfAFileThatIsGone) {
    tree.File("f", 10);
    Start();
    entry& file = *Find(left, "f");
    tree.Remove("f");
    RefreshEntry(left, file, tree.Wide("f"));
    EXPECT_EQ(10u, file.size);
    EXPECT_EQ(0644, file.mode & 07777);
}

TEST(OwnersByName, AreFoundOrNot) {
    EXPECT_EQ(0u, UserOfName(L"root").value());
    EXPECT_EQ(0u, GroupOfName(L"root").value());
    EXPECT_FALSE(UserOfName(L"nobody of that name"));
    EXPECT_FALSE(GroupOfName(L"nobody of that name"));
    EXPECT_FALSE(UserOfName(L""));
    EXPECT_FALSE(UserOfName(L"0"));
}

TEST_F(AttributeChanges, KnowTheOwnersOfAFile) {
    tree.File("f");
    const OwnerTexts owners = OwnersOfFile(tree.Wide("f"));
    EXPECT_STREQ(getpwuid(geteuid())->pw_name, NameToBytes(owners.user).c_str());
    EXPECT_STREQ(getgrgid(Own("f").st_gid)->gr_name, NameToBytes(owners.group).c_str());
    EXPECT_TRUE(OwnersOfFile(tree.Wide("gone")).user.IsEmpty());
    if (!IsRoot()) return;
    ASSERT_EQ(0, chown(tree.PathOf("f").c_str(), 3999999, 3999999));
    EXPECT_TRUE(OwnersOfFile(tree.Wide("f")).user.IsEmpty());
    EXPECT_TRUE(OwnersOfFile(tree.Wide("f")).group.IsEmpty());
}

}  // namespace
}  // namespace zt
