#include "commands/change_directory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cwctype>

#include "commands/command_parts.h"
#include "commands/dispatch_command.h"
#include "commands/find_program.h"
#include "commands/program_environment.h"
#include "commands/temporary_list.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/shell_text.h"
#include "foundation/std_file.h"
#include "foundation/wild_match.h"
#include "panels/navigation.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kCdLength = 2;
constexpr int kVcdLength = 3;
constexpr wchar_t kChooser[] = L"vcdpgm.exe";
constexpr wchar_t kChosenFile[] = L"zt2cd.$$$";
constexpr int kChosenLineBytes = 1024;

bool IsDirectory(const Westring& path) {
    struct stat found = {};
    return stat(NameToBytes(path).c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

// A panel that could not read the directory would go on upwards from it; with this asked before it
// stays where it is.
bool MayEnter(const Westring& path) {
    return faccessat(AT_FDCWD, NameToBytes(path).c_str(), R_OK | X_OK, AT_EACCESS) == 0;
}

// What stands behind "cd", as a path.
Westring Argument(const Westring& text) {
    Westring argument = text.Right(text.Length() - kCdLength).TrimLeft();
    ExpandVariables(argument);
    return argument;
}

void ShowFromTop(LoopState& state, int side) {
    CPanel& panel = state.panels.panel[side];
    panel.top = 0;
    panel.cursor = 0;
    GoTo(state.panels, side, Westring());
    state.DrawAll();
}

// The path in the chooser's answer: the drive letter of the first line, and what stands in double
// quotes on the second.
bool ReadChoice(const Westring& file, Westring& path) {
    StdFile answer;
    char drive[kChosenLineBytes] = {};
    char rest[kChosenLineBytes] = {};
    if (answer.Open(file, StdFile::kReadWrite) != 0) return false;
    if (answer.ReadLine(drive, sizeof drive) != 0 || drive[0] == 0 || drive[1] == 0) return false;
    if (answer.ReadLine(rest, sizeof rest) != 0) return false;
    const Westring line = NameFromBytes(rest);
    const int quote = line.Find(L'"');
    const Westring quoted = line.Right(line.Length() - quote - 1);
    path = L"@:\\";
    path.SetAt(0, static_cast<wchar_t>(towupper(static_cast<wint_t>(drive[0]))));
    path += quoted.DropRight(1);
    return true;
}

}  // namespace

bool IsChangeDirectory(const Westring& text) {
    return WildMatchWide(L"cd", text.c_str()) || WildMatchWide(L"cd[\\. ]*", text.c_str());
}

bool FindDirectory(const Westring& base, const Westring& text, Westring& path) {
    const Westring argument = Argument(text);
    path = argument;
    path.ReplaceAll(L"\\", L"/");
    if (NormalizePath(path, base.c_str()) == 0 && IsDirectory(path)) return true;
    path = Unescape(argument);
    if (MakeAbsolute(path, base.c_str()) == 0 && IsDirectory(path)) return true;
    path = argument;
    return false;
}

int ChangeDirectoryCommand(LoopState& state, const Westring& text, int side) {
    CPanel& panel = state.panels.panel[side];
    Westring path;
    if (!FindDirectory(panel.path, text, path)) {
        MessageBox("Invalid path", path.c_str(), kBoxOk);
        return -1;
    }
    if (!MayEnter(path) || !ChangeDirectory(panel, path)) {
        MessageBox("Invalid directory", path.c_str(), kBoxOk);
        return -1;
    }
    ShowFromTop(state, side);
    return 0;
}

int ChooseDirectoryCommand(LoopState& state, const Westring& text, int side) {
    Westring found;
    if (!FindProgram(kChooser, found)) return -1;
    Westring file = TemporaryDirectory();
    file.AddTrailingSlash();
    file += kChosenFile;
    // An answer of another time, or somebody else's link, is no answer.
    unlink(NameToBytes(file).c_str());
    const Westring command = Westring(kChooser) + L" " +
                             text.Right(text.Length() - kVcdLength).Trim() + L" > " +
                             ShellWord(file);
    const int result = DispatchCommand(state, command, side, Westring(), 0);
    Westring path;
    if (ReadChoice(file, path) && ChangeDirectory(state.panels.panel[side], path))
        ShowFromTop(state, side);
    unlink(NameToBytes(file).c_str());
    return result;
}

}  // namespace zt
