#include "commands/user_menu.h"

#include <unistd.h>

#include <cwchar>
#include <vector>

#include "commands/application_paths.h"
#include "commands/change_directory.h"
#include "commands/command_template.h"
#include "commands/dispatch_command.h"
#include "commands/execute_command.h"
#include "commands/menu_file.h"
#include "commands/run_command.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/wild_match.h"
#include "panels/navigation.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr wchar_t kTitle[] = L"User  Menu";

// The nearest file of the menu's name from the directory upwards.
bool ReadNearestMenu(const Westring& directory, const Westring& name, const entry* current,
                     MenuStore& menu) {
    Westring folder = directory;
    for (;;) {
        Westring path = folder;
        path.AddTrailingSlash();
        if (ReadMenuFile(path + name, current, menu)) return true;
        const Westring parent = ParentOfPath(folder);
        if (parent.IsEmpty() || wcscmp(parent.c_str(), folder.c_str()) == 0) return false;
        folder = parent;
    }
}

// One run of a menu entry's commands. "cd" changes the directory of the run, and the panel follows
// at the end.
class MenuRun {
public:
    MenuRun(LoopState& state, int side) : state_(state), side_(side) {}

    void Run(const MenuEntry& chosen);

private:
    CPanel& Panel() { return state_.panels.panel[side_]; }
    bool RunCommand(const Westring& text);
    int RunExpanded(const Westring& command, TemporaryLists& lists);
    int EnterDirectory(const Westring& command);
    std::vector<Westring> Subjects(bool each);

    LoopState& state_;
    const int side_;
    bool moved_ = false;
};

// The names that the command is expanded for: the tagged ones, one by one, or the current one.
std::vector<Westring> MenuRun::Subjects(bool each) {
    std::vector<Westring> names;
    for (int i = 0; each && i < Panel().Count() && Panel().taggedCount > 0; i++) {
        if (Panel().entries.At(i)->tagged) names.emplace_back(Panel().entries.At(i)->name);
    }
    const entry* current = Panel().Current();
    if (names.empty()) names.emplace_back(current ? current->name : L"");
    return names;
}

int MenuRun::EnterDirectory(const Westring& command) {
    Westring path;
    if (!FindDirectory(WorkingDirectory(), command, path) ||
        chdir(NameToBytes(path).c_str()) != 0) {
        MessageBox("Invalid path", path.c_str(), kBoxOk);
        return -1;
    }
    moved_ = true;
    return 0;
}

int MenuRun::RunExpanded(const Westring& command, TemporaryLists& lists) {
    if (command.IsEmpty()) return 0;
    if (IsChangeDirectory(command)) return EnterDirectory(command);
    return RunBehindPrompt(state_, WithLists(command, lists), side_, kRunHere);
}

// False when the user cancelled: the whole menu ends.
bool MenuRun::RunCommand(const Westring& text) {
    const TemplateSource source{Panel(), state_.panels.panel[1 - side_], AskForMacro};
    CommandTemplate expansion(text);
    TemporaryLists lists;
    if (!expansion.ExpandCommon(source, lists)) return false;
    // Collected beforehand: the panels are read again after each run.
    std::vector<Westring> commands;
    for (const Westring& name : Subjects(expansion.HasFileMacros()))
        commands.push_back(expansion.ExpandFor(source, name));
    for (const Westring& command : commands) {
        if (RunExpanded(command, lists) != 0) break;
    }
    return true;
}

void MenuRun::Run(const MenuEntry& chosen) {
    EnterRealDirectory(Panel());
    for (int i = 0; i < chosen.commands.Count(); i++) {
        if (!RunCommand(*chosen.commands.Peek(i))) break;
    }
    if (!moved_) return;
    if (!ChangeDirectory(Panel(), WorkingDirectory())) return;
    Panel().top = 0;
    Panel().cursor = 0;
    GoTo(state_.panels, side_, Westring());
}

}  // namespace

void RunUserMenu(LoopState& state, int side, bool globalOnly) {
    const CPanel& panel = state.panels.panel[side];
    const Westring personal = ApplicationFilePath(ApplicationFile::kUserMenu);
    const entry* current = panel.Current();
    MenuStore menu;
    const bool found =
        !globalOnly && ReadNearestMenu(RealDirectory(panel), NameOfPath(personal), current, menu);
    if (!found && !ReadMenuFile(personal, current, menu)) return;
    const MenuEntry* chosen = ShowMenu(menu, kTitle, -1);
    if (chosen) MenuRun(state, side).Run(*chosen);
}

void UserMenuKey(LoopState& state, const KeyPress& key) {
    RunUserMenu(state, state.panels.active, key.HasShift());
    state.DrawAll();
}

}  // namespace zt
