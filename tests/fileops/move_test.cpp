// Moving one object, by renaming and by copying: boxes and answers, merging, and that no file is
// ever nowhere.
#include <fcntl.h>

#include "tests/fileops/engine_fixture.h"
#include "ui/message_box.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char kExists[] = "File already exists, Overwrite?";
const char kReadOnly[] = "File is Read Only, Delete anyway?";

class MoveTest : public EngineTest {
protected:
    void Collide() {
        Write("old", "what was there");
        Write("new", "what comes");
    }
};

// Both ways of moving, told apart by the bool.
class BothWaysTest : public MoveTest, public testing::WithParamInterface<bool> {};

INSTANTIATE_TEST_SUITE_P(Move, BothWaysTest, testing::Bool(),
                         [](const auto& way) { return way.param ? "ByRenaming" : "ByCopying"; });

TEST_P(BothWaysTest, MovesAFile) {
    Write("a", "content");
    tree.Mode("a", 0640);
    tree.Time("a", 1000000000, 5);
    EXPECT_EQ(Move("a", "b", GetParam()), kDone);
    EXPECT_THAT(Names(), ElementsAre("b"));
    EXPECT_EQ(Content("b"), "content");
    EXPECT_EQ(Status("b").st_mode & 07777, 0640u);
    EXPECT_EQ(Status("b").st_mtim.tv_nsec, 5);
    EXPECT_THAT(progress.shown, ElementsAre(tree.PathOf("a") + " " + tree.PathOf("b") + " 1/1 m"));
    EXPECT_EQ(progress.bytesDone, GetParam() ? 0u : 7u);
}

TEST_P(BothWaysTest, NeedsNoProgress) {
    Write("a", "content");
    tree.Folder("d");
    Write("d/inner", "x");
    for (const char* name : {"a", "d"}) {
        EXPECT_EQ(MoveWithPrompts(operation, tree.Wide(name), tree.Wide(std::string(name) + "2"), 1,
                                  2, nullptr, descriptions, GetParam()),
                  kDone);
    }
    EXPECT_THAT(Names(), ElementsAre("a2", "d2"));
}

TEST_P(BothWaysTest, MovesLinksAsLinks) {
    tree.Folder("d");
    tree.Link("dir", "d");
    tree.Link("none", "nothing");
    EXPECT_EQ(Move("dir", "dir2", GetParam()), kDone);
    EXPECT_EQ(Move("none", "none2", GetParam()), kDone);
    EXPECT_THAT(Names(), ElementsAre("d", "dir2", "none2"));
    EXPECT_EQ(std::filesystem::read_symlink(tree.PathOf("none2")), "nothing");
}

TEST_P(BothWaysTest, MovesATree) {
    tree.Folder("d");
    tree.Folder("d/sub");
    Write("d/one", "1");
    Write("d/sub/two", "2");
    tree.Link("d/link", "sub");
    tree.Mode("d/sub", 0750);
    EXPECT_EQ(Move("d", "e", GetParam()), kDone);
    EXPECT_THAT(Names(), ElementsAre("e"));
    EXPECT_THAT(Names("e"), ElementsAre("link", "one", "sub"));
    EXPECT_EQ(Content("e/sub/two"), "2");
    EXPECT_EQ(Status("e/sub").st_mode & 07777, 0750u);
}

