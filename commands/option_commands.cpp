#include "commands/option_commands.h"

#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"
#include "ui/clock_window.h"

namespace zt {

namespace {

constexpr int kClockPlace = 10;  // columns at the top right

}  // namespace

void ToggleHidden(LoopState& state, const KeyPress&) {
    settings.hidden = !settings.hidden;
    RereadBoth(state.panels);
    Activate(state.panels, state.panels.active);
    state.DrawAll();
}

void TogglePathPrompt(LoopState& state, const KeyPress&) {
    settings.pathPrompt = !settings.pathPrompt;
    state.drawLine = kDrawCommandLine;
}

void ToggleTagDirs(LoopState&, const KeyPress&) {
    settings.tagDirs = !settings.tagDirs;
}

void ToggleThousandSep(LoopState& state, const KeyPress&) {
    settings.thousandSep = !settings.thousandSep;
    RefreshPanels(state.panels, true);
    state.DrawAll();
}

void ToggleRetainCount(LoopState& state, const KeyPress&) {
    settings.retainCount = !settings.retainCount;
    RereadBoth(state.panels);
    state.DrawAll();
}

void ToggleClock(LoopState& state, const KeyPress&) {
    settings.clock = !settings.clock;
    if (settings.clock) {
        MakeClockWindow();
    } else {
        DeleteClockWindow();
        if (!state.panels.panel[1].showing) {
            console->FillRect(screenColumns - kClockPlace, 0, kClockPlace, 1,
                              Colour(ColourClass::kCommandLine));
        }
    }
    // The title's room depends on the clock.
    RefreshPanels(state.panels, true);
    state.DrawAll();
}

}  // namespace zt
