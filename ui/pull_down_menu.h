// The menu bar on the top line with its five drop-down menus. One object lives as long as the
// main loop and remembers where it was left. First thread only; modal.
#pragma once

#include <array>
#include <memory>

#include "console/read_key.h"
#include "ui/menu_tables.h"
#include "ui/win.h"

namespace zt {

// What the marks in the Left and the Right menu tell of their panel.
struct MenuPanelState {
    int style = 0;  // 0 to 4 file styles, 5 the tree
    int kind = 0;   // 0 files, 1 info
    int width = 0;  // 2: full
    int sort = 0;   // 0 to 4, and 5 more when reversed
};

class PullDownMenu {
public:
    // `help`, which may be null, shows a topic of the help file.
    using HelpFunction = void (*)(int topic);
    explicit PullDownMenu(HelpFunction help = nullptr) : showHelp(help) {}

    // Opens the bar on the Left (side 0) or the Right menu (side 1), or with `reopen` as it was
    // last left. Gives the code of the chosen entry, which acts as the key of that code; 0 when
    // nothing was chosen; the quit code when that was read.
    int Run(int side, bool reopen, const std::array<MenuPanelState, 2>& panels);

    int MenuIndex() const { return menuIndex; }
    int ItemIndex() const { return itemIndex; }
    bool IsOpen() const { return open; }

private:
    enum class Step { kGoOn, kLeave };

    void Paint();
    void DrawTitles();
    void DrawEntry(int item);
    bool IsMarked(MenuMark mark) const;
    Step HandleKey(int key);
    Step HandleMouse(const MouseEvent& event);
    Step HandlePress(const MouseEvent& event);
    Step HandleLetter(int key);
    Step Choose();
    Step Back();
    void GoToMenu(int menu);
    void MoveItem(int step);
    void OpenAtFirst();
    int ItemUnder(const MouseEvent& event) const;
    const Menu& Current() const { return kMenus[menuIndex]; }

    HelpFunction showHelp;
    int menuIndex = 0;
    int itemIndex = 0;
    bool open = false;
    // Of one run.
    std::array<MenuPanelState, 2> panelStates;
    int chosenCode = 0;
    std::unique_ptr<Win> bar;
    std::unique_ptr<Win> dropDown;
};

}  // namespace zt
