// Copying one object: every box with every answer, what replaces what, and what stays.
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <csignal>

#include "tests/fileops/engine_fixture.h"
#include "ui/message_box.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char kExists[] = "File already exists, Overwrite?";
const char kReadOnly[] = "File is Read Only, Delete anyway?";

class CopyTest : public EngineTest {
protected:
    // The tree of a user for whom permissions hold.
    void GiveAway(const std::string& name) {
        ASSERT_EQ(lchown(tree.PathOf(name).c_str(), 65534, 65534), 0);
    }
    void Collide() {
        Write("old", "what was there");
        Write("new", "what comes");
    }
};

TEST_F(CopyTest, CopiesDataModeAndTime) {
    Write("a", "content");
    tree.Mode("a", 0640);
    tree.Time("a", 1000000000, 123456789);
    EXPECT_EQ(Copy("a", "b"), kDone);
    EXPECT_EQ(Content("b"), "content");
    EXPECT_EQ(Status("b").st_mode & 07777, 0640u);
    EXPECT_EQ(Status("b").st_mtim.tv_sec, 1000000000);
    EXPECT_EQ(Status("b").st_mtim.tv_nsec, 123456789);
    EXPECT_EQ(progress.bytesDone, 7u);
    EXPECT_THAT(Names(), ElementsAre("a", "b"));
    EXPECT_THAT(progress.shown, ElementsAre(tree.PathOf("a") + " " + tree.PathOf("b") + " 1/1 c"));
}

TEST_F(CopyTest, CopiesEverySizeAroundTheBlock) {
    for (const size_t size : {0, 1, 4095, 4096, 4097, 32767, 32768, 32769, 65536, 100001}) {
        std::string content(size, 0);
        for (size_t i = 0; i < size; i++)
            content[i] = static_cast<char>(i * 31 + i / 253);
        Write("a", content);
        std::filesystem::remove(tree.PathOf("b"));
        EXPECT_EQ(Copy("a", "b"), kDone);
        EXPECT_EQ(Content("b"), content) << size;
    }
}

TEST_F(CopyTest, KeepsRightsToActForItsOwnerOnly) {
    Write("a", "x");
    tree.Mode("a", 04755);
    EXPECT_EQ(Copy("a", "b"), kDone);
    EXPECT_EQ(Status("b").st_mode & 07777, 04755u);
    if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    GiveAway("a");
    tree.Mode("a", 06755);
    EXPECT_EQ(Copy("a", "c"), kDone);
    EXPECT_EQ(Status("c").st_mode & 07777, 0755u);
}

