// Keys that bring names and paths from the panels to the command line or the clipboard, and the
// completion key. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Ctrl-F: the full path of the current entry goes into the line; with Shift to the clipboard.
void InsertFullPath(LoopState& state, const KeyPress& key);
// Ctrl-Enter: completes from the history behind a letter or digit, else puts in the entry's name.
void CompleteLine(LoopState& state, const KeyPress& key);
// The name, whatever stands before; with Shift it goes to the clipboard.
void CompleteName(LoopState& state, const KeyPress& key);
void InsertLeftPath(LoopState& state, const KeyPress& key);
void InsertRightPath(LoopState& state, const KeyPress& key);

}  // namespace zt
