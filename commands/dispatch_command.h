// What is typed, chosen or given by a rule, on its way to the shell: "cd", "vcd" and "set" are done
// here, since no child can do them for the program. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Bits of `flags`; others are allowed and mean nothing.
inline constexpr int kRunTwoNewlines = 1;  // an empty line more behind what the program printed
inline constexpr int kRunHere = 8;         // in the working directory as it is
inline constexpr int kRunTyped = 0x100;    // typed by the user: one empty line more

// Carries the command out for the panel of `side`. `prompt` stands on the screen before the
// program's output; it may be empty. The exit status, or -1; a box has told of a failure.
int DispatchCommand(LoopState& state, const Westring& text, int side, const Westring& prompt,
                    int flags);

}  // namespace zt
