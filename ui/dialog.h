// A modal box of elements. The function that asks makes a Dialog on its stack, adds the elements
// in order, and calls Run, which returns an exit code. Values go straight into the caller's
// variables, which must outlive the dialog and may change while it runs; on Esc the caller drops
// them (or keeps a copy to put back).
//
//     Dialog dialog(-1, -2, 50, 6, Colour(ColourClass::kMessages));
//     dialog.SetTitle(" Make Directory ");
//     dialog.AddText(2, 0, "Name:");
//     dialog.AddString(2, 1, true, name, 44, -1, kNoHistory);
//     dialog.AddCheck(2, 2, true, followLinks, "_Follow links", true);
//     dialog.AddOkCancel(-1, -1, true);
//     if (dialog.Run() != 27) ...
//
// Coordinates are client cells: 0, 0 is inside the frame. Elements are numbered from 0 in the
// order in which they are added, texts and exit keys included; every Add gives the number, or -1
// when the dialog already holds kMaxElements. Elements draw themselves as they are added.
//
// Keys: the focused element is asked first. What it leaves: Tab and Shift-Tab go from group to
// group, the arrow keys within a group, Enter ends with the default button's code (13 without a
// button), Esc with 27. Then accelerators: an exit key's key, a button's exit code taken as a
// key. Then Alt with a quick key. A right click is Enter; a click outside the dialog is Esc.
//
// A group begins with each element added with startsGroup, and holds all up to the next.
//
// Labels may hold one `_`: the letter behind it becomes the element's quick key.
#pragma once

#include <array>
#include <memory>

#include "foundation/recursive_mutex.h"
#include "foundation/string_lists.h"
#include "ui/dialog_element.h"
#include "ui/field_history.h"
#include "ui/win.h"

namespace zt {

enum class DialogFrame { kDouble, kNone };

enum class DialogColour { kText = 0, kInput = 1, kFocusedButton = 2 };

inline constexpr int kExitEnter = 13;
inline constexpr int kExitEscape = 27;

struct ButtonRow {
    int code;  // what Run gives; also a key that presses the button
    const char* label;
};

class Dialog : public Win {
public:
    static constexpr int kMaxElements = 100;

    // As Win's; `attribute` is that of the text and of the frame. A frame has a shadow.
    Dialog(int x, int y, int rightOrWidth, int bottomOrHeight, Attribute attribute,
           DialogFrame frame = DialogFrame::kDouble);
    ~Dialog() override;

    // Asked before the focus moves; false refuses, and `to` may be changed.
    virtual bool CanLeave(int from, int& to);
    virtual void FocusChanged();

    // --- Building it ---

    void SetTitle(const Westring& title);  // centred on the frame's top line
    void SetColour(DialogColour which, Attribute attribute);

    // x < 0 centres. Attribute 0 is the dialog's. The text is not copied, and is read again at
    // each Redraw; the form with a Westring keeps a copy. Texts never take the focus.
    int AddText(int x, int y, const char* text, Attribute attribute = 0);
    int AddText(int x, int y, const wchar_t* text, Attribute attribute = 0);
    int AddText(int x, int y, const Westring& text, Attribute attribute = 0);

    int AddButton(int x, int y, bool startsGroup, int code, const char* label);
    // A row of buttons; one with code 0 ends it. x < 0: centred; y < 0: that many rows up from
    // the bottom of the client area (-1: its last row). Gives the first button's number.
    int AddButtons(int x, int y, bool startsGroup, const ButtonRow* buttons);
    int AddOkCancel(int x, int y, bool startsGroup);  // codes 13 and 27

    // `width` visible cells (and one more for the arrow of a history); `maxLength` characters at
    // most, below 0: 32767. `history` is a number of field_history.h, or kNoHistory.
    int AddString(int x, int y, bool startsGroup, Westring& value, int width, int maxLength,
                  int history);
    // keepTyped: the digits stay as typed ("007") as long as they mean the same number.
    int AddInteger(int x, int y, bool startsGroup, int& value, int width, bool keepTyped,
                   int history);
    // The box takes three cells; the label stands two cells to its right, or to its left.
    int AddCheck(int x, int y, bool startsGroup, bool& variable, const char* label,
                 bool labelRight);
    int AddCheck3(int x, int y, bool startsGroup, uint8_t& variable, const char* label,
                  bool labelRight);  // 0, 1 or 2
    // The focus sets `variable` to `value`. Put the buttons of one variable into one group.
    int AddRadio(int x, int y, bool startsGroup, int& variable, int value, const char* label);

