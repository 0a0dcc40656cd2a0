// Check boxes: drawing, keys and mouse.
#include "ui/check_box.h"

#include "console/key_codes.h"
#include "console/program_state.h"
#include "ui/dialog.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr int kBoxCells = 3;
constexpr int kLabelGap = 2;
constexpr int kStates = 3;
constexpr wchar_t kMarks[kStates] = {L' ', 0x00B7, L'X'};

}  // namespace

CheckBox::CheckBox(int x_, int y_, bool* variable_, const Westring& label_, bool labelRight_)
    : DialogElement(x_, y_, true), variable(variable_), label(label_), labelRight(labelRight_) {}

int CheckBox::LabelX() const {
    return labelRight ? x + kBoxCells + kLabelGap : x - label.Length() - kLabelGap;
}

bool CheckBox::Hit(const DialogEvent& event) const {
    const int first = labelRight ? x : LabelX();
    const int end = labelRight ? LabelX() + label.Length() : x + kBoxCells;
    return event.y == y && event.x >= first && event.x < end;
}

void CheckBox::Draw() {
    UpdateFreeze freeze;
    const Attribute colour = dialog->DialogAttribute(DialogColour::kText);
    const wchar_t box[] = {L'[', Mark(), L']', 0};
    const char hotKeys[] = {QuickKey(), 0};
    dialog->PrintHot(LabelX(), y, label, hotKeys, colour);
    dialog->Print(x, y, box, colour);
    if (HasFocus()) ShowCursorAt(x + 1, y);
}

void CheckBox::SetFocus(bool focused) {
    if (!focused) console->SetCursorSize(0);
    Draw();
}

void CheckBox::Set(bool value) {
    Change(value);
    Draw();
}

int CheckBox::HandleEvent(const DialogEvent& event) {
    switch (event.kind) {
        case DialogEventKind::kKey:
            if (event.code == ' ') Set(!IsSet());
            if (event.code == kKeyInsert) Set(true);
            if (event.code == kKeyDelete) Set(false);
            return 0;  // the dialog may have a use for the key as well
        case DialogEventKind::kLeftPress:
            if (!Hit(event)) return 0;
            dialog->SetFocus(index);
            return 1;
        case DialogEventKind::kLeftRelease:
            if (!Hit(event)) return 0;
            Set(!IsSet());
            return 1;
        default:
            return Hit(event);
    }
}

void CheckBox::Activate() {
    dialog->SetFocus(index);
    Set(!IsSet());
}

CheckBox3S::CheckBox3S(int x_, int y_, uint8_t* state_, const Westring& label_, bool labelRight_)
    : CheckBox(x_, y_, nullptr, label_, labelRight_), state(state_) {}

void CheckBox3S::Change(bool /*value*/) {
    *state = static_cast<uint8_t>(*state + 1 < kStates ? *state + 1 : 0);
}

wchar_t CheckBox3S::Mark() const {
    return kMarks[*state < kStates ? *state : 0];
}

}  // namespace zt
