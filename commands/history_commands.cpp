#include "commands/history_commands.h"

#include "commands/directory_commands.h"
#include "commands/execute_command.h"
#include "commands/history_windows.h"
#include "ui/message_box.h"

namespace zt {

void CommandHistoryCommand(LoopState& state, const KeyPress&) {
    state.DrawAll();
    Westring command;
    switch (CommandHistoryWindow(state.history, command)) {
        case HistoryChoice::kToLine:
            state.line.SetText(command);
            break;
        case HistoryChoice::kRun:
            state.history.ForgetPlace();
            ExecuteCommand(state, command, false);
            break;
        case HistoryChoice::kNothing:
            break;
    }
}

void DirectoryHistoryCommand(LoopState& state, const KeyPress&) {
    state.DrawAll();
    Westring path;
    if (!DirectoryHistoryWindow(state.panels.directoryHistory, path)) return;
    if (!GoToPath(state, path)) MessageBox("Invalid Directory", path.c_str(), kBoxOk);
}

}  // namespace zt
