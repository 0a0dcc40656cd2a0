// The keys that change or show what the system knows of files. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

void FileAttributesKey(LoopState& state, const KeyPress& key);
void ChangeDateKey(LoopState& state, const KeyPress& key);
void ChangeCaseKey(LoopState& state, const KeyPress& key);
void FileInformationKey(LoopState& state, const KeyPress& key);

}  // namespace zt
