// The menu of commands that the user writes for himself. First thread only; modal.
#pragma once

#include "commands/loop_state.h"
#include "commands/menu_entries.h"

namespace zt {

// Shows the menu for the panel of `side` and runs what is chosen. The nearest menu file from the
// panel's directory upwards counts, or the personal one; with `globalOnly` that alone.
void RunUserMenu(LoopState& state, int side, bool globalOnly);

// A window with the menu: the chosen entry, or null. It stands in the middle for x below 0, and
// otherwise at x, moved to the left until it fits.
MenuEntry* ShowMenu(MenuStore& menu, const Westring& title, int x);

// F2, and Shift-F2 for the personal menu.
void UserMenuKey(LoopState& state, const KeyPress& key);

}  // namespace zt
