// The keys that copy and move. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// To the other panel.
void CopyKey(LoopState& state, const KeyPress& key);
void MoveKey(LoopState& state, const KeyPress& key);
// Within the directory, under another name.
void CopyInPlaceKey(LoopState& state, const KeyPress& key);
void RenameKey(LoopState& state, const KeyPress& key);

}  // namespace zt
