// Input fields: drawing, scrolling, the selection, and what becomes of the text.
#include "ui/string_field.h"

#include <algorithm>

#include "console/program_state.h"
#include "ui/dialog.h"
#include "ui/field_history.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr const wchar_t* kHistoryArrow = L"\u2193";

Attribute SwapNibbles(Attribute attribute) {
    return static_cast<Attribute>((attribute << 4) | (attribute >> 4));
}

}  // namespace

StringField::StringField(int x_, int y_, Westring* value_, int width_, int maxLength_, int history_)
    : DialogElement(x_, y_, true),
      value(value_),
      width(width_),
      maxLength(maxLength_ < 0 ? kMaxLength : maxLength_),
      history(history_) {
    cursor = kMaxLength;  // the end of the text, once it is drawn
}

StringField::~StringField() {
    if (!dialog || history == kNoHistory) return;
    const int exitCode = dialog->ExitCode();
    const bool accepted = exitCode != 0 && exitCode != kExitEscape;
    if (accepted && !lastText.IsEmpty()) RememberFieldText(lastText, history);
}

void StringField::SetFocus(bool focused) {
    if (!focused) {
        console->SetCursorSize(0);
        dragging = false;
    }
    Draw();
}

void StringField::ScrollToCursor() {
    const int length = value->Length();
    cursor = std::clamp(cursor, 0, length);
    scroll = std::clamp(scroll, 0, cursor);
    const bool pastRight = cursor - scroll > CursorRoom();
    const bool atLeft = cursor == scroll && cursor < length;
    if (pastRight || atLeft) scroll = std::max(cursor - CursorRoom(), 0);
}

void StringField::DrawText() const {
    const Attribute colour = dialog->DialogAttribute(DialogColour::kInput);
    Westring shown;
    if (scroll < value->Length()) shown = value->Mid(scroll, width);
    shown = shown.PadRight(width);
    dialog->Print(x, y, shown, colour);
    if (!hasSelection || !HasFocus()) return;
    const int first = std::max(selectionStart - scroll, 0);
    const int end = std::min(selectionEnd - scroll, width);
    if (first < end) {
        console->SetAttributes(dialog->OriginX() + x + first, dialog->OriginY() + y, end - first,
                               SwapNibbles(colour));
    }
}

void StringField::Draw() {
    UpdateFreeze freeze;
    selectionEnd = std::min(selectionEnd, value->Length());
    if (selectionStart >= selectionEnd) hasSelection = false;
    ScrollToCursor();
    DrawText();
    if (history != kNoHistory) {
        dialog->Print(x + width, y, kHistoryArrow, dialog->DialogAttribute(DialogColour::kText));
    }
    if (HasFocus()) ShowCursorAt(x + cursor - scroll, y);
    lastText = *value;
}

Westring StringField::SelectedText() const {
    if (!hasSelection) return Westring();
    return value->Mid(selectionStart, selectionEnd - selectionStart);
}

void StringField::DeleteRange(int from, int to) {
    *value = value->Left(from) + value->Right(value->Length() - to);
    cursor = from;
    ClearSelection();
}

bool StringField::DeleteSelection() {
    if (!hasSelection) return false;
    DeleteRange(selectionStart, selectionEnd);
    return true;
}

// The cursor has moved away from `oldCursor` with Shift or the mouse button held.
void StringField::ExtendSelection(int oldCursor) {
    if (!hasSelection) {
        selectionStart = selectionEnd = oldCursor;
        selectionAtStart = cursor < oldCursor;
    }
    const int anchor = selectionAtStart ? selectionEnd : selectionStart;
    selectionAtStart = cursor < anchor;
    selectionStart = std::min(anchor, cursor);
    selectionEnd = std::max(anchor, cursor);
    hasSelection = selectionStart != selectionEnd;
}

bool StringField::InsertTyped(wchar_t character, bool untouched) {
    if (!Accepts(character)) return false;
    Westring text;
    text += character;
    InsertText(text, untouched);
    return true;
}

// Takes the place of the whole text when nothing has touched it, of the selection when there is
// one. False when the result would be too long; then nothing has changed.
bool StringField::InsertText(const Westring& text, bool untouched) {
    const int replaced = untouched      ? value->Length()
                         : hasSelection ? selectionEnd - selectionStart
                                        : 0;
    if (value->Length() - replaced + text.Length() > maxLength) return false;
    if (untouched) {
        DeleteRange(0, value->Length());
    } else {
        DeleteSelection();
    }
    *value = value->Left(cursor) + text + value->Right(value->Length() - cursor);
    cursor += text.Length();
    return true;
}

}  // namespace zt
