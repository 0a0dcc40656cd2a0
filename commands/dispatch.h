// From one key or mouse event to the command that it means. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Carries out what the event asks for. Sets the state's drawing marks and its `leave`.
void Dispatch(LoopState& state, KeyPress key);

}  // namespace zt
