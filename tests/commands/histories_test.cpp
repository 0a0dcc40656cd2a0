// The histories in their file, and the file between running programs.
#include "commands/histories.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>

#include "commands/history_file.h"
#include "tests/commands/configuration_fixture.h"
#include "ui/field_history.h"

namespace zt {
namespace {

std::vector<std::string> TextsOf(WestringStore& list) {
    std::vector<std::string> texts;
    for (int i = 0; i < list.Count(); i++)
        texts.push_back(NameToBytes(*list.Peek(i)).c_str());
    return texts;
}

class HistoriesTest : public ConfigurationFixture {
protected:
    void SetUp() override {
        ConfigurationFixture::SetUp();
        for (int i = 0; i < kFieldHistoryCount; i++)
            FieldHistory(i).Clear();
        path_ = NameToBytes(ApplicationFilePath(ApplicationFile::kHistory)).c_str();
    }
    void Put(const std::string& text) {
        ASSERT_EQ(MakePersonalDirectory(), 0);
        std::ofstream(path_, std::ios::binary) << text;
    }
    std::string Get() {
        std::ifstream in(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::vector<std::string> Commands() { return TextsOf(history_.Commands()); }
    std::vector<std::string> Field(int number) { return TextsOf(FieldHistory(number)); }

    CommandHistory history_;
    std::string path_;
};

using Texts = std::vector<std::string>;

TEST_F(HistoriesTest, WithoutAFileNothingHappens) {
    LoadHistory(history_);
    EXPECT_EQ(Commands(), Texts());
    EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(HistoriesTest, TellsFieldsFromCommands) {
    Put("ls\r\n2\x19*.txt\r\n11\x19name\r\n12\x19no list\r\n99\x19no list\r\nabc\x19"
        "d\r\n\x19x\r\n");
    LoadHistory(history_);
    EXPECT_EQ(Commands(), (Texts{"ls",
                                 "abc\x19"
                                 "d",
                                 "\x19x"}));
    EXPECT_EQ(Field(2), Texts{"*.txt"});
    EXPECT_EQ(Field(11), Texts{"name"});
    EXPECT_EQ(Field(12), Texts());
}

TEST_F(HistoriesTest, TakesPlainLineFeedsAndALastLineWithoutEnd) {
    Put("  one\ntwo");
    LoadHistory(history_);
    EXPECT_EQ(Commands(), (Texts{"one", "two"}));
}

TEST_F(HistoriesTest, AnOldCommandMovesToTheNewestPlace) {
    Put("a\r\nb\r\na\r\n4\x19x\r\n4\x19Y\r\n4\x19X\r\n");
    LoadHistory(history_);
    EXPECT_EQ(Commands(), (Texts{"b", "a"}));
    EXPECT_EQ(Field(4), (Texts{"Y", "X"}));
    AddCommand(history_, "b");
    EXPECT_EQ(Commands(), (Texts{"a", "b"}));
}

TEST_F(HistoriesTest, ComparesCommandsExactly) {
    AddCommand(history_, "make");
    AddCommand(history_, "MAKE");
    EXPECT_EQ(Commands(), (Texts{"make", "MAKE"}));
}

TEST_F(HistoriesTest, AddsALineAtOnce) {
    AddCommand(history_, "  ls -l ");
    AddFieldHistory("*.c", 2);
    AddFieldHistory("in memory", 12);
    EXPECT_EQ(Get(), "ls -l \r\n2\x19*.c\r\n");
    EXPECT_EQ(Field(12), Texts{"in memory"});
    struct stat made = {};
    ASSERT_EQ(stat(path_.c_str(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0600u);
}

TEST_F(HistoriesTest, ALineOfBlanksIsAnEmptyEntry) {
    AddCommand(history_, "   ");
    EXPECT_EQ(Commands(), Texts{""});
    EXPECT_EQ(Get(), "\r\n");
}

TEST_F(HistoriesTest, KeepsBytesThatAreNoUtf8) {
    AddCommand(history_, NameFromBytes("cat \xE4 \xC3\xA4"));
    EXPECT_EQ(Get(), "cat \xE4 \xC3\xA4\r\n");
    CommandHistory again;
    LoadHistory(again);
    EXPECT_EQ(TextsOf(again.Commands()), Texts{"cat \xE4 \xC3\xA4"});
}

TEST_F(HistoriesTest, WhatNoLineCanHoldStaysInMemory) {
    const Texts refused = {"a\nb", "a\rb", "1\x19q", "12\x19q", std::string(5000, 'x')};
    for (const std::string& text : refused)
        AddCommand(history_, NameFromBytes(text.c_str()));
    EXPECT_EQ(Commands(), refused);
    EXPECT_EQ(Get(), "");
}

TEST_F(HistoriesTest, ALineLeftOpenGetsItsEnd) {
    Put("torn");
    AddCommand(history_, "next");
    EXPECT_EQ(Get(), "torn\r\nnext\r\n");
}

TEST_F(HistoriesTest, ShortensAFileWithTooManyCommands) {
    settings.maxHist = 3;
    Put("a\r\nb\r\n0\x19"
        "f\r\nc\r\nd\r\n");
    LoadHistory(history_);
    EXPECT_EQ(Commands(), (Texts{"b", "c", "d"}));
    EXPECT_EQ(Get(),
              "b\r\nc\r\nd\r\n0\x19"
              "f\r\n");
}

TEST_F(HistoriesTest, LeavesAFileThatIsLongEnough) {
    settings.maxHist = 4;
    const std::string text = "a\nb\r\nc\r\nd";
    Put(text);
    LoadHistory(history_);
    EXPECT_EQ(Get(), text);
}

TEST_F(HistoriesTest, RepeatedLinesCountTowardsTheLimit) {
    settings.maxHist = 2;
    Put("a\r\na\r\na\r\n");
    LoadHistory(history_);
    EXPECT_EQ(Get(), "a\r\n");
}

TEST_F(HistoriesTest, ShortensFieldsThatAreTooLong) {
    settings.maxFieldHist = 2;
    Put("3\x19one\r\n3\x19two\r\nls\r\n3\x19three\r\n1\x19other\r\n");
    LoadHistory(history_);
    EXPECT_EQ(Get(), "ls\r\n1\x19other\r\n3\x19two\r\n3\x19three\r\n");
    EXPECT_EQ(Field(3), (Texts{"one", "two", "three"}));
}

TEST_F(HistoriesTest, LeavesFieldsThatAreShortEnough) {
    settings.maxFieldHist = 2;
    const std::string text = "3\x19one\n3\x19two\n";
    Put(text);
    LoadHistory(history_);
    EXPECT_EQ(Get(), text);
}

TEST_F(HistoriesTest, WithALimitOfNoneAllGo) {
    for (const int limit : {0, -1}) {
        settings.maxHist = limit;
        settings.maxFieldHist = limit;
        Put("ls\r\n3\x19one\r\n");
        LoadHistory(history_);
        EXPECT_EQ(Commands(), Texts());
        EXPECT_EQ(Get(), "");
    }
}

TEST_F(HistoriesTest, AFieldThatHasNoNumberIsNoCommand) {
    Put("-1\x19x\r\na\x19x\r\n 0\x19x\r\nx\r\n");
    LoadHistory(history_);
    EXPECT_EQ(Commands(), Texts{"x"});
    EXPECT_EQ(Field(0), Texts());
    RemoveCommand(history_, "x");
    EXPECT_EQ(Get(), "-1\x19x\r\na\x19x\r\n 0\x19x\r\n");
}

TEST_F(HistoriesTest, FieldsCompareTextsInAnyCase) {
    AddFieldHistory("*.C", 2);
    AddFieldHistory("*.h", 2);
    AddFieldHistory("*.c", 2);
    EXPECT_EQ(Field(2), (Texts{"*.h", "*.c"}));
}

TEST_F(HistoriesTest, RemovesACommandFromTheFile) {
    Put("a\r\n0\x19"
        "a\r\nb\r\nA\r\na\r\n");
    LoadHistory(history_);
    RemoveCommand(history_, "a");
    EXPECT_EQ(Commands(), (Texts{"b", "A"}));
    EXPECT_EQ(Get(),
              "0\x19"
              "a\r\nb\r\nA\r\n");
}

TEST_F(HistoriesTest, ADirectoryInPlaceOfTheFileIsLeftAlone) {
    ASSERT_EQ(MakePersonalDirectory(), 0);
    std::filesystem::create_directory(path_);
    LoadHistory(history_);
    AddCommand(history_, "ls");
    RemoveCommand(history_, "ls");
    EXPECT_TRUE(std::filesystem::is_directory(path_));
    EXPECT_EQ(Commands(), Texts());
}

TEST_F(HistoriesTest, ANamedPipeInPlaceOfTheFileHoldsNothingUp) {
    ASSERT_EQ(MakePersonalDirectory(), 0);
    ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
    LoadHistory(history_);
    AddCommand(history_, "ls");
    EXPECT_EQ(Commands(), Texts{"ls"});
}

// Several programs add lines while another keeps replacing the file.
TEST_F(HistoriesTest, NoLineIsTornOrLostBetweenPrograms) {
    constexpr int kPrograms = 4;
    constexpr int kLines = 100;
    Put("first\r\n");
    for (int program = 0; program < kPrograms; program++) {
        if (fork() != 0) continue;
        CommandHistory own;
        for (int i = 0; i < kLines; i++)
            AddCommand(own, Estring::Format("%d of %d %0200d", i, program, i).c_str());
        _exit(0);
    }
    const HistoryFile file(path_.c_str());
    int running = kPrograms;
    for (int changes = 0; running > 0; changes++) {
        if (changes < 20) {
            ASSERT_EQ(file.Change([](EstringStore&) {}), 0);
        }
        while (running > 0 && waitpid(-1, nullptr, changes < 20 ? WNOHANG : 0) > 0)
            running--;
    }
    EstringStore lines;
    ASSERT_EQ(file.Read(lines), 0);
    std::set<std::string> found;
    for (int i = 0; i < lines.Count(); i++)
        found.insert(lines.Peek(i)->c_str());
    EXPECT_EQ(lines.Count(), kPrograms * kLines + 1);
    EXPECT_EQ(found.size(), size_t{kPrograms * kLines + 1});
    EXPECT_TRUE(found.count(Estring::Format("%d of %d %0200d", kLines - 1, 0, kLines - 1).c_str()));
}

}  // namespace
}  // namespace zt