TEST_P(BothWaysTest, HearsEveryAnswerAboutAnOldTarget) {
    struct Row {
        int answer, result;
        OverwriteMode mode;
    };
    const int left = GetParam() ? EEXIST : EACCES;
    const Row rows[] = {
        {'y', kDone, OverwriteMode::kAsk},  {'a', kDone, OverwriteMode::kAlways},
        {'s', left, OverwriteMode::kAsk},   {'n', left, OverwriteMode::kAsk},
        {'e', left, OverwriteMode::kNever}, {kEsc, kCancelled, OverwriteMode::kAsk}};
    for (const Row& row : rows) {
        Collide();
        operation.overwrite = OverwriteMode::kAsk;
        user.Expect(kExists, tree.PathOf("old"), row.answer);
        EXPECT_EQ(Move("new", "old", GetParam()), row.result) << row.answer;
        EXPECT_EQ(operation.overwrite, row.mode) << row.answer;
        EXPECT_EQ(user.types.back(), kBoxOkCancelSkipAllNone);
        if (row.result == kDone) {
            EXPECT_EQ(Content("old"), "what comes");
            EXPECT_THAT(Names(), ElementsAre("old"));
        } else {
            EXPECT_EQ(Content("old"), "what was there");
            EXPECT_EQ(Content("new"), "what comes");
        }
    }
}

TEST_P(BothWaysTest, NeverComparesTimes) {
    Collide();
    tree.Time("old", 1000);
    tree.Time("new", 1000);
    operation.overwrite = OverwriteMode::kIfOlder;
    user.Expect(kExists, tree.PathOf("old"), 's');
    EXPECT_GT(Move("new", "old", GetParam()), 0);
    tree.Time("new", 2000);
    user.Expect(kExists, tree.PathOf("old"), 'y');
    EXPECT_EQ(Move("new", "old", GetParam()), kDone);
}

TEST_P(BothWaysTest, AlwaysAndNeverAskNothing) {
    Collide();
    operation.overwrite = OverwriteMode::kNever;
    EXPECT_GT(Move("new", "old", GetParam()), 0);
    EXPECT_EQ(Content("new"), "what comes");
    operation.overwrite = OverwriteMode::kAlways;
    EXPECT_EQ(Move("new", "old", GetParam()), kDone);
    EXPECT_EQ(Content("old"), "what comes");
    EXPECT_THAT(Names(), ElementsAre("old"));
}

TEST_P(BothWaysTest, TellsThatAFileIsInItsOwnWay) {
    Write("a", "kept");
    tree.Folder("d");
    tree.Link("d/up", "..");
    user.ExpectError(EEXIST, tree.PathOf("a"), 's');
    EXPECT_EQ(Move("a", "a", GetParam()), EEXIST);
    user.ExpectError(EEXIST, tree.PathOf("a"), 's');
    EXPECT_EQ(Move("a", "d/up/a", GetParam()), EEXIST) << "by another way";
    operation.overwrite = OverwriteMode::kAlways;
    user.ExpectError(EEXIST, tree.PathOf("d/up/a"), kEsc);
    EXPECT_EQ(Move("d/up/a", "a", GetParam()), kCancelled);
    EXPECT_EQ(Content("a"), "kept");
}

TEST_P(BothWaysTest, AsksNothingBetweenNamesThatDifferInCase) {
    Write("a", "small");
    Write("A", "capital");
    user.ExpectError(GetParam() ? EEXIST : EACCES, tree.PathOf("a"), 's');
    EXPECT_GT(Move("a", "A", GetParam()), 0);
    EXPECT_EQ(Content("A"), "capital");
    EXPECT_EQ(Content("a"), "small");
}

TEST_P(BothWaysTest, ADirectoryTakesThePlaceOfAFile) {
    Write("old", "what was there");
    tree.Folder("d");
    Write("d/inner", "x");
    user.Expect(kExists, tree.PathOf("old"), 'y');
    EXPECT_EQ(Move("d", "old", GetParam()), kDone);
    EXPECT_THAT(Names(), ElementsAre("old"));
    EXPECT_EQ(Content("old/inner"), "x");
}

TEST_P(BothWaysTest, AFileDoesNotTakeThePlaceOfADirectory) {
    Write("a", "x");
    tree.Folder("d");
    Write("d/inner", "kept");
    user.Expect(kExists, tree.PathOf("d"), 'y');
    user.ExpectError(EISDIR, tree.PathOf("d"), 's');
    EXPECT_EQ(Move("a", "d", GetParam()), 1);
    EXPECT_EQ(Content("d/inner"), "kept");
    EXPECT_EQ(Content("a"), "x");
}

