// The commands that take a panel to another directory: "cd" and "vcd". First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Whether a command is "cd", alone or with a '\', a '.' or a blank behind it; case is ignored.
bool IsChangeDirectory(const Westring& text);
// The directory that a "cd" stands for, from `base` on: variables are expanded, both slashes
// separate, and a name with its odd characters escaped is meant as well. False when there is none;
// `path` is then what was looked for.
[[nodiscard]] bool FindDirectory(const Westring& base, const Westring& text, Westring& path);

// `text` begins with "cd". 0, or -1 when there is no way to go there; a box has told why, and the
// panel stays where it is.
int ChangeDirectoryCommand(LoopState& state, const Westring& text, int side);

// `text` begins with "vcd": an outside program lets the user choose. Without that program nothing
// happens. The program's exit status, or -1.
int ChooseDirectoryCommand(LoopState& state, const Westring& text, int side);

}  // namespace zt
