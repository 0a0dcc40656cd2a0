#include "commands/line_commands.h"

#include "commands/name_commands.h"
#include "commands/view_commands.h"
#include "console/event.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "ui/clipboard_line.h"

namespace zt {

namespace {

constexpr int32_t kCtrlBracket = 0x9001A;  // where the keyboard tells it from Esc

void AfterEdit(LoopState& state) {
    state.drawLine = kDrawCommandLine;
}

void ShiftNameBy(LoopState& state, int delta) {
    ShiftName(state.Active(), delta);
    state.drawCursorBar = true;
}

}  // namespace

void LineDelete(LoopState& state, const KeyPress&) {
    state.line.DeleteForward();
    AfterEdit(state);
}

void LineBackspace(LoopState& state, const KeyPress&) {
    state.line.DeleteBackward();
    AfterEdit(state);
}

void LineHome(LoopState& state, const KeyPress&) {
    state.line.MoveTo(0);
    AfterEdit(state);
}

void LineEnd(LoopState& state, const KeyPress&) {
    state.line.MoveTo(state.line.Text().Length());
    AfterEdit(state);
}

void LineLeftOrShiftName(LoopState& state, const KeyPress&) {
    if (state.line.IsEmpty()) return ShiftNameBy(state, -1);
    state.line.MoveTo(state.line.Position() - 1);
    AfterEdit(state);
}

void LineRightOrShiftName(LoopState& state, const KeyPress&) {
    if (state.line.IsEmpty()) return ShiftNameBy(state, 1);
    state.line.MoveTo(state.line.Position() + 1);
    AfterEdit(state);
}

void LineWordLeft(LoopState& state, const KeyPress&) {
    state.line.MoveWordLeft();
    AfterEdit(state);
}

void LineWordRight(LoopState& state, const KeyPress&) {
    state.line.MoveWordRight();
    AfterEdit(state);
}

void LineDeleteWordLeft(LoopState& state, const KeyPress&) {
    state.line.DeleteWordBackward();
    AfterEdit(state);
}

void LineDeleteWordRight(LoopState& state, const KeyPress&) {
    state.line.DeleteWordForward();
    AfterEdit(state);
}

void RecallOlder(LoopState& state, const KeyPress&) {
    state.history.RecallOlder(state.line);
    AfterEdit(state);
}

void RecallNewer(LoopState& state, const KeyPress&) {
    state.history.RecallNewer(state.line);
    AfterEdit(state);
}

void CopyLine(LoopState& state, const KeyPress&) {
    console->SetClipboardText(state.line.Text());
}

void PasteLine(LoopState& state, const KeyPress&) {
    const Westring text = ClipboardLine();
    if (state.line.Text().Length() + text.Length() >= CommandLine::kMaxLength) return;
    state.line.Insert(text);
    AfterEdit(state);
}

void Escape(LoopState& state, const KeyPress& key) {
    if (key.modifiers & kModifierCtrl || key.code == kCtrlBracket) {
        return InsertLeftPath(state, key);
    }
    state.Active().searchText.Clear();
    if (state.line.IsEmpty() && settings.escPanelSwitch) return TogglePanels(state, key);
    state.line.Clear();
    AfterEdit(state);
}

void DropSearchCharacter(LoopState& state, const KeyPress&) {
    Westring& text = state.Active().searchText;
    text = text.DropRight(1);
    state.drawCursorBar = true;
}

}  // namespace zt
