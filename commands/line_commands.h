// Keys that edit the command line. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

void LineDelete(LoopState& state, const KeyPress& key);
void LineBackspace(LoopState& state, const KeyPress& key);
void LineHome(LoopState& state, const KeyPress& key);
void LineEnd(LoopState& state, const KeyPress& key);
// With an empty line these two shift the name under the cursor bar instead.
void LineLeftOrShiftName(LoopState& state, const KeyPress& key);
void LineRightOrShiftName(LoopState& state, const KeyPress& key);
void CopyLine(LoopState& state, const KeyPress& key);
void PasteLine(LoopState& state, const KeyPress& key);
// The right panel's path with a trailing slash goes in at the insertion point.
void InsertRightPath(LoopState& state, const KeyPress& key);
// Esc clears the line; Ctrl with it inserts the left panel's path.
void Escape(LoopState& state, const KeyPress& key);
void DropSearchCharacter(LoopState& state, const KeyPress& key);

}  // namespace zt
