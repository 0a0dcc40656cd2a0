// The outer loop of the program: repaint what is marked, wait for one event, act. First thread.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Runs until a command sets state.leave.
void RunMainLoop(LoopState& state);

}  // namespace zt
