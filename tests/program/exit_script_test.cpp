// The change-directory script, byte by byte.
#include "console/program/exit_script.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "foundation/file_name.h"

namespace zt {
namespace {

class ExitScript : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(nullptr, mkdtemp(folder)); }
    void TearDown() override {
        unlink(File().c_str());
        rmdir(folder);
    }
    std::string File() const { return std::string(folder) + "/script"; }
    std::string Written(const char* path) {
        WriteExitScript(NameFromBytes(File().c_str()), NameFromBytes(path));
        std::ostringstream text;
        text << std::ifstream(File()).rdbuf();
        return text.str();
    }

    char folder[32] = "/tmp/zt-script-XXXXXX";
};

TEST_F(ExitScript, TakesTheFirstCharacterForADriveAndLeavesTheSecondOut) {
    const struct {
        const char* path;
        const char* script;
    } rows[] = {
        {"/usr/share", "/:\r\ncd \"sr/share\"\r\n"},
        {"/", "/:\r\ncd \"\"\r\n"},
        {"/a", "/:\r\ncd \"\"\r\n"},
        {"/ab", "/:\r\ncd \"b\"\r\n"},
        {"/x\xC3\xA4\xFF", "/:\r\ncd \"\xC3\xA4\xFF\"\r\n"},
        {"/a\"b c", "/:\r\ncd \"\"b c\"\r\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.script, Written(row.path)) << row.path;
}

TEST_F(ExitScript, TakesThePlaceOfALongerFile) {
    std::ofstream(File()) << std::string(5000, 'x');
    EXPECT_EQ("/:\r\ncd \"sr\"\r\n", Written("/usr"));
}

TEST_F(ExitScript, IsLeftOutWhereItCannotBeMade) {
    WriteExitScript(NameFromBytes((std::string(folder) + "/no/script").c_str()), L"/usr");
    WriteExitScript(NameFromBytes(folder), L"/usr");
    EXPECT_NE(0, access(File().c_str(), F_OK));
}

}  // namespace
}  // namespace zt
