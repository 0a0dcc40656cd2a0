// The menu: what keys and mouse do, and which entries are marked.
#include "ui/pull_down_menu.h"

#include <algorithm>

#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr int kRightMenu = kMenuCount - 1;
constexpr int kHelpTopicBase = 100;
constexpr int kCaseBit = 0x20;
constexpr int kFirstItemRow = 2;  // below the bar and the drop-down's frame

bool SameLetter(int key, char letter) {
    return (key | kCaseBit) == (letter | kCaseBit);
}

int MenuAtColumn(int column) {
    for (int i = kMenuCount - 1; i >= 0; --i) {
        if (column >= kMenuTitles[i].column) return column < kMenuTitlesEnd ? i : -1;
    }
    return -1;
}

bool IsRelease(int type) {
    return type == static_cast<int>(MouseType::kLeftRelease) ||
           type == static_cast<int>(MouseType::kRightRelease);
}

// The settings that have an entry, from MenuMark::kHiddenFiles on.
bool SettingMarked(MenuMark mark) {
    switch (mark) {
        case MenuMark::kHiddenFiles:
            return settings.hidden;
        case MenuMark::kPathPrompt:
            return settings.pathPrompt;
        case MenuMark::kFullScreen:
            return settings.fullScreen;
        case MenuMark::kClock:
            return settings.clock;
        case MenuMark::kTagDirs:
            return settings.tagDirs;
        case MenuMark::kThousandSep:
            return settings.thousandSep;
        case MenuMark::kRetainCount:
            return settings.retainCount;
        default:
            return false;
    }
}

bool PanelMarked(MenuMark mark, const MenuPanelState& panel) {
    constexpr int kFiles = 0, kInfo = 1, kTreeStyle = 5, kFullWidth = 2, kSortOrders = 5;
    if (mark >= MenuMark::kStyle0 && mark <= MenuMark::kStyle4) {
        const int style = static_cast<int>(mark) - static_cast<int>(MenuMark::kStyle0);
        return panel.kind == kFiles && panel.style == style;
    }
    if (mark >= MenuMark::kSort0 && mark <= MenuMark::kSort4) {
        const int sort = static_cast<int>(mark) - static_cast<int>(MenuMark::kSort0);
        return panel.sort % kSortOrders == sort;
    }
    switch (mark) {
        case MenuMark::kFullWidth:
            return panel.width == kFullWidth;
        case MenuMark::kInfo:
            return panel.kind == kInfo;
        case MenuMark::kTree:
            return panel.kind == kFiles && panel.style == kTreeStyle;
        case MenuMark::kReverse:
            return panel.sort >= kSortOrders;
        default:
            return false;
    }
}

}  // namespace

int PullDownMenu::Run(int side, bool reopen, const std::array<MenuPanelState, 2>& panels) {
    if (!reopen) {
        menuIndex = side * kRightMenu;
        itemIndex = 0;
        open = false;
    }
    panelStates = panels;
    chosenCode = 0;
    int columns, rows;
    console->GetSize(columns, rows);
    bar = std::make_unique<Win>(0, 0, columns - 1, 0, Colour(ColourClass::kMenuBar));
    Step step = Step::kGoOn;
    while (step == Step::kGoOn) {
        Paint();
        TEventRecord record;
        const int key = ReadKey(&record, -1);
        step = key == kKeyMouse ? HandleMouse(record.mouse) : HandleKey(key);
    }
    UpdateFreeze freeze;
    dropDown.reset();
    bar.reset();
    return chosenCode;
}

bool PullDownMenu::IsMarked(MenuMark mark) const {
    if (mark >= MenuMark::kHiddenFiles) return SettingMarked(mark);
    return PanelMarked(mark, panelStates[menuIndex == kRightMenu ? 1 : 0]);
}

