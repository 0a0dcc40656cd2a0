// The dialog that switches the program's questions on and off. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

void ConfirmationsDialog(LoopState& state, const KeyPress& key);

}  // namespace zt
