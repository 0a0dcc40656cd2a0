// Where the focus of a dialog is, and where it goes.
#include "console/key_codes.h"
#include "ui/dialog.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

enum class FocusMove { kNextGroup, kPreviousGroup, kBack, kForward };

struct FocusKey {
    int key;
    FocusMove move;
};

constexpr FocusKey kFocusKeys[] = {
    {kKeyTab, FocusMove::kNextGroup}, {kKeyShiftTab, FocusMove::kPreviousGroup},
    {kKeyUp, FocusMove::kBack},       {kKeyLeft, FocusMove::kBack},
    {kKeyRight, FocusMove::kForward}, {kKeyDown, FocusMove::kForward},
};

}  // namespace

void Dialog::SetFocus(int to) {
    if (!Element(to) || to == current) return;
    if (!CanLeave(current, to)) return;
    DialogElement* entered = Element(to);
    if (!entered || to == current) return;
    UpdateFreeze freeze;
    DialogElement* previous = Element(current);
    DialogElement* leader = Element(entered->groupLeader);
    DialogElement* former = Element(leader->groupCurrent);
    current = to;
    leader->groupCurrent = to;
    entered->SetFocus(true);
    previous->SetFocus(false);
    if (former != previous && former != entered) former->SetFocus(false);
    FocusChanged();
}

// The next selectable element of the group, cyclically; `from` itself when there is no other.
int Dialog::NextInGroup(int from, int step) const {
    int i = from;
    do {
        i = (i + step + elementCount) % elementCount;
        if (Element(i)->selectable && Element(i)->groupLeader == Element(from)->groupLeader) {
            return i;
        }
    } while (i != from);
    return from;
}

// Where the focus enters the next group, cyclically; `from` when there is no other.
int Dialog::NextGroup(int from, int step) const {
    int i = from;
    do {
        i = (i + step + elementCount) % elementCount;
        if (!Element(i)->selectable || Element(i)->groupLeader == Element(from)->groupLeader) {
            continue;
        }
        const int entry = Element(Element(i)->groupLeader)->groupCurrent;
        return Element(entry)->selectable ? entry : NextInGroup(entry, 1);
    } while (i != from);
    return from;
}

// Brings the focus to an element that can have it.
void Dialog::PrepareFocus() {
    SetFocus(Element(Element(current)->groupLeader)->groupCurrent);
    if (!Element(current)->selectable) SetFocus(NextInGroup(current, 1));
    if (!Element(current)->selectable) SetFocus(NextGroup(current, 1));
}

bool Dialog::HandleFocusKey(int key) {
    for (const FocusKey& row : kFocusKeys) {
        if (row.key != key) continue;
        switch (row.move) {
            case FocusMove::kNextGroup:
                SetFocus(NextGroup(current, 1));
                break;
            case FocusMove::kPreviousGroup:
                SetFocus(NextGroup(current, -1));
                break;
            case FocusMove::kBack:
                SetFocus(NextInGroup(current, -1));
                break;
            case FocusMove::kForward:
                SetFocus(NextInGroup(current, 1));
                break;
        }
        return true;
    }
    return false;
}

}  // namespace zt
