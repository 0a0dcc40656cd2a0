// The dialog of the ten stored directories. Modal; first thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// Lets the user choose a stored path, empty a slot (Delete) or store the panel's path in one
// (Insert). A chosen path becomes the panel's; a box tells when it cannot. True when one was
// chosen, either way: the panel is then to be read. False for Esc.
bool StoredPathsDialog(CPanel& panel);

// Alt-F5.
void StoredPathsKey(LoopState& state, const KeyPress& key);

}  // namespace zt
