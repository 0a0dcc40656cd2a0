// Reading keys from the program's console.
#include "console/read_key.h"

#include <algorithm>

#include "console/event.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/case_fold.h"

namespace zt {

namespace {

constexpr int kClockSliceMilliseconds = 1000;

// Kinds of mouse event with a button; the two columns are for the left and the right one.
struct ButtonRow {
    EventKind kind;
    MouseType left;
    MouseType right;
};

constexpr ButtonRow kButtonRows[] = {
    {EventKind::kButtonPress, MouseType::kLeftPress, MouseType::kRightPress},
    {EventKind::kButtonRelease, MouseType::kLeftRelease, MouseType::kRightRelease},
    {EventKind::kMotion, MouseType::kLeftMotion, MouseType::kRightMotion},
    {EventKind::kDoubleClick, MouseType::kLeftDouble, MouseType::kRightPress},
};

void TickClock() {
    if (clockTick != nullptr) clockTick();
}

bool WaitForEvent(TEvent& event, int timeoutMilliseconds) {
    TickClock();
    if (timeoutMilliseconds >= 0) return console->ReadEvent(event, timeoutMilliseconds);
    while (!console->ReadEvent(event, kClockSliceMilliseconds))
        TickClock();
    return true;
}

bool TranslateMouse(const TEvent& event, MouseEvent& mouse) {
    mouse.column = event.column;
    mouse.row = event.row;
    mouse.modifiers = event.modifiers;
    mouse.wheel = 0;
    const EventKind kind = static_cast<EventKind>(event.kind);
    if (kind == EventKind::kWheel) {
        mouse.type = static_cast<int32_t>(MouseType::kWheel);
        mouse.wheel = event.code;
        return true;
    }
    if (event.code != 1 && event.code != 2) return false;
    for (const ButtonRow& row : kButtonRows) {
        if (row.kind != kind) continue;
        mouse.type = static_cast<int32_t>(event.code == 1 ? row.left : row.right);
        return true;
    }
    return false;
}

}  // namespace

void (*clockTick)() = nullptr;

int32_t ReadKey(TEventRecord* record, int timeoutMilliseconds) {
    if (quitSeen) return kKeyQuit;
    TEventRecord unused;
    TEventRecord& result = record != nullptr ? *record : unused;
    const int live = modifiersLive.load(std::memory_order_relaxed);
    if (live != modifiersSeen) {
        modifiersSeen = live;
        result.modifiers = live;
        return kKeyModifiersChanged;
    }
    TEvent event;
    if (!WaitForEvent(event, timeoutMilliseconds)) return kKeyNone;
    modifiersLive.store(event.modifiers, std::memory_order_relaxed);
    switch (static_cast<EventKind>(event.kind)) {
        case EventKind::kKey:
            result.modifiers = event.modifiers;
            result.unicode = event.unicode;
            modifiersSeen = event.modifiers;
            return event.code;
        case EventKind::kQuit:
            quitSeen = true;
            return kKeyQuit;
        default:
            return TranslateMouse(event, result.mouse) ? kKeyMouse : kKeyNone;
    }
}

bool KeyWaiting() {
    return quitSeen || console->PendingEvents() > 0;
}

bool EscPressed() {
    return ReadKey(nullptr, 0) == kKeyEsc;
}

int32_t ToCharacter(int32_t code, const TEventRecord& record) {
    if (record.unicode < 1 || record.unicode > 65535) return code;
    return static_cast<int32_t>(LowerCaseOf(static_cast<wchar_t>(record.unicode)));
}

}  // namespace zt
