// Freezes painting for the length of a scope: what changes in it appears in one step.
// Any thread that draws may use it; freezes nest.
#pragma once

#include "console/program_state.h"

namespace zt {

class UpdateFreeze {
public:
    UpdateFreeze() { console->BeginUpdate(); }
    ~UpdateFreeze() { console->EndUpdate(); }
    UpdateFreeze(const UpdateFreeze&) = delete;
    UpdateFreeze& operator=(const UpdateFreeze&) = delete;
};

}  // namespace zt
