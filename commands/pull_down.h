// The keys that open the pull-down menu. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// F9, Ctrl-N, and Shift-F10, which opens the menu where it was last left.
bool IsMenuKey(int32_t code);
// The chosen entry as a key press without modifiers; code 0 when nothing was chosen.
KeyPress RunPullDown(LoopState& state, int32_t menuKey);

}  // namespace zt
