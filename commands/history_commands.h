// Keys that offer what was done before. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Alt-F8: a command that was run before is run again, or goes to the command line.
void CommandHistoryCommand(LoopState& state, const KeyPress& key);
// Alt-\ and Alt-Shift-F8: the active panel goes to a directory that was visited before.
void DirectoryHistoryCommand(LoopState& state, const KeyPress& key);

}  // namespace zt
