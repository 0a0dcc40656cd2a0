// Keys that move the cursor within a panel's list. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// With both panels off these two recall earlier commands.
void UpKey(LoopState& state, const KeyPress& key);
void DownKey(LoopState& state, const KeyPress& key);
void PageUpKey(LoopState& state, const KeyPress& key);
void PageDownKey(LoopState& state, const KeyPress& key);
// By an entry column where the style has several; elsewhere as the keys for the command line.
void LeftKey(LoopState& state, const KeyPress& key);
void RightKey(LoopState& state, const KeyPress& key);
// With both panels off these two move in the command line.
void HomeKey(LoopState& state, const KeyPress& key);
void EndKey(LoopState& state, const KeyPress& key);

// Toggles the tag of the current entry and goes on to the next.
void TagKey(LoopState& state, const KeyPress& key);

}  // namespace zt
