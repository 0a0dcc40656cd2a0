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
void LineWordLeft(LoopState& state, const KeyPress& key);
void LineWordRight(LoopState& state, const KeyPress& key);
void LineDeleteWordLeft(LoopState& state, const KeyPress& key);
void LineDeleteWordRight(LoopState& state, const KeyPress& key);
void RecallOlder(LoopState& state, const KeyPress& key);
void RecallNewer(LoopState& state, const KeyPress& key);
// Clears the line and the quick search; on an empty line it may switch the panels off and on.
void Escape(LoopState& state, const KeyPress& key);
void DropSearchCharacter(LoopState& state, const KeyPress& key);

}  // namespace zt
