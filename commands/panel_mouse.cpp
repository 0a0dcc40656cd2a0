#include "commands/panel_mouse.h"

#include <algorithm>

#include "commands/execute_command.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/panel_drawing.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"
#include "panels/tagging.h"
#include "ui/update_freeze.h"

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
        const int entryColumn = within * 3 / std::max(PanelWidth(panel) - 2, 1);
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

bool IsRight(const KeyPress& key) {
    const auto type = static_cast<MouseType>(key.mouse.type);
    return type == MouseType::kRightPress || type == MouseType::kRightMotion;
}

bool IsPress(const KeyPress& key) {
    const auto type = static_cast<MouseType>(key.mouse.type);
    return type == MouseType::kLeftPress || type == MouseType::kRightPress;
}

// A right press toggles the entry; dragging on gives all entries passed over the same state.
void TagByMouse(LoopState& state, const KeyPress& key) {
    CPanel& panel = state.Active();
    const int index = panel.CurrentIndex();
    if (IsPress(key)) {
        TagEntry(panel, index, TagMode::kToggle);
        state.drag.tag = panel.Current()->tagged ? TagMode::kSet : TagMode::kClear;
        state.drag.index = index;
    } else {
        const int step = index < state.drag.index ? -1 : 1;
        for (int i = state.drag.index; i != index + step; i += step) {
            TagEntry(panel, i, state.drag.tag);
        }
        state.drag.index = index;
    }
    state.drawCursorBar = true;
}

void ClickPanel(LoopState& state, const KeyPress& key) {
    if (!ActivateSide(state, SideAt(state, key.mouse.column))) return;
    CPanel& panel = state.Active();
    if (!panel.IsFiles()) return;
    const int row = RowAt(panel, key.mouse.column, key.mouse.row);
    if (row < 0 || panel.top + row >= panel.Count()) return;
    if (row != panel.cursor) {
        RemoveCursorBar(panel);
        panel.cursor = row;
        panel.searchText.Clear();
        state.drawCursorBar = true;
    }
    if (IsRight(key)) return TagByMouse(state, key);
    if (key.mouse.type == static_cast<int32_t>(MouseType::kLeftDouble)) ExecuteEntry(state, false);
}

// -1 on the top line of the panels, +1 on the lines below the list, else 0.
int ScrollZone(int row) {
    if (row == 0) return -1;
    return row > panelRows && row <= panelRows + 3 ? 1 : 0;
}

// The list moves entry by entry while the button is held on the frame.
void ScrollWhileHeld(LoopState& state, const KeyPress& key) {
    if (!ActivateSide(state, SideAt(state, key.mouse.column))) return;
    CPanel& panel = state.Active();
    if (!panel.IsShowingFiles() || panel.Count() == 0) return;
    const int zone = ScrollZone(key.mouse.row);
    panel.searchText.Clear();
    for (;;) {
        {
            const UpdateFreeze freeze;
            RemoveCursorBar(panel);
            MoveCursor(panel, zone);
            if (IsRight(key)) TagEntry(panel, panel.CurrentIndex(), TagMode::kSet);
            DrawCursorBar(panel);
        }
        TEventRecord record;
        const int32_t code = ReadKey(&record, std::max(settings.scrollDelay, 1));
        const auto type = static_cast<MouseType>(record.mouse.type);
        const bool stillHeld =
            code == kKeyNone || code == kKeyModifiersChanged ||
            (code == kKeyMouse && ScrollZone(record.mouse.row) == zone &&
             (type == MouseType::kLeftMotion || type == MouseType::kRightMotion));
        if (stillHeld) continue;
        if (code != kKeyMouse) {
            state.carriedKey = code;
            state.carriedRecord = record;
        }
        break;
    }
    state.drawCursorBar = true;
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
    if (key.mouse.row == 0 && IsRight(key)) {
        return IsPress(key) || !state.menuCancelled ? kKeyF9 : kKeyNone;
    }
    if (IsPress(key) && ScrollZone(key.mouse.row) != 0) {
        ScrollWhileHeld(state, key);
        return kKeyNone;
    }
    if (key.mouse.row >= 1 && key.mouse.row <= panelRows) ClickPanel(state, key);
    return kKeyNone;
}

}  // namespace zt
