#include "commands/filter_command.h"

#include "panels/filter_prompt.h"
#include "panels/panel_window.h"

namespace zt {

static constexpr int32_t kMenuFilterLeft = 0x100012;

void FilterByMenu(LoopState& state, const KeyPress& key) {
    const int side = key.code == kMenuFilterLeft ? 0 : 1;
    CPanel& panel = state.panels.panel[side];
    if (!FilterPrompt(panel)) return;
    if (panel.showing) {
        RereadSide(state.panels, side);
    } else {
        panel.needRead = true;
    }
    state.DrawAll();
}

}  // namespace zt
