// Copying directory trees.
#include <fcntl.h>

#include "tests/fileops/engine_fixture.h"
#include "ui/message_box.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TreeCopyTest : public EngineTest {
protected:
    void SetUp() override {
        tree.Folder("d");
        tree.Folder("d/sub");
        Write("d/one", "1");
        Write("d/sub/two", "2");
    }
    // With names relative to the tree, as no panel gives them.
    int CopyHere(const std::string& from, const std::string& to) {
        const std::filesystem::path before = std::filesystem::current_path();
        std::filesystem::current_path(tree.Path());
        const int code =
            CopyWithPrompts(operation, NameFromBytes(from.c_str()), NameFromBytes(to.c_str()), 1, 1,
                            progress, descriptions, 0);
        std::filesystem::current_path(before);
        return code;
    }
};

TEST_F(TreeCopyTest, CopiesATree) {
    tree.Mode("d/sub", 0510);
    tree.Link("d/link", "sub");
    EXPECT_EQ(Copy("d", "e"), kDone);
    EXPECT_THAT(Names("e"), ElementsAre("link", "one", "sub"));
    EXPECT_EQ(Content("e/sub/two"), "2");
    EXPECT_EQ(std::filesystem::read_symlink(tree.PathOf("e/link")), "sub");
    EXPECT_EQ(Status("e/sub").st_mode & 07777, 0510u);
    EXPECT_EQ(progress.bytesDone, 2u);
}

TEST_F(TreeCopyTest, IsPrivateUntilAllIsIn) {
    tree.Mode("d", 0755);
    int seen = 0;
    user.onPoll = [&](int) {
        seen++;
        EXPECT_EQ(Status("e").st_mode & 07777, 0700u);
    };
    EXPECT_EQ(Copy("d", "e"), kDone);
    EXPECT_GT(seen, 0);
    EXPECT_EQ(Status("e").st_mode & 07777, 0755u);
}

TEST_F(TreeCopyTest, StaysPrivateWhenItIsStopped) {
    user.escapeAt = 1;
    EXPECT_EQ(Copy("d", "e"), kCancelled);
    EXPECT_EQ(Status("e").st_mode & 07777, 0700u);
}

TEST_F(TreeCopyTest, StopsAfterEachEntryOnBreak) {
    user.onPoll = [](int poll) {
        if (poll == 2) abortState = kAbortRequested;
    };
    EXPECT_EQ(Copy("d", "e"), kCancelled);
    EXPECT_EQ(user.polls, 2);
}

TEST_F(TreeCopyTest, RefusesToGoIntoItself) {
    tree.Link("way", "d/sub");
    tree.Folder("elsewhere");
    tree.Link("elsewhere/back", "../d");
    for (const char* target :
         {"d", "d/x", "d/sub/x", "way/x", "elsewhere/back/x", "elsewhere/back"}) {
        user.Expect("Directory cannot be copied into itself", tree.PathOf("d"), 'y');
        EXPECT_EQ(Copy("d", target), kCancelled) << target;
        EXPECT_EQ(user.types.back(), kBoxOk);
    }
    EXPECT_THAT(Names("d"), ElementsAre("one", "sub"));
    EXPECT_EQ(Copy("d", "da"), kDone);
    EXPECT_EQ(Copy("d/sub", "sub"), kDone) << "out of it is another thing";
}

TEST_F(TreeCopyTest, RefusesToMergeIntoItselfThroughALinkBelow) {
    tree.Folder("e");
    tree.Link("e/sub", "../d/sub");
    user.Expect("Directory cannot be copied into itself", tree.PathOf("d/sub"), 'y');
    EXPECT_EQ(Copy("d", "e"), kCancelled);
    EXPECT_THAT(Names("d/sub"), ElementsAre("two"));
}

TEST_F(TreeCopyTest, MergesSilently) {
    tree.Folder("e");
    Write("e/kept", "k");
    EXPECT_EQ(Copy("d", "e"), kDone);
    EXPECT_THAT(Names("e"), ElementsAre("kept", "one", "sub"));
}

