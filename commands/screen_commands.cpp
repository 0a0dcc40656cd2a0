#include "commands/screen_commands.h"

#include <algorithm>

#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"
#include "ui/clock_window.h"

namespace zt {

namespace {

constexpr int kFewLines = 25;
constexpr int kManyLines = 50;
constexpr int kFewColumns = 80;
constexpr int kManyColumns = 132;

int NextLines(int lines) {
    if (lines == kFewLines) {
        return settings.lines > kFewLines ? std::min(settings.lines, kManyLines) : kManyLines;
    }
    if (lines == kManyLines) return settings.lines > kManyLines ? settings.lines : kFewLines;
    return lines < kManyLines ? kManyLines : kFewLines;
}

int NextColumns(int columns) {
    if (columns == kFewColumns) return kManyColumns;
    if (columns == kManyColumns && settings.columns > kFewColumns &&
        settings.columns != kManyColumns) {
        return settings.columns;
    }
    return kFewColumns;
}

void CloseBoth(LoopState& state, bool (&wasShowing)[2]) {
    for (int side = 0; side < 2; side++) {
        wasShowing[side] = state.panels.panel[side].showing;
        if (wasShowing[side]) ClosePanelWindow(state.panels.panel[side]);
    }
}

void ReopenBoth(LoopState& state, const bool (&wasShowing)[2]) {
    for (int side = 0; side < 2; side++) {
        ComputeVisibleEntries(state.panels.panel[side]);
        if (wasShowing[side]) OpenPanelWindow(state.panels.panel[side], side);
    }
    UpdateSelectableRect(state.panels);
    state.DrawAll();
}

}  // namespace

void RefreshScreenSize() {
    console->GetSize(screenColumns, screenLines);
    panelRows = settings.fullScreen ? screenLines - 6 : screenLines - (screenLines / 2 + 2);
}

void MakeFunctionKeyBar(LoopState& state) {
    // The old bar restores what it hid, so it must be gone before the new one looks.
    state.functionKeys.reset();
    state.functionKeys = std::make_unique<CFunctionKeyBar>();
    state.drawLine = kDrawLineBarAndTitle;
}

void ResizeScreen(LoopState& state, int rows, int columns) {
    // What these two hid belongs to the old grid and must not come back on the new one.
    DeleteClockWindow();
    const bool hadBar = state.functionKeys != nullptr;
    state.functionKeys.reset();
    if (console->Resize(columns, rows, settings.fontFamily.c_str(), settings.fontSize) == 0) {
        console->Beep();
    }
    RefreshScreenSize();
    if (hadBar) MakeFunctionKeyBar(state);
}

void ResizeAndReopen(LoopState& state, int rows, int columns) {
    bool wasShowing[2];
    CloseBoth(state, wasShowing);
    ResizeScreen(state, rows, columns);
    ReopenBoth(state, wasShowing);
}

void ToggleFullScreen(LoopState& state, const KeyPress&) {
    bool wasShowing[2];
    CloseBoth(state, wasShowing);
    settings.fullScreen = !settings.fullScreen;
    RefreshScreenSize();
    ReopenBoth(state, wasShowing);
}

void ToggleLines(LoopState& state, const KeyPress&) {
    ResizeAndReopen(state, NextLines(screenLines), screenColumns);
}

void ToggleColumns(LoopState& state, const KeyPress&) {
    ResizeAndReopen(state, screenLines, NextColumns(screenColumns));
}

}  // namespace zt