TEST_P(BothWaysTest, AsksBeforeAReadOnlyTargetGoes) {
    tree.Folder("d");
    ASSERT_EQ(chown(tree.PathOf("d").c_str(), 65534, 65534), 0);
    const OrdinaryUser someone;
    for (const int answer : {int{'s'}, int{'e'}, kEsc, int{'y'}}) {
        Write("d/new", "what comes");
        Write("d/old", "what was there");
        ASSERT_EQ(chmod(tree.PathOf("d/old").c_str(), 0444), 0);
        operation.overwrite = OverwriteMode::kAlways;
        operation.deleteReadOnly = ReadOnlyMode::kAsk;
        user.Expect(kReadOnly, tree.PathOf("d/old"), answer);
        const int expected = answer == 'y' ? kDone : answer == kEsc ? kCancelled : 1;
        EXPECT_EQ(Move("d/new", "d/old", GetParam()), expected);
        EXPECT_EQ(Content("d/old"), answer == 'y' ? "what comes" : "what was there");
        EXPECT_EQ(Exists("d/new"), answer != 'y');
        ASSERT_EQ(chmod(tree.PathOf("d/old").c_str(), 0644), 0);
    }
}

TEST_P(BothWaysTest, MergesDirectories) {
    tree.Folder("d");
    tree.Folder("d/both");
    Write("d/both/new", "1");
    Write("d/same", "from d");
    Write("d/only", "2");
    tree.Folder("e");
    tree.Folder("e/both");
    Write("e/both/old", "3");
    Write("e/same", "from e");
    user.Expect(kExists, tree.PathOf("e/same"), 'y');
    EXPECT_EQ(Move("d", "e", GetParam()), kDone);
    EXPECT_THAT(Names(), ElementsAre("e"));
    EXPECT_THAT(Names("e"), ElementsAre("both", "only", "same"));
    EXPECT_THAT(Names("e/both"), ElementsAre("new", "old"));
    EXPECT_EQ(Content("e/same"), "from d");
}

TEST_F(MoveTest, MergingTellsThatTheSourceIsNotEmpty) {
    tree.Folder("d");
    tree.Folder("e");
    Write("d/same", "from d");
    Write("e/same", "from e");
    user.Expect(kExists, tree.PathOf("e/same"), 's');
    user.ExpectError(ENOTEMPTY, tree.PathOf("d"), 's');
    EXPECT_EQ(Move("d", "e"), ENOTEMPTY);
    EXPECT_EQ(Content("d/same"), "from d");
    EXPECT_EQ(Content("e/same"), "from e");
}

TEST_F(MoveTest, EscEndsAMerging) {
    tree.Folder("d");
    tree.Folder("e");
    Write("d/one", "1");
    Write("d/two", "2");
    user.escapeAt = 1;
    EXPECT_EQ(Move("d", "e"), kCancelled);
    EXPECT_EQ(Names("d").size() + Names("e").size(), 2u);
    EXPECT_EQ(Names("d").size(), 1u);
}

TEST_F(MoveTest, ADirectoryInItsOwnSubdirectoryIsRefused) {
    tree.Folder("a");
    tree.Folder("a/b");
    tree.Link("way", "a/b");
    user.ExpectError(EINVAL, tree.PathOf("a"), 's');
    EXPECT_EQ(Move("a", "a/b/c"), EINVAL);
    for (const char* target : {"a/b/c", "a", "way/c"}) {
        user.Expect("Directory cannot be copied into itself", tree.PathOf("a"), 'y');
        EXPECT_EQ(Move("a", target, false), kCancelled) << target;
        EXPECT_EQ(user.types.back(), kBoxOk);
    }
    EXPECT_EQ(Move("a", "ab", false), kDone) << "a name that begins alike is no subdirectory";
}

