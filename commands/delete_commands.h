// The keys that delete. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// The current entry of the active panel, or its tagged ones.
void Delete(LoopState& state, const KeyPress& key);
// By a typed name.
void DeleteNamed(LoopState& state, const KeyPress& key);

}  // namespace zt
