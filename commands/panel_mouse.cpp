#include "commands/panel_mouse.h"

#include "commands/directory_commands.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "panels/cursor_movement.h"
#include "panels/panel_drawing.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"

namespace zt {

namespace {

constexpr int kWheelSteps = 3;

int SideAt(const LoopState& state, int column) {
    for (int side = 0; side < 2; side++) {
        const CPanel& panel = state.panels.panel[side];
        if (panel.showing && panel.width == kWidthFull) return side;
    }
    return column >= screenColumns / 2 ? 1 : 0;
}

// The row of the page at a screen position inside the panel; may lie past the end of the list.
int RowAt(const CPanel& panel, int column, int row) {
    const int within = column - panel.window->Left();
    const int entryRow = row - 1;
    if (panel.style == kStyleBrief) {
        const int entryColumn = within * 3 / (PanelWidth(panel) - 2);
        return entryRow + (entryColumn > 2 ? 2 : entryColumn) * panelRows;
    }
    if (panel.style == kStyleBriefWide && within >= PanelWidth(panel) / 2) {
        return entryRow + panelRows;
    }
    return entryRow;
}

// False when the panel at the pointer cannot take the click.
bool ActivateSide(LoopState& state, int side) {
    if (!state.panels.panel[side].showing) return false;
    if (side == state.panels.active) return true;
    RemoveCursorBar(state.Active());
    state.panels.active = side;
    Activate(state.panels, side);
    state.drawCursorBar = true;
    state.drawLine = kDrawCommandLine;
    return true;
}

void ClickPanel(LoopState& state, const KeyPress& key) {
    if (!ActivateSide(state, SideAt(state, key.mouse.column))) return;
    CPanel& panel = state.Active();
    if (!panel.IsFiles()) return;
    const int row = RowAt(panel, key.mouse.column, key.mouse.row);
    if (panel.top + row >= panel.Count()) return;
    if (row != panel.cursor) {
        RemoveCursorBar(panel);
        panel.cursor = row;
        panel.searchText.Clear();
        state.drawCursorBar = true;
    }
    if (key.mouse.type == static_cast<int32_t>(MouseType::kLeftDouble)) EnterCurrent(state, key);
}

void TurnWheel(LoopState& state, int wheel) {
    CPanel& panel = state.Active();
    if (!panel.IsShowingFiles()) return;
    RemoveCursorBar(panel);
    for (int i = 0; i < kWheelSteps; i++)
        MoveCursor(panel, -wheel);
    state.drawCursorBar = true;
}

// A function key acts at the release, and only where it was pressed.
int32_t ClickBar(LoopState& state, const KeyPress& key, bool press) {
    const int32_t code = state.functionKeys->KeyForClick(key.mouse);
    if (press) {
        state.pressedFunctionKey = code;
        return kKeyNone;
    }
    return code == state.pressedFunctionKey ? code : kKeyNone;
}

}  // namespace

int32_t HandleMouse(LoopState& state, const KeyPress& key) {
    const auto type = static_cast<MouseType>(key.mouse.type);
    const bool onBar = key.mouse.row == screenLines - 1;
    switch (type) {
        case MouseType::kWheel:
            TurnWheel(state, key.mouse.wheel);
            return kKeyNone;
        case MouseType::kLeftRelease:
        case MouseType::kRightRelease: {
            const int32_t code = onBar ? ClickBar(state, key, false) : kKeyNone;
            state.pressedFunctionKey = kKeyNone;
            return code;
        }
        case MouseType::kLeftPress:
        case MouseType::kRightPress:
            if (onBar) return ClickBar(state, key, true);
            break;
        default:
            break;
    }
    if (key.mouse.row >= 1 && key.mouse.row <= panelRows) ClickPanel(state, key);
    return kKeyNone;
}

}  // namespace zt
