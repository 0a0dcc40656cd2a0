// Files and folders that change while the work is at them: the program is held up before one of its
// calls, and the test plays the other user.
#include <cerrno>
#include <fstream>
#include <set>

#include "tests/nothing_lost/two_folders.h"

namespace zt::headless {
namespace {

using faults::Call;
using faults::Fault;
using testing::HasSubstr;

const std::string kContent(100000, 'c');

class ChangingSource : public TwoFileSystems {
protected:
    ChangingSource() { tree.File("from/big", kContent); }

    // Moves or copies and stops before the `nth` of `call` on a path with that ending.
    bool HoldUp(const char* key, Call call, const std::string& ending, uint32_t nth) {
        Begin(key, tree.Names("from").size());
        FaultOrder order;
        order.fault = Fault::kPause;
        // Where the system can it moves the blocks itself.
        order.calls = call == Call::kRead ? BitOf(call) | BitOf(Call::kCopyRange) : BitOf(call);
        order.ending = ending;
        order.first = nth;
        return work->RunToPause("Enter", order);
    }

    void Append(const std::string& name, const std::string& text) {
        std::ofstream file(tree.PathOf(name), std::ios::binary | std::ios::app);
        file << text;
    }

    bool HitStandsBefore(uint32_t number, std::initializer_list<Call> calls) {
        return std::find(calls.begin(), calls.end(), work->Faults().CallAt(number)) != calls.end();
    }

