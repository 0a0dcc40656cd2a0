// Keys that offer what was done before. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Alt-\ and Alt-Shift-F8: the active panel goes to a directory that was visited before.
void DirectoryHistoryCommand(LoopState& state, const KeyPress& key);

}  // namespace zt
