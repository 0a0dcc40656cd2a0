#include "commands/movement_commands.h"

#include "commands/line_commands.h"
#include "panels/cursor_movement.h"
#include "panels/tagging.h"

namespace zt {

namespace {

// A cursor key ends the search also where it moves within the command line.
void EndSearch(LoopState& state) {
    Westring& text = state.Active().searchText;
    if (text.IsEmpty()) return;
    text.Clear();
    state.drawCursorBar = true;
}

}  // namespace

void UpKey(LoopState& state, const KeyPress& key) {
    if (state.bothPanelsOff) return RecallOlder(state, key);
    state.Active().searchText.Clear();
    MoveCursor(state.Active(), -1);
}

void DownKey(LoopState& state, const KeyPress& key) {
    if (state.bothPanelsOff) return RecallNewer(state, key);
    state.Active().searchText.Clear();
    MoveCursor(state.Active(), 1);
}

void PageUpKey(LoopState& state, const KeyPress&) {
    PageUp(state.Active());
}

void PageDownKey(LoopState& state, const KeyPress&) {
    PageDown(state.Active());
}

void LeftKey(LoopState& state, const KeyPress& key) {
    if (HasColumnKeys(state.Active())) return ColumnLeft(state.Active());
    EndSearch(state);
    LineLeftOrShiftName(state, key);
}

void RightKey(LoopState& state, const KeyPress& key) {
    if (HasColumnKeys(state.Active())) return ColumnRight(state.Active());
    EndSearch(state);
    LineRightOrShiftName(state, key);
}

void HomeKey(LoopState& state, const KeyPress& key) {
    if (state.bothPanelsOff) return LineHome(state, key);
    FirstEntry(state.Active());
}

void EndKey(LoopState& state, const KeyPress& key) {
    if (state.bothPanelsOff) return LineEnd(state, key);
    LastEntry(state.Active());
}

void TagKey(LoopState& state, const KeyPress&) {
    CPanel& panel = state.Active();
    TagEntry(panel, panel.CurrentIndex(), TagMode::kToggle);
    panel.searchText.Clear();
    MoveCursor(panel, 1);
}

}  // namespace zt
