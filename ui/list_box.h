// Lists in dialogs, of which one item is chosen. The base does everything but knowing its items.
// Owned by their dialog; another thread tells one of changed items through Dialog::SendEvent.
#pragma once

#include <memory>

#include "foundation/string_lists.h"
#include "foundation/westring.h"
#include "ui/dialog_element.h"
#include "ui/win.h"

namespace zt {

class ListBoxBase : public DialogElement {
public:
    ListBoxBase(int x, int y, int width, int height, int count, int32_t* variable, int exitCode);
    ~ListBoxBase() override;

    int HandleEvent(const DialogEvent& event) override;
    ElementType Type() const override { return ElementType::kListBox; }
    void SetFocus(bool focused) override;
    void Draw() override;
    // One row of the window; an index of -1 or past the end is a blank row.
    virtual void DrawRow(int windowRow, int itemIndex, Attribute attribute);
    virtual Westring ItemText(int itemIndex);

    int Count() const { return count; }
    int Chosen() const { return top + row; }

protected:
    // Keys that a derived list takes before the others; true: used.
    virtual bool HandleOwnKey(int /*key*/) { return false; }
    void DrawAll();  // every row, at once
    int Width() const { return width; }

private:
    int HandleKey(const DialogEvent& event);
    bool HandleMoveKey(int key);
    int HandleMouse(const DialogEvent& event);
    void ScrollWhileHeld(int step);
    void SetCount(int newCount);
    void FollowVariable();
    void PlaceCursor();
    void Choose();  // stores the choice and draws it
    void End(int key);
    int LastItem() const { return count > 0 ? count - 1 : 0; }
    // Incremental search.
    bool Search(wchar_t character);
    int FindItem(const Westring& text);
    void ClearSearch();
    void ShowSearchText();

    int32_t width, height;
    int32_t count;
    int32_t top = 0;
    int32_t row = 0;
    int32_t lastTop = -1;  // -1: all rows are to be drawn
    int32_t lastRow = -1;
    int32_t* variable;
    int32_t exitCode;
    std::unique_ptr<Win> searchPopup;
    Westring searchText;
};

// Zero-ended UTF-8 strings.
class ListBoxString : public ListBoxBase {
public:
    ListBoxString(int x, int y, int width, int height, const char* const* items, int count,
                  int32_t* variable, int exitCode);
    Westring ItemText(int itemIndex) override;

private:
    const char* const* items;
};

class ListBoxEstring : public ListBoxBase {
public:
    ListBoxEstring(int x, int y, int width, int height, EstringStore* items, int count,
                   int32_t* variable, int exitCode);
    Westring ItemText(int itemIndex) override;

private:
    EstringStore* items;
};

class ListBoxWestring : public ListBoxBase {
public:
    ListBoxWestring(int x, int y, int width, int height, WestringStore* items, int count,
                    int32_t* variable, int exitCode);
    Westring ItemText(int itemIndex) override;

private:
    WestringStore* items;
};

}  // namespace zt
