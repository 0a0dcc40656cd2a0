// A target that takes no more: full, read-only from the start or from some moment on.
#include <cerrno>

#include "tests/nothing_lost/two_folders.h"

namespace zt::headless {
namespace {

using faults::Call;
using faults::Fault;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kLarge(60000, 'L');
const std::string kSmall(20000, 'S');

class FullDisk : public TwoFolders {
protected:
    // "from" is roomy; "to" takes the small ones, not the large one.
    FullDisk() : room(place.To(), 1u << 16) {
        tree.File("from/a", kSmall).File("from/large", kLarge).File("from/z", kSmall);
    }

    void SetUp() override {
        if (!room.IsMounted()) GTEST_SKIP() << room.Reason();
    }

    SmallFileSystem room;
};

TEST_F(FullDisk, SkipsWhatHasNoRoomAndKeepsItTagged) {
    for (const char* key : {"F5", "F6"}) {
        SCOPED_TRACE(key);
        Open();
        Begin(key, 3);
        Screen().Press("Enter");
        EXPECT_THAT(Screen().Text(), HasSubstr("No room for"));
        Screen().Press("Alt-s");
        ExpectTidyEnd();
        EXPECT_THAT(tree.Names("to"), ElementsAre("a", "z"));
        EXPECT_EQ(kSmall, tree.Content("to/a"));
        EXPECT_EQ(kSmall, tree.Content("to/z"));
        EXPECT_EQ(kLarge, tree.Content("from/large"));
        EXPECT_THAT(work->Tagged(), ElementsAre("large"));
        tree.Remove("to/a").Remove("to/z");
    }
    EXPECT_THAT(tree.Names("from"), ElementsAre("large"));
}

TEST_F(FullDisk, StopsAtEscWithTheRestTagged) {
    Open();
    Begin("F6", 3);
    Screen().Press({"Enter", "Esc"});
    ExpectTidyEnd();
    EXPECT_THAT(tree.Names("to"), ElementsAre("a"));
    EXPECT_THAT(tree.Names("from"), ElementsAre("large", "z"));
    EXPECT_EQ(kLarge, tree.Content("from/large"));
    EXPECT_THAT(work->Tagged(), ElementsAre("large", "z"));
}

TEST_F(FullDisk, GoesOnWhereRoomWasMade) {
    tree.File("to/in the way", kSmall).File("from/z", "");
    tree.Remove("from/a");
    Open();
    Begin("F6", 2);
    Screen().Press("Enter");
    ASSERT_THAT(Screen().Text(), HasSubstr("No room for"));
    tree.Remove("to/in the way");
    Screen().Press("Alt-r");
    ExpectTidyEnd();
    EXPECT_THAT(tree.Names("from"), ElementsAre());
    EXPECT_EQ(kLarge, tree.Content("to/large"));
}

TEST_F(FullDisk, KeepsTheOldFileWhereTheNewOneHasNoRoom) {
    tree.File("to/large", "the old one").File("to/filler", std::string(45000, 'f'));
    tree.Remove("from/a").Remove("from/z");
    for (const char* key : {"F5", "F6"}) {
        Open();
        Begin(key, 1);
        Screen().Press({"Alt-a", "Enter"});
        EXPECT_THAT(Screen().Text(), HasSubstr("No room for"));
        Screen().Press("Alt-s");
        ExpectTidyEnd();
        EXPECT_EQ("the old one", tree.Content("to/large"));
        EXPECT_EQ(kLarge, tree.Content("from/large"));
        EXPECT_THAT(work->Tagged(), ElementsAre("large"));
    }
}

class ReadOnlyDisk : public TwoFileSystems {
protected:
    void SetUp() override {
        if (!place.IsMounted()) GTEST_SKIP() << place.Reason();
    }

