// Making desktop launchers for files. First thread only; modal.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Alt-F6: asks, and makes a launcher for the entry under the cursor or one for each tagged entry,
// which loses its tag. A launcher of the same title is replaced when the user agrees.
void MakeObjectKey(LoopState& state, const KeyPress& key);

}  // namespace zt
