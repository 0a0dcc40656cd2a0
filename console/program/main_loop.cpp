#include "console/program/main_loop.h"

#include <algorithm>
#include <utility>

#include "commands/dispatch.h"
#include "commands/screen_commands.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/panel_drawing.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"
#include "ui/abbreviate_path.h"
#include "ui/clock_window.h"
#include "ui/update_freeze.h"
#include "ui/window_title.h"

namespace zt {

namespace {

constexpr int kInsertionCursorPercent = 15;
constexpr int kTitleColumns = 50;

// The panel whose path counts: the active one, or the other where the active one shows info or
// the tree.
const CPanel& PathPanel(LoopState& state) {
    const CPanel& active = state.Active();
    return active.IsFiles() && !active.IsTree() ? active : state.Other();
}

Westring Prompt(LoopState& state) {
    if (!settings.pathPrompt) return Westring();
    Westring path = PathPanel(state).path;
    AbbreviatePath(path, screenColumns / 2 - 1);
    return path + L">";
}

void KeepAShowingPanelActive(LoopState& state) {
    state.bothPanelsOff = BothPanelsOff(state.panels);
    if (state.bothPanelsOff || state.Active().showing) return;
    state.panels.active = 1 - state.panels.active;
    state.drawCursorBar = true;
}

void DrawPanelBar(LoopState& state) {
    ResetShiftIfMoved(state.Active());
    if (!state.drawCursorBar) return;
    DrawCursorBar(state.Active());
    DrawStatusRow(state.Other());
    state.drawCursorBar = false;
}

void DrawLastLines(LoopState& state) {
    if (modifiersDrawn != modifiersSeen) state.drawLine = kDrawLineBarAndTitle;
    if (state.drawLine == kDrawNothing) return;
    state.line.Draw(Prompt(state), screenLines - 2);
    if (state.drawLine != kDrawLineBarAndTitle) return;
    state.functionKeys->SetLabels(LabelsForModifiers(modifiersSeen));
    modifiersDrawn = modifiersSeen;
    Westring path = state.Active().path;
    AbbreviatePath(path, kTitleColumns);
    SetWindowTitle(path.c_str());
}

void DrawPass(LoopState& state) {
    // Not frozen: a slow read shows its progress, and a failing one its message.
    RefreshPanels(state.panels);
    const UpdateFreeze freeze;
    if (settings.clock) MakeClockWindow();
    if (state.functionKeys->Top() != screenLines - 1) MakeFunctionKeyBar(state);
    KeepAShowingPanelActive(state);
    if (state.drawLine != kDrawNothing) Activate(state.panels, state.panels.active);
    DrawPanelBar(state);
    DrawLastLines(state);
    for (CPanel& panel : state.panels.panel) {
        panel.savedTop = panel.top;
        panel.savedCursor = panel.cursor;
    }
    // On a grid too small for the line the cursor still has a cell.
    console->SetCursor(std::min(state.line.CursorColumn(), screenColumns - 1),
                       std::max(screenLines - 2, 0));
}

// The cursor shows only while the program waits for a key.
KeyPress NextKey(LoopState& state) {
    KeyPress key;
    TEventRecord record;
    if (state.carriedKey != 0) {
        key.code = std::exchange(state.carriedKey, 0);
        record = std::exchange(state.carriedRecord, TEventRecord());
    } else {
        console->SetCursorSize(kInsertionCursorPercent);
        key.code = ReadKey(&record, -1);
        console->SetCursorSize(0);
    }
    key.modifiers = record.modifiers;
    key.unicode = record.unicode;
    key.mouse = record.mouse;
    return key;
}

}  // namespace

void RunMainLoop(LoopState& state) {
    while (!state.leave) {
        DrawPass(state);
        Dispatch(state, NextKey(state));
    }
}

}  // namespace zt
