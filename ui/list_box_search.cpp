// Lists: typing a text chooses the next item that begins with it. The text shows in a little
// window on the dialog's bottom line.
#include <algorithm>

#include "ui/dialog.h"
#include "ui/list_box.h"

namespace zt {

// A character that leads to no item is dropped again; it counts as used either way.
bool ListBoxBase::Search(wchar_t character) {
    Westring longer = searchText;
    longer += character;
    const int found = FindItem(longer);
    if (found >= 0) {
        searchText = longer;
        *variable = found;
        Draw();
    }
    ShowSearchText();
    return true;
}

int ListBoxBase::FindItem(const Westring& text) {
    for (int i = 0; i < count; ++i) {
        const int candidate = (top + row + i) % count;
        if (ItemText(candidate).Left(text.Length()) == text) return candidate;
    }
    return -1;
}

void ListBoxBase::ClearSearch() {
    searchText.Clear();
    searchPopup.reset();
}

void ListBoxBase::ShowSearchText() {
    searchPopup.reset();
    if (searchText.IsEmpty()) return;
    const int last = dialog->Right() - 1;
    const int first = std::max(last - (searchText.Length() + 2) + 1, 0);
    searchPopup = std::make_unique<Win>(first, dialog->Bottom(), last, dialog->Bottom(),
                                        dialog->DialogAttribute(DialogColour::kInput));
    searchPopup->Print(1, 0, searchText);
}

}  // namespace zt
