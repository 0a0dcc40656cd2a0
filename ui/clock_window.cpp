// The clock's window and its ticking.
#include "ui/clock_window.h"

#include <memory>

#include "console/program_state.h"
#include "foundation/clock_text.h"
#include "foundation/settings.h"
#include "ui/win.h"

namespace zt {

namespace {

std::unique_ptr<Win> clockWindow;

}  // namespace

int ClockWidth() {
    return settings.timeMode == 12 ? 6 : 5;
}

bool ClockWindowShown() {
    return clockWindow != nullptr;
}

void MakeClockWindow() {
    if (clockWindow) return;
    int columns, rows;
    console->GetSize(columns, rows);
    clockWindow = std::make_unique<Win>(columns - ClockWidth(), 0, columns - 1, 0,
                                        Colour(ColourClass::kClock));
    TickClockWindow();
}

void TickClockWindow() {
    if (!clockWindow || !settings.clock) return;
    TDateTime now;
    ToDateTime(NowTime(), now);
    clockWindow->Print(0, 0, ClockText(now, settings.timeMode).c_str(),
                       Colour(ColourClass::kClock));
}

void DeleteClockWindow() {
    clockWindow.reset();
}

}  // namespace zt
