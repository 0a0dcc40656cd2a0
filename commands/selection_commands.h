// Keys that tag entries, add up directories and look for names. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Tag or untag what an expression matches, which the user is asked for. In the tree style they
// expand and collapse.
void SelectGroupKey(LoopState& state, const KeyPress& key);
void UnselectGroupKey(LoopState& state, const KeyPress& key);
void InvertSelectionKey(LoopState& state, const KeyPress& key);
void TagAllKey(LoopState& state, const KeyPress& key);
void UntagAllKey(LoopState& state, const KeyPress& key);
void RestoreSelectionKey(LoopState& state, const KeyPress& key);

// Adds up the tagged directories or the one under the cursor bar.
void DirectorySizesKey(LoopState& state, const KeyPress& key);

// To the previous and the next match of the quick search; without one, tagged entry.
void PreviousMatchOrTagKey(LoopState& state, const KeyPress& key);
void NextMatchOrTagKey(LoopState& state, const KeyPress& key);
// Makes the quick search's text longer; without one, as the key for the command line.
void ExtendSearchOrLineRight(LoopState& state, const KeyPress& key);
// A character for the quick search.
void StartQuickSearch(LoopState& state, int32_t character);

}  // namespace zt
