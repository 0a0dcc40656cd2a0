// Description files: their lines, and what becomes of them.
#include "fileops/descriptions.h"

#include "fileops/description_lines.h"
#include "tests/fileops/delete_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DescriptionLines, AreCutAtLineFeeds) {
    const struct {
        std::string text;
        std::string whole, name, rest;
    } rows[] = {
        {"a this\nb", "a this\n", "a", " this\n"},
        {"a this\r\nb", "a this\r\n", "a", " this\r\n"},
        {"a this", "a this", "a", " this"},
        {"a  two blanks\n", "a  two blanks\n", "a", "  two blanks\n"},
        {"a\n", "a\n", "a", "\n"},
        {"a\r\n", "a\r\n", "a", "\r\n"},
        {"a ", "a ", "a", " "},
        {"a this\r", "a this\r", "a", " this\r"},
        {"a\r", "a\r", "a", "\r"},
        {"\"a b\" this\n", "\"a b\" this\n", "a b", " this\n"},
        {"\"a\" this\n", "\"a\" this\n", "a", " this\n"},
        {"\"a b\"\n", "\"a b\"\n", "a b", "\n"},
        {"a\"b this\n", "a\"b this\n", "a\"b", " this\n"},
        {"a\tb this\n", "a\tb this\n", "a\tb", " this\n"},
        {"x\xFF this\n", "x\xFF this\n", "x\xFF", " this\n"},
        {std::string("a \0z\n", 5), std::string("a \0z\n", 5), "a", std::string(" \0z\n", 4)},
        // None of a file.
        {"\n", "\n", "", "\n"},
        {"\r\n", "\r\n", "", "\r\n"},
        {" this\n", " this\n", "", " this\n"},
        {"\"a this\n", "\"a this\n", "", ""},
        {"\"a\"this\n", "\"a\"this\n", "", ""},
    };
    for (const auto& row : rows) {
        std::string_view text = row.text;
        const DescriptionLine line = TakeDescriptionLine(text);
        EXPECT_EQ(row.whole, line.whole);
        EXPECT_EQ(row.name, line.name) << row.text;
        EXPECT_EQ(row.rest, line.rest) << row.text;
        EXPECT_EQ(row.text, row.whole + std::string(text));
    }
}

TEST(DescriptionLines, HaveQuotesAroundNamesWithBlanks) {
    const struct {
        std::string name;
        std::string written;  // empty: there is no line for it
    } rows[] = {
        {"a", "a"},
        {"a b", "\"a b\""},
        {" ", "\" \""},
        {"a\"b", "a\"b"},
        {"a\tb", "a\tb"},
        {"x\xFF", "x\xFF"},
        {"", ""},
        {"a\nb", ""},
        {"\"a", ""},
        {"a \"b", ""},
        {"a\r", ""},
        {"a\rb", "a\rb"},
        {"a b\r", "\"a b\r\""},
        {"descript.ion", "descript.ion"},
    };
    for (const auto& row : rows) {
        std::string written;
        EXPECT_EQ(!row.written.empty(), WrittenName(row.name, written)) << row.name;
        EXPECT_EQ(row.written, written) << row.name;
        if (row.written.empty()) continue;
        std::string_view text = written = written + " text\n";
        EXPECT_EQ(row.name, TakeDescriptionLine(text).name);
    }
}

