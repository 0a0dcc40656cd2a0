// The manual in a web browser. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Shift-F1. Without any browser nothing happens.
void BrowseManual(LoopState& state, const KeyPress& key);

}  // namespace zt
