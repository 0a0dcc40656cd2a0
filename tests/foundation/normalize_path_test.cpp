// How paths are made absolute and simple.
#include "foundation/normalize_path.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>

#include "foundation/file_name.h"

namespace zt {
namespace {

struct PathRow {
    const char* path;
    const char* base;
    const char* result;  // null: refused
};

void PrintTo(const PathRow& row, std::ostream* out) {
    *out << '"' << row.path << "\" below \"" << row.base << '"';
}

class Normalizes : public testing::TestWithParam<PathRow> {};

TEST_P(Normalizes, OrRefuses) {
    const PathRow& row = GetParam();
    Westring path(row.path);
    const int code = NormalizePath(path, Westring(row.base).c_str());
    EXPECT_EQ(code, row.result ? 0 : -1);
    EXPECT_STREQ(path.ToUtf8().c_str(), row.result ? row.result : row.path);
}

constexpr PathRow kPaths[] = {
    {"/a/b", "/x", "/a/b"},
    {"b", "/x", "/x/b"},
    {"b/", "/x", "/x/b"},
    {"", "/x", "/x"},
    {"", "/", "/"},
    {"/", "/x", "/"},
    {"///a//b///", "/x", "/a/b"},
    {"./a/./b/.", "/x", "/x/a/b"},
    {"\\a\\b", "/x", "/a/b"},
    {"\\a", "", "/a"},
    {"\\", "/x", "/"},
    {"a\\", "/x", "/x/a"},
    {"a\\\\b\\.\\c/d\\", "/x", "/x/a/b/c/d"},
    {"a\\...\\b", "/x/y", "/x/b"},
    {"a\\b", "", nullptr},
    {"a\\..\\b", "/x", "/x/b"},
    {"..", "/x/y", "/x"},
    {"..", "/x", "/"},
    {"..", "/", nullptr},
    {"../..", "/x", nullptr},
    {"...", "/x/y", "/"},
    {"...", "/x/y/z", "/x"},
    {"...", "/x", nullptr},
    {"....", "/x/y/z", "/"},
    {"/a/b/c/.../d", "/x", "/a/d"},
    {"/..", "/x", nullptr},
    {"/a/../..", "/x", nullptr},
    {"/a/../b/../..", "/x", nullptr},
    {"..a/a../.b/..c..", "/x", "/x/..a/a../.b/..c.."},
    {"b", "/x/./y/../z/", "/x/z/b"},
    {"b", "", nullptr},
    {"/b", "", "/b"},
    // What stands in the base are real names, whatever they look like.
    {"b", "/x/.../y", "/x/.../y/b"},
    {"..", "/x/...", "/x"},
    {"b", "/x\\y", "/x\\y/b"},
    {"..", "/x\\y", "/"},
};
INSTANTIATE_TEST_SUITE_P(Paths, Normalizes, testing::ValuesIn(kPaths));

class MakesAbsolute : public testing::TestWithParam<PathRow> {};

TEST_P(MakesAbsolute, OrRefuses) {
    const PathRow& row = GetParam();
    Westring path(row.path);
    const int code = MakeAbsolute(path, Westring(row.base).c_str());
    EXPECT_EQ(code, row.result ? 0 : -1);
    EXPECT_STREQ(path.ToUtf8().c_str(), row.result ? row.result : row.path);
}

constexpr PathRow kSystemPaths[] = {
    {"/a/b", "/x", "/a/b"},
    {"b", "/x", "/x/b"},
    {"", "/x", "/x"},
    {"", "/", "/"},
    {"/", "", "/"},
    {"./a//./b/", "/x", "/x/a/b"},
    {"../b", "/x/y", "/x/b"},
    {"b", "/x/../y", "/y/b"},
    {"b", "", nullptr},
    // The root lies in itself.
    {"../../b", "/x", "/b"},
    {"/../..", "/x", "/"},
    // Names, whatever they look like.
    {"a\\b", "/x", "/x/a\\b"},
    {"\\b", "/x", "/x/\\b"},
    {".../....", "/x/y", "/x/y/.../...."},
    {"..\\b", "/x", "/x/..\\b"},
};
INSTANTIATE_TEST_SUITE_P(Paths, MakesAbsolute, testing::ValuesIn(kSystemPaths));

class InADirectory : public testing::Test {
protected:
    void SetUp() override {
        char* now = getcwd(nullptr, 0);
        before_ = now;
        free(now);
        char made[] = "/tmp/zt-normalize-XXXXXX";
        ASSERT_TRUE(mkdtemp(made));
        directory_ = made;
        ASSERT_EQ(chdir(made), 0);
    }
    void TearDown() override {
        ASSERT_EQ(chdir(before_.c_str()), 0);
        std::filesystem::remove_all(directory_);
    }
    void Make(const std::string& name) {
        ASSERT_EQ(mkdir((directory_ + "/" + name).c_str(), 0700), 0) << name;
    }
    std::string before_, directory_;
};

TEST_F(InADirectory, TakesAPartForTheNameThatExists) {
    for (const char* name : {"a\\b", "a\\b/...", "...", ".../x", "\\c", "d", "d/e\\f", "\xE9\\"})
        Make(name);
    ASSERT_EQ(symlink("nowhere", "lost\\link"), 0);
    const struct {
        const char* path;
        const char* below;  // of the directory; null: refused
    } rows[] = {
        {"a\\b", "/a\\b"},
        {"a\\b/", "/a\\b"},
        {"./a\\b/new", "/a\\b/new"},
        {"a\\b\\new", "/a/b/new"},  // nothing has that name
        {"a\\b/new\\newer", "/a\\b/new/newer"},
        {"a\\b/...", "/a\\b/..."},
        {"...", "/..."},
        {".../x", "/.../x"},
        {"d/.../new", "/../new"},  // but not here
        {"d/..", ""},
        {"\\c", "/\\c"},
        {"\\c/new", "/\\c/new"},
        {"d\\e\\f", "/d/e\\f"},  // what is left of a part may be a name, too
        {"\xE9\\", "/\xE9\\"},
        {"lost\\link", "/lost\\link"},  // a link is there, wherever it leads
        {"A\\B", "/A/B"},
    };
    for (const auto& row : rows) {
        std::string expected = directory_ + row.below;
        if (expected.find("/../") != std::string::npos) expected = "/tmp/new";
        for (const bool isRelative : {true, false}) {
            if (!isRelative && row.path[0] == '\\') continue;
            const std::string written = isRelative ? row.path : directory_ + "/" + row.path;
            Westring path = NameFromBytes(written.c_str());
            EXPECT_EQ(NormalizePath(path, nullptr), 0) << written;
            EXPECT_EQ(NameToBytes(path).c_str(), expected) << written;
            path = NameFromBytes(written.c_str());
            const Westring base = NameFromBytes(directory_.c_str());
            EXPECT_EQ(NormalizePath(path, base.c_str()), 0) << written;
            EXPECT_EQ(NameToBytes(path).c_str(), expected) << written;
        }
    }
    Westring path("\\d");
    EXPECT_EQ(NormalizePath(path, nullptr), 0);
    EXPECT_STREQ(path.c_str(), L"/d") << "no such name: from the root";
}

TEST_F(InADirectory, MakesAbsoluteBelowTheWorkingDirectoryWithoutABase) {
    Westring path("some/../a\\file");
    EXPECT_EQ(MakeAbsolute(path, nullptr), 0);
    EXPECT_EQ(path.ToUtf8().c_str(), directory_ + "/a\\file");
}

TEST_F(InADirectory, StandsBelowTheWorkingDirectoryWithoutABase) {
    Westring path("some/../file");
    EXPECT_EQ(NormalizePath(path, nullptr), 0);
    EXPECT_EQ(path.ToUtf8().c_str(), directory_ + "/file");
}

TEST_F(InADirectory, RefusesWhenTheWorkingDirectoryIsGone) {
    ASSERT_EQ(rmdir(directory_.c_str()), 0);
    EXPECT_TRUE(WorkingDirectory().IsEmpty());
    Westring path("file");
    EXPECT_EQ(NormalizePath(path, nullptr), -1);
    EXPECT_EQ(MakeAbsolute(path, nullptr), -1);
    EXPECT_STREQ(path.c_str(), L"file");
    path = "/file/";
    EXPECT_EQ(NormalizePath(path, nullptr), 0);
    EXPECT_STREQ(path.c_str(), L"/file");
}

TEST_F(InADirectory, KeepsTheBytesOfTheWorkingDirectory) {
    const std::string odd = directory_ + "/caf\xE9";
    ASSERT_EQ(mkdir(odd.c_str(), 0700), 0);
    ASSERT_EQ(chdir(odd.c_str()), 0);
    Westring path("x");
    EXPECT_EQ(NormalizePath(path, nullptr), 0);
    EXPECT_EQ(NameToBytes(path).c_str(), odd + "/x");
    rmdir(odd.c_str());
}

TEST(NormalizePath, TakesPathsOfAnyLength) {
    std::string deep;
    for (int i = 0; i < 20000; i++)
        deep += "/ab";
    Westring path((deep + "/./").c_str());
    EXPECT_EQ(NormalizePath(path, L"/"), 0);
    EXPECT_EQ(path.ToUtf8().c_str(), deep);
    std::string odd;
    for (int i = 0; i < 20000; i++)
        odd += "\\ab";
    path = odd.c_str();
    EXPECT_EQ(NormalizePath(path, L"/"), 0);
    EXPECT_EQ(path.ToUtf8().c_str(), deep);
}

}  // namespace
}  // namespace zt