TEST(DescriptionLines, TakeTheirPlace) {
    const struct {
        std::string text, name, rest, expected;
    } rows[] = {
        {"", "a", " new\n", "a new\n"},
        {"", "a", " new", "a new\n"},
        {"b old\n", "a", " new\r\n", "b old\na new\r\n"},
        {"b old\r\n", "a", " new", "b old\r\na new\r\n"},
        {"b old", "a", " new\n", "b old\na new\n"},
        {"a old\r\nb old\n", "a", " new", "a new\r\nb old\n"},
        {"a old\r\nb old\n", "a", " new\n", "a new\nb old\n"},
        {"b old\na old", "a", " new", "b old\na new\n"},
        {"a 1\nb 2\na 3\n", "a", " new\n", "a new\nb 2\n"},
        {"A old\n", "a", " new\n", "A old\na new\n"},
        // A line feed that got lost comes back.
        {"b old\r", "a", " new\r", "b old\r\na new\r\n"},
        {"b old\r", "a", " new", "b old\r\na new\r\n"},
        {"b old\na old\r", "a", " new", "b old\na new\n"},
        {"a old\nb old\n", "a", " new\r", "a new\r\nb old\n"},
        {"\n\nno line \"\n", "a", " new\n", "\n\nno line \"\na new\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.expected, WithDescription(row.text, row.name, row.name, row.rest))
            << testing::PrintToString(row.text);
    }
}

TEST(DescriptionLines, LeaveTheOthersAsTheyAre) {
    const std::string text = "a 1\r\n\n\"a b\" 2\nab 3\n\"a\" 4\n A 5\nA 6";
    EXPECT_EQ("\n\"a b\" 2\nab 3\n A 5\nA 6", WithoutDescriptions(text, {"a"}));
    EXPECT_EQ("\n A 5\n", WithoutDescriptions(text, {"a", "a b", "ab", "A"}));
    EXPECT_EQ(text, WithoutDescriptions(text, {"b", "", "1"}));
}

class Descriptions : public Deletion {
protected:
    Descriptions() {
        tree.Folder("from");
        tree.Folder("to");
    }
    void Carry(const std::string& source, const std::string& target, bool remove = false) {
        StdFile file;
        const std::string folder = source.substr(0, source.find('/'));
        OpenDescriptions(file, tree.Wide(folder));
        if (remove) {
            CarryAndRemoveDescription(tree.Wide(source), tree.Wide(target), file);
        } else {
            CarryDescription(tree.Wide(source), tree.Wide(target), file);
        }
    }
    mode_t ModeOf(const std::string& name) const {
        struct stat found {};
        EXPECT_EQ(0, stat(tree.PathOf(name).c_str(), &found)) << name;
        return found.st_mode & 07777;
    }
};

TEST_F(Descriptions, GoWithTheCopy) {
    Write("from/descript.ion", "other 0\r\na text of a\r\n");
    Carry("from/a", "to/a");
    EXPECT_EQ("a text of a\r\n", Content("to/descript.ion"));
    Carry("from/a", "to/new name");
    EXPECT_EQ("a text of a\r\n\"new name\" text of a\r\n", Content("to/descript.ion"));
    Carry("from/none", "to/none");
    EXPECT_EQ("a text of a\r\n\"new name\" text of a\r\n", Content("to/descript.ion"));
    EXPECT_EQ("other 0\r\na text of a\r\n", Content("from/descript.ion"));
    EXPECT_THAT(Names("to"), ElementsAre("descript.ion"));
}

TEST_F(Descriptions, ReplaceTheTargetsLine) {
    Write("from/descript.ion", "a new\n");
    Write("to/descript.ion", "x 1\na old\ny 2\n");
    Carry("from/a", "to/a");
    EXPECT_EQ("x 1\na new\ny 2\n", Content("to/descript.ion"));
}

TEST_F(Descriptions, LeaveTheSourceWithAMove) {
    Write("from/descript.ion", "a 1\nb 2\n");
    Carry("from/a", "to/a", true);
    EXPECT_EQ("b 2\n", Content("from/descript.ion"));
    EXPECT_EQ("a 1\n", Content("to/descript.ion"));
    Carry("from/b", "to/b", true);
    EXPECT_THAT(Names("from"), IsEmpty()) << "the file goes with its last line";
    EXPECT_EQ("a 1\nb 2\n", Content("to/descript.ion"));
}

TEST_F(Descriptions, FollowARename) {
    Write("from/descript.ion", "a 1\nb 2\n");
    Carry("from/a", "from/c d", true);
    EXPECT_EQ("b 2\n\"c d\" 1\n", Content("from/descript.ion"));
}

TEST_F(Descriptions, AreFoundInAFileThatWasReplacedMeanwhile) {
    Write("from/descript.ion", "a 1\nb 2\n");
    StdFile file;
    ASSERT_TRUE(OpenDescriptions(file, tree.Wide("from")));
    for (const char* name : {"a", "b"}) {
        CarryAndRemoveDescription(tree.Wide(std::string("from/") + name),
                                  tree.Wide(std::string("to/") + name), file);
    }
    EXPECT_EQ("a 1\nb 2\n", Content("to/descript.ion"));
    EXPECT_THAT(Names("from"), IsEmpty());
}

TEST_F(Descriptions, StayWhereTheTargetCanHaveNone) {
    Write("from/descript.ion", "a 1\n");
    Carry("from/a", "to/line\nfeed", true);
    Carry("from/a", "to/\"quote", true);
    Carry("from/a", "nowhere/a", true);
    EXPECT_EQ("a 1\n", Content("from/descript.ion"));
    EXPECT_THAT(Names("to"), IsEmpty());
}

TEST_F(Descriptions, AreNothingWithAClosedFile) {
    StdFile closed;
    EXPECT_FALSE(OpenDescriptions(closed, tree.Wide("from")));
    EXPECT_FALSE(closed.IsOpen());
    CarryAndRemoveDescription(tree.Wide("from/a"), tree.Wide("to/a"), closed);
    EXPECT_THAT(Names("to"), IsEmpty());
}

TEST_F(Descriptions, AreReplacedWhole) {
    Write("from/descript.ion", "a 1\nb 2\n");
    StdFile old;
    ASSERT_TRUE(OpenDescriptions(old, tree.Wide("from")));
    RemoveDescription(tree.Wide("from/a"));
    char line[20];
    ASSERT_EQ(0, old.ReadLine(line, sizeof line));
    EXPECT_STREQ("a 1", line) << "who reads the old one is not disturbed";
    EXPECT_EQ("b 2\n", Content("from/descript.ion"));
    EXPECT_THAT(Names("from"), ElementsAre("descript.ion"));
}

TEST_F(Descriptions, KeepTheirMode) {
    Write("from/descript.ion", "a 1\nb 2\n");
    for (const mode_t mode : {0600, 0644, 0666, 0444}) {
        Write("from/descript.ion", "a 1\nb 2\n");
        ASSERT_EQ(0, chmod(tree.PathOf("from/descript.ion").c_str(), mode));
        RemoveDescription(tree.Wide("from/a"));
        EXPECT_EQ("b 2\n", Content("from/descript.ion"));
        EXPECT_EQ(mode, ModeOf("from/descript.ion"));
        ASSERT_EQ(0, unlink(tree.PathOf("from/descript.ion").c_str()));
    }
}

TEST_F(Descriptions, AreNotWrittenAnewForNothing) {
    Write("from/descript.ion", "a 1\n");
    struct stat before, after;
    ASSERT_EQ(0, stat(tree.PathOf("from/descript.ion").c_str(), &before));
    RemoveDescription(tree.Wide("from/b"));
    ASSERT_EQ(0, stat(tree.PathOf("from/descript.ion").c_str(), &after));
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(Descriptions, TakeOverWhatAKilledProgramLeft) {
    Write("from/descript.ion", "a 1\nb 2\n");
    Write("from/descript.ion.zt@@@.tmp", "half of a very long line that was never finished");
    RemoveDescription(tree.Wide("from/a"));
    EXPECT_EQ("b 2\n", Content("from/descript.ion"));
    EXPECT_THAT(Names("from"), ElementsAre("descript.ion"));
}

TEST_F(Descriptions, StayAsTheyAreWhereTheyCannotBeReplaced) {
    Write("from/descript.ion", "a 1\nb 2\n");
    tree.Folder("from/descript.ion.zt@@@.tmp");
    RemoveDescription(tree.Wide("from/a"));
    EXPECT_EQ("a 1\nb 2\n", Content("from/descript.ion"));
    ASSERT_EQ(0, rmdir(tree.PathOf("from/descript.ion.zt@@@.tmp").c_str()));

    Write("elsewhere", "a 1\nb 2\n");
    ASSERT_EQ(0, unlink(tree.PathOf("from/descript.ion").c_str()));
    tree.Link("from/descript.ion", "../elsewhere");
    RemoveDescription(tree.Wide("from/a"));
    EXPECT_EQ("a 1\nb 2\n", Content("elsewhere")) << "a link is not replaced";
    EXPECT_THAT(Names("from"), ElementsAre("descript.ion"));
}

TEST_F(Descriptions, AreNotLookedForInWhatIsNoFile) {
    StdFile file;
    ASSERT_EQ(0, mkfifo(tree.PathOf("from/descript.ion").c_str(), 0600));
    EXPECT_FALSE(OpenDescriptions(file, tree.Wide("from"))) << "and nothing waits";
    RemoveDescription(tree.Wide("from/a"));
    Write("to/descript.ion", "a 1\n");
    Carry("to/a", "from/a");
    EXPECT_THAT(Names("from"), ElementsAre("descript.ion"));
}

TEST_F(Descriptions, OfManyFilesAreRemovedTogether) {
    std::string text;
    for (int i = 0; i < 1000; i++)
        text += std::to_string(i) + " text\n";
    Write("from/descript.ion", text + "last stays\n");
    const int folder = open(tree.PathOf("from").c_str(), O_PATH | O_DIRECTORY);
    ASSERT_TRUE(HasDescriptions(folder));
    DescriptionRemovals removals(true);
    for (int i = 0; i < 1000; i++)
        removals.Add(std::to_string(i).c_str());
    EXPECT_EQ(text + "last stays\n", Content("from/descript.ion"));
    removals.Apply(folder);
    EXPECT_EQ("last stays\n", Content("from/descript.ion"));
    DescriptionRemovals unwanted(false);
    unwanted.Add("last");
    unwanted.Apply(folder);
    EXPECT_EQ("last stays\n", Content("from/descript.ion"));
    close(folder);
}

}  // namespace
}  // namespace zt
