// Leaving the program by its key. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Bit of the setting `confirmations` that takes the exit question away.
inline constexpr int kQuitUnasked = 1 << 3;

void Quit(LoopState& state, const KeyPress& key);

}  // namespace zt
