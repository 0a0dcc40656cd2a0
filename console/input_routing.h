// Where an input event goes: to the embedded terminal, into a text selection, or into the queue.
// Called on the thread that takes the input; never waits for the first thread.
#pragma once

#include <cstdint>

#include "console/event.h"
#include "foundation/westring.h"

namespace zt {

class CEventQueue;
class GridConsole;

// Buttons as the window system numbers them.
inline constexpr uint32_t kPointerLeft = 1;
inline constexpr uint32_t kPointerRight = 3;
// Bits of the X modifier state that tell of held buttons.
inline constexpr uint32_t kLeftHeldMask = 0x100;
inline constexpr uint32_t kRightHeldMask = 0x400;

// The mouse, in cells of the grid.
struct PointerInput {
    int column = 0;
    int row = 0;
    uint32_t state = 0;   // X modifier state
    uint32_t button = 0;  // kPointerLeft and so on; not used for motion
};

enum class Routing {
    kQueued,     // an event is in the queue
    kTerminal,   // the embedded terminal has it
    kSelection,  // it was part of a text selection
    kDropped,
};

// The integer part of a pixel position, in cells of `cellSize` pixels.
int PixelToCell(double pixel, int cellSize);

// After kQueued the caller restarts the cursor's blinking.
Routing RouteKey(GridConsole& console, CEventQueue& queue, const TEvent& event);
// Text that the input method gave, in UTF-8, character by character. kDropped for an empty text.
Routing RouteText(GridConsole& console, CEventQueue& queue, const char* utf8);

Routing RoutePress(GridConsole& console, CEventQueue& queue, const PointerInput& pointer,
                   bool isDouble);
// `selected` gets the text of a selection that ended here, for the clipboard; `hasText` tells
// whether there was one. The release itself is routed all the same.
Routing RouteRelease(GridConsole& console, CEventQueue& queue, const PointerInput& pointer,
                     Westring& selected, bool& hasText);
// kTerminal: a terminal is attached, and the event is not used up.
Routing RouteMotion(GridConsole& console, CEventQueue& queue, const PointerInput& pointer);
// One step of the wheel, away from the user or towards.
Routing RouteWheel(GridConsole& console, CEventQueue& queue, const PointerInput& pointer, bool up);

}  // namespace zt
