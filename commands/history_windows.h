// The windows that offer what was done before: the commands that were run and the directories that
// were visited. Modal; first thread only.
#pragma once

#include "commands/command_history.h"
#include "panels/panel_seams.h"

namespace zt {

enum class HistoryChoice { kNothing = 0, kToLine = 1, kRun = 2 };

// `command` takes the chosen one: for the command line, or to be run, then with the template of
// separate sessions applied when the user asked for that.
HistoryChoice CommandHistoryWindow(CommandHistory& history, Westring& command);

// False for Esc, and when no directory was visited yet.
bool DirectoryHistoryWindow(WestringStore& directories, Westring& chosen);

// How the dialogs of other rooms reach the visited directories.
class DirectoryChooser : public IDirectoryChooser {
public:
    bool Pick(CPanel& panel, Westring& path) override;
};

}  // namespace zt