    // `variable` is the index of the chosen item at all times. Enter and a double click end the
    // dialog with `exitCode`, or when that is 0 with the default button's. exitCode -1: any key
    // that does not move the choice ends it, with that key. The items are not copied.
    int AddList(int x, int y, bool startsGroup, int width, int height, const char* const* items,
                int count, int& variable, int exitCode);
    int AddList(int x, int y, bool startsGroup, int width, int height, EstringStore& items,
                int count, int& variable, int exitCode);
    int AddList(int x, int y, bool startsGroup, int width, int height, WestringStore& items,
                int count, int& variable, int exitCode);
    // A list whose rows are drawn in their own attributes, which F and B change. Needs a free
    // cell on each side.
    int AddColours(int x, int y, bool startsGroup, int width, int height, const char* const* names,
                   Attribute* colours, int count, int& variable, int exitCode);

    // A bar of `width` cells showing *fraction, 0 to 1, as it is at each Redraw.
    int AddProgress(int x, int y, int width, const float* fraction);
    // The key ends the dialog with itself as exit code.
    int AddExitKey(int key);
    // An element of a class of the caller's own.
    int Add(std::unique_ptr<DialogElement> element, bool startsGroup);

    // Letter i belongs to element i, all elements counted; a blank is none.
    void SetQuickKeys(const char* letters, int n);
    void SetQuickKeys(const char* letters);

    // --- Running it ---

    int Run();                         // the exit code
    int Run(int timeoutMilliseconds);  // 0 when so long nothing happened; may be called again
    int ExitCode() const { return exitCode; }
    void SetExitCode(int code) { exitCode = code; }  // not 0 ends Run after this event
    int DefaultExit() const { return defaultExit; }
    void SetDefaultExit(int code) { defaultExit = code; }
    void SetDefaultButton(int elementIndex);  // no button: nothing

    int CurrentElement() const { return current; }
    void SetFocus(int to);
    void Redraw(int elementIndex);  // below 0: all
    void CommitAll();
    // For other threads: the element handles the event under the dialog's lock.
    int SendEvent(int elementIndex, const DialogEvent& event);

    int ElementCount() const { return elementCount; }
    DialogElement* Element(int elementIndex) const;  // null when there is none
    Attribute DialogAttribute(DialogColour which) const;
    char QuickKey(int elementIndex) const;  // 0: none
    // Element `elementIndex` is where Tab enters its group.
    void SetGroupCurrent(int elementIndex);
    // What Enter gives: the default exit code, or `key` without one.
    int EnterCode(int key = kExitEnter) const { return defaultExit ? defaultExit : key; }

private:
    bool WaitEvent(DialogEvent& event, int timeoutMilliseconds);
    void HandleEvent(DialogEvent& event);
    void HandleMouse(const DialogEvent& event);
    void HandleKey(const DialogEvent& event);
    bool HandleFocusKey(int key);
    bool ActivateAccelerator(int key);
    void ActivateQuickKey(const DialogEvent& event);
    void PrepareFocus();
    int NextInGroup(int from, int step) const;
    int NextGroup(int from, int step) const;
    void SetNextQuickKey(char letter);

    int32_t defaultExit = 0;
    int32_t exitCode = 0;
    std::array<std::unique_ptr<DialogElement>, kMaxElements> elements;
    int32_t elementCount = 0;
    int32_t current = 0;
    Attribute colours[3];
    std::array<char, kMaxElements> quickKeys{};
    int32_t quickKeyCount = 0;
    DialogEventKind lastOutside = DialogEventKind::kKey;  // the last mouse event outside
    CRecursiveMutex lock;
};

}  // namespace zt