TEST_F(CopyTest, TellsOfAMissingSource) {
    user.ExpectError(ENOENT, tree.PathOf("a"), 'y');
    EXPECT_EQ(Copy("a", "b"), ENOENT);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(CopyTest, TriesAgainAfterAnError) {
    user.ExpectError(ENOENT, tree.PathOf("a"), 'r', [this] { Write("a", "late"); });
    EXPECT_EQ(Copy("a", "b"), kDone);
    EXPECT_EQ(Content("b"), "late");
}

TEST_F(CopyTest, EndsOnEscInAnErrorBox) {
    user.ExpectError(ENOENT, tree.PathOf("a"), kEsc);
    EXPECT_EQ(Copy("a", "b"), kCancelled);
}

struct AnswerRow {
    int answer;
    int result;
    OverwriteMode mode;  // afterwards
    bool replaced;
};

TEST_F(CopyTest, HearsEveryAnswerAboutAnOldTarget) {
    const AnswerRow rows[] = {
        {'y', kDone, OverwriteMode::kAsk, true},     {'Y', kDone, OverwriteMode::kAsk, true},
        {'a', kDone, OverwriteMode::kAlways, true},  {'s', EACCES, OverwriteMode::kAsk, false},
        {'n', EACCES, OverwriteMode::kAsk, false},   {' ', EACCES, OverwriteMode::kAsk, false},
        {'e', EACCES, OverwriteMode::kNever, false}, {kEsc, kCancelled, OverwriteMode::kAsk, false},
    };
    for (const AnswerRow& row : rows) {
        Collide();
        operation.overwrite = OverwriteMode::kAsk;
        user.Expect(kExists, tree.PathOf("old"), row.answer);
        EXPECT_EQ(Copy("new", "old"), row.result) << row.answer;
        EXPECT_EQ(operation.overwrite, row.mode) << row.answer;
        EXPECT_EQ(Content("old"), row.replaced ? "what comes" : "what was there") << row.answer;
        EXPECT_EQ(user.types.back(), kBoxOkCancelSkipAllNoneAllOlder);
        EXPECT_THAT(Names(), ElementsAre("new", "old"));
    }
}

TEST_F(CopyTest, AllOlderDecidesForThisFileToo) {
    Collide();
    tree.Time("old", 1000);
    tree.Time("new", 2000);
    user.Expect(kExists, tree.PathOf("old"), 'd');
    EXPECT_EQ(Copy("new", "old"), kDone);
    EXPECT_EQ(operation.overwrite, OverwriteMode::kIfOlder);
    EXPECT_EQ(Content("old"), "what comes");
}

TEST_F(CopyTest, AllOlderLeavesALaterTarget) {
    Collide();
    tree.Time("old", 2000);
    tree.Time("new", 1000);
    user.Expect(kExists, tree.PathOf("old"), 'd');
    EXPECT_EQ(Copy("new", "old"), kDone);
    EXPECT_EQ(Content("old"), "what was there");
}

TEST_F(CopyTest, ComparesTimesToTheNanosecond) {
    operation.overwrite = OverwriteMode::kIfOlder;
    struct Row {
        time_t source;
        long fraction;
        bool copied;
    };
    for (const Row& row : {Row{1000, 5, false}, Row{999, 9, false}, Row{1000, 6, true},
                           Row{1001, 0, true}, Row{1000, 4, false}}) {
        Collide();
        tree.Time("old", 1000, 5);
        tree.Time("new", row.source, row.fraction);
        EXPECT_EQ(Copy("new", "old"), kDone);
        EXPECT_EQ(Content("old"), row.copied ? "what comes" : "what was there")
            << row.source << "." << row.fraction;
    }
}

TEST_F(CopyTest, ComparesTheTimesOfWhatLinksPointTo) {
    operation.overwrite = OverwriteMode::kIfOlder;
    Collide();
    tree.Link("link", "old");
    tree.Time("link", 1);
    tree.Time("old", 5000);
    tree.Time("new", 4000);
    EXPECT_EQ(Copy("new", "link"), kDone);
    EXPECT_TRUE(S_ISLNK(Status("link").st_mode));
}

TEST_F(CopyTest, AlwaysAndNeverAskNothing) {
    Collide();
    operation.overwrite = OverwriteMode::kNever;
    EXPECT_EQ(Copy("new", "old"), EACCES);
    EXPECT_EQ(Content("old"), "what was there");
    operation.overwrite = OverwriteMode::kAlways;
    EXPECT_EQ(Copy("new", "old"), kDone);
    EXPECT_EQ(Content("old"), "what comes");
    EXPECT_THAT(Names(), ElementsAre("new", "old"));
}

TEST_F(CopyTest, ReplacesByRenaming) {
    Collide();
    ASSERT_EQ(link(tree.PathOf("old").c_str(), tree.PathOf("second").c_str()), 0);
    operation.overwrite = OverwriteMode::kAlways;
    EXPECT_EQ(Copy("new", "old"), kDone);
    EXPECT_EQ(Content("old"), "what comes");
    EXPECT_EQ(Content("second"), "what was there") << "another name of the old file keeps it";
}

TEST_F(CopyTest, ReplacesALinkAndNotWhatItPointsTo) {
    Collide();
    tree.Link("link", "old");
    user.Expect(kExists, tree.PathOf("link"), 'y');
    EXPECT_EQ(Copy("new", "link"), kDone);
    EXPECT_TRUE(S_ISREG(Status("link").st_mode));
    EXPECT_EQ(Content("link"), "what comes");
    EXPECT_EQ(Content("old"), "what was there");
}

TEST_F(CopyTest, AsksBeforeALinkToNothingGoes) {
    Write("new", "x");
    tree.Link("link", "nothing");
    user.Expect(kExists, tree.PathOf("link"), 's');
    EXPECT_EQ(Copy("new", "link"), EACCES);
    EXPECT_FALSE(Exists("nothing"));
}

TEST_F(CopyTest, RefusesToOverwriteItself) {
    Write("a", "kept");
    for (const int answer : {int{'y'}, kEsc}) {
        user.Expect("File cannot overwrite itself", tree.PathOf("a"), answer);
        EXPECT_EQ(Copy("a", "a"), answer == kEsc ? kCancelled : EEXIST);
        EXPECT_EQ(user.types.back(), kBoxOkCancel);
    }
    EXPECT_EQ(Content("a"), "kept");
}

TEST_F(CopyTest, RefusesToOverwriteItselfByOtherNames) {
    Write("a", "kept");
    tree.Folder("d");
    tree.Link("d/up", "..");
    tree.Link("alias", "a");
    ASSERT_EQ(link(tree.PathOf("a").c_str(), tree.PathOf("hard").c_str()), 0);
    struct Row {
        const char *from, *to;
        int flags;
    };
    for (const OverwriteMode mode : {OverwriteMode::kAsk, OverwriteMode::kAlways}) {
        for (const Row& row : {Row{"a", "hard", 0}, Row{"a", "d/up/a", 0}, Row{"d/up/a", "a", 0},
                               Row{"alias", "a", kTransferDereference}}) {
            operation.overwrite = mode;
            user.Expect("File cannot overwrite itself", tree.PathOf(row.from), 'y');
            EXPECT_GT(Copy(row.from, row.to, row.flags), 0);
            EXPECT_EQ(Content("a"), "kept");
        }
    }
    EXPECT_THAT(Names(), ElementsAre("a", "alias", "d", "hard"));
}

TEST_F(CopyTest, FindsItselfByARelativeName) {
    Write("a", "kept");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(tree.Path());
    user.Expect("File cannot overwrite itself", tree.PathOf("a"), 'y');
    const int code =
        CopyWithPrompts(operation, L"a", tree.Wide("a"), 1, 1, progress, descriptions, 0);
    std::filesystem::current_path(before);
    EXPECT_EQ(code, EEXIST);
}

TEST_F(CopyTest, DoesNotReplaceADirectoryByAFile) {
    Write("a", "x");
    tree.Folder("d");
    user.ExpectError(EACCES, tree.PathOf("a"), 's');
    EXPECT_EQ(Copy("a", "d"), EACCES);
    operation.overwrite = OverwriteMode::kAlways;
    user.ExpectError(EISDIR, tree.PathOf("a"), 's');
    EXPECT_EQ(Copy("a", "d"), EISDIR);
    EXPECT_THAT(Names("d"), IsEmpty());
}

TEST_F(CopyTest, HearsEveryAnswerAboutAReadOnlyTarget) {
    struct Row {
        int answer;
        int result;
        ReadOnlyMode mode;
    };
    const Row rows[] = {{'y', kDone, ReadOnlyMode::kAsk}, {'a', kDone, ReadOnlyMode::kAlways},
                        {'s', 1, ReadOnlyMode::kAsk},     {'n', 1, ReadOnlyMode::kAsk},
                        {'e', 1, ReadOnlyMode::kNever},   {kEsc, kCancelled, ReadOnlyMode::kAsk}};
    for (const OverwriteMode mode : {OverwriteMode::kAsk, OverwriteMode::kAlways}) {
        for (const Row& row : rows) {
            const std::string folder =
                "d" + std::to_string(row.answer) + std::to_string(static_cast<int>(mode));
            tree.Folder(folder);
            GiveAway(folder);
            const OrdinaryUser someone;
            Write(folder + "/new", "what comes");
            Write(folder + "/old", "what was there");
            ASSERT_EQ(chmod(tree.PathOf(folder + "/old").c_str(), 0444), 0);
            operation.overwrite = mode;
            operation.deleteReadOnly = ReadOnlyMode::kAsk;
            const std::string target = tree.PathOf(folder + "/old");
            if (mode == OverwriteMode::kAsk) user.Expect(kExists, target, 'y');
            user.Expect(kReadOnly, target, row.answer, [&] {
                EXPECT_EQ(Content(folder + "/old"), "what was there") << "it lives until the end";
            });
            EXPECT_EQ(Copy(folder + "/new", folder + "/old"), row.result) << row.answer;
            EXPECT_EQ(operation.deleteReadOnly, row.mode) << row.answer;
            EXPECT_EQ(Content(folder + "/old"),
                      row.result == kDone ? "what comes" : "what was there");
            EXPECT_THAT(Names(folder), ElementsAre("new", "old"));
        }
    }
}

TEST_F(CopyTest, RemembersTheAnswersAboutReadOnlyTargets) {
    tree.Folder("d");
    GiveAway("d");
    const OrdinaryUser someone;
    Write("d/new", "what comes");
    operation.overwrite = OverwriteMode::kAlways;
    for (const ReadOnlyMode mode : {ReadOnlyMode::kAlways, ReadOnlyMode::kNever}) {
        Write("d/old", "what was there");
        ASSERT_EQ(chmod(tree.PathOf("d/old").c_str(), 0444), 0);
        operation.deleteReadOnly = mode;
        const bool replaces = mode == ReadOnlyMode::kAlways;
        EXPECT_EQ(Copy("d/new", "d/old"), replaces ? kDone : 1);
        EXPECT_EQ(Content("d/old"), replaces ? "what comes" : "what was there");
        ASSERT_EQ(chmod(tree.PathOf("d/old").c_str(), 0644), 0);
    }
}

TEST_F(CopyTest, WritesInPlaceWhereTheDirectoryTakesNoNewFile) {
    tree.Folder("d");
    Write("d/old", "what was there and is longer");
    Write("new", "what comes");
    tree.Mode("new", 0644);
    GiveAway("d/old");
    const ino_t number = Status("d/old").st_ino;
    tree.Mode("d", 0555);
    const OrdinaryUser someone;
    operation.overwrite = OverwriteMode::kAlways;
    EXPECT_EQ(Copy("new", "d/old"), kDone);
    EXPECT_EQ(Content("d/old"), "what comes");
    EXPECT_EQ(Status("d/old").st_ino, number);
}

TEST_F(CopyTest, WritesInPlaceWhereTheNameMayNotChange) {
    tree.Folder("d");
    Write("d/old", "what was there and is longer");
    tree.Mode("d/old", 0666);
    tree.Mode("d", 01777);  // everybody's, but names belong to their owners
    Write("new", "what comes");
    const ino_t number = Status("d/old").st_ino;
    const OrdinaryUser someone;
    if (geteuid() == Status("d/old").st_uid) GTEST_SKIP() << "needs two users";
    operation.overwrite = OverwriteMode::kAlways;
    EXPECT_EQ(Copy("new", "d/old"), kDone);
    EXPECT_EQ(Content("d/old"), "what comes");
    EXPECT_EQ(Status("d/old").st_ino, number);
    EXPECT_THAT(Names("d"), ElementsAre("old"));
}

TEST_F(CopyTest, TellsOfADirectoryThatTakesNothing) {
    tree.Folder("d");
    Write("new", "what comes");
    tree.Mode("d", 0555);
    const OrdinaryUser someone;
    user.ExpectError(EACCES, tree.PathOf("new"), 's');
    EXPECT_EQ(Copy("new", "d/file"), EACCES);
}

TEST_F(CopyTest, AsksNoEndlessQuestionsAboutAnUnreadableSource) {
    Collide();
    tree.Mode("new", 0);
    GiveAway("");
    GiveAway("old");
    const OrdinaryUser someone;
    user.Expect(kExists, tree.PathOf("old"), 'y');
    user.ExpectError(EACCES, tree.PathOf("new"), 's');
    EXPECT_EQ(Copy("new", "old"), EACCES);
}

TEST_F(CopyTest, TheOldTargetLivesUntilTheNewOneIsWhole) {
    Write("new", std::string(200000, 'n'));
    Write("old", "what was there");
    operation.overwrite = OverwriteMode::kAlways;
    int seen = 0;
    user.onPoll = [&](int) {
        if (Exists("old.zt@@@.tmp")) {
            seen++;
            EXPECT_EQ(Content("old"), "what was there");
            EXPECT_EQ(Status("old.zt@@@.tmp").st_mode & 0777, 0600u);
        }
    };
    EXPECT_EQ(Copy("new", "old"), kDone);
    EXPECT_GE(seen, 6);
    EXPECT_EQ(Content("old"), std::string(200000, 'n'));
}

TEST_F(CopyTest, EscLeavesTheOldTarget) {
    Write("new", std::string(200000, 'n'));
    Write("old", "what was there");
    operation.overwrite = OverwriteMode::kAlways;
    user.escapeAt = 3;
    EXPECT_EQ(Copy("new", "old"), kCancelled);
    EXPECT_EQ(user.polls, 3) << "once a block";
    EXPECT_EQ(Content("old"), "what was there");
    EXPECT_THAT(Names(), ElementsAre("new", "old"));
    EXPECT_EQ(progress.bytesDone, 0u);
}

TEST_F(CopyTest, BreakLeavesNoPartialFile) {
    Write("new", std::string(200000, 'n'));
    user.onPoll = [&](int poll) {
        EXPECT_EQ(abortState, poll < 3 ? kAbortPossible : kAbortRequested);
        if (poll == 2) abortState = kAbortRequested;
    };
    EXPECT_EQ(Copy("new", "old"), kCancelled);
    EXPECT_EQ(user.polls, 2);
    EXPECT_THAT(Names(), ElementsAre("new"));
}

TEST_F(CopyTest, ARequestToStopReachesTheCommand) {
    Write("a", "x");
    abortState = kAbortPossible;  // as a command sets it
    user.onPoll = [](int) { abortState = kAbortRequested; };
    EXPECT_EQ(Copy("a", "b"), kCancelled);
    EXPECT_EQ(abortState, kAbortRequested);
    abortState = kAbortIdle;
}

TEST_F(CopyTest, AFailedCopyAsksNoMoreAboutReadOnlyFiles) {
    Write("a", std::string(100000, 'x'));
    user.escapeAt = 1;
    EXPECT_EQ(Copy("a", "b"), kCancelled);
    EXPECT_EQ(operation.deleteReadOnly, ReadOnlyMode::kAlways);
}

TEST_F(CopyTest, NeverTouchesAFileOfATemporaryName) {
    Write("a", "content");
    Write("b.zt@@@.tmp", "somebody's");
    Write("b.zt@@@1.tmp", "somebody else's");
    EXPECT_EQ(Copy("a", "b"), kDone);
    EXPECT_EQ(Content("b"), "content");
    EXPECT_EQ(Content("b.zt@@@.tmp"), "somebody's");
    EXPECT_EQ(Content("b.zt@@@1.tmp"), "somebody else's");
    EXPECT_THAT(Names(), ElementsAre("a", "b", "b.zt@@@.tmp", "b.zt@@@1.tmp"));
}

TEST_F(CopyTest, AsksAboutATargetThatAppearsMeanwhile) {
    Write("a", "content");
    user.onPoll = [this](int poll) {
        if (poll == 1) Write("b", "appeared");
    };
    user.Expect(kExists, tree.PathOf("b"), 's');
    EXPECT_EQ(Copy("a", "b"), EEXIST);
    EXPECT_EQ(Content("b"), "appeared");
    EXPECT_THAT(Names(), ElementsAre("a", "b"));
}

TEST_F(CopyTest, TellsOfATargetDirectoryThatGoes) {
    tree.Folder("d");
    Write("a", std::string(100000, 'x'));
    user.onPoll = [this](int poll) {
        if (poll == 1) std::filesystem::remove_all(tree.PathOf("d"));
    };
    user.ExpectError(ENOENT, tree.PathOf("a"), 's');
    EXPECT_EQ(Copy("a", "d/b"), ENOENT);
    EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(CopyTest, CopiesWhatTheSourceHasThen) {
    Write("a", std::string(100000, 'x'));
    user.onPoll = [this](int poll) {
        if (poll == 1) std::filesystem::resize_file(tree.PathOf("a"), 40000);
    };
    EXPECT_EQ(Copy("a", "shrunk"), kDone);
    EXPECT_EQ(Status("shrunk").st_size, 40000);
    user.onPoll = [this](int poll) {
        if (poll == user.polls && poll == 4) std::filesystem::resize_file(tree.PathOf("a"), 90000);
        if (poll == 4) std::filesystem::remove(tree.PathOf("a"));
    };
    EXPECT_EQ(Copy("a", "vanished"), kDone) << "the open file is still there";
}

TEST_F(CopyTest, RefusesNamesThatAreTooLong) {
    Write("a", "x");
    const std::string name(256, 'n');
    user.ExpectError(ENAMETOOLONG, tree.PathOf("a"), 'y');
    EXPECT_EQ(Copy("a", name), ENAMETOOLONG);
    EXPECT_THAT(Names(), ElementsAre("a"));
    const std::string longest(255, 'n');
    EXPECT_EQ(Copy("a", longest), kDone);
    EXPECT_EQ(Content(longest), "x");
}

TEST_F(CopyTest, KeepsLookAlikeNamesApart) {
    const std::string utf8 = "caf\xC3\xA9", legacy = "caf\xE9", composed = "cafe\xCC\x81";
    Write(utf8, "utf8");
    Write(legacy, "legacy");
    Write(composed, "composed");
    tree.Folder("d");
    EXPECT_EQ(Copy(legacy, "d/" + legacy), kDone);
    EXPECT_THAT(Names("d"), ElementsAre(legacy));
    EXPECT_EQ(Copy(utf8, "d/" + utf8), kDone);
    EXPECT_EQ(Copy(composed, "d/" + composed), kDone);
    EXPECT_EQ(Content("d/" + legacy), "legacy");
    EXPECT_EQ(Content("d/" + utf8), "utf8");
    EXPECT_EQ(Content("d/" + composed), "composed");
}

TEST_F(CopyTest, KeepsHoles) {
    const std::string path = tree.PathOf("a");
    const int file = open(path.c_str(), O_CREAT | O_WRONLY, 0644);
    constexpr off_t kFar = 8 << 20;
    ASSERT_EQ(pwrite(file, "start", 5, 0), 5);
    ASSERT_EQ(pwrite(file, "middle", 6, kFar), 6);
    ASSERT_EQ(ftruncate(file, 2 * kFar + 77), 0);
    close(file);
    if (Status("a").st_blocks * 512 > kFar) GTEST_SKIP() << "no holes here";
    EXPECT_EQ(Copy("a", "b"), kDone);
    EXPECT_EQ(Status("b").st_size, 2 * kFar + 77);
    EXPECT_LT(Status("b").st_blocks * 512, kFar);
    EXPECT_EQ(progress.bytesDone, static_cast<uint64_t>(2 * kFar + 77));
    EXPECT_EQ(Content("b"), Content("a"));
}

TEST_F(CopyTest, KeepsAFileThatIsOneHole) {
    tree.File("a", 1 << 20);
    operation.overwrite = OverwriteMode::kAlways;
    Write("b", "data");
    EXPECT_EQ(Copy("a", "b"), kDone);
    EXPECT_EQ(Status("b").st_size, 1 << 20);
    EXPECT_EQ(Status("b").st_blocks, 0);
}

TEST_F(CopyTest, ReadsAFailingFileThreeTimesAndAsks) {
    // Address 0 of a process is not there to be read.
    for (const int answer : {int{'s'}, kEsc}) {
        user.ExpectError(EIO, "/proc/self/mem", 'r');
        user.ExpectError(EIO, "/proc/self/mem", answer);
        EXPECT_EQ(CopyWithPrompts(operation, L"/proc/self/mem", tree.Wide("b"), 1, 1, progress,
                                  descriptions, 0),
                  answer == kEsc ? kCancelled : EIO);
        EXPECT_THAT(Names(), IsEmpty());
    }
}

// The holder of a lease is told that somebody wants the file, and gives it back.
int leased = -1;
void GiveBack(int) {
    fcntl(leased, F_SETLEASE, F_UNLCK);
}

class LeaseTest : public CopyTest {
protected:
    void SetUp() override {
        Write("a", "content");
        std::signal(SIGIO, GiveBack);
    }
    void TearDown() override {
        if (leased >= 0) close(leased);
        leased = -1;
        std::signal(SIGIO, SIG_DFL);
    }
    bool Hold() {
        if (leased >= 0) close(leased);
        leased = open(tree.PathOf("a").c_str(), O_RDWR | O_CLOEXEC);
        return fcntl(leased, F_SETLEASE, F_WRLCK) == 0;
    }
};

TEST_F(LeaseTest, HearsEveryAnswerAboutAFileThatIsWritten) {
    struct Row {
        int answer, result, memory;
    };
    for (const Row& row : {Row{'y', kDone, 0}, Row{'a', kDone, 1}, Row{'s', kOpenForWriting, 0},
                           Row{'e', kOpenForWriting, -1}, Row{kEsc, kCancelled, 0}}) {
        if (!Hold()) GTEST_SKIP() << "no leases here";
        operation.copyOpenFiles = 0;
        std::filesystem::remove(tree.PathOf("b"));
        user.Expect("File is open for writing, copy anyway?", tree.PathOf("a"), row.answer);
        EXPECT_EQ(Copy("a", "b"), row.result) << row.answer;
        EXPECT_EQ(operation.copyOpenFiles, row.memory);
        EXPECT_EQ(Exists("b"), row.result == kDone);
    }
}

TEST_F(LeaseTest, RemembersTheAnswer) {
    if (!Hold()) GTEST_SKIP() << "no leases here";
    operation.copyOpenFiles = -1;
    EXPECT_EQ(Copy("a", "b"), kOpenForWriting);
    if (!Hold()) GTEST_SKIP() << "no leases here";
    operation.copyOpenFiles = 1;
    EXPECT_EQ(Copy("a", "b"), kDone);
    EXPECT_EQ(Content("b"), "content");
}

TEST_F(LeaseTest, AMoveToAnotherFileSystemAsksToo) {
    if (!Hold()) GTEST_SKIP() << "no leases here";
    user.Expect("File is open for writing, copy anyway?", tree.PathOf("a"), 's');
    EXPECT_EQ(Move("a", "b", false), kOpenForWriting);
    EXPECT_THAT(Names(), ElementsAre("a"));
    if (!Hold()) GTEST_SKIP() << "no leases here";
    user.Expect("File is open for writing, copy anyway?", tree.PathOf("a"), 'y');
    EXPECT_EQ(Move("a", "b", false), kDone);
    EXPECT_THAT(Names(), ElementsAre("b"));
    EXPECT_EQ(Content("b"), "content");
}

TEST_F(CopyTest, ReadsAFifoUntilItsWritersAreGone) {
    ASSERT_EQ(mkfifo(tree.PathOf("fifo").c_str(), 0600), 0);
    int writer = -1;
    ssize_t written = 0;
    user.onPoll = [&](int poll) {
        if (poll == 1) writer = open(tree.PathOf("fifo").c_str(), O_WRONLY | O_NONBLOCK);
        if (poll == 2) written += write(writer, "through", 7);
        if (poll == 5) written += write(writer, " and through", 12);
        if (poll == 6) close(writer);
    };
    EXPECT_EQ(Copy("fifo", "b"), kDone);
    EXPECT_EQ(written, 19);
    EXPECT_EQ(Content("b"), "through and through");
}

TEST_F(CopyTest, EscEndsTheWaitForAFifo) {
    ASSERT_EQ(mkfifo(tree.PathOf("fifo").c_str(), 0600), 0);
    user.escapeAt = 2;
    EXPECT_EQ(Copy("fifo", "b"), kCancelled);
    EXPECT_THAT(Names(), ElementsAre("fifo"));
    Write("a", "x");
    user.polls = 0;
    EXPECT_EQ(Copy("a", "fifo"), kCancelled) << "nobody reads it";
    EXPECT_TRUE(S_ISFIFO(Status("fifo").st_mode));
}

TEST_F(CopyTest, WritesIntoAFifo) {
    ASSERT_EQ(mkfifo(tree.PathOf("fifo").c_str(), 0600), 0);
    Write("a", std::string(150000, 'x'));
    int reader = -1;
    std::string got;
    user.onPoll = [&](int) {
        if (reader < 0) reader = open(tree.PathOf("fifo").c_str(), O_RDONLY | O_NONBLOCK);
        std::string piece(30000, 0);
        const ssize_t n = read(reader, piece.data(), piece.size());
        if (n > 0) got += piece.substr(0, static_cast<size_t>(n));
    };
    EXPECT_EQ(Copy("a", "fifo"), kDone);
    for (int i = 0; i < 20; i++)
        user.onPoll(0);
    close(reader);
    EXPECT_EQ(got, std::string(150000, 'x'));
    EXPECT_TRUE(S_ISFIFO(Status("fifo").st_mode));
}

TEST_F(CopyTest, WritesToADeviceAndThroughALinkToOne) {
    Write("a", "x");
    tree.Link("null", "/dev/null");
    tree.Link("full", "/dev/full");
    EXPECT_EQ(Copy("a", "null"), kDone);
    EXPECT_TRUE(S_ISLNK(Status("null").st_mode));
    user.ExpectError(ENOSPC, tree.PathOf("a"), 's');
    EXPECT_EQ(Copy("a", "full"), ENOSPC);
    EXPECT_TRUE(S_ISLNK(Status("full").st_mode)) << "a device is never removed";
}

TEST_F(CopyTest, CopiesADevicesContent) {
    EXPECT_EQ(
        CopyWithPrompts(operation, L"/dev/null", tree.Wide("b"), 1, 1, progress, descriptions, 0),
        kDone);
    EXPECT_TRUE(S_ISREG(Status("b").st_mode));
    EXPECT_EQ(Status("b").st_size, 0);
    user.polls = 0;
    user.escapeAt = 50;
    EXPECT_EQ(
        CopyWithPrompts(operation, L"/dev/zero", tree.Wide("c"), 1, 1, progress, descriptions, 0),
        kCancelled);
    EXPECT_FALSE(Exists("c"));
}

TEST_F(CopyTest, TellsOfASocket) {
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", tree.PathOf("s").c_str());
    ASSERT_EQ(bind(handle, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    user.ExpectError(ENXIO, tree.PathOf("s"), 's');
    EXPECT_EQ(Copy("s", "b"), ENXIO);
    Write("a", "x");
    user.ExpectError(ENXIO, tree.PathOf("a"), 's');
    EXPECT_EQ(Copy("a", "s"), ENXIO);
    EXPECT_TRUE(S_ISSOCK(Status("s").st_mode));
    close(handle);
}

TEST_F(CopyTest, MakesLinksAnew) {
    tree.Folder("d");
    tree.Link("file", "nowhere/at all");
    tree.Link("dir", "d");
    EXPECT_EQ(Copy("file", "file2"), kDone);
    EXPECT_EQ(Copy("dir", "dir2"), kDone);
    EXPECT_EQ(std::filesystem::read_symlink(tree.PathOf("file2")), "nowhere/at all");
    EXPECT_EQ(std::filesystem::read_symlink(tree.PathOf("dir2")), "d");
}

TEST_F(CopyTest, ALinkTakesThePlaceOfAFileWhole) {
    Write("old", "what was there");
    tree.Link("link", "new text");
    user.Expect(kExists, tree.PathOf("old"), 's');
    EXPECT_EQ(Copy("link", "old"), EEXIST);
    EXPECT_EQ(Content("old"), "what was there");
    user.Expect(kExists, tree.PathOf("old"), 'y');
    EXPECT_EQ(Copy("link", "old"), kDone);
    EXPECT_EQ(std::filesystem::read_symlink(tree.PathOf("old")), "new text");
    EXPECT_THAT(Names(), ElementsAre("link", "old"));
}

TEST_F(CopyTest, FollowsLinksWhenAsked) {
    Write("file", "content");
    tree.Folder("d");
    Write("d/inner", "inside");
    tree.Link("toFile", "file");
    tree.Link("toDir", "d");
    tree.Link("toNothing", "nothing");
    EXPECT_EQ(Copy("toFile", "a", kTransferDereference), kDone);
    EXPECT_EQ(Copy("toDir", "b", kTransferDereference), kDone);
    EXPECT_TRUE(S_ISREG(Status("a").st_mode));
    EXPECT_EQ(Content("a"), "content");
    EXPECT_TRUE(S_ISDIR(Status("b").st_mode));
    EXPECT_EQ(Content("b/inner"), "inside");
    user.ExpectError(ENOENT, tree.PathOf("toNothing"), 'y');
    EXPECT_EQ(Copy("toNothing", "c", kTransferDereference), ENOENT);
}

TEST_F(CopyTest, FollowsNoLinkInACircle) {
    tree.Folder("d");
    Write("d/inner", "inside");
    tree.Link("d/loop", ".");
    user.ExpectError(ELOOP, tree.PathOf("d/loop"), 's');
    EXPECT_EQ(Copy("d", "e", kTransferDereference), kSkipped);
    EXPECT_EQ(Content("e/inner"), "inside");
}

TEST_F(CopyTest, TheCoreAloneAsksNothing) {
    Collide();
    auto transfer = [&](bool overwrite, bool move) {
        return TransferObject(operation, tree.Wide("new"), tree.Wide("old"), overwrite, move,
                              nullptr, descriptions, 0);
    };
    EXPECT_EQ(transfer(false, false), EACCES);
    EXPECT_EQ(Content("old"), "what was there");
    EXPECT_EQ(transfer(true, true), kDone);
    EXPECT_EQ(Content("old"), "what comes");
    EXPECT_THAT(Names(), ElementsAre("old"));
    EXPECT_EQ(transfer(true, true), ENOENT);
}

}  // namespace
}  // namespace zt
