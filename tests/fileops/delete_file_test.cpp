// Deleting one file.
#include "tests/fileops/delete_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeletingAFile : public Deletion {};

TEST_F(DeletingAFile, RemovesItWithoutAWord) {
    tree.File("a", 5);
    EXPECT_EQ(1, File("a"));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(user.log, IsEmpty());
    EXPECT_EQ(0, painter.stops);
}

TEST_F(DeletingAFile, ShowsItsWindowAsItsModeSays) {
    tree.File("a");
    tree.File("b");
    tree.File("c");
    EXPECT_EQ(1, File("a", DeleteFileMode::kSingle));
    EXPECT_THAT(user.log, ElementsAre("show a", "hide"));
    user.log.clear();
    EXPECT_EQ(1, File("b", DeleteFileMode::kOneOfMany));
    EXPECT_THAT(user.log, ElementsAre("show b"));
    user.log.clear();
    EXPECT_EQ(0, File("c", DeleteFileMode::kCloseWindow));
    EXPECT_THAT(user.log, ElementsAre("hide"));
    EXPECT_TRUE(Exists("c"));
}

TEST_F(DeletingAFile, RemovesALinkAndNotItsTarget) {
    tree.Folder("folder");
    tree.File("folder/inside");
    tree.File("file");
    tree.Link("to folder", "folder");
    tree.Link("to file", "file");
    tree.Link("to nothing", "nothing");
    for (const char* name : {"to folder", "to file", "to nothing"})
        EXPECT_EQ(1, File(name)) << name;
    EXPECT_THAT(Names(), ElementsAre("file", "folder"));
    EXPECT_THAT(Names("folder"), ElementsAre("inside"));
}

TEST_F(DeletingAFile, RemovesWhatIsNoRegularFile) {
    ASSERT_EQ(0, mkfifo(tree.PathOf("fifo").c_str(), 0600));
    EXPECT_EQ(1, File("fifo"));
    EXPECT_FALSE(Exists("fifo"));
}

TEST_F(DeletingAFile, TellsOfOneThatIsNotThere) {
    user.answers = {'y'};
    EXPECT_EQ(0, File("a"));
    EXPECT_EQ(-1, File("a"));
    EXPECT_THAT(user.log, ElementsAre("error 2: a", "error 2: a"));
    tree.File("file");
    user.log.clear();
    EXPECT_EQ(-1, File("file/below"));
    EXPECT_THAT(user.log, ElementsAre("error 20: file/below"));
    EXPECT_GE(painter.stops, 3) << "stopped before each box";
}

TEST_F(DeletingAFile, TriesAgainWhenThatIsTheAnswer) {
    tree.Folder("a");
    user.answers = {'r', 'r', 's'};
    EXPECT_EQ(0, File("a"));
    EXPECT_THAT(user.log, ElementsAre("error 21: a", "error 21: a", "error 21: a"));
    EXPECT_TRUE(Exists("a"));
}

TEST_F(DeletingAFile, TakesADescriptionFileThatIsNotThereAsDone) {
    for (const char* name : {"descript.ion", "DESCRIPT.ION", "Descript.Ion"})
        EXPECT_EQ(0, File(name)) << name;
    EXPECT_THAT(user.log, IsEmpty());
    EXPECT_EQ(-1, File("descript.ions"));
    EXPECT_THAT(user.log, ElementsAre("error 2: descript.ions"));
}

TEST_F(DeletingAFile, QuietlyIsSilentAboutOneThatIsNotThere) {
    tree.File("a");
    EXPECT_EQ(ReadOnlyMode::kAsk, operation.deleteReadOnly);
    EXPECT_EQ(0, File("none", DeleteFileMode::kQuiet));
    EXPECT_THAT(user.log, IsEmpty());
    EXPECT_EQ(ReadOnlyMode::kAlways, operation.deleteReadOnly) << "for the rest of the command";
    EXPECT_EQ(1, File("a", DeleteFileMode::kQuiet));
    EXPECT_FALSE(Exists("a"));
    tree.Folder("folder");
    EXPECT_EQ(-1, File("folder", DeleteFileMode::kQuiet));
    EXPECT_THAT(user.log, ElementsAre("error 21: folder")) << "other failures are told";
}

TEST_F(DeletingAFile, TakesItsDescriptionAlong) {
    tree.File("a");
    tree.File("with blank");
    Write("descript.ion", "b other\r\na this\n\"with blank\" that\n");
    EXPECT_EQ(1, File("a"));
    EXPECT_EQ("b other\r\n\"with blank\" that\n", Content("descript.ion"));
    EXPECT_EQ(1, File("with blank"));
    EXPECT_EQ("b other\r\n", Content("descript.ion"));
}

TEST_F(DeletingAFile, LeavesTheDescriptionOfOneThatStays) {
    tree.Folder("a");
    Write("descript.ion", "a this\n");
    EXPECT_EQ(-1, File("a"));
    EXPECT_EQ("a this\n", Content("descript.ion"));
}

TEST_F(DeletingAFile, KeepsNamesThatLookAlikeApart) {
    tree.File("x\xC3\xBF");
    tree.File("x\xFF");
    Write("descript.ion", "x\xC3\xBF one\nx\xFF two\n");
    EXPECT_EQ(1, File("x\xFF"));
    EXPECT_THAT(Names(), ElementsAre("descript.ion", "x\xC3\xBF"));
    EXPECT_EQ("x\xC3\xBF one\n", Content("descript.ion"));
}

TEST_F(DeletingAFile, TakesAnyName) {
    const std::string names[] = {"-rf",
                                 "*",
                                 "?",
                                 "$(x)",
                                 "a b",
                                 " ",
                                 "'",
                                 "\"",
                                 "a\nb",
                                 "\xFE\xFF",
                                 "\\",
                                 "...",
                                 std::string(255, 'n')};
    tree.File("stays");
    for (const std::string& name : names) {
        tree.File(name);
        EXPECT_EQ(1, File(name)) << testing::PrintToString(name);
        EXPECT_THAT(Names(), ElementsAre("stays")) << testing::PrintToString(name);
    }
    EXPECT_THAT(user.log, IsEmpty());
}

TEST_F(DeletingAFile, RefusesAPathThatTheSystemDoesNotTake) {
    EXPECT_EQ(-1, File(std::string(256, 'n')));
    std::string path = "a";
    while (path.size() < 5000)
        path += "/a";
    EXPECT_EQ(-1, File(path));
    EXPECT_THAT(user.log, ElementsAre("error 36: " + std::string(256, 'n'), "error 36: " + path));
}

TEST_F(DeletingAFile, TakesAPathRelativeToTheWorkingDirectory) {
    tree.File("a");
    Write("descript.ion", "a this\nb that\n");
    ASSERT_EQ(0, chdir(tree.Path().c_str()));
    EXPECT_EQ(1, DeleteFile(operation, L"a", DeleteFileMode::kNoWindow, nullptr));
    ASSERT_EQ(0, chdir("/"));
    EXPECT_FALSE(Exists("a"));
    EXPECT_EQ("b that\n", Content("descript.ion"));
}

}  // namespace
}  // namespace zt
