#include "commands/pull_down.h"

#include "console/key_codes.h"

namespace zt {

namespace {

constexpr int32_t kReopenKey = kKeyShiftF1 + 9;

MenuPanelState MenuState(const CPanel& panel) {
    return {panel.style, panel.kind, panel.width, panel.sort};
}

}  // namespace

bool IsMenuKey(int32_t code) {
    return code == kKeyF9 || code == CtrlKey('n') || code == kReopenKey;
}

KeyPress RunPullDown(LoopState& state, int32_t menuKey) {
    KeyPress chosen;
    chosen.code =
        state.menu.Run(state.panels.active, menuKey == kReopenKey,
                       {MenuState(state.panels.panel[0]), MenuState(state.panels.panel[1])});
    state.menuCancelled = chosen.code == kKeyNone;
    return chosen;
}

}  // namespace zt
