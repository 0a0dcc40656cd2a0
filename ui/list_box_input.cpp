// Lists: keys and mouse.
#include <algorithm>
#include <chrono>
#include <thread>

#include "console/key_codes.h"
#include "foundation/settings.h"
#include "ui/dialog.h"
#include "ui/list_box.h"

namespace zt {

int ListBoxBase::HandleEvent(const DialogEvent& event) {
    switch (event.kind) {
        case DialogEventKind::kKey:
            return HandleKey(event);
        case DialogEventKind::kLeftPress:
        case DialogEventKind::kLeftDouble:
        case DialogEventKind::kLeftRelease:
        case DialogEventKind::kLeftMove:
            return HandleMouse(event);
        case DialogEventKind::kCountChanged:
            SetCount(std::max(event.code, 0));
            return 1;
        case DialogEventKind::kRedrawAll:
            lastTop = -1;
            return 1;
        case DialogEventKind::kAskRow:
            return row;
        default:
            return 0;
    }
}

int ListBoxBase::HandleKey(const DialogEvent& event) {
    const int key = event.code;
    if (HandleOwnKey(key) || HandleMoveKey(key)) {
        ClearSearch();
        return 1;
    }
    if (key == kKeyEnter) {
        ClearSearch();
        End(dialog->EnterCode(key));
        return 1;
    }
    if (exitCode == -1) {
        dialog->SetExitCode(key);
        return 1;
    }
    const bool isCharacter = key >= 32 && key <= 0xFFFF && key != kKeyCtrlBackspace;
    return isCharacter && Search(static_cast<wchar_t>(key));
}

bool ListBoxBase::HandleMoveKey(int key) {
    const int last = LastItem();
    switch (key) {
        case kKeyUp:
            if (row > 0) {
                --row;
            } else if (top > 0) {
                --top;
            }
            break;
        case kKeyDown:
            if (top + row < last) ++(row < height - 1 ? row : top);
            break;
        case kKeyPageUp:
            if (top >= height) {
                top -= height;
            } else {
                top = row = 0;
            }
            break;
        case kKeyPageDown:
            if (top + height < count) {
                top += height;
            } else {
                row = last - top;
            }
            row = std::min(row, last - top);
            break;
        case kKeyHome:
            top = row = 0;
            break;
        case kKeyEnd:
            top = std::max(last - height + 1, 0);
            row = last - top;
            break;
        default:
            return false;
    }
    Choose();
    return true;
}

int ListBoxBase::HandleMouse(const DialogEvent& event) {
    const bool inColumns = event.x >= x && event.x < x + width;
    if (!inColumns || event.y < y - 1 || event.y > y + height) return 0;
    if (!Covers(event, width, height)) {
        if (event.kind == DialogEventKind::kLeftPress) dialog->SetFocus(index);
        const bool held =
            event.kind == DialogEventKind::kLeftPress || event.kind == DialogEventKind::kLeftMove;
        if (!held || !HasFocus()) return 0;
        ClearSearch();
        ScrollWhileHeld(event.y < y ? -1 : 1);
        return 1;
    }
    dialog->SetFocus(index);
    ClearSearch();
    row = std::clamp(event.y - y, 0, std::max(LastItem() - top, 0));
    Choose();
    const bool ends = event.kind == DialogEventKind::kLeftDouble ||
                      (event.kind == DialogEventKind::kLeftRelease && exitCode == -1);
    if (ends) End(dialog->EnterCode());
    return 1;
}

// The button is held on the row before the first or behind the last: the list runs past, one item
// a step, until there is other input or it has come to its end.
void ListBoxBase::ScrollWhileHeld(int step) {
    row = step < 0 ? 0 : std::min(height - 1, LastItem() - top);
    Choose();
    while (!KeyWaiting()) {
        if (step < 0 ? top == 0 : top + height >= count) break;
        top += step;
        Choose();
        if (settings.scrollDelay > 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(settings.scrollDelay));
        }
    }
}

}  // namespace zt
