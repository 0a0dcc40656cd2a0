// The list of earlier commands that the command line could be meant to become. Modal; first thread
// only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Ctrl-Tab: offers the commands that begin as the line does up to its insertion point. Enter takes
// the chosen one into the line, behind which the insertion point then stands; Esc leaves the line.
// Without such a command nothing happens.
void CompleteLineFromList(LoopState& state, const KeyPress& key);

}  // namespace zt
