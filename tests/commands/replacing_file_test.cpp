// Files that take another one's name when they are whole.
#include "commands/replacing_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "foundation/file_name.h"

namespace zt {
namespace {

class ReplacingFileTest : public testing::Test {
protected:
    void SetUp() override {
        char made[] = "/tmp/zt-replacing-XXXXXX";
        ASSERT_TRUE(mkdtemp(made));
        directory_ = made;
        target_ = directory_ + "/zt.ini";
        temporary_ = directory_ + "/zt.!!!";
    }
    void TearDown() override { std::filesystem::remove_all(directory_); }
    static void Put(const std::string& path, const std::string& text) {
        std::ofstream(path) << text;
    }
    static std::string Get(const std::string& path) {
        std::ifstream in(path);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::string directory_, target_, temporary_;
};

TEST(ReplacingFile, NamesTheTemporaryFile) {
    const struct {
        const char* target;
        const char* temporary;
    } rows[] = {
        {"/d/zt.ini", "/d/zt.!!!"}, {"/d/my.conf", "/d/my.c!!!"}, {"/d/abc", "/d/!!!"},
        {"/d/ab", "/d/!!!"},        {"/d/x.!!!", "/d/x.!!!!"},    {"zt.ini", "zt.!!!"},
        {"/d/!!!", "/d/!!!!"},
    };
    for (const auto& row : rows) {
        EXPECT_STREQ(NameToBytes(ReplacingFile::TemporaryName(row.target)).c_str(), row.temporary);
    }
}

TEST_F(ReplacingFileTest, TakesTheNameWhenItIsWhole) {
    Put(target_, "old");
    ReplacingFile file;
    ASSERT_EQ(file.Open(target_.c_str()), 0);
    EXPECT_EQ(Get(target_), "old");
    EXPECT_TRUE(std::filesystem::exists(temporary_));
    EXPECT_EQ(file.Commit("new"), 0);
    EXPECT_EQ(Get(target_), "new");
    EXPECT_FALSE(std::filesystem::exists(temporary_));
}

TEST_F(ReplacingFileTest, MakesAFileThatWasNotThere) {
    ReplacingFile file;
    ASSERT_EQ(file.Open(target_.c_str()), 0);
    EXPECT_EQ(file.Commit(""), 0);
    EXPECT_TRUE(std::filesystem::exists(target_));
    EXPECT_EQ(file.Commit("again"), EBADF);
}

TEST_F(ReplacingFileTest, LeavesNothingWithoutCommit) {
    Put(target_, "old");
    {
        ReplacingFile file;
        ASSERT_EQ(file.Open(target_.c_str()), 0);
    }
    EXPECT_EQ(Get(target_), "old");
    EXPECT_FALSE(std::filesystem::exists(temporary_));
}

TEST_F(ReplacingFileTest, TakesOverALeftOver) {
    Put(temporary_, std::string(100000, 'x'));
    ReplacingFile file;
    ASSERT_EQ(file.Open(target_.c_str()), 0);
    EXPECT_EQ(file.Commit("new"), 0);
    EXPECT_EQ(Get(target_), "new");
}

TEST_F(ReplacingFileTest, DoesNotWriteThroughALink) {
    const std::string other = directory_ + "/precious";
    Put(other, "precious");
    std::filesystem::create_symlink(other, temporary_);
    ReplacingFile file;
    ASSERT_EQ(file.Open(target_.c_str()), 0);
    EXPECT_EQ(file.Commit("new"), 0);
    EXPECT_EQ(Get(other), "precious");
    EXPECT_EQ(Get(target_), "new");
    EXPECT_FALSE(std::filesystem::is_symlink(target_));
}

TEST_F(ReplacingFileTest, WaitsForNobody) {
    const int held = open(temporary_.c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(held, 0);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    {
        ReplacingFile file;
        EXPECT_EQ(file.Open(target_.c_str()), EAGAIN);
    }
    EXPECT_TRUE(std::filesystem::exists(temporary_));  // it is the other one's
    close(held);
    ReplacingFile file;
    EXPECT_EQ(file.Open(target_.c_str()), 0);
}

TEST_F(ReplacingFileTest, RefusesWhatIsNoFile) {
    ReplacingFile file;
    EXPECT_EQ(file.Open(directory_.c_str()), EISDIR);
    EXPECT_EQ(file.Open("/dev/null"), EOPNOTSUPP);
    ASSERT_EQ(mkfifo(temporary_.c_str(), 0600), 0);
    EXPECT_EQ(file.Open(target_.c_str()), EOPNOTSUPP);
    std::filesystem::remove(temporary_);
    std::filesystem::create_directory(temporary_);
    EXPECT_EQ(file.Open(target_.c_str()), EISDIR);
    EXPECT_EQ(file.Open((directory_ + "/none/zt.ini").c_str()), ENOENT);
    EXPECT_EQ(file.Commit("x"), EBADF);
}

TEST_F(ReplacingFileTest, KeepsTheTemporaryFileWhenOnlyTheRenamingFails) {
    ReplacingFile file;
    ASSERT_EQ(file.Open(target_.c_str()), 0);
    std::filesystem::create_directory(target_);
    EXPECT_EQ(file.Commit("new"), EISDIR);
    EXPECT_EQ(Get(temporary_), "new");
}

}  // namespace
}  // namespace zt
