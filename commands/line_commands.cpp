#include "commands/line_commands.h"

#include "console/event.h"
#include "console/program_state.h"
#include "panels/cursor_movement.h"

namespace zt {

namespace {

void AfterEdit(LoopState& state) {
    state.drawLine = kDrawCommandLine;
}

void ShiftNameBy(LoopState& state, int delta) {
    ShiftName(state.Active(), delta);
    state.drawCursorBar = true;
}

void InsertPath(LoopState& state, int side) {
    Westring path = state.panels.panel[side].path;
    path.AddTrailingSlash();
    state.line.Insert(path);
    AfterEdit(state);
}

// The line is one line: what would end it or move the screen becomes a blank, and the last line
// ends are dropped.
Westring AsOneLine(const Westring& text) {
    Westring result = text;
    while (!result.IsEmpty() &&
           (result[result.Length() - 1] == L'\n' || result[result.Length() - 1] == L'\r')) {
        result = result.DropRight(1);
    }
    for (int i = 0; i < result.Length(); i++) {
        if (result[i] < L' ') result.SetAt(i, L' ');
    }
    return result;
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

void CopyLine(LoopState& state, const KeyPress&) {
    console->SetClipboardText(state.line.Text());
}

void PasteLine(LoopState& state, const KeyPress&) {
    Westring text;
    if (!console->GetClipboardText(text)) return;
    text = AsOneLine(text);
    if (state.line.Text().Length() + text.Length() >= CommandLine::kMaxLength) return;
    state.line.Insert(text);
    AfterEdit(state);
}

void InsertRightPath(LoopState& state, const KeyPress&) {
    InsertPath(state, 1);
}

void Escape(LoopState& state, const KeyPress& key) {
    if (key.modifiers & kModifierCtrl) return InsertPath(state, 0);
    state.line.Clear();
    state.Active().searchText.Clear();
    AfterEdit(state);
}

void DropSearchCharacter(LoopState& state, const KeyPress&) {
    Westring& text = state.Active().searchText;
    text = text.DropRight(1);
    state.drawCursorBar = true;
}

}  // namespace zt
