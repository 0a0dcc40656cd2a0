// What the mouse does on the main screen. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Carries out a mouse event, or turns it into the key code that it stands for: the function key
// whose label was pressed and released. 0 when there is nothing left to do.
int32_t HandleMouse(LoopState& state, const KeyPress& key);

}  // namespace zt
