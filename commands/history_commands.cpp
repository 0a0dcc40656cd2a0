#include "commands/history_commands.h"

#include "commands/directory_commands.h"
#include "commands/history_windows.h"
#include "ui/message_box.h"

namespace zt {

void DirectoryHistoryCommand(LoopState& state, const KeyPress&) {
    state.DrawAll();
    Westring path;
    if (!DirectoryHistoryWindow(state.panels.directoryHistory, path)) return;
    if (!GoToPath(state, path)) MessageBox("Invalid Directory", path.c_str(), kBoxOk);
}

}  // namespace zt
