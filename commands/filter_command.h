// The menu's entries that ask for a panel's filter.
#pragma once

#include "commands/loop_state.h"

namespace zt {

void FilterByMenu(LoopState& state, const KeyPress& key);

}  // namespace zt
