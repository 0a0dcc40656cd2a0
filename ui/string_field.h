// A line of text to type into, with selection, clipboard and a history to choose from.
// Owned by its dialog. What is typed goes into the caller's string at once.
#pragma once

#include "foundation/westring.h"
#include "ui/dialog_element.h"

namespace zt {

class StringField : public DialogElement {
public:
    static constexpr int kMaxLength = 32767;

    // maxLength below 0: kMaxLength. `history` as in field_history.h, or kNoHistory.
    StringField(int x, int y, Westring* value, int width, int maxLength, int history);
    // Adds the text to its history when the dialog was accepted.
    ~StringField() override;

    int HandleEvent(const DialogEvent& event) override;
    ElementType Type() const override { return ElementType::kStringField; }
    void SetFocus(bool focused) override;
    void Draw() override;

    bool HasSelection() const { return hasSelection; }
    int SelectionStart() const { return selectionStart; }
    int SelectionEnd() const { return selectionEnd; }
    int Cursor() const { return cursor; }
    // The selected part, or nothing.
    Westring SelectedText() const;

protected:
    // Whether a typed character may go in.
    virtual bool Accepts(wchar_t /*character*/) const { return true; }
    // How many cells right of the first visible character the cursor may stand.
    virtual int CursorRoom() const { return width - 1; }
    // The text has been changed by a key or the mouse.
    virtual void TextChanged() {}
    // What is typed next takes the place of the whole text.
    void BeginAnew() {
        cursor = kMaxLength;
        pristine = true;
    }

    Westring* value;
    int32_t width;

private:
    int HandleKey(const DialogEvent& event);
    bool HandleCommand(int key, bool untouched);
    bool HandleClipboardKey(int key, bool untouched);
    bool HandleDeleteKey(int key);
    bool HandleMoveKey(int key);
    int HandleMouse(const DialogEvent& event);
    bool InsertTyped(wchar_t character, bool untouched);
    bool InsertText(const Westring& text, bool untouched);
    void DeleteRange(int from, int to);
    bool DeleteSelection();
    void ExtendSelection(int oldCursor);
    void ClearSelection() { hasSelection = false; }
    void SelectWord();
    void CopySelection() const;
    void ScrollToCursor();
    void DrawText() const;
    void OpenHistory();

    int32_t maxLength;
    int32_t cursor = 0;
    int32_t scroll = 0;        // the first visible character
    bool literalNext = false;  // the next key is a character, whatever it is
    bool pristine = true;      // nothing has touched it: the first character replaces all
    int32_t selectionStart = 0, selectionEnd = 0;
    bool hasSelection = false;
    bool selectionAtStart = false;  // the cursor is at the start of the selection
    bool dragging = false;          // the mouse button went down in the field
    int32_t history;
    Westring lastText;  // as last drawn
};

}  // namespace zt
