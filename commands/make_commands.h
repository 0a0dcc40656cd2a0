// The keys that make directories and links. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

void MakeDirectoryKey(LoopState& state, const KeyPress& key);
void MakeLinksKey(LoopState& state, const KeyPress& key);

}  // namespace zt
