// The lines of the box about one file.
#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>

#include <cstdlib>
#include <ctime>
#include <vector>

#include "fileops/file_information_items.h"
#include "foundation/file_name.h"
#include "foundation/locale_formats.h"

namespace zt {
namespace {

using testing::ElementsAre;

constexpr uid_t kNoAccount = 3999999;

class FileInformation : public testing::Test {
protected:
    FileInformation() {
        setenv("TZ", "UTC", 1);
        tzset();
        localeFormats = LocaleFormats();
        data.st_mode = S_IFREG | 0644;
        data.st_uid = kNoAccount;
        data.st_gid = kNoAccount;
    }

    void Fill(const char* target = "", int targetWidth = 60) {
        items.Clear();
        FillFileInfo(data, NameFromBytes(target), targetWidth, items);
    }
    // "-" when there is no such line.
    std::string Line(const std::string& label) {
        for (int i = 0; i < items.Count(); ++i) {
            if (label == items.Peek(i)->label.c_str()) {
                return NameToBytes(items.Peek(i)->text).c_str();
            }
        }
        return "-";
    }
    std::string Filled(const std::string& label) {
        Fill();
        return Line(label);
    }
    std::vector<std::string> Labels() {
        std::vector<std::string> labels;
        for (int i = 0; i < items.Count(); ++i)
            labels.push_back(items.Peek(i)->label.c_str());
        return labels;
    }

    struct stat data = {};
    CFileInfoItems items;
};

TEST_F(FileInformation, HasItsLinesInOrder) {
    data.st_ino = 5;
    Fill();
    EXPECT_THAT(Labels(), ElementsAre("Size", "Access Time", "Modified Time", "Changed Time",
                                      "Mode", "Hard Links", "Inode", "Type", "Owner", "Group"));
    data.st_mode = S_IFLNK | 0777;
    Fill("there");
    EXPECT_THAT(Labels(),
                ElementsAre("Size", "Access Time", "Modified Time", "Changed Time", "Mode",
                            "Hard Links", "Inode", "Type", "Target", "Owner", "Group"));
}

TEST_F(FileInformation, LeavesOutWhatIsNotKnown) {
    data.st_ino = 0;
    Fill("there");
    EXPECT_EQ("-", Line("Inode"));
    EXPECT_EQ("-", Line("Target"));  // no link
    data.st_mode = S_IFLNK | 0777;
    Fill("");
    EXPECT_EQ("-", Line("Target"));
}

TEST_F(FileInformation, GivesTheSizeInFullAndShort) {
    const struct {
        off_t size;
        const char* text;
    } rows[] = {
        {0, "0"},
        {999, "999"},
        {99999, "99,999"},
        {100000, "100,000 (97K)"},
        {123456789, "123,456,789 (117M)"},
        {5368709120, "5,368,709,120 (5,120M)"},
    };
    for (const auto& row : rows) {
        data.st_size = row.size;
        EXPECT_EQ(row.text, Filled("Size")) << row.size;
    }
}

TEST_F(FileInformation, GivesTimesWithTheirNanoseconds) {
    data.st_atim = {1715015289, 0};
    data.st_mtim = {1715015289, 500000000};
    data.st_ctim = {0, 1};
    Fill();
    EXPECT_EQ("2024-05-06 17:08:09", Line("Access Time"));
    EXPECT_EQ("2024-05-06 17:08:09.5", Line("Modified Time"));
    EXPECT_EQ("1970-01-01  0:00:00.000000001", Line("Changed Time"));
}

TEST_F(FileInformation, WritesTheMode) {
    const struct {
        mode_t mode;
        const char* text;
    } rows[] = {
        {0000, "---------"},  {0777, "rwxrwxrwx"},  {0640, "rw-r-----"},  {04755, "rwsr-xr-x"},
        {04655, "rwSr-xr-x"}, {02755, "rwxr-sr-x"}, {02745, "rwxr-Sr-x"}, {01777, "rwxrwxrwt"},
        {01776, "rwxrwxrwT"}, {07000, "--S--S--T"},
    };
    for (const auto& row : rows) {
        data.st_mode = S_IFREG | row.mode;
        EXPECT_EQ(row.text, Filled("Mode")) << std::oct << row.mode;
    }
}

TEST_F(FileInformation, NamesTheType) {
    const struct {
        mode_t type;
        const char* text;
    } rows[] = {
        {S_IFIFO, "Named Pipe (FIFO)"}, {S_IFCHR, "Character device"},
        {S_IFDIR, "Directory"},         {S_IFBLK, "Block device"},
        {S_IFREG, "Regular file"},      {S_IFLNK, "Symbolic Link"},
        {S_IFSOCK, "Socket"},           {0, "Unknown"},
    };
    for (const auto& row : rows) {
        data.st_mode = row.type | 0600;
        EXPECT_EQ(row.text, Filled("Type"));
    }
}

TEST_F(FileInformation, GivesNumbersInFull) {
    data.st_ino = UINT64_MAX;
    data.st_nlink = 70000;
    Fill();
    EXPECT_EQ("18446744073709551615", Line("Inode"));
    EXPECT_EQ("70000", Line("Hard Links"));
}

TEST_F(FileInformation, AbbreviatesTheTarget) {
    data.st_mode = S_IFLNK | 0777;
    Fill("/usr/a/long/way/to/the/file", 20);
    EXPECT_EQ("/usr/...", Line("Target").substr(0, 8));
    EXPECT_EQ(20u, Line("Target").size());
    Fill("relative", 20);
    EXPECT_EQ("relative", Line("Target"));
}

TEST_F(FileInformation, NamesOwnerAndGroup) {
    EXPECT_EQ("3999999", Filled("Owner"));
    EXPECT_EQ("3999999", Filled("Group"));
    data.st_uid = 0;
    data.st_gid = 0;
    const struct passwd* root = getpwuid(0);
    ASSERT_NE(nullptr, root);
    const std::string comment = root->pw_gecos;
    const std::string fullName = comment.substr(0, comment.find(','));
    const std::string name = std::string(root->pw_name) + "(0)";
    EXPECT_EQ(fullName.empty() ? name : name + " - " + fullName, Filled("Owner"));
    EXPECT_EQ(std::string(getgrgid(0)->gr_name) + "(0)", Filled("Group"));
}

TEST_F(FileInformation, ShowsLargeNumbersWithoutAnAccount) {
    data.st_uid = 4294967294;
    EXPECT_EQ("4294967294", Filled("Owner"));
}

}  // namespace
}  // namespace zt
