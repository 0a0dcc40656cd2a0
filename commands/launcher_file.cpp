#include "commands/launcher_file.h"

#include <unistd.h>

#include <cstdlib>

#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/shell_text.h"
#include "foundation/std_file.h"

namespace zt {

namespace {

constexpr char kSuffix[] = ".desktop";
constexpr int kNameBytes = 255;  // the longest name of a file
constexpr wchar_t kForSlash[] = L"-";
constexpr wchar_t kOpener[] = L"xdg-open ";

// A value of the file's, whose lines end where the value does.
Westring OneLine(const Westring& value) {
    Westring line(value.Length());
    for (int i = 0; i < value.Length(); i++) {
        const wchar_t ch = value[i];
        if (ch == L'\n') {
            line += L"\\n";
        } else if (ch == L'\r') {
            line += L"\\r";
        } else {
            line += ch;
        }
    }
    return line;
}

// The command behind "Exec=", in which a '%' would be the desktop's own mark.
Westring CommandOf(const Launcher& launcher) {
    Westring command = ShellEscape(launcher.target);
    command.ReplaceAll(L"%", L"%%");
    return launcher.executable ? command : kOpener + command;
}

Westring DesktopDirectory() {
    const char* home = getenv("HOME");
    Westring directory = NameFromBytes(home ? home : "");
    directory.AddTrailingSlash();
    return directory + L"Desktop/";
}

}  // namespace

Westring LauncherTitle(const Westring& name) {
    const int dot = name.FindLast(L'.');
    const Westring base = (dot > 0 ? name.Left(dot) : name).ToLower();
    return base.Left(1).ToUpper() + base.Right(base.Length() - 1);
}

Westring LauncherPath(const Westring& title) {
    Westring name = title;
    name.ReplaceAll(L"/", kForSlash);
    const int room = kNameBytes - static_cast<int>(sizeof kSuffix - 1);
    while (NameToBytes(name).Length() > room)
        name = name.DropRight(1);
    return DesktopDirectory() + name + kSuffix;
}

Estring LauncherText(const Launcher& launcher) {
    const Estring title = ShownText(OneLine(launcher.title)).ToUtf8();
    const Estring command = NameToBytes(OneLine(CommandOf(launcher)));
    return Estring("#!/usr/bin/env xdg-open\n\n[Desktop Entry]\nVersion=1.0\nEncoding=UTF-8\n") +
           "Name=" + title + "\nExec=" + command +
           "\nTerminal=" + (launcher.terminal ? "true" : "false") + "\nType=Application\n";
}

int WriteLauncher(const Launcher& launcher, bool& opened) {
    const Westring path = LauncherPath(launcher.title);
    const Estring bytes = NameToBytes(path);
    // A new file in any case: what stands there may be a link to elsewhere.
    unlink(bytes.c_str());
    StdFile file;
    opened = file.Open(path, StdFile::kReadWrite | StdFile::kWrite | StdFile::kCreate |
                                 StdFile::kExecutable) == 0;
    if (!opened) return file.LastError();
    const Estring text = LauncherText(launcher);
    file.Write(text.c_str(), text.Length());
    const int reason = file.Close();
    if (reason != 0) unlink(bytes.c_str());
    return reason;
}

}  // namespace zt
