#include "commands/panels_away.h"

#include "commands/screen_commands.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"
#include "ui/clock_window.h"

namespace zt {

PanelsAway::PanelsAway(LoopState& state) : state_(state) {
    DeleteClockWindow();
    for (int side = 1; side >= 0; side--) {
        wasShowing_[side] = state.panels.panel[side].showing;
        if (wasShowing_[side]) ClosePanelWindow(state.panels.panel[side]);
    }
    state.functionKeys.reset();
}

PanelsAway::~PanelsAway() {
    RefreshScreenSize();
    MakeFunctionKeyBar(state_);
    for (int side = 0; side < 2; side++) {
        ComputeVisibleEntries(state_.panels.panel[side]);
        if (wasShowing_[side]) OpenPanelWindow(state_.panels.panel[side], side);
    }
    UpdateSelectableRect(state_.panels);
    state_.DrawAll();
}

}  // namespace zt