    void Finish(BoxPolicy policy = BoxPolicy::kSkip) {
        work->GoOn();
        EXPECT_TRUE(work->AnswerBoxes(policy));
        ExpectTidyEnd();
    }
};

TEST_F(ChangingSource, KeepsWhatIsAddedWhileItIsRead) {
    const std::string added = "what came later";
    int rounds = 0;
    for (uint32_t nth = 1; nth < 10; nth++) {
        tree.Remove("from/big").File("from/big", kContent);
        if (tree.Exists("to/big")) tree.Remove("to/big");
        Open();
        if (!HoldUp("F6", Call::kRead, "/from/big", nth)) break;
        Append("from/big", added);
        Finish();
        const std::string kept = tree.Exists("from/big") ? "from/big" : "to/big";
        EXPECT_EQ(kContent + added, tree.Content(kept)) << "before read " << nth;
        rounds++;
    }
    EXPECT_GT(rounds, 2);
}

TEST_F(ChangingSource, KeepsWhatIsAddedAfterTheLastRead) {
    const std::string added = "at the last moment";
    Open();
    // The new file is closed before it gets its name.
    if (!HoldUp("F6", Call::kTime, "/big.zt@@@.tmp", 1)) FAIL() << work->Faults().History();
    Append("from/big", added);
    Finish();
    EXPECT_EQ(kContent + added, tree.Content("from/big"));
    EXPECT_EQ(kContent, tree.Content("to/big")) << "what had been read is whole";
    EXPECT_THAT(work->Tagged(), testing::ElementsAre("big"));
}

TEST_F(ChangingSource, ComesToAnEndWhenItShrinks) {
    for (const char* key : {"F5", "F6"}) {
        for (uint32_t nth = 1; nth < 5; nth++) {
            if (tree.Exists("from/big")) tree.Remove("from/big");
            if (tree.Exists("to/big")) tree.Remove("to/big");
            tree.File("from/big", kContent).File("from/other", "other");
            Open();
            if (!HoldUp(key, Call::kRead, "/from/big", nth)) break;
            ASSERT_EQ(0, truncate(tree.PathOf("from/big").c_str(), 10));
            Finish();
            // The ten bytes that are left are the file now.
            const std::string kept = tree.Exists("from/big") ? "from/big" : "to/big";
            EXPECT_THAT(tree.Content(kept), testing::StartsWith(kContent.substr(0, 10)));
            const bool isCopy = std::string_view(key) == "F5";
            EXPECT_TRUE(!isCopy || tree.Exists("from/big"));
            EXPECT_EQ("other", tree.Content("to/other"));
        }
    }
}

TEST_F(ChangingSource, ReadsOnWhenItVanishes) {
    for (const char* key : {"F5", "F6"}) {
        if (!tree.Exists("from/big")) tree.File("from/big", kContent);
        tree.File("from/other", "other");
        Open();
        ASSERT_TRUE(HoldUp(key, Call::kRead, "/from/big", 2));
        tree.Remove("from/big");
        Finish();
        // A move may see it and stop, for what it read is nobody's file any more; then there is
        // nothing half under the name.
        if (tree.Exists("to/big")) {
            EXPECT_EQ(kContent, tree.Content("to/big"));
        }
        EXPECT_EQ("other", tree.Content("to/other"));
        tree.Remove("to/other");
        if (tree.Exists("to/big")) tree.Remove("to/big");
    }
}

TEST_F(ChangingSource, TellsOfOneThatVanishedBefore) {
    tree.File("from/other", "other");
    Open();
    ASSERT_TRUE(HoldUp("F5", Call::kOpen, "/from/big", 1));
    tree.Remove("from/big");
    work->GoOn();
    EXPECT_THAT(Screen().Text(), HasSubstr("File not found"));
    EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
    ExpectTidyEnd();
    EXPECT_FALSE(tree.Exists("to/big"));
    EXPECT_EQ("other", tree.Content("to/other"));
}

// Somebody puts another file under the name: that one was never read.
TEST_F(ChangingSource, DoesNotDeleteAnotherFileOfTheName) {
    Open();
    ASSERT_TRUE(HoldUp("F6", Call::kRead, "/from/big", 2));
    tree.Remove("from/big").File("from/big", "another file");
    Finish();
    ASSERT_TRUE(tree.Exists("from/big"));
    EXPECT_EQ("another file", tree.Content("from/big"));
}

TEST_F(ChangingSource, LosesNoSourceWhenTheTargetFolderGoes) {
    tree.Remove("from/big");
    for (const char* key : {"F5", "F6"}) {
        tree.File("from/dir/a", "aaa").File("from/dir/big", kContent).File("from/dir/z", "zzz");
        Open();
        ASSERT_TRUE(HoldUp(key, Call::kRead, "/from/dir/big", 2));
        // What had been moved by now goes with the folder that somebody else removes.
        const TreeSnapshot before = TakeSnapshot(place.From());
        tree.Remove("to/dir");
        Finish();
        EXPECT_EQ("", Differences(before, TakeSnapshot(place.From()))) << key;
        EXPECT_THAT(work->Tagged(), testing::ElementsAre("dir"));
        if (tree.Exists("to/dir")) tree.Remove("to/dir");
    }
}

// A file that appears at the target while the copy is under way was not there to be asked about.
TEST_F(ChangingSource, DoesNotOverwriteWhatAppearsMeanwhile) {
    for (const char* key : {"F5", "F6"}) {
        Open();
        ASSERT_TRUE(HoldUp(key, Call::kRead, "/from/big", 2));
        tree.File("to/big", "appeared");
        work->GoOn();
        EXPECT_THAT(Screen().Text(), HasSubstr("File already exists, Overwrite?"));
        EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
        ExpectTidyEnd();
        EXPECT_EQ("appeared", tree.Content("to/big"));
        EXPECT_EQ(kContent, tree.Content("from/big"));
        tree.Remove("to/big");
    }
}

// Whenever it appears, also where nobody is asked about folders that are not empty.
TEST_F(ChangingSource, KeepsAFileThatAppearsInAFolderThatGoes) {
    Open("Confirmations=7\n");
    constexpr uint32_t kMostCalls = 1000;
    uint32_t number = 1;
    for (; number < kMostCalls; number++) {
        place.Clear();
        tree.File("from/dir/one", "1").File("from/dir/sub/two", "2");
        Begin("F6", 1);
        FaultOrder order;
        order.fault = Fault::kPause;
        order.first = number;
        order.untilListed = place.From();
        if (!work->RunToPause("Enter", order)) break;
        const bool stood = tree.Exists("from/dir/sub");
        if (stood) tree.File("from/dir/sub/new", "new");
        Finish();
        if (!stood) continue;
        const bool stays = tree.Exists("from/dir/sub/new");
        ASSERT_TRUE(stays || tree.Exists("to/dir/sub/new")) << "before call " << number << "\n"
                                                            << work->Faults().History();
        EXPECT_EQ("new", tree.Content(stays ? "from/dir/sub/new" : "to/dir/sub/new"));
        EXPECT_EQ("2", tree.Content(tree.Exists("to/dir/sub/two") ? "to/dir/sub/two"
                                                                  : "from/dir/sub/two"));
    }
    EXPECT_GT(number, 30u);
    EXPECT_LT(number, kMostCalls);
}

// The folder that is being deleted is swapped for a link to another one.
class SwappedFolder : public TwoFolders {};

TEST_F(SwappedFolder, IsNotFollowedByADeletion) {
    constexpr Call kCalls[] = {Call::kOpen,   Call::kOpenDirectory,  Call::kReadDirectory,
                               Call::kStatus, Call::kAccess,         Call::kUnlink,
                               Call::kClose,  Call::kRemoveDirectory};
    int swaps = 0;
    for (const Call call : kCalls) {
        for (uint32_t nth = 1; nth < 40; nth++) {
            place.Clear();
            tree.File("from/dir/sub/deep/file", "goes").File("from/dir/sub/second", "goes");
            tree.File("to/precious/file", "stays").File("to/precious/second", "stays");
            tree.File("to/precious/deep/file", "stays");
            const TreeSnapshot before = TakeSnapshot(tree.PathOf("to"));
            Open("Confirmations=7\n");
            work->TagAll(1);
            FaultOrder order;
            order.fault = Fault::kPause;
            order.calls = BitOf(call);
            order.first = nth;
            order.untilListed = place.From();
            if (!work->RunToPause("F8", order)) break;
            // What stood there goes aside, so that an open descriptor still has it.
            const std::string sub = tree.PathOf("from/dir/sub");
            if (rename(sub.c_str(), tree.PathOf("from/aside").c_str()) == 0) {
                tree.Link("from/dir/sub", tree.PathOf("to/precious"));
                swaps++;
            }
            work->GoOn();
            EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
            EXPECT_EQ("", Differences(before, TakeSnapshot(tree.PathOf("to"))))
                << faults::kCallNames[static_cast<size_t>(call)] << " " << nth << "\n"
                << work->Faults().History();
            if (HasFailure()) return;
        }
    }
    EXPECT_GT(swaps, 10);
}

// A move takes what the names lead to; what the link leads to it must not delete without having
// carried it.
TEST_F(ChangingSource, LosesNothingWhereAFolderIsSwappedForALink) {
    Open("Confirmations=7\n");
    constexpr uint32_t kMostCalls = 1000;
    uint32_t number = 1;
    int swaps = 0;
    for (; number < kMostCalls; number++) {
        place.Clear();
        tree.File("from/dir/sub/one", "source one").File("from/dir/sub/two", "source two");
        FileTree outside;
        outside.File("precious/one", "precious one").File("precious/three", "precious three");
        Begin("F6", 1);
        FaultOrder order;
        order.fault = Fault::kPause;
        order.first = number;
        order.untilListed = place.From();
        if (!work->RunToPause("Enter", order)) break;
        const std::string sub = tree.PathOf("from/dir/sub");
        if (rename(sub.c_str(), tree.PathOf("from/aside").c_str()) == 0) {
            tree.Link("from/dir/sub", outside.PathOf("precious"));
            swaps++;
        }
        work->GoOn();
        EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
        std::set<std::string> contents;
        for (const std::string& root : {tree.Path(), outside.Path()}) {
            for (const auto& [path, state] : TakeSnapshot(root)) {
                if (state.type != S_IFREG) continue;
                std::ifstream file(root + "/" + path, std::ios::binary);
                contents.insert(std::string(std::istreambuf_iterator<char>(file), {}));
            }
        }
        // Between the last look at a name and its removal nothing can be done about it.
        const bool late = HitStandsBefore(number, {Call::kAccess, Call::kUnlink});
        for (const char* content : {"source one", "source two", "precious one", "precious three"}) {
            EXPECT_TRUE(contents.contains(content) || late)
                << content << " is lost before call " << number << "\n"
                << work->Faults().History();
        }
        if (HasFailure()) return;
        if (!Screen().AtPrompt()) work->StartAgain();
    }
    EXPECT_GT(swaps, 20);
}

}  // namespace
}  // namespace zt::headless
