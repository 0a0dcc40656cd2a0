// The Enter key: the typed command, or the entry under the cursor. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

enum class Executed { kNothing = 0, kDirectoryChanged = 1, kCommand = 2 };

// Runs the text as a command of the active panel (of the other one where the active shows info or
// the tree), and remembers it. With `separateSession` it gets a terminal of its own.
Executed ExecuteCommand(LoopState& state, const Westring& text, bool separateSession);
// Enters the directory under the cursor, or runs what its association or its execute bit says.
Executed ExecuteEntry(LoopState& state, bool separateSession);

// Runs a command for the panel of `side` behind its prompt, as the two above do; `flags` as in
// dispatch_command.h.
int RunBehindPrompt(LoopState& state, const Westring& command, int side, int flags);

// Enter and Alt-Enter.
void Enter(LoopState& state, const KeyPress& key);
void EnterSeparately(LoopState& state, const KeyPress& key);

}  // namespace zt