TEST_F(TreeCopyTest, AsksToMergeWhereTheSourceHasNoPath) {
    struct Row {
        int answer, result;
        bool merged;
    };
    for (const Row& row : {Row{'y', kDone, true}, Row{'s', kSkipped, false},
                           Row{kEsc, kCancelled, false}, Row{'a', kDone, true}}) {
        std::filesystem::remove_all(tree.PathOf("e"));
        tree.Folder("e");
        user.Expect("Directory already exists, merge with source?", "e", row.answer);
        EXPECT_EQ(CopyHere("d", "e"), row.result) << row.answer;
        EXPECT_EQ(Exists("e/one"), row.merged) << row.answer;
    }
    EXPECT_TRUE(operation.mergeAll);
    operation.overwrite = OverwriteMode::kAlways;
    EXPECT_EQ(CopyHere("d", "e"), kDone);
}

TEST_F(TreeCopyTest, AnyOtherAnswerIsTheResult) {
    tree.Folder("e");
    user.Expect("Directory already exists, merge with source?", "e", 'e');
    user.ExpectError('e', "d", 's');
    EXPECT_EQ(CopyHere("d", "e"), 'e');
}

TEST_F(TreeCopyTest, GoesOnAfterAnEntryThatStays) {
    Write("d/another", "3");
    tree.Folder("e");
    Write("e/one", "old");
    user.Expect("File already exists, Overwrite?", tree.PathOf("e/one"), 's');
    EXPECT_EQ(Copy("d", "e"), kSkipped);
    EXPECT_EQ(Content("e/one"), "old");
    EXPECT_EQ(Content("e/another"), "3");
    EXPECT_EQ(Content("e/sub/two"), "2");
}

TEST_F(TreeCopyTest, KeepsTheSourceOfAMoveWhereSomethingStays) {
    tree.Folder("e");
    Write("e/one", "old");
    user.Expect("File already exists, Overwrite?", tree.PathOf("e/one"), 's');
    EXPECT_EQ(Move("d", "f", false), kDone);
    EXPECT_FALSE(Exists("d"));
    EXPECT_EQ(Move("f", "e", false), kSkipped);
    EXPECT_THAT(Names("f"), ElementsAre("one"));
}

TEST_F(TreeCopyTest, TellsOfADirectoryThatCannotBeRead) {
    ASSERT_EQ(chown(tree.Path().c_str(), 65534, 65534), 0);
    tree.Mode("d/sub", 0);
    const OrdinaryUser someone;
    user.ExpectError(EACCES, tree.PathOf("d/sub"), 's');
    EXPECT_EQ(Copy("d", "e"), kSkipped);
    EXPECT_THAT(Names("e"), ElementsAre("one")) << "nothing was begun";
}

TEST_F(TreeCopyTest, ADirectoryTakesThePlaceOfAFile) {
    Write("e", "old");
    user.Expect("File already exists, Overwrite?", tree.PathOf("e"), 's');
    EXPECT_EQ(Copy("d", "e"), EEXIST);
    EXPECT_EQ(Content("e"), "old");
    user.Expect("File already exists, Overwrite?", tree.PathOf("e"), 'y');
    EXPECT_EQ(Copy("d", "e"), kDone);
    EXPECT_EQ(Content("e/one"), "1");
    EXPECT_THAT(Names(), ElementsAre("d", "e"));
}

TEST_F(TreeCopyTest, LowersTheCaseOfFilesFromFoldingFileSystems) {
    tree.Folder("d/DIR");
    Write("d/DIR/inner", "3");
    operation.caseFilterSource = true;
    EXPECT_EQ(Copy("d", "e"), kDone);
    EXPECT_THAT(Names("e"), ElementsAre("DIR", "one", "sub"));
    // Here case does not fold: the lower-case name is looked for in vain.
    Write("d/UPPER", "4");
    std::filesystem::remove_all(tree.PathOf("e"));
    user.ExpectError(ENOENT, tree.PathOf("d/upper"), 'y');
    EXPECT_EQ(Copy("d", "e"), kSkipped);
}