    ReadOnlyDisk() { tree.File("from/a", kSmall).File("from/z", kLarge).File("to/a", "old"); }
};

TEST_F(ReadOnlyDisk, TakesNothingAndLosesNothing) {
    ASSERT_TRUE(place.systems[1]->MakeReadOnly());
    const TreeSnapshot before = TakeSnapshot(tree.Path());
    for (const char* key : {"F5", "F6"}) {
        Open();
        Begin(key, 2);
        Screen().Press({"Alt-a", "Enter"});
        EXPECT_THAT(Screen().Text(), HasSubstr("Disk write protected, cannot write"));
        EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
        ExpectTidyEnd();
        EXPECT_EQ("", Differences(before, TakeSnapshot(tree.Path())));
        EXPECT_THAT(work->Tagged(), ElementsAre("a", "z"));
    }
}

TEST_F(ReadOnlyDisk, LosesNothingWhenItTurnsReadOnlyBetweenTwoFiles) {
    Open();
    Begin("F6", 2);
    Screen().Press("Alt-a");
    FaultOrder order;
    order.fault = Fault::kPause;
    order.calls = BitOf(Call::kOpen);
    order.ending = "/from/z";
    order.first = 1;
    ASSERT_TRUE(work->RunToPause("Enter", order)) << Screen().Text();
    ASSERT_TRUE(place.systems[1]->MakeReadOnly()) << strerror(errno);
    work->GoOn();
    EXPECT_THAT(Screen().Text(), HasSubstr("Disk write protected, cannot write"));
    EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
    ExpectTidyEnd();
    EXPECT_THAT(tree.Names("to"), ElementsAre("a"));
    EXPECT_EQ(kSmall, tree.Content("to/a"));
    EXPECT_THAT(tree.Names("from"), ElementsAre("z"));
    EXPECT_EQ(kLarge, tree.Content("from/z"));
    EXPECT_THAT(work->Tagged(), ElementsAre("z"));
}

// Delete and move need the right to write in the source's folder as well.
TEST_F(ReadOnlyDisk, KeepsTheSourceOfAMoveThatCannotBeTakenAway) {
    ASSERT_TRUE(place.systems[0]->MakeReadOnly());
    const TreeSnapshot before = TakeSnapshot(place.From());
    Open();
    Begin("F6", 2);
    Screen().Press({"Alt-a", "Enter"});
    EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
    ExpectTidyEnd();
    EXPECT_EQ("", Differences(before, TakeSnapshot(place.From())));
    EXPECT_EQ(kSmall, tree.Content("to/a"));
    Open("Confirmations=7\n");
    Begin("F8", 2);
    EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
    ExpectTidyEnd();
    EXPECT_EQ("", Differences(before, TakeSnapshot(place.From())));
    EXPECT_THAT(work->Tagged(), ElementsAre("a", "z"));
}

class ShutFolder : public TwoFolders {};

TEST_F(ShutFolder, TakesNothingFromOneWhoMayNotWriteThere) {
    tree.File("from/a", kSmall).File("from/sub/z", kLarge).Folder("to/sub");
    tree.File("to/mine", "old").File("from/mine", "new");
    tree.Mode("to", 0555).GiveTo(OrdinaryUser());
    tree.Mode("to/mine", 0644);
    const TreeSnapshot before = TakeSnapshot(tree.Path());
    FileTree home;
    home.GiveTo(OrdinaryUser());
    for (const char* key : {"F5", "F6"}) {
        SessionOptions options;
        options.home = home.Path();
        options.directory = place.From();
        options.arguments = {"-r", place.To()};
        options.user = OrdinaryUser();
        Session session(options);
        session.Press({"Home", "Ins", "Ins", "Ins", "Ins", key, "Alt-e", "Enter"});
        for (int i = 0; i < 20 && !session.AtPrompt(); i++)
            session.Press("Alt-s");
        EXPECT_TRUE(session.AtPrompt()) << session.Text();
        TreeSnapshot after = TakeSnapshot(tree.Path());
        // What goes into a folder that takes it is not the question here.
        const bool whole = after["to/sub/z"].HoldsSameAs(before.at("from/sub/z")) ||
                           after["from/sub/z"].HoldsSameAs(before.at("from/sub/z"));
        EXPECT_TRUE(whole);
        for (const char* path : {"from/a", "from/mine", "to/mine"}) {
            EXPECT_TRUE(after[path] == before.at(path)) << path << session.Text();
        }
        EXPECT_FALSE(tree.Exists("to/a"));
        if (tree.Exists("to/sub/z")) break;
    }
}

}  // namespace
}  // namespace zt::headless
