// The desktop's own file window on the panel's directory. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Ctrl-W. Takes the file window of the running desktop, or any that is installed; without one
// nothing happens.
void FileWindowKey(LoopState& state, const KeyPress& key);

}  // namespace zt
