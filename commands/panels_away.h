// Takes everything of the program off the screen while a program runs there, and brings it back
// over what the program left. First thread only.
#pragma once

#include "commands/loop_state.h"

namespace zt {

class PanelsAway {
public:
    explicit PanelsAway(LoopState& state);
    ~PanelsAway();
    PanelsAway(const PanelsAway&) = delete;
    PanelsAway& operator=(const PanelsAway&) = delete;

private:
    LoopState& state_;
    bool wasShowing_[2];
};

}  // namespace zt
