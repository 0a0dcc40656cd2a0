// What all elements of a dialog do unless they say otherwise.
#include "ui/dialog_element.h"

#include "console/program_state.h"
#include "ui/dialog.h"

namespace zt {

int DialogElement::HandleEvent(const DialogEvent& /*event*/) {
    return 0;
}

void DialogElement::Activate() {
    dialog->SetFocus(index);
}

void DialogElement::SetFocus(bool /*focused*/) {
    Draw();
}

void DialogElement::MoveTo(int newX, int newY) {
    x = newX;
    y = newY;
}

bool DialogElement::HasFocus() const {
    return dialog->CurrentElement() == index;
}

char DialogElement::QuickKey() const {
    return dialog->QuickKey(index);
}

bool DialogElement::Covers(const DialogEvent& event, int width, int height) const {
    return event.x >= x && event.x < x + width && event.y >= y && event.y < y + height;
}

void DialogElement::ShowCursorAt(int cellX, int cellY) const {
    console->SetCursor(dialog->OriginX() + cellX, dialog->OriginY() + cellY);
    console->SetCursorSize(kFieldCursorSize);
}

}  // namespace zt
