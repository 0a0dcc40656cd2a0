// The ten directories that the keypad's digits store and recall. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// The side whose panel stored paths are taken from and go to: the active one, or the other one
// while the active panel shows the tree.
int StoredPathSide(LoopState& state);

// Ctrl with a keypad digit goes to the stored path; with Shift too, it stores the panel's path.
// True when the key was one of these and is spent.
bool HandleStoredPathKey(LoopState& state, const KeyPress& key);

}  // namespace zt
