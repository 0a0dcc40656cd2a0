// Keys that change how the panels show: order, style, width, which are on. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

void SortActive(LoopState& state, int sort);
void ReverseSide(LoopState& state, int side);
// The menu's codes carry side and order, or side and style.
void SortByMenu(LoopState& state, const KeyPress& key);
void ReverseByMenu(LoopState& state, const KeyPress& key);
void StyleByMenu(LoopState& state, const KeyPress& key);
// Alt-Shift-F1 to F5.
void SetActiveStyle(LoopState& state, const KeyPress& key);

void SwitchPanelKey(LoopState& state, const KeyPress& key);
void Swap(LoopState& state, const KeyPress& key);
// Both off, or those that were on.
void TogglePanels(LoopState& state, const KeyPress& key);
void ToggleOtherPanel(LoopState& state, const KeyPress& key);
void ToggleLeftPanel(LoopState& state, const KeyPress& key);
void ToggleRightPanel(LoopState& state, const KeyPress& key);
void ToggleLeftWidth(LoopState& state, const KeyPress& key);
void ToggleRightWidth(LoopState& state, const KeyPress& key);

}  // namespace zt
