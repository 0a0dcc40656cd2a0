// Keys that take a panel to another directory or read it again. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Takes the active panel to an absolute path, with the cursor on the first entry. False when there
// is no such directory; the panel then stays.
bool GoToPath(LoopState& state, const Westring& path);

void EnterCurrent(LoopState& state, const KeyPress& key);
void GoUp(LoopState& state, const KeyPress& key);
void GoHome(LoopState& state, const KeyPress& key);
// Back to the directory before the last change.
void GoBackKey(LoopState& state, const KeyPress& key);
// To where the symbolic link under the cursor points.
void GoToLinkTarget(LoopState& state, const KeyPress& key);
// To the root of the path's file system; with Shift to the other panel's path.
void GoToTopOrOther(LoopState& state, const KeyPress& key);
void GoToOtherPath(LoopState& state);
// Reads the directory again, tags kept.
void Reread(LoopState& state, const KeyPress& key);
void RereadByMenu(LoopState& state, const KeyPress& key);

}  // namespace zt
