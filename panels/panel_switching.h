// Which panels are on, which is active, how wide they are, which side is which.
#pragma once

#include "panels/panel_pair.h"

namespace zt {

// Makes the side the active one: headers and window title, the process's working directory, and
// the StartupSide setting.
void Activate(PanelPair& panels, int side);
// The other panel becomes active (Tab). From a panel of full width, that side closes and the other
// opens at full width. False when there is nothing to switch to.
bool SwitchPanel(PanelPair& panels);
// On or off.
void TogglePanel(PanelPair& panels, int side);
// Half to full width and back.
void TogglePanelWidth(PanelPair& panels, int side);
// While no panel shows, the mouse may select the screen's text. To be called when the screen has
// another size, or panels came or went by other ways than those above.
void UpdateSelectableRect(const PanelPair& panels);
// Both off, or those that were on before on again.
void PanelsOnOff(PanelPair& panels);
// Left and right change places, with all that is in them.
void SwapPanels(PanelPair& panels);
inline bool BothPanelsOff(const PanelPair& panels) {
    return !panels.panel[0].showing && !panels.panel[1].showing;
}

}  // namespace zt
