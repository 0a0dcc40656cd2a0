// Keys, text and mouse on their way from the window to the queue.
#include "console/input_routing.h"

#include "console/event_queue.h"
#include "console/grid_console.h"
#include "console/key_translation.h"

namespace zt {

namespace {

int32_t ButtonCode(uint32_t button) {
    if (button == kPointerLeft) return 1;
    return button == kPointerRight ? 2 : 3;
}

int32_t HeldButtonCode(uint32_t state) {
    if ((state & kLeftHeldMask) != 0) return 1;
    return (state & kRightHeldMask) != 0 ? 2 : 0;
}

// With a terminal attached, the mouse means nothing to the program.
Routing QueueMouse(GridConsole& console, CEventQueue& queue, const PointerInput& pointer,
                   EventKind kind, int32_t code, int32_t modifiers) {
    if (console.HasTerminalSink()) return Routing::kTerminal;
    TEvent event;
    event.kind = static_cast<int32_t>(kind);
    event.code = code;
    event.modifiers = modifiers;
    event.column = pointer.column;
    event.row = pointer.row;
    queue.Push(event);
    return Routing::kQueued;
}

}  // namespace

int PixelToCell(double pixel, int cellSize) {
    return cellSize > 0 ? static_cast<int>(pixel) / cellSize : 0;
}

Routing RouteKey(GridConsole& console, CEventQueue& queue, const TEvent& event) {
    if (console.GiveKeyToSink(event.code, event.modifiers, event.unicode)) {
        return Routing::kTerminal;
    }
    queue.Push(event);
    return Routing::kQueued;
}

Routing RouteText(GridConsole& console, CEventQueue& queue, const char* utf8) {
    Westring text;
    text.AssignUtf8(utf8);
    Routing routing = Routing::kDropped;
    for (int i = 0; i < text.Length(); i++) {
        const int32_t character = static_cast<wchar_t>(text[i]);
        if (console.GiveCharacterToSink(character)) {
            routing = Routing::kTerminal;
        } else {
            queue.Push(TextEvent(character));
            routing = Routing::kQueued;
        }
    }
    return routing;
}

Routing RoutePress(GridConsole& console, CEventQueue& queue, const PointerInput& pointer,
                   bool isDouble) {
    const bool selects = pointer.button == kPointerLeft;
    if (selects && console.SelectionPress(pointer.column, pointer.row)) return Routing::kSelection;
    const EventKind kind = isDouble ? EventKind::kDoubleClick : EventKind::kButtonPress;
    return QueueMouse(console, queue, pointer, kind, ButtonCode(pointer.button),
                      TranslateModifiers(pointer.state));
}

Routing RouteRelease(GridConsole& console, CEventQueue& queue, const PointerInput& pointer,
                     Westring& selected, bool& hasText) {
    // Another button let go meanwhile does not end what the left one began.
    hasText = pointer.button == kPointerLeft && console.SelectionRelease(selected);
    return QueueMouse(console, queue, pointer, EventKind::kButtonRelease,
                      ButtonCode(pointer.button), TranslateModifiers(pointer.state));
}

Routing RouteMotion(GridConsole& console, CEventQueue& queue, const PointerInput& pointer) {
    const bool selects = (pointer.state & kLeftHeldMask) != 0;
    if (selects && console.SelectionMotion(pointer.column, pointer.row)) {
        return Routing::kSelection;
    }
    return QueueMouse(console, queue, pointer, EventKind::kMotion, HeldButtonCode(pointer.state),
                      TranslateModifiers(pointer.state));
}

Routing RouteWheel(GridConsole& console, CEventQueue& queue, const PointerInput& pointer, bool up) {
    return QueueMouse(console, queue, pointer, EventKind::kWheel, up ? 1 : -1, 0);
}

}  // namespace zt
