// The dialog in which the user changes the settings. First thread only; modal.
#pragma once

#include "commands/loop_state.h"

namespace zt {

// On Esc all settings are as before. Otherwise locale formats, panels and screen follow the change.
void ConfigurationDialog(LoopState& state, const KeyPress& key);

// Changes the colour classes; the panels are drawn afresh.
void ColoursCommand(LoopState& state, const KeyPress& key);

}  // namespace zt
