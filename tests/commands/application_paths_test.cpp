// The names of the program's own files.
#include "commands/application_paths.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <string>

#include "foundation/file_name.h"

namespace zt {
namespace {

class ApplicationPathsTest : public testing::Test {
protected:
    void SetUp() override {
        const char* home = getenv("HOME");
        home_ = home ? home : "";
        setenv("HOME", "/home/me", 1);
        SetProgramPath("/usr/bin/zt", false);
        SetConfigurationFile(Westring());
    }
    void TearDown() override {
        setenv("HOME", home_.c_str(), 1);
        SetConfigurationFile(Westring());
        SetProgramPath("zt", false);
    }
    static std::string Path(ApplicationFile kind, bool shared = false) {
        return NameToBytes(ApplicationFilePath(kind, shared)).c_str();
    }
    std::string home_;
};

TEST_F(ApplicationPathsTest, NamesEveryFile) {
    EXPECT_EQ(Path(ApplicationFile::kHelp), "/usr/share/doc/zanthe/zt.zth");
    EXPECT_EQ(Path(ApplicationFile::kManual), "/usr/share/doc/zanthe/manual/zt.html");
    EXPECT_EQ(Path(ApplicationFile::kUserMenu), "/home/me/.ztx/zt.mnu");
    EXPECT_EQ(Path(ApplicationFile::kConfiguration), "/home/me/.ztx/zt.ini");
    EXPECT_EQ(Path(ApplicationFile::kHistory), "/home/me/.ztx/zt.hst");
    EXPECT_EQ(Path(ApplicationFile::kLog), "/home/me/.ztx/zt.log");
    EXPECT_EQ(Path(ApplicationFile::kSyntax), "/home/me/.ztx/ztsyntax.ini");
    EXPECT_EQ(Path(ApplicationFile::kSyntax, true), "/usr/share/zanthe/ztsyntax.ini");
    EXPECT_EQ(Path(ApplicationFile::kHistory, true), "/home/me/.ztx/zt.hst");
}

TEST_F(ApplicationPathsTest, TakesTheBaseFromTheProgramsName) {
    const struct {
        const char* program;
        bool remoteEnd;
        const char* file;
    } rows[] = {
        {"xy", false, "xy.ini"},
        {"./xy", false, "xy.ini"},
        {"/opt/a.b/xy", false, "xy.ini"},
        {"xy.old.exe", false, "xy.old.ini"},
        {"xy.", false, "xy.ini"},
        {".xy", false, ".xy.ini"},
        {".xy.z", false, ".xy.ini"},
        {"zt-remote", true, "zt.ini"},
        {"/usr/bin/xy-remote", true, "xy.ini"},
        {"zt", true, "zt.ini"},
        {"zt-remote", false, "zt-remote.ini"},
        {"-remote", true, "-remote.ini"},
        {"my-remote-copy", true, "my-remote-copy.ini"},
        {"", false, "zt.ini"},
        {"odd\\name", false, "odd\\name.ini"},
        {"caf\xE9", false, "caf\xE9.ini"},
    };
    for (const auto& row : rows) {
        SetProgramPath(row.program, row.remoteEnd);
        EXPECT_EQ(Path(ApplicationFile::kConfiguration), std::string("/home/me/.ztx/") + row.file)
            << row.program;
    }
}

TEST_F(ApplicationPathsTest, GivesACopyOfTheProgramItsOwnFiles) {
    SetProgramPath("/usr/local/bin/xy", false);
    EXPECT_EQ(Path(ApplicationFile::kConfiguration), "/home/me/.ztx/xy.ini");
    EXPECT_EQ(Path(ApplicationFile::kHistory), "/home/me/.ztx/xy.hst");
    EXPECT_EQ(Path(ApplicationFile::kUserMenu), "/home/me/.ztx/xy.mnu");
}

TEST_F(ApplicationPathsTest, TakesDirectoryAndBaseFromTheFileOnTheCommandLine) {
    SetConfigurationFile("/etc/tools/my.conf");
    EXPECT_EQ(Path(ApplicationFile::kUserMenu), "/etc/tools/my.mnu");
    EXPECT_EQ(Path(ApplicationFile::kHistory), "/etc/tools/my.hst");
    EXPECT_EQ(Path(ApplicationFile::kSyntax), "/etc/tools/mysyntax.ini");
    EXPECT_EQ(Path(ApplicationFile::kConfiguration), "/etc/tools/my.ini");
    EXPECT_EQ(Path(ApplicationFile::kSyntax, true), "/usr/share/zanthe/mysyntax.ini");
    SetConfigurationFile("/x");
    EXPECT_EQ(Path(ApplicationFile::kHistory), "/x.hst");
}

TEST_F(ApplicationPathsTest, ReadsTheFileOnTheCommandLineOnlyWhileItExists) {
    char directory[] = "/tmp/zt-paths-XXXXXX";
    ASSERT_TRUE(mkdtemp(directory));
    const std::string file = std::string(directory) + "/my.conf";
    SetConfigurationFile(file.c_str());
    EXPECT_EQ(NameToBytes(ConfigFilePath(true)).c_str(), file);
    EXPECT_EQ(NameToBytes(ConfigFilePath(false)).c_str(), std::string(directory) + "/my.ini");
    std::ofstream(file) << "x";
    EXPECT_EQ(NameToBytes(ConfigFilePath(false)).c_str(), file);
    unlink(file.c_str());
    rmdir(directory);
}

TEST_F(ApplicationPathsTest, FindsAHomeWithoutTheVariable) {
    unsetenv("HOME");
    const Westring directory = PersonalDirectory();
    EXPECT_EQ(directory[0], L'/');
    EXPECT_TRUE(directory.Right(6) == L"/.ztx/") << NameToBytes(directory).c_str();
    setenv("HOME", "", 1);
    EXPECT_STREQ(PersonalDirectory().c_str(), directory.c_str());
    setenv("HOME", "/home/me/", 1);
    EXPECT_STREQ(PersonalDirectory().c_str(), L"/home/me/.ztx/");
}

TEST_F(ApplicationPathsTest, MakesThePersonalDirectoryOnce) {
    char home[] = "/tmp/zt-home-XXXXXX";
    ASSERT_TRUE(mkdtemp(home));
    setenv("HOME", home, 1);
    EXPECT_EQ(MakePersonalDirectory(), 0);
    struct stat made = {};
    const std::string directory = std::string(home) + "/.ztx";
    ASSERT_EQ(stat(directory.c_str(), &made), 0);
    EXPECT_TRUE(S_ISDIR(made.st_mode));
    EXPECT_EQ(made.st_mode & 0777, 0700u);
    EXPECT_EQ(MakePersonalDirectory(), 0);
    rmdir(directory.c_str());
    rmdir(home);
    EXPECT_EQ(MakePersonalDirectory(), ENOENT);
}

TEST_F(ApplicationPathsTest, KeepsTheProgramsPath) {
    SetProgramPath("/usr/bin/zt", false);
    EXPECT_STREQ(ProgramPath().c_str(), L"/usr/bin/zt");
    SetProgramPath("bin/zt", false);
    EXPECT_EQ(ProgramPath()[0], L'/');
    EXPECT_TRUE(ProgramPath().Right(7) == L"/bin/zt");
    SetProgramPath("zt", false);
    EXPECT_STREQ(ProgramPath().c_str(), L"zt");
}

}  // namespace
}  // namespace zt
