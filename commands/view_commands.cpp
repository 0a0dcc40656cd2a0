#include "commands/view_commands.h"

#include "panels/entry_sorting.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"

namespace zt {

namespace {

void SortSide(LoopState& state, int side, int sort) {
    CPanel& panel = state.panels.panel[side];
    SetSort(panel, sort);
    panel.needPaint = true;
    state.drawCursorBar = true;
}

struct StyleCode {
    int32_t code;  // of the left panel; the right panel's is one more
    int style;
};

constexpr StyleCode kStyleCodes[] = {
    {0x10000D, kStyleBrief},     {0x10000F, kStyleFull}, {0x100014, kStyleWide},
    {0x100018, kStyleBriefWide}, {0x10001A, kStyleUnix},
};

constexpr int32_t kFirstSortLeft = 0x100001;
constexpr int32_t kReverseLeft = 0x100006;
constexpr int32_t kFirstSortRight = 0x100007;
constexpr int32_t kFirstStyleKey = 0x30068;

void ToggleSide(LoopState& state, int side) {
    TogglePanel(state.panels, side);
    state.DrawAll();
}

void ToggleWidth(LoopState& state, int side) {
    TogglePanelWidth(state.panels, side);
    state.DrawAll();
}

}  // namespace

void ReverseSide(LoopState& state, int side) {
    SortSide(state, side, ReversedSort(state.panels.panel[side].sort));
}

void SortByMenu(LoopState& state, const KeyPress& key) {
    const bool right = key.code >= kFirstSortRight;
    SortSide(state, right ? 1 : 0, key.code - (right ? kFirstSortRight : kFirstSortLeft));
}

void ReverseByMenu(LoopState& state, const KeyPress& key) {
    ReverseSide(state, key.code == kReverseLeft ? 0 : 1);
}

void StyleByMenu(LoopState& state, const KeyPress& key) {
    for (const StyleCode& row : kStyleCodes) {
        const int side = key.code - row.code;
        if (side == 0 || side == 1) SetStyle(state.panels.panel[side], row.style, side);
    }
    state.DrawAll();
}

void SetActiveStyle(LoopState& state, const KeyPress& key) {
    SetStyle(state.Active(), key.code - kFirstStyleKey, state.panels.active);
    state.DrawAll();
}

void SwitchPanelKey(LoopState& state, const KeyPress&) {
    if (SwitchPanel(state.panels)) state.DrawAll();
}

void Swap(LoopState& state, const KeyPress&) {
    state.panels.active = 1 - state.panels.active;
    SwapPanels(state.panels);
    state.DrawAll();
}

void TogglePanels(LoopState& state, const KeyPress&) {
    PanelsOnOff(state.panels);
    state.DrawAll();
}

void ToggleOtherPanel(LoopState& state, const KeyPress&) {
    ToggleSide(state, 1 - state.panels.active);
}

void ToggleLeftPanel(LoopState& state, const KeyPress&) {
    ToggleSide(state, 0);
}
void ToggleRightPanel(LoopState& state, const KeyPress&) {
    ToggleSide(state, 1);
}
void ToggleLeftWidth(LoopState& state, const KeyPress&) {
    ToggleWidth(state, 0);
}
void ToggleRightWidth(LoopState& state, const KeyPress&) {
    ToggleWidth(state, 1);
}

}  // namespace zt