TEST_F(MoveTest, AFileWhoseOtherNameIsTheTargetKeepsThatName) {
    Write("a", "kept");
    ASSERT_EQ(link(tree.PathOf("a").c_str(), tree.PathOf("b").c_str()), 0);
    user.Expect(kExists, tree.PathOf("b"), 'y');
    EXPECT_EQ(Move("a", "b"), kDone);
    EXPECT_THAT(Names(), ElementsAre("b"));
    EXPECT_EQ(Content("b"), "kept");
}

TEST_F(MoveTest, CopyingDoesNotMoveAFileOntoItsOtherName) {
    Write("a", "kept");
    ASSERT_EQ(link(tree.PathOf("a").c_str(), tree.PathOf("b").c_str()), 0);
    user.Expect(kExists, tree.PathOf("b"), 'y');
    user.ExpectError(EEXIST, tree.PathOf("a"), 's');
    EXPECT_EQ(Move("a", "b", false), EEXIST);
    EXPECT_EQ(Content("a"), "kept");
    EXPECT_EQ(Content("b"), "kept");
}

TEST_F(MoveTest, RenamingAsksBeforeALinkToNothingGoes) {
    Write("a", "x");
    tree.Link("link", "nothing");
    user.Expect(kExists, tree.PathOf("link"), 's');
    EXPECT_EQ(Move("a", "link"), EEXIST);
    EXPECT_EQ(std::filesystem::read_symlink(tree.PathOf("link")), "nothing");
}

TEST_F(MoveTest, CountsObjectsWhileRenaming) {
    Write("a", "x");
    EXPECT_EQ(MoveWithPrompts(operation, tree.Wide("a"), tree.Wide("b"), 2, 5, &progress,
                              descriptions, true),
              kDone);
    EXPECT_THAT(progress.counts, ElementsAre("2/5"));
    EXPECT_EQ(progress.starts, 0);
    EXPECT_EQ(Move("b", "c"), kDone);
    EXPECT_EQ(progress.counts.size(), 1u) << "not for one";
}

TEST_F(MoveTest, ARequestToStopKeepsTheName) {
    Write("a", "x");
    abortState = kAbortRequested;
    EXPECT_EQ(Move("a", "b"), kCancelled);
    EXPECT_THAT(Names(), ElementsAre("a"));
    abortState = kAbortIdle;
}

TEST_F(MoveTest, TellsOfARenamingThatFails) {
    Write("a", "x");
    user.ExpectError(ENOENT, tree.PathOf("a"), 'r', [this] { tree.Folder("d"); });
    EXPECT_EQ(Move("a", "d/b"), kDone);
    EXPECT_EQ(Content("d/b"), "x");
    user.ExpectError(ENOENT, tree.PathOf("none"), kEsc);
    EXPECT_EQ(Move("none", "b"), kCancelled);
    user.ExpectError(ENAMETOOLONG, tree.PathOf("d"), 'y');
    EXPECT_EQ(Move("d", std::string(256, 'n')), ENAMETOOLONG);
}

TEST_F(MoveTest, CrossesFileSystems) {
    char other[] = "/dev/shm/zt-move-XXXXXX";
    ASSERT_NE(mkdtemp(other), nullptr);
    if (Status("").st_dev == [&] {
            struct stat status {};
            lstat(other, &status);
            return status.st_dev;
        }())
        GTEST_SKIP() << "one file system only";
    tree.Folder("d");
    Write("d/inner", "content");
    Write("file", "content");
    for (const std::string name : {"d", "file"}) {
        EXPECT_EQ(MoveWithPrompts(operation, tree.Wide(name),
                                  NameFromBytes((other + ("/" + name)).c_str()), 1, 1, &progress,
                                  descriptions, true),
                  kDone);
    }
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(std::filesystem::file_size(std::string(other) + "/d/inner"), 7u);
    EXPECT_EQ(std::filesystem::file_size(std::string(other) + "/file"), 7u);
    std::filesystem::remove_all(other);
}

