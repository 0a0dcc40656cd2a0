// Input fields: what each key and the mouse do.
#include <algorithm>

#include "console/key_codes.h"
#include "console/program_state.h"
#include "ui/clipboard_line.h"
#include "ui/dialog.h"
#include "ui/field_history.h"
#include "ui/string_field.h"
#include "ui/word_characters.h"
#include "ui/word_movement.h"

namespace zt {

namespace {

constexpr int kCtrlC = 3, kCtrlQ = 17, kCtrlV = 22, kCtrlW = 23, kCtrlX = 24;
constexpr int kShiftBit = 0x20000;

// The grey keys are taken as what is printed on them.
int PlainKey(int key) {
    const bool grey = key == kKeyGreyPlus || key == kKeyGreyMinus || key == kKeyGreyMultiply;
    return grey ? key & 0xFF : key;
}

// The character that a key stands for when it is to be taken literally; 0 when it is none.
wchar_t LiteralCharacter(int key) {
    if (key == kKeyCtrlI) return L'\t';
    if (key == kKeyCtrlM) return L'\r';
    return key > 0 && key <= 0xFFFF ? static_cast<wchar_t>(key) : 0;
}

// Text from the input method comes with its own value as the event's character; that parts the
// characters above 65535 from the codes of keys.
bool IsCharacter(const DialogEvent& event, int key) {
    return key >= 32 && (key <= 0xFFFF || key == event.raw.unicode);
}

}  // namespace

int StringField::HandleEvent(const DialogEvent& event) {
    switch (event.kind) {
        case DialogEventKind::kKey:
            return HandleKey(event);
        case DialogEventKind::kLeftPress:
        case DialogEventKind::kLeftDouble:
        case DialogEventKind::kLeftRelease:
        case DialogEventKind::kLeftMove:
            return HandleMouse(event);
        default:
            return 0;
    }
}

int StringField::HandleKey(const DialogEvent& event) {
    const int key = PlainKey(event.code);
    const bool untouched = pristine;
    pristine = false;
    const int oldCursor = cursor;
    const Westring oldText = *value;
    bool used;
    if (literalNext) {
        literalNext = false;
        const wchar_t character = LiteralCharacter(key);
        if (character) InsertTyped(character, untouched);
        used = true;
        ClearSelection();
    } else if (HandleMoveKey(key)) {
        used = true;
        if (key & kShiftBit) {
            ExtendSelection(oldCursor);
        } else {
            ClearSelection();
        }
    } else {
        used = HandleCommand(key, untouched);
        if (!used && IsCharacter(event, key)) {
            used = InsertTyped(static_cast<wchar_t>(key), untouched);
        }
        const bool copies = key == kCtrlW || key == kCtrlC || key == kKeyCtrlInsert;
        const bool movesNothing = !used && (key & kShiftBit) != 0;
        if (!copies && !movesNothing) ClearSelection();
    }
    if (used && wcscmp(oldText.c_str(), value->c_str()) != 0) TextChanged();
    Draw();
    return used;
}

bool StringField::HandleMoveKey(int key) {
    switch (key) {
        case kKeyCtrlLeft:
        case kKeyCtrlShiftLeft:
            cursor = WordLeft(*value, cursor);
            return true;
        case kKeyCtrlRight:
        case kKeyCtrlShiftRight:
            cursor = WordRight(*value, cursor);
            return true;
        case kKeyHome:
        case kKeyShiftHome:
            cursor = 0;
            return true;
        case kKeyEnd:
        case kKeyShiftEnd:
            cursor = value->Length();
            return true;
        case kKeyLeft:
        case kKeyShiftLeft:
            cursor = std::max(cursor - 1, 0);
            return true;
        case kKeyRight:
        case kKeyShiftRight:
            cursor = std::min(cursor + 1, value->Length());
            return true;
        default:
            return false;
    }
}

bool StringField::HandleCommand(int key, bool untouched) {
    if (HandleClipboardKey(key, untouched) || HandleDeleteKey(key)) return true;
    if (key == kCtrlQ) {
        literalNext = true;
        return true;
    }
    if (key == kKeyAltDown && history != kNoHistory) {
        OpenHistory();
        return true;
    }
    return false;
}

bool StringField::HandleClipboardKey(int key, bool untouched) {
    switch (key) {
        case kCtrlC:
        case kKeyCtrlInsert:
            CopySelection();
            return true;
        case kCtrlX:
        case kKeyShiftDelete:
            CopySelection();
            DeleteSelection();
            return true;
        case kCtrlV:
        case kKeyShiftInsert: {
            const Westring text = ClipboardLine();
            if (!text.IsEmpty()) InsertText(text, untouched);
            return true;
        }
        case kCtrlW:
            SelectWord();
            CopySelection();
            return true;
        default:
            return false;
    }
}

bool StringField::HandleDeleteKey(int key) {
    switch (key) {
        case kKeyCtrlBackspace:
            DeleteRange(WordLeft(*value, cursor), cursor);
            return true;
        case kKeyCtrlDelete: {
            const int from = cursor;
            DeleteRange(from, WordRight(*value, from));
            return true;
        }
        case kKeyDelete:
            if (!DeleteSelection() && cursor < value->Length()) DeleteRange(cursor, cursor + 1);
            return true;
        case kKeyBackspace:
            if (!DeleteSelection() && cursor > 0) DeleteRange(cursor - 1, cursor);
            return true;
        default:
            return false;
    }
}

void StringField::CopySelection() const {
    if (hasSelection) console->SetClipboardText(SelectedText());
}

// The word at the cursor, or the one that ends there.
void StringField::SelectWord() {
    int from = cursor, to = cursor;
    while (to < value->Length() && IsFieldWordChar((*value)[to]))
        ++to;
    while (from > 0 && IsFieldWordChar((*value)[from - 1]))
        --from;
    selectionStart = from;
    selectionEnd = to;
    selectionAtStart = false;
    hasSelection = from < to;
    if (hasSelection) cursor = to;
}

int StringField::HandleMouse(const DialogEvent& event) {
    const bool press = event.kind == DialogEventKind::kLeftPress;
    if (event.kind == DialogEventKind::kLeftRelease) dragging = false;
    if (history != kNoHistory && event.y == y && event.x == x + width) {
        if (!press) return 1;
        dialog->SetFocus(index);
        if (HasFocus()) OpenHistory();
        return 1;
    }
    if (!Covers(event, width)) {
        if (press && (hasSelection || pristine)) {
            pristine = false;
            ClearSelection();
            Draw();
        }
        return 0;
    }
    const int under = std::min(scroll + event.x - x, value->Length());
    if (press) {
        pristine = false;
        literalNext = false;
        dialog->SetFocus(index);
        ClearSelection();
        cursor = under;
        dragging = HasFocus();
        Draw();
    } else if (event.kind == DialogEventKind::kLeftMove && dragging) {
        const int oldCursor = cursor;
        cursor = under;
        ExtendSelection(oldCursor);
        Draw();
    }
    return 1;
}

// The texts of before in a list under the field; the chosen one goes into it.
void StringField::OpenHistory() {
    WestringStore& entries = FieldHistory(history);
    if (entries.Count() == 0) return;
    constexpr int kRows = 6;
    constexpr int kFrame = 2;
    int longest = width;
    for (int i = 0; i < entries.Count(); ++i) {
        longest = std::max(longest, entries.Peek(i)->Length());
    }
    int columns, rows;
    console->GetSize(columns, rows);
    const int left = std::max(dialog->OriginX() + x - 1, 0);
    const int right = std::min(left + longest + 1, columns - 1);
    const int fieldRow = dialog->OriginY() + y;
    int top = fieldRow + 1;
    // Where the screen ends too soon the list stands over the field instead.
    if (top + kRows + kFrame > rows && fieldRow >= kRows + kFrame) top = fieldRow - kRows - kFrame;
    int32_t chosen = entries.Count() - 1;
    Westring text;
    {
        Dialog list(left, top, right, top + kRows + kFrame - 1,
                    dialog->DialogAttribute(DialogColour::kInput));
        list.AddList(0, 0, true, right - left - 1, kRows, entries, entries.Count(), chosen, 0);
        if (list.Run() != kExitEnter || !entries.Peek(chosen)) return;
        text = *entries.Peek(chosen);
    }
    if (text.Length() > maxLength) text = text.Left(maxLength);
    *value = text;
    cursor = value->Length();
    ClearSelection();
    pristine = false;
    TextChanged();
    Draw();
}

}  // namespace zt
