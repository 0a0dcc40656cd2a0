// What the keyboard, the mouse and the window tell the program.
#pragma once

#include <cstdint>

namespace zt {

enum class EventKind : int32_t {
    kKey = 0,
    kButtonPress = 1,
    kButtonRelease = 2,
    kMotion = 3,
    kDoubleClick = 4,
    kWheel = 5,
    kQuit = 6,
};

inline constexpr int32_t kModifierAlt = 1;
inline constexpr int32_t kModifierCtrl = 2;
inline constexpr int32_t kModifierShift = 4;
inline constexpr int32_t kModifierLock = 8;

// One event, in the order in which its fields go over the wire.
struct TEvent {
    int32_t kind = 0;       // an EventKind
    int32_t code = 0;       // key code; button 1 left, 2 right, 3 others; wheel +1 up, -1 down
    int32_t modifiers = 0;  // kModifier bits
    int32_t column = 0;     // mouse cell
    int32_t row = 0;
    int32_t unicode = 0;  // the key's character with Alt; the character of typed text
};

}  // namespace zt
