// Letter case of names, and renames that take nobody's name.
#include "fileops/change_case.h"

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "fileops/change_case_rename.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

std::string Mixed(const char* text) {
    return NameToBytes(MixedCase(NameFromBytes(text))).c_str();
}

std::string InCase(const char* name, char nameMode, char extensionMode) {
    return NameToBytes(NameInCase(NameFromBytes(name), nameMode, extensionMode)).c_str();
}

TEST(MixedCaseOf, BeginsEachWordWithACapital) {
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {
        {"", ""},
        {"a", "A"},
        {"hello", "Hello"},
        {"HELLO", "Hello"},
        {"hELLO wORLD", "Hello World"},
        {"two_words-and.three", "Two_Words-And.Three"},
        {"  x", "  X"},
        // A digit is part of the word.
        {"1st 2ND", "1st 2nd"},
        {"mp3FILE", "Mp3file"},
        {"a1b", "A1b"},
        // An apostrophe and what is behind it.
        {"o'brien", "O'Brien"},
        {"O'BRIEN", "O'Brien"},
        {"d'arcy's", "D'Arcy's"},
        {"it's", "It's"},
        {"IT'S", "It's"},
        {"we'll", "We'll"},
        {"WE'VE", "We've"},
        {"i'll", "I'll"},
        {"I'LL", "I'll"},
        {"i've", "I've"},
        {"I'VE", "I've"},
        {"i'd", "I'd"},
        {"i'm", "I'm"},
        {"i'", "I'"},
        {"i're", "I'Re"},
        {"o'lla", "O'Lla"},
        {"o'1", "O'1"},
        {"rock'nroll", "Rock'nroll"},
        {"'tis", "'Tis"},
        {"''x", "''X"},
        {"a'b'c", "A'b'c"},
        // Letters that are not ASCII.
        {"\xC3\xA9"
         "COLE",
         "\xC3\x89"
         "cole"},
        {"\xC3\x84PFEL", "\xC3\x84pfel"},
        {"\xD0\x9C\xD0\x98\xD0\xA0", "\xD0\x9C\xD0\xB8\xD1\x80"},
        {"stra\xC3\x9F"
         "E",
         "Stra\xC3\x9F"
         "e"},
        // A byte that is no character begins a word, and stays.
        {"AB\xFF"
         "CD",
         "Ab\xFF"
         "Cd"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Mixed(row.text)) << row.text;
}

TEST(MixedCaseOf, ChangesNothingTheSecondTime) {
    for (const char* text : {"O'BRIEN", "i'll be THERE", "a.b.C", "x\xFFy", "1A", "d'arcy's"}) {
        EXPECT_EQ(Mixed(text), Mixed(Mixed(text).c_str())) << text;
    }
}

TEST(NameInCaseOf, ConvertsNameAndExtensionByTheirModes) {
    const struct {
        const char* name;
        char nameMode, extensionMode;
        const char* expected;
    } rows[] = {
        {"ReadMe.Txt", 'l', 'l', "readme.txt"},
        {"ReadMe.Txt", 'u', 'u', "README.TXT"},
        {"ReadMe.Txt", 'u', 'l', "README.txt"},
        {"ReadMe.Txt", 'n', 'u', "ReadMe.TXT"},
        {"ReadMe.Txt", 'l', 'n', "readme.Txt"},
        {"readme.txt", 'm', 'm', "Readme.Txt"},
        {"readme.txt", 'n', 'n', "readme.txt"},
        {"readme.txt", 'x', '?', "readme.txt"},
        {"a.b.C", 'u', 'l', "A.B.c"},
        // No full stop: all of it is the name. One in front: all of it is the extension.
        {"ReadMe", 'u', 'l', "README"},
        {"ReadMe", 'n', 'l', "ReadMe"},
        {".Profile", 'u', 'l', ".profile"},
        {".Profile", 'l', 'n', ".Profile"},
        {"Name.", 'l', 'u', "name."},
        {"..", 'u', 'u', ".."},
        {"\xC3\xA4.\xC3\x96", 'u', 'l', "\xC3\x84.\xC3\xB6"},
        {"A\xFF"
         "B\xC3.\xC3\x84\xFE",
         'l', 'l',
         "a\xFF"
         "b\xC3.\xC3\xA4\xFE"},
        {"line\nFeed", 'u', 'n', "LINE\nFEED"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.expected, InCase(row.name, row.nameMode, row.extensionMode))
            << row.name << ' ' << row.nameMode << row.extensionMode;
    }
}

class Renaming : public testing::Test {
protected:
    int Rename(const std::string& from, const std::string& to) {
        return RenameWithoutReplacing(tree.Wide(from), tree.Wide(to));
    }
    bool Exists(const std::string& name) {
        struct stat data;
        return lstat(tree.PathOf(name).c_str(), &data) == 0;
    }

    TemporaryTree tree;
};

TEST_F(Renaming, GivesTheNewName) {
    tree.File("a", 3);
    tree.Folder("d");
    tree.Link("l", "nowhere");
    EXPECT_EQ(0, Rename("a", "A"));
    EXPECT_EQ(0, Rename("d", "D"));
    EXPECT_EQ(0, Rename("l", "L"));
    for (const char* name : {"A", "D", "L"})
        EXPECT_TRUE(Exists(name)) << name;
    for (const char* name : {"a", "d", "l"})
        EXPECT_FALSE(Exists(name)) << name;
}

TEST_F(Renaming, TakesNobodysName) {
    tree.File("a", 3);
    tree.File("A", 5);
    tree.Link("B", "nowhere");
    tree.File("b", 7);
    tree.Folder("C");
    tree.Folder("c");
    EXPECT_EQ(EEXIST, Rename("a", "A"));
    EXPECT_EQ(EEXIST, Rename("b", "B"));
    EXPECT_EQ(EEXIST, Rename("c", "C"));
    EXPECT_EQ(3u, std::filesystem::file_size(tree.PathOf("a")));
    EXPECT_EQ(5u, std::filesystem::file_size(tree.PathOf("A")));
    EXPECT_EQ("nowhere", std::filesystem::read_symlink(tree.PathOf("B")));
}

// They are one file with two names, of which none is to go.
TEST_F(Renaming, TakesNoNameOfAnotherLinkToTheSameFile) {
    tree.File("a", 3);
    ASSERT_EQ(0, link(tree.PathOf("a").c_str(), tree.PathOf("A").c_str()));
    EXPECT_EQ(EEXIST, Rename("a", "A"));
    EXPECT_TRUE(Exists("a"));
    EXPECT_TRUE(Exists("A"));
}

TEST_F(Renaming, FailsWithTheSystemsError) {
    EXPECT_EQ(ENOENT, Rename("gone", "Gone"));
    tree.File("f");
    EXPECT_EQ(ENAMETOOLONG, Rename("f", std::string(256, 'F')));
    if (geteuid() != 0) return;
    const OrdinaryUser user;
    EXPECT_EQ(EACCES, Rename("f", "F"));
}

}  // namespace
}  // namespace zt
