// Radio buttons: drawing, keys and mouse.
#include "ui/radio_button.h"

#include "console/program_state.h"
#include "ui/dialog.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr wchar_t kSetMark = 0x2022;
constexpr int kLabelOffset = 4;

}  // namespace

RadioButton::RadioButton(int x_, int y_, int32_t* variable_, int value_, const Westring& label_)
    : DialogElement(x_, y_, true), variable(variable_), value(value_), label(label_) {}

void RadioButton::Draw() {
    UpdateFreeze freeze;
    const bool set = *variable == value;
    if (set) dialog->SetGroupCurrent(index);
    const Attribute colour = dialog->DialogAttribute(DialogColour::kText);
    const wchar_t button[] = {L'(', set ? kSetMark : L' ', L')', 0};
    const char hotKeys[] = {QuickKey(), 0};
    dialog->PrintHot(x + kLabelOffset, y, label, hotKeys, colour);
    dialog->Print(x, y, button, colour);
    if (HasFocus()) ShowCursorAt(x + 1, y);
}

void RadioButton::SetFocus(bool focused) {
    if (focused) {
        *variable = value;
    } else {
        console->SetCursorSize(0);
    }
    Draw();
}

// A group of which none is set begins with the focus on a button, where moving sets nothing.
void RadioButton::Choose() {
    if (*variable == value) return;
    *variable = value;
    dialog->Redraw(-1);
}

int RadioButton::HandleEvent(const DialogEvent& event) {
    if (event.kind == DialogEventKind::kKey) {
        if (event.code != ' ') return 0;
        Choose();
        return 1;
    }
    if (!Covers(event, kLabelOffset + label.Length())) return 0;
    if (event.kind == DialogEventKind::kLeftPress) {
        dialog->SetFocus(index);
        if (HasFocus()) Choose();
    }
    return 1;
}

}  // namespace zt