TEST_F(TreeCopyTest, LeavesTheDescriptionFileOut) {
    Write("d/Descript.ion", "one first\n");
    EXPECT_EQ(Copy("d", "e"), kDone);
    EXPECT_FALSE(Exists("e/Descript.ion"));
}

TEST_F(TreeCopyTest, CarriesDescriptions) {
    Write("d/descript.ion", "one first\n\"other name\" second\nlost third\n");
    Write("d/other name", "x");
    EXPECT_EQ(Copy("d", "e"), kDone);
    const std::string carried = Content("e/descript.ion");
    EXPECT_NE(carried.find("one first"), std::string::npos);
    EXPECT_NE(carried.find("\"other name\" second"), std::string::npos);
    EXPECT_EQ(carried.find("lost"), std::string::npos);
}

TEST_F(TreeCopyTest, MovesDescriptions) {
    Write("d/descript.ion", "one first\n");
    EXPECT_EQ(Move("d", "e", false), kDone);
    EXPECT_FALSE(Exists("d"));
    EXPECT_NE(Content("e/descript.ion").find("one first"), std::string::npos);
}

// Makes and moves a chain of directories down to the longest path.
TEST_F(TreeCopyTest, GoesAsDeepAsPathsGo) {
    std::string path = tree.PathOf("deep");
    int levels = 0;
    while (path.size() + 2 < 4000) {
        ASSERT_EQ(mkdir(path.c_str(), 0755), 0) << levels;
        path += "/a";
        levels++;
    }
    std::ofstream(path) << "bottom";
    EXPECT_EQ(Move("deep", "copy", false), kDone);
    EXPECT_FALSE(Exists("deep"));
    std::string copied = tree.PathOf("copy") + path.substr(tree.PathOf("deep").size());
    std::ifstream file(copied);
    std::string content;
    file >> content;
    EXPECT_EQ(content, "bottom");
}

TEST_F(TreeCopyTest, WritesUnderTheLongestPath) {
    Write("file", "content");
    std::string path = tree.Path();
    while (path.size() < 4092) {
        const size_t room = 4093 - path.size() - 1;
        path += "/" + std::string(std::min<size_t>(room > 101 ? 99 : room, room), 'n');
        ASSERT_EQ(mkdir(path.c_str(), 0755), 0) << path.size();
    }
    ASSERT_EQ(path.size(), 4093u);
    const auto copy = [&](const std::string& target) {
        return CopyWithPrompts(operation, tree.Wide("file"), NameFromBytes(target.c_str()), 1, 1,
                               progress, descriptions, 0);
    };
    EXPECT_EQ(copy(path + "/f"), kDone);
    EXPECT_EQ(std::filesystem::file_size(path + "/f"), 7u);
    operation.overwrite = OverwriteMode::kAlways;
    Write("file", "other content");
    EXPECT_EQ(copy(path + "/f"), kDone);
    EXPECT_EQ(std::filesystem::file_size(path + "/f"), 13u);
    user.ExpectError(ENAMETOOLONG, tree.PathOf("file"), 'y');
    EXPECT_EQ(copy(path + "/ff"), ENAMETOOLONG);
}

TEST_F(TreeCopyTest, RefusesPathsThatBecomeTooLong) {
    std::string path = tree.PathOf("deep");
    const std::string part = "/" + std::string(99, 'n');
    while (path.size() < 3900) {
        ASSERT_EQ(mkdir(path.c_str(), 0755), 0);
        path += part;
    }
    std::ofstream(path) << "bottom";
    const std::string target(200, 't');
    const std::string tooLong = path;
    user.ExpectError(ENAMETOOLONG, tooLong, 'y');
    EXPECT_EQ(Copy("deep", target), kSkipped);
    EXPECT_TRUE(Exists(target));
}

}  // namespace
}  // namespace zt
