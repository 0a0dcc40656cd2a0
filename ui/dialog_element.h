// What a dialog is made of: the base of all its elements, and the events they are offered.
// An element is owned by its dialog and is used by the thread that runs it; another thread goes
// through Dialog::SendEvent, which takes the dialog's lock.
#pragma once

#include <cstdint>

#include "console/read_key.h"

namespace zt {

class Dialog;

enum class DialogEventKind : int32_t {
    kKey = 1,  // code: the key code
    kLeftPress = 2,
    kLeftDouble = 3,
    kLeftRelease = 4,
    kLeftMove = 5,  // with the left button down
    kRightPress = 6,
    kRightRelease = 7,
    kWheel = 8,  // code: the signed amount
    // Private to list boxes.
    kCountChanged = 10,  // code: the new count; the list is redrawn
    kRedrawAll = 11,     // all rows are drawn at the next Draw
    kAskRow = 12,        // HandleEvent gives the row of the cursor
    kTimeout = 13,
};

struct DialogEvent {
    DialogEventKind kind = DialogEventKind::kKey;
    int32_t code = 0;
    int32_t x = 0, y = 0;  // client coordinates
    TEventRecord raw;      // as it came from the console
};

enum class ElementType : int32_t {
    kStaticText = 0,
    kStringField = 1,
    kIntegerField = 5,
    kPushButton = 6,
    kRadioButton = 7,
    kCheckBox = 8,
    kCheckBox3S = 9,
    kListBox = 10,
    kColourSelector = 11,
    kExitKey = 12,
    kProgressIndicator = 13,
};

// The console's cursor in a focused element that shows it, in per cent of the cell.
inline constexpr int kFieldCursorSize = 15;

class DialogElement {
public:
    virtual ~DialogElement() = default;
    DialogElement(const DialogElement&) = delete;
    DialogElement& operator=(const DialogElement&) = delete;

    // Not 0: the event was used. (kAskRow: the row.)
    virtual int HandleEvent(const DialogEvent& event);
    virtual void Activate();  // its accelerator or quick key was pressed: takes the focus
    virtual ElementType Type() const = 0;
    virtual void SetFocus(bool focused);  // the focus has come or gone: redraws
    virtual void Draw() {}
    virtual void Commit() {}  // the dialog has ended

    int Index() const { return index; }
    int X() const { return x; }
    int Y() const { return y; }
    void MoveTo(int newX, int newY);  // draws nothing
    bool Selectable() const { return selectable; }
    void SetSelectable(bool value) { selectable = value; }
    int Accelerator() const { return accelerator; }
    void SetAccelerator(int key) { accelerator = key; }

protected:
    DialogElement(int x_, int y_, bool selectable_) : x(x_), y(y_), selectable(selectable_) {}

    bool HasFocus() const;
    char QuickKey() const;  // 0: none
    bool Covers(const DialogEvent& event, int width, int height = 1) const;
    // Puts the console's cursor into the element, and shows it.
    void ShowCursorAt(int cellX, int cellY) const;

    Dialog* dialog = nullptr;
    int32_t index = -1;
    int32_t x, y;
    int32_t groupLeader = 0;   // the first element of its focus group
    int32_t groupCurrent = 0;  // in a leader: the member that Tab enters
    bool selectable;
    int32_t accelerator = 0;  // a key that activates it from anywhere in the dialog
    bool startsGroup = false;

    friend class Dialog;
};

}  // namespace zt
