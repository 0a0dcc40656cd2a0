// Opening, closing and refreshing the panels' windows.
#include "panels/panel_window.h"

#include <algorithm>

#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/directory_reader.h"
#include "panels/navigation.h"
#include "panels/panel_drawing.h"
#include "ui/clock_window.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

bool IsBetween(int value, int low, int high) {
    return value >= low && value <= high;
}

// A style or kind whose part of the program is not there falls back to the plain list.
void TakeSettings(CPanel& panel, const SideSettings& own) {
    const PanelSeams& seams = panel.pair->seams;
    panel.sort = IsBetween(own.sort, 0, kSortCount - 1) ? own.sort : kSortName;
    panel.style = IsBetween(own.style, 0, kStyleTree) ? own.style : kStyleFull;
    panel.kind = own.type == kKindInfo && seams.info ? kKindInfo : kKindFiles;
    panel.width = IsBetween(own.width, 0, kWidthFull) ? own.width : kWidthHalf;
    panel.filter = own.filter.IsEmpty() ? Westring("*") : own.filter;
    if (panel.style == kStyleTree && !seams.tree) panel.style = kStyleFull;
}

void MakeWindow(CPanel& panel, int side) {
    const int width = PanelWidth(panel);
    const int left = panel.width == kWidthFull ? 0 : side * (screenColumns / 2);
    const int attribute = Colour(ColourClass::kPanel);
    panel.window.reset();  // before the new one looks at what is on the screen
    panel.window =
        std::make_unique<Win>(left, 0, left + width - 1, panelRows + 3, attribute, attribute, 1);
}

}  // namespace

int PanelWidth(const CPanel& panel) {
    return panel.width == kWidthFull ? screenColumns : screenColumns / 2;
}

void ComputeVisibleEntries(CPanel& panel) {
    panel.visibleEntries = std::max(panelRows, 0) * EntryColumns(panel.style);
}

void InitFromSettings(CPanel& panel, int side) {
    const SideSettings& own = settings.sides[side];
    if (panel.path.IsEmpty()) panel.path = "/";
    panel.readPath = panel.path;
    TakeSettings(panel, own);
    panel.offByUser = !own.showing;
    panel.nameShiftIndex = -1;
    panel.showing = own.showing && settings.sides[1 - side].width != kWidthFull;
    // A panel in the tree style or of another kind has its list all the same.
    const int style = panel.style;
    const int kind = panel.kind;
    panel.style = kStyleFull;
    panel.kind = kKindFiles;
    ComputeVisibleEntries(panel);
    panel.pair->sharesReads = side == 1;
    ReadDirectory(panel);
    panel.pair->sharesReads = false;
    panel.readPath = panel.path;  // a directory that may not be read was left for its parent
    panel.style = style;
    panel.kind = kind;
    ComputeVisibleEntries(panel);
    if (panel.showing && !panel.IsTree()) OpenPanelWindow(panel, side);
}

void OpenPanelWindow(CPanel& panel, int side) {
    panel.columns.Compute(PanelWidth(panel));
    ComputeVisibleEntries(panel);
    panel.offByUser = false;
    panel.showing = true;
    if (side == 1 || panel.width == kWidthFull) DeleteClockWindow();
    {
        const UpdateFreeze freeze;
        MakeWindow(panel, side);
        DrawHeader(panel);
    }
    // Not frozen: a slow read shows its progress, and a failing one its message.
    if (panel.needRead) ReadDirectory(panel);
    ClampCursor(panel);
    DrawPanel(panel);
    panel.needPaint = false;
}

void ClosePanelWindow(CPanel& panel) {
    const bool coversClock = panel.side == 1 || panel.width == kWidthFull;
    if (panel.window && coversClock) DeleteClockWindow();
    panel.window.reset();
    panel.showing = false;
}

void ReopenPanelWindows(PanelPair& panels) {
    bool wasShowing[2];
    for (int side = 0; side < 2; ++side) {
        wasShowing[side] = panels.panel[side].showing;
        if (wasShowing[side]) ClosePanelWindow(panels.panel[side]);
        ComputeVisibleEntries(panels.panel[side]);
    }
    for (int side = 0; side < 2; ++side) {
        if (wasShowing[side]) OpenPanelWindow(panels.panel[side], side);
    }
}

void RefreshPanels(PanelPair& panels, bool all) {
    for (CPanel& panel : panels.panel) {
        if (panel.needRead && panel.IsShowingFiles()) ReadDirectory(panel);
        if (!panel.window || (!panel.needPaint && !all)) continue;
        DrawPanel(panel);
        panel.needPaint = false;
    }
}

void RereadSide(PanelPair& panels, int side, bool keepTags) {
    GoTo(panels, side, Westring(), keepTags);
    // A filter may name a file from there.
    EnterActiveDirectory(panels);
}

void RereadBoth(PanelPair& panels, bool keepTags) {
    RereadSide(panels, 1 - panels.active, keepTags);
    panels.sharesReads = true;
    RereadSide(panels, panels.active, keepTags);
    panels.sharesReads = false;
}

void SetStyle(CPanel& panel, int style, int side) {
    const PanelSeams& seams = panel.pair->seams;
    if (style < 0 || style > kStyleTree || (style == kStyleTree && !seams.tree)) return;
    const bool changesList = panel.IsTree() != (style == kStyleTree);
    panel.kind = kKindFiles;
    panel.style = style;
    settings.sides[side].style = style;
    settings.sides[side].type = kKindFiles;
    ComputeVisibleEntries(panel);
    if (changesList) {
        panel.needRead = true;
    } else {
        ClampCursor(panel);
    }
    panel.needPaint = true;
}

}  // namespace zt
