// The variables of the whole program. There are no others.
#pragma once

#include <atomic>

#include "console/console_interface.h"

namespace zt {

// Lives from start-up to exit; owned by the main function (or by a test).
extern IConsole* console;

// The actual grid, and the height of the panels' file area. First thread only.
extern int screenLines;
extern int screenColumns;
extern int panelRows;

// Written by the thread that takes the input, read by the first thread.
extern std::atomic<int> modifiersLive;
// The modifiers last delivered to the logic, and those for which the key labels stand.
extern int modifiersSeen;
extern int modifiersDrawn;

// 0: nothing abortable runs; 1: something abortable runs; 2: the user asked to abort it.
inline constexpr int kAbortIdle = 0;
inline constexpr int kAbortPossible = 1;
inline constexpr int kAbortRequested = 2;
extern std::atomic<int> abortState;

// The quit event has been read. From then on every read gives it again, so that it ends each modal
// loop that it meets and then the program. First thread only.
extern bool quitSeen;

}  // namespace zt
