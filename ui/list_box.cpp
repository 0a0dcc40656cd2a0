// Lists: what is drawn, and which item is chosen.
#include "ui/list_box.h"

#include <algorithm>

#include "ui/dialog.h"
#include "ui/update_freeze.h"

namespace zt {

ListBoxBase::ListBoxBase(int x_, int y_, int width_, int height_, int count_, int32_t* variable_,
                         int exitCode_)
    : DialogElement(x_, y_, true),
      width(width_),
      height(height_),
      count(count_),
      variable(variable_),
      exitCode(exitCode_) {}

ListBoxBase::~ListBoxBase() = default;

Westring ListBoxBase::ItemText(int /*itemIndex*/) {
    return Westring();
}

void ListBoxBase::DrawRow(int windowRow, int itemIndex, Attribute attribute) {
    const bool isItem = itemIndex >= 0 && itemIndex < count;
    const Westring text = isItem ? ItemText(itemIndex) : Westring();
    dialog->Print(x, y + windowRow, text.PadRight(width), attribute);
}

// Brings the variable into range and scrolls so that its item shows.
void ListBoxBase::FollowVariable() {
    if (count <= 0) {
        top = row = 0;
        return;
    }
    *variable = std::clamp(*variable, 0, count - 1);
    if (*variable < top) top = *variable;
    if (*variable >= top + height) top = *variable - height + 1;
    row = *variable - top;
}

void ListBoxBase::Draw() {
    UpdateFreeze freeze;
    FollowVariable();
    const bool all = lastTop == -1 || lastTop != top;
    for (int windowRow = 0; windowRow < height; ++windowRow) {
        if (!all && windowRow != row && windowRow != lastRow) continue;
        const bool isCursor = windowRow == row && HasFocus() && count > 0;
        const auto colour = isCursor ? ColourClass::kMenuHighlight : ColourClass::kMenu;
        DrawRow(windowRow, top + windowRow, Colour(colour));
    }
    lastTop = top;
    lastRow = row;
}

void ListBoxBase::DrawAll() {
    lastTop = -1;
    Draw();
}

void ListBoxBase::SetFocus(bool focused) {
    if (!focused) ClearSearch();
    Draw();
}

// Rows that are on the screen gain or lose their items.
void ListBoxBase::SetCount(int newCount) {
    const int changedFrom = std::min(count, newCount);
    count = newCount;
    if (changedFrom < top + height) lastTop = -1;
    Draw();
}

void ListBoxBase::Choose() {
    if (count > 0) *variable = top + row;
    Draw();
}

void ListBoxBase::End(int key) {
    dialog->SetExitCode(exitCode > 0 ? exitCode : key);
}

ListBoxString::ListBoxString(int x_, int y_, int width_, int height_, const char* const* items_,
                             int count_, int32_t* variable_, int exitCode_)
    : ListBoxBase(x_, y_, width_, height_, count_, variable_, exitCode_), items(items_) {}

Westring ListBoxString::ItemText(int itemIndex) {
    return items[itemIndex];
}

ListBoxEstring::ListBoxEstring(int x_, int y_, int width_, int height_, EstringStore* items_,
                               int count_, int32_t* variable_, int exitCode_)
    : ListBoxBase(x_, y_, width_, height_, count_, variable_, exitCode_), items(items_) {}

Westring ListBoxEstring::ItemText(int itemIndex) {
    const Estring* item = items->Peek(itemIndex);
    return item ? Westring(*item) : Westring();
}

ListBoxWestring::ListBoxWestring(int x_, int y_, int width_, int height_, WestringStore* items_,
                                 int count_, int32_t* variable_, int exitCode_)
    : ListBoxBase(x_, y_, width_, height_, count_, variable_, exitCode_), items(items_) {}

Westring ListBoxWestring::ItemText(int itemIndex) {
    const Westring* item = items->Peek(itemIndex);
    return item ? *item : Westring();
}

}  // namespace zt
