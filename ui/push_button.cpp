// Buttons: drawing, keys and mouse.
#include "ui/push_button.h"

#include "console/key_codes.h"
#include "ui/dialog.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr int kBracketCells = 4;  // "[ " and " ]"

}  // namespace

PushButton::PushButton(int x_, int y_, int code_, const Westring& label_)
    : DialogElement(x_, y_, true), code(code_), label(label_) {
    accelerator = code;
}

int PushButton::Width() const {
    return label.Length() + kBracketCells;
}

void PushButton::Draw() {
    const bool focused = HasFocus();
    // The default button's brackets stand out, but not those of the one that has the focus.
    char hotKeys[4] = "";
    int n = 0;
    if (QuickKey()) hotKeys[n++] = QuickKey();
    if (!focused && code == dialog->DefaultExit()) {
        hotKeys[n++] = '[';
        hotKeys[n++] = ']';
    }
    const auto colour = focused ? DialogColour::kFocusedButton : DialogColour::kText;
    dialog->PrintHot(x, y, L"[ " + label + L" ]", hotKeys, dialog->DialogAttribute(colour));
}

int PushButton::HandleEvent(const DialogEvent& event) {
    if (event.kind == DialogEventKind::kKey) {
        if (event.code != kKeyEnter && event.code != ' ') return 0;
        Activate();
        return 1;
    }
    if (!Covers(event, Width())) return 0;
    if (event.kind == DialogEventKind::kLeftPress) dialog->SetFocus(index);
    if (event.kind == DialogEventKind::kLeftRelease) Activate();
    return 1;
}

void PushButton::Activate() {
    dialog->SetExitCode(code);
}

ExitKey::ExitKey(int key) : DialogElement(0, 0, false), code(key) {
    accelerator = key;
}

void ExitKey::Activate() {
    dialog->SetExitCode(code);
}

}  // namespace zt
