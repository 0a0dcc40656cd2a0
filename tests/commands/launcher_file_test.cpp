// Desktop launchers: titles, places and lines.
#include "commands/launcher_file.h"

#include <algorithm>
#include <cstdlib>

#include "foundation/file_name.h"

namespace zt {
namespace {

std::string Bytes(const Westring& text) {
    return NameToBytes(text).c_str();
}

TEST(LauncherTitle, IsTheNameWithoutItsExtension) {
    const struct {
        const char* name;
        const char* title;
    } rows[] = {{"README.TXT", "Readme"},
                {"archive.tar.gz", "Archive.tar"},
                {"plain", "Plain"},
                {".bashrc", ".bashrc"},
                {"\xC3\x84PFEL.x", "\xC3\x84pfel"},
                {"x", "X"},
                {"a b.c", "A b"},
                {"", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(Bytes(LauncherTitle(NameFromBytes(row.name))), row.title) << row.name;
}

TEST(LauncherPath, IsAFileOfTheDesktopItself) {
    const std::string before = getenv("HOME") ? getenv("HOME") : "";
    setenv("HOME", "/h", 1);
    const struct {
        std::string title;
        std::string name;
    } rows[] = {{"Plain", "Plain"},
                {"../up", "..-up"},
                {"/etc/passwd", "-etc-passwd"},
                {"..", ".."},
                {"", ""},
                {"\xE4", "\xE4"},
                {std::string(250, 'x'), std::string(247, 'x')},
                {std::string(246, 'x') + "\xC3\xA4", std::string(246, 'x')}};
    for (const auto& row : rows) {
        EXPECT_EQ(Bytes(LauncherPath(NameFromBytes(row.title.c_str()))),
                  "/h/Desktop/" + row.name + ".desktop");
    }
    setenv("HOME", before.c_str(), 1);
}

TEST(LauncherText, HasTheSameLinesWhateverTheNames) {
    const auto lines = [](const Launcher& launcher) {
        const std::string text = LauncherText(launcher).c_str();
        return std::count(text.begin(), text.end(), '\n') +
               std::count(text.begin(), text.end(), '\r');
    };
    const long expected = lines({L"Title", L"/bin/true", true, false});
    EXPECT_EQ(expected, 9);
    for (int ch = 1; ch < 256; ch++) {
        if (ch == '/') continue;
        const char name[] = {'/', 'a', static_cast<char>(ch), 'b', 0};
        const Westring wide = NameFromBytes(name);
        EXPECT_EQ(lines({wide, wide, false, true}), expected) << ch;
    }
}

TEST(LauncherText, EscapesTheCommand) {
    const struct {
        const char* target;
        bool executable;
        const char* line;
    } rows[] = {
        {"/bin/ls", true, "\nExec=/bin/ls\n"},
        {"/bin/ls", false, "\nExec=xdg-open /bin/ls\n"},
        {"/a b", false, "\nExec=xdg-open /a\\ b\n"},
        {"/$(x);'", true, "\nExec=/\\$\\(x\\)\\;\\'\n"},
        {"/50%", true, "\nExec=/50%%\n"},
        {"/a\nb", true, "\nExec='/a\\nb'\n"},
        {"/\xE4", true, "\nExec=/\xE4\n"},
    };
    for (const auto& row : rows) {
        const std::string text =
            LauncherText({L"T", NameFromBytes(row.target), row.executable, false}).c_str();
        EXPECT_THAT(text, testing::HasSubstr(row.line)) << row.target;
    }
}

}  // namespace
}  // namespace zt
