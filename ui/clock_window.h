// The clock at the top right of the screen, over the right panel's frame. There is one clock for
// the whole program; it belongs to the first thread, which ticks it whenever it waits for a key.
#pragma once

namespace zt {

// Makes the window and shows the time; nothing when there is one already.
void MakeClockWindow();
// Shows the time as it is now; nothing without a window, or with the clock switched off.
void TickClockWindow();
// Takes the window away, restoring what it hid. To be called before what lies under it is drawn.
void DeleteClockWindow();
bool ClockWindowShown();

// How many columns it takes: 6 in 12-hour mode, else 5.
int ClockWidth();

}  // namespace zt