PullDownMenu::Step PullDownMenu::HandleKey(int key) {
    switch (key) {
        case kKeyQuit:
            chosenCode = kKeyQuit;
            return Step::kLeave;
        case kKeyEnter:
            return Choose();
        case kKeyEsc:
            return Back();
        case kKeyF1:
            if (showHelp) showHelp(kHelpTopicBase + (menuIndex == kRightMenu ? 0 : menuIndex));
            return Step::kGoOn;
        case kKeyHome:
            itemIndex = 0;
            return Step::kGoOn;
        case kKeyEnd:
            itemIndex = Current().count - 1;
            return Step::kGoOn;
        case kKeyUp:
            if (open) MoveItem(-1);
            return Step::kGoOn;
        case kKeyDown:
            if (open) {
                MoveItem(1);
            } else {
                OpenAtFirst();
            }
            return Step::kGoOn;
        case kKeyLeft:
            GoToMenu((menuIndex + kMenuCount - 1) % kMenuCount);
            return Step::kGoOn;
        case kKeyRight:
            GoToMenu((menuIndex + 1) % kMenuCount);
            return Step::kGoOn;
        default:
            return HandleLetter(key);
    }
}

// A letter chooses an entry of the open menu, or opens one from the closed bar.
PullDownMenu::Step PullDownMenu::HandleLetter(int key) {
    if (!open) {
        for (int i = 0; i < kMenuCount; ++i) {
            if (!SameLetter(key, kMenuTitles[i].quickKey)) continue;
            menuIndex = i;
            OpenAtFirst();
            break;
        }
        return Step::kGoOn;
    }
    for (int i = 0; i < Current().count; ++i) {
        const PullDownEntry& entry = Current().entries[i];
        if (!entry.text || !SameLetter(key, entry.quickKey)) continue;
        itemIndex = i;
        return Choose();
    }
    return Step::kGoOn;
}

// Enter: a separator has nothing to choose, and the menu goes on.
PullDownMenu::Step PullDownMenu::Choose() {
    if (!open) {
        OpenAtFirst();
        return Step::kGoOn;
    }
    chosenCode = Current().entries[std::min(itemIndex, Current().count - 1)].code;
    return chosenCode ? Step::kLeave : Step::kGoOn;
}

// Esc: first the drop-down goes, then the bar.
PullDownMenu::Step PullDownMenu::Back() {
    if (!open) return Step::kLeave;
    open = false;
    return Step::kGoOn;
}

void PullDownMenu::GoToMenu(int menu) {
    if (menu == menuIndex) return;
    menuIndex = menu;
    itemIndex = 0;
}

void PullDownMenu::OpenAtFirst() {
    open = true;
    itemIndex = 0;
}

void PullDownMenu::MoveItem(int step) {
    const int count = Current().count;
    do {
        itemIndex = (itemIndex + step + count) % count;
    } while (!Current().entries[itemIndex].text);
}

// The entry under the pointer, -1 outside the open drop-down's rows of entries.
int PullDownMenu::ItemUnder(const MouseEvent& event) const {
    if (!open || !dropDown) return -1;
    const bool inColumns = event.column >= dropDown->Left() && event.column <= dropDown->Right();
    const int item = event.row - kFirstItemRow;
    return inColumns && item >= 0 && item < Current().count ? item : -1;
}

PullDownMenu::Step PullDownMenu::HandleMouse(const MouseEvent& event) {
    if (event.type == static_cast<int>(MouseType::kWheel)) return Step::kGoOn;
    if (!IsRelease(event.type)) return HandlePress(event);
    if (event.row == 0) return Step::kGoOn;
    if (ItemUnder(event) >= 0) {
        itemIndex = ItemUnder(event);
        return Choose();
    }
    open = false;
    return Step::kLeave;
}

PullDownMenu::Step PullDownMenu::HandlePress(const MouseEvent& event) {
    if (event.row == 0) {
        const int menu = MenuAtColumn(event.column);
        if (menu < 0) return Step::kGoOn;
        GoToMenu(menu);
        if (!open) OpenAtFirst();
    } else if (ItemUnder(event) >= 0) {
        itemIndex = ItemUnder(event);
    }
    return Step::kGoOn;
}

}  // namespace zt
