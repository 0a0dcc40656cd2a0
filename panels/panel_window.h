// Bringing a panel to the screen and taking it off.
#pragma once

#include "panels/panel_pair.h"

namespace zt {

// Takes what the settings keep for the side, reads the directory once and opens the window when
// the panel is to show. panel.path must be set. For the left panel first, then at once for the
// right one, which takes over what both show.
void InitFromSettings(CPanel& panel, int side);
void OpenPanelWindow(CPanel& panel, int side);
void ClosePanelWindow(CPanel& panel);
// Entries, style and kind as they are, in a window of the present screen size.
void ReopenPanelWindows(PanelPair& panels);
// Reads and paints what is marked; with `all`, paints whatever shows.
void RefreshPanels(PanelPair& panels, bool all = false);
// Reads one panel's directory again. The process stays in the active panel's directory.
void RereadSide(PanelPair& panels, int side, bool keepTags = true);
// Reads both directories again, after something changed files.
void RereadBoth(PanelPair& panels, bool keepTags = true);
void SetStyle(CPanel& panel, int style, int side);
// visibleEntries for the style and the present panelRows.
void ComputeVisibleEntries(CPanel& panel);
// Columns of the panel's window: half the screen, or all of it.
int PanelWidth(const CPanel& panel);

}  // namespace zt
