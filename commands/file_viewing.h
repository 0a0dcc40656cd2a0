// Looking at files and editing them, with the programs that rules and settings name. First thread
// only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// F3, Alt-F3 and Ctrl-Shift-F3: the file under the cursor bar; a directory is added up.
void ViewKey(LoopState& state, const KeyPress& key);
// F4, Alt-F4 and Ctrl-Shift-F4.
void EditKey(LoopState& state, const KeyPress& key);
// Shift-F3 and Shift-F4: a file whose name is asked for.
void ViewNamedKey(LoopState& state, const KeyPress& key);
void EditNamedKey(LoopState& state, const KeyPress& key);
// The menu's entries for the configuration, which is read again, and for the user menu.
void EditAssociations(LoopState& state, const KeyPress& key);
void EditUserMenu(LoopState& state, const KeyPress& key);

}  // namespace zt
