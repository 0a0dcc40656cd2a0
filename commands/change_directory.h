// The commands that take a panel to another directory: "cd" and "vcd". First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// `text` begins with "cd". 0, or -1 when there is no way to go there; a box has told why, and the
// panel stays where it is.
int ChangeDirectoryCommand(LoopState& state, const Westring& text, int side);

// `text` begins with "vcd": an outside program lets the user choose. Without that program nothing
// happens. The program's exit status, or -1.
int ChooseDirectoryCommand(LoopState& state, const Westring& text, int side);

}  // namespace zt