TEST_F(MoveTest, EscKeepsSourceAndOldTarget) {
    Write("new", std::string(100000, 'n'));
    Write("old", "what was there");
    operation.overwrite = OverwriteMode::kAlways;
    user.escapeAt = 2;
    EXPECT_EQ(Move("new", "old", false), kCancelled);
    EXPECT_THAT(Names(), ElementsAre("new", "old"));
    EXPECT_EQ(Content("old"), "what was there");
    EXPECT_EQ(Status("new").st_size, 100000);
}

TEST_F(MoveTest, ASourceThatChangesStays) {
    Write("a", std::string(100000, 'x'));
    user.onPoll = [this](int poll) {
        if (poll == 1) std::filesystem::resize_file(tree.PathOf("a"), 200000);
    };
    user.ExpectError(EBUSY, tree.PathOf("a"), 's');
    EXPECT_EQ(Move("a", "b", false), EBUSY);
    EXPECT_THAT(Names(), ElementsAre("a"));
    user.onPoll = [this](int poll) {
        if (poll != user.polls || Exists("c")) return;
        std::filesystem::rename(tree.PathOf("a"), tree.PathOf("c"));
        Write("a", "another file");
    };
    user.ExpectError(EBUSY, tree.PathOf("a"), 's');
    EXPECT_EQ(Move("a", "b", false), EBUSY);
    EXPECT_EQ(Content("a"), "another file");
    EXPECT_EQ(Status("c").st_size, 200000);
}

TEST_F(MoveTest, TriesAgainWithASourceThatChanged) {
    Write("a", std::string(100000, 'x'));
    user.onPoll = [this](int poll) {
        if (poll == 1) std::filesystem::resize_file(tree.PathOf("a"), 200000);
    };
    user.ExpectError(EBUSY, tree.PathOf("a"), 'r');
    EXPECT_EQ(Move("a", "b", false), kDone);
    EXPECT_EQ(Status("b").st_size, 200000);
    EXPECT_THAT(Names(), ElementsAre("b"));
    EXPECT_EQ(progress.bytesDone, 200000u) << "what was taken back does not count";
}

TEST_F(MoveTest, AsksBeforeAReadOnlySourceGoes) {
    tree.Folder("d");
    ASSERT_EQ(chown(tree.PathOf("d").c_str(), 65534, 65534), 0);
    const OrdinaryUser someone;
    for (const int answer : {int{'s'}, kEsc, int{'y'}}) {
        Write("d/new", "what comes");
        Write("d/old", "what was there");
        ASSERT_EQ(chmod(tree.PathOf("d/new").c_str(), 0444), 0);
        operation.overwrite = OverwriteMode::kAlways;
        operation.deleteReadOnly = ReadOnlyMode::kAsk;
        user.Expect(kReadOnly, tree.PathOf("d/new"), answer,
                    [this] { EXPECT_EQ(Content("d/old"), "what was there"); });
        EXPECT_EQ(Move("d/new", "d/old", false), answer == kEsc ? kCancelled : kDone);
        EXPECT_EQ(Exists("d/new"), answer != 'y');
        EXPECT_EQ(Content("d/old"), answer == kEsc ? "what was there" : "what comes");
        if (answer != 'y') {
            ASSERT_EQ(chmod(tree.PathOf("d/new").c_str(), 0644), 0);
        }
        ASSERT_EQ(chmod(tree.PathOf("d/old").c_str(), 0644), 0);
    }
}

TEST_F(MoveTest, WhatAppearsInTheSourceStays) {
    tree.Folder("d");
    Write("d/one", "1");
    bool added = false;
    user.onPoll = [&](int) {
        if (!added) Write("d/late", "2");
        added = true;
    };
    user.ExpectError(ENOTEMPTY, tree.PathOf("d"), 'r');
    EXPECT_EQ(Move("d", "e", false), kDone);
    EXPECT_THAT(Names(), ElementsAre("e"));
    EXPECT_THAT(Names("e"), ElementsAre("late", "one"));
}

}  // namespace
}  // namespace zt
