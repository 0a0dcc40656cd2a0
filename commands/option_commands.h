// Keys and menu entries that switch a setting on or off at once. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

void ToggleHidden(LoopState& state, const KeyPress& key);
void TogglePathPrompt(LoopState& state, const KeyPress& key);
void ToggleTagDirs(LoopState& state, const KeyPress& key);
void ToggleThousandSep(LoopState& state, const KeyPress& key);
void ToggleRetainCount(LoopState& state, const KeyPress& key);
void ToggleClock(LoopState& state, const KeyPress& key);

}  // namespace zt
