// Keys that change the size of the screen or of the panels on it. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Reads the grid's size into screenColumns and screenLines, and derives panelRows.
void RefreshScreenSize();
// A new grid, with a new function-key bar where there was one. Everything else on it is lost: the
// caller closes the panels before and draws afresh.
void ResizeScreen(LoopState& state, int rows, int columns);
// A new bar for the present size of the screen.
void MakeFunctionKeyBar(LoopState& state);

// The same with the panels closed before and opened again.
void ResizeAndReopen(LoopState& state, int rows, int columns);

void ToggleFullScreen(LoopState& state, const KeyPress& key);
// Alt-F9: 25 lines, 50, and the configured number.
void ToggleLines(LoopState& state, const KeyPress& key);
// Alt-Shift-F9: 80 columns, 132, and the configured number.
void ToggleColumns(LoopState& state, const KeyPress& key);

}  // namespace zt
