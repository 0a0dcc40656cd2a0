#include "commands/execute_command.h"

#include <cwchar>

#include "commands/associations.h"
#include "commands/dispatch_command.h"
#include "commands/histories.h"
#include "commands/run_command.h"
#include "commands/separate_session.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/navigation.h"
#include "ui/abbreviate_path.h"

namespace zt {

namespace {

constexpr int kShortPromptCharacters = 2;

int ActingSide(LoopState& state) {
    const CPanel& active = state.Active();
    return active.IsFiles() && !active.IsTree() ? state.panels.active : 1 - state.panels.active;
}

Westring PromptOf(const CPanel& panel, const Westring& command) {
    Westring path = panel.path;
    if (settings.pathPrompt) {
        AbbreviatePath(path, screenColumns / 2 - 1);
    } else {
        path = path.Left(kShortPromptCharacters);
    }
    return path + L">" + command;
}

// The other panel's directory first: each panel's path is entered, and that of the acting one
// stays the working directory.
void EnterDirectories(LoopState& state, int side) {
    const CPanel& acting = state.panels.panel[side];
    const CPanel& other = state.panels.panel[1 - side];
    if (other.IsFiles() && wcscmp(other.path.c_str(), acting.path.c_str()) != 0)
        EnterRealDirectory(other);
    EnterRealDirectory(acting);
}

Executed EnterDirectory(LoopState& state, const entry& directory) {
    CPanel& active = state.Active();
    if (active.IsTree() && state.panels.seams.tree) {
        const Westring path = state.panels.seams.tree->SelectedPath(active);
        if (!ChangeDirectory(state.Other(), path)) return Executed::kNothing;
        state.Other().top = state.Other().cursor = 0;
        GoTo(state.panels, 1 - state.panels.active, Westring());
    } else {
        GoTo(state.panels, state.panels.active, directory.name);
    }
    state.DrawAll();
    return Executed::kDirectoryChanged;
}

// A file that is no command of any kind may still be an archive, which opens as a directory.
Executed EnterArchive(LoopState& state, const entry& file) {
    CPanel& panel = state.Active();
    IPanelArchives* archives = state.panels.seams.archives;
    Westring path = panel.path;
    path.AddTrailingSlash();
    if (!archives || !archives->Open(panel, path + file.name)) return Executed::kNothing;
    GoTo(state.panels, state.panels.active, file.name);
    state.DrawAll();
    return Executed::kDirectoryChanged;
}

}  // namespace

int RunBehindPrompt(LoopState& state, const Westring& command, int side, int flags) {
    const int result =
        DispatchCommand(state, command, side, PromptOf(state.panels.panel[side], command), flags);
    state.DrawAll();
    return result;
}

Executed ExecuteCommand(LoopState& state, const Westring& text, bool separateSession) {
    const int side = ActingSide(state);
    Westring command = text.Trim();
    if (command.IsEmpty()) return Executed::kNothing;
    if (separateSession) command = SeparateSessionCommand(command);
    EnterDirectories(state, side);
    AddCommand(state.history, command);
    const Westring before = state.panels.panel[side].path;
    RunBehindPrompt(state, command, side, kRunTyped);
    const bool moved = wcscmp(before.c_str(), state.panels.panel[side].path.c_str()) != 0;
    return moved ? Executed::kDirectoryChanged : Executed::kCommand;
}

Executed ExecuteEntry(LoopState& state, bool separateSession) {
    const CPanel& panel = state.Active();
    const entry* current = panel.Current();
    if (!panel.IsShowingFiles() || !current) return Executed::kNothing;
    if (current->IsDirectory()) return EnterDirectory(state, *current);
    TemporaryLists lists;
    Westring command;
    const AssociationResult found = RunAssociation(state, *current, command, lists);
    if (found == AssociationResult::kCancelled) return Executed::kNothing;
    if (found == AssociationResult::kNone) return EnterArchive(state, *current);
    if (separateSession) command = SeparateSessionCommand(command);
    RunBehindPrompt(state, WithLists(command, lists), state.panels.active, kRunTwoNewlines);
    return Executed::kCommand;
}

void Enter(LoopState& state, const KeyPress&) {
    if (state.line.IsEmpty()) {
        ExecuteEntry(state, false);
        return;
    }
    const Westring text = state.line.Text();
    state.line.Clear();
    state.history.ForgetPlace();
    state.drawLine = kDrawLineBarAndTitle;
    ExecuteCommand(state, text, false);
}

void EnterSeparately(LoopState& state, const KeyPress&) {
    if (state.line.IsEmpty()) {
        ExecuteEntry(state, true);
        return;
    }
    const Westring text = state.line.Text();
    state.line.Clear();
    state.history.ForgetPlace();
    state.drawLine = kDrawLineBarAndTitle;
    ExecuteCommand(state, text, true);
}

}  // namespace zt
