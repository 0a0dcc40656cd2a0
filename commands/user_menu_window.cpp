// The window of the user menu.
#include <algorithm>
#include <cwctype>
#include <memory>

#include "commands/user_menu.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/case_fold.h"
#include "ui/dialog.h"
#include "ui/list_box.h"

namespace zt {

namespace {

constexpr int kRowsLeftFree = 8;
constexpr wchar_t kSubMenuMark[] = L":>";

// The rows as they are shown; those with a menu of their own end in a mark.
struct MenuRows {
    WestringStore texts;
    int width = 0;

    explicit MenuRows(const MenuStore& menu);
};

MenuRows::MenuRows(const MenuStore& menu) {
    bool anyMark = false;
    for (int i = 0; i < menu.Count(); i++) {
        const MenuEntry& e = *menu.Peek(i);
        texts.Append(new Westring(e.keyText.PadRight(menu.keyWidth + 1) + e.text));
        width = std::max(width, texts.Peek(i)->Length() + (e.subMenu ? 1 : 0));
        anyMark = anyMark || e.subMenu;
    }
    for (int i = 0; i < menu.Count(); i++) {
        if (!menu.Peek(i)->subMenu) continue;
        Westring& text = *texts.Peek(i);
        text = text.PadRight(width - 1) + kSubMenuMark;
    }
    // The mark ends one column behind the widest text.
    width += anyMark ? 1 : 0;
}

// Entries are chosen by their keys, too.
class MenuList : public ListBoxWestring {
public:
    MenuList(const MenuStore& entries, WestringStore& rows, int columns, int lines, int32_t& cursor)
        : ListBoxWestring(0, 0, columns, lines, &rows, rows.Count(), &cursor, kExitEnter),
          menu(entries),
          chosen(cursor) {}

protected:
    bool HandleOwnKey(int key) override {
        const int32_t code = key >= L' ' && key < kKeyExtended
                                 ? static_cast<int32_t>(towupper(static_cast<wint_t>(key)))
                                 : key;
        for (int i = 0; i < menu.Count(); i++) {
            if (menu.Peek(i)->key != code) continue;
            chosen = i;
            dialog->SetExitCode(kExitEnter);
            return true;
        }
        return false;
    }

private:
    const MenuStore& menu;
    int32_t& chosen;
};

// Where the window's left edge goes; below 0 for the middle.
int LeftEdge(int x, int outerWidth) {
    return x < 0 ? -1 : std::max(0, std::min(x, screenColumns - outerWidth));
}

}  // namespace

MenuEntry* ShowMenu(MenuStore& menu, const Westring& title, int x) {
    if (menu.Count() == 0) return nullptr;
    MenuRows rows(menu);
    const int width = std::min(std::max(rows.width, title.Length() + 2), screenColumns - 4);
    const int height = std::clamp(menu.Count(), 1, std::max(1, screenLines - kRowsLeftFree));
    const int left = LeftEdge(x, width + 2);
    Dialog dialog(left, -3, left < 0 ? width + 2 : left + width + 1, height + 2,
                  Colour(ColourClass::kMenu));
    dialog.SetTitle(L" " + title + L" ");
    int32_t chosen = 0;
    dialog.Add(std::make_unique<MenuList>(menu, rows.texts, width, height, chosen), true);
    while (dialog.Run() == kExitEnter) {
        dialog.Redraw(-1);
        MenuEntry* e = menu.Peek(chosen);
        if (!e->subMenu) return e;
        if (MenuEntry* inner = ShowMenu(*e->subMenu, e->text, dialog.Right())) return inner;
    }
    return nullptr;
}

}  // namespace zt
