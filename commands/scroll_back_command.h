// The key that shows what programs have written on the screen. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Only while the scroll-back is kept.
void ShowScrollBackKey(LoopState& state, const KeyPress& key);

}  // namespace zt
