// Turning panels on and off, and changing sides.
#include "panels/panel_switching.h"

#include <algorithm>
#include <utility>

#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/navigation.h"
#include "panels/panel_drawing.h"
#include "panels/panel_window.h"
#include "ui/abbreviate_path.h"
#include "ui/window_title.h"

namespace zt {

namespace {

constexpr int kTitleColumns = 50;
constexpr int kCommandLines = 2;  // command line and function-key bar

void ActivateOneThatShows(PanelPair& panels) {
    if (!panels.Active().showing && panels.Inactive().showing) panels.active = 1 - panels.active;
}

// Remembers in the settings what the user has switched off.
void SetOffByUser(CPanel& panel, bool off) {
    panel.offByUser = off;
    settings.sides[panel.side].showing = !off;
}

void SetWidth(CPanel& panel, int width) {
    panel.width = width;
    settings.sides[panel.side].width = width;
}

void Open(CPanel& panel) {
    OpenPanelWindow(panel, panel.side);
    settings.sides[panel.side].showing = true;
}

template <class Collection>
void SwapItems(Collection& a, Collection& b) {
    Collection other;
    const auto move = [](Collection& from, Collection& to) {
        // They come in order, so that each goes to the end; bulk mode takes equal ones too.
        to.bulkMode = true;
        for (int i = 0; i < from.Count(); ++i)
            static_cast<void>(to.Insert(from.Peek(i)));
        to.bulkMode = false;
        from.Forget();
    };
    move(a, other);
    move(b, a);
    move(other, b);
}

}  // namespace

void UpdateSelectableRect(const PanelPair& panels) {
    if (BothPanelsOff(panels)) {
        const int rows = std::max(screenLines - kCommandLines, 0);
        console->SetSelectableRect(0, 0, screenColumns, rows, false);
    } else {
        console->ClearSelectableRect();
    }
}

void Activate(PanelPair& panels, int side) {
    panels.active = side;
    CPanel& panel = panels.Active();
    if (side != panels.lastActivated) {
        panels.lastActivated = side;
        DrawHeader(panel);
        DrawHeader(panels.Inactive());
        Westring title = panel.path;
        AbbreviatePath(title, kTitleColumns);
        SetWindowTitle(title.c_str());
    }
    EnterActiveDirectory(panels);
    settings.startupSide = side == 0 ? 'L' : 'R';
}

bool SwitchPanel(PanelPair& panels) {
    CPanel& panel = panels.Active();
    CPanel& other = panels.Inactive();
    if (panel.showing && panel.width == kWidthFull) {
        SetWidth(panel, kWidthHalf);
        ClosePanelWindow(panel);
        SetWidth(other, kWidthFull);
        Open(other);
    } else if (panel.showing && !other.showing) {
        return false;
    }
    Activate(panels, other.side);
    return true;
}

void TogglePanel(PanelPair& panels, int side) {
    CPanel& panel = panels.panel[side];
    CPanel& other = panel.Other();
    if (panel.showing) {
        ClosePanelWindow(panel);
        SetOffByUser(panel, true);
    } else {
        const bool oneHidesTheOther = panel.width == kWidthFull || other.width == kWidthFull;
        if (other.showing && oneHidesTheOther) ClosePanelWindow(other);
        Open(panel);
    }
    ActivateOneThatShows(panels);
    UpdateSelectableRect(panels);
}

void TogglePanelWidth(PanelPair& panels, int side) {
    CPanel& panel = panels.panel[side];
    CPanel& other = panel.Other();
    const bool becomesFull = !panel.showing || panel.width != kWidthFull;
    if (panel.showing) ClosePanelWindow(panel);
    if (becomesFull && other.showing) ClosePanelWindow(other);
    if (other.width == kWidthFull) SetWidth(other, kWidthHalf);
    SetWidth(panel, becomesFull ? kWidthFull : kWidthHalf);
    Open(panel);
    if (!becomesFull && !other.offByUser && !other.showing) Open(other);
    ActivateOneThatShows(panels);
    UpdateSelectableRect(panels);
}

void PanelsOnOff(PanelPair& panels) {
    CPanel(&both)[2] = panels.panel;
    if (!BothPanelsOff(panels)) {
        for (CPanel& panel : both)
            ClosePanelWindow(panel);
        UpdateSelectableRect(panels);
        return;
    }
    // What the user has switched off one by one stays off, unless nothing would come on.
    const bool noneIsOn = both[0].offByUser && both[1].offByUser;
    const bool fullOnly = panels.Active().width == kWidthFull;
    for (CPanel& panel : both) {
        const bool isHidden =
            panel.Other().width == kWidthFull || (fullOnly && &panel != &panels.Active());
        if (!isHidden && (noneIsOn || !panel.offByUser)) Open(panel);
    }
    if (BothPanelsOff(panels)) Open(panels.Active());
    ActivateOneThatShows(panels);
    UpdateSelectableRect(panels);
}

static void SwapContents(CPanel& a, CPanel& b) {
    std::swap(a.path, b.path);
    std::swap(a.readPath, b.readPath);
    std::swap(a.savedTop, b.savedTop);
    std::swap(a.savedCursor, b.savedCursor);
    std::swap(a.lastPath, b.lastPath);
    std::swap(a.lastTop, b.lastTop);
    std::swap(a.lastCursor, b.lastCursor);
    std::swap(a.cursor, b.cursor);
    std::swap(a.top, b.top);
    std::swap(a.needRead, b.needRead);
    SwapItems(a.positions, b.positions);
    a.entries.Swap(b.entries);
    std::swap(a.taggedCount, b.taggedCount);
    std::swap(a.taggedBytes, b.taggedBytes);
    std::swap(a.searchText, b.searchText);
    std::swap(a.sort, b.sort);
    std::swap(a.kind, b.kind);
    std::swap(a.style, b.style);
    std::swap(a.filter, b.filter);
    std::swap(a.fileSystem, b.fileSystem);
    std::swap(a.mountPoint, b.mountPoint);
    std::swap(a.readError, b.readError);
    std::swap(a.readWhole, b.readWhole);
    std::swap(a.tree, b.tree);
    std::swap(a.treeFollowsPath, b.treeFollowsPath);
    std::swap(a.archive, b.archive);
    std::swap(a.nameShift, b.nameShift);
    std::swap(a.nameShiftIndex, b.nameShiftIndex);
    SwapItems(a.subdirectories, b.subdirectories);
    SwapItems(a.linkTargets, b.linkTargets);
}

static void SwapSettings(SideSettings& a, SideSettings& b) {
    std::swap(a.directory, b.directory);
    std::swap(a.filter, b.filter);
    std::swap(a.sort, b.sort);
    std::swap(a.style, b.style);
    std::swap(a.type, b.type);
}

void SwapPanels(PanelPair& panels) {
    SwapContents(panels.panel[0], panels.panel[1]);
    SwapSettings(settings.sides[0], settings.sides[1]);
    ReopenPanelWindows(panels);
}

}  // namespace zt
