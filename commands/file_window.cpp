#include "commands/file_window.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <strings.h>

#include "commands/dispatch_command.h"
#include "commands/find_program.h"
#include "commands/program_environment.h"
#include "foundation/file_name.h"
#include "foundation/shell_text.h"

namespace zt {

namespace {

struct FileWindowRow {
    const wchar_t* program;
    const wchar_t* arguments;  // the directory stands for the "!"
    const char* desktop;
};

constexpr FileWindowRow kFileWindows[] = {
    {L"nautilus", L"--browser !", "GNOME"},
    {L"nautilus", L"--browser !", "Unity"},
    {L"caja", L"--browser !", "mate"},
    {L"dolphin", L"!", "KDE"},
    {L"thunar", L"!", "XFCE"},
    {L"pcmanfm", L"!", "LXDE"},
};

std::string Variable(const char* name) {
    const char* value = SessionEnvironment().Get(name);
    return value ? value : "";
}

std::string DesktopName() {
    const std::string name = Variable("XDG_CURRENT_DESKTOP");
    if (name.empty() && !Variable("KDE_SESSION_VERSION").empty()) return "KDE";
    return name;
}

// The variable may be a list of names, the most special one first.
bool IsDesktop(std::string_view names, const char* desktop) {
    while (!names.empty()) {
        const size_t end = std::min(names.find(':'), names.size());
        if (strcasecmp(std::string(names.substr(0, end)).c_str(), desktop) == 0) return true;
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return false;
}

const FileWindowRow* FindFileWindow(const std::string& desktop, Westring& program) {
    for (const bool anyDesktop : {false, true}) {
        for (const FileWindowRow& row : kFileWindows) {
            if (!anyDesktop && !IsDesktop(desktop, row.desktop)) continue;
            if (FindProgram(row.program, program)) return &row;
        }
    }
    return nullptr;
}

}  // namespace

void FileWindowKey(LoopState& state, const KeyPress&) {
    Westring program;
    const FileWindowRow* row = FindFileWindow(DesktopName(), program);
    if (!row) return;
    Westring arguments = row->arguments;
    arguments.ReplaceAll(L"!", ShellWord(state.Active().path));
    DispatchCommand(state, ShellWord(program) + L" " + arguments + L"&", state.panels.active,
                    Westring(), kRunTwoNewlines);
}

}  // namespace zt
