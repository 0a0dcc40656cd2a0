// The one way in for keys: everything above reads keys and mouse through ReadKey, and nothing else
// waits for input. First thread only, on the program's console.
#pragma once

#include <cstdint>

namespace zt {

enum class MouseType : int32_t {
    kLeftPress = 0,
    kRightPress = 1,  // the right button's double click too
    kLeftMotion = 2,
    kRightMotion = 3,
    kLeftDouble = 4,
    kLeftRelease = 5,
    kRightRelease = 6,
    kWheel = 7,
};

struct MouseEvent {
    int32_t type = 0;  // a MouseType
    int32_t column = 0;
    int32_t row = 0;
    int32_t modifiers = 0;
    int32_t wheel = 0;  // +1 up, -1 down; 0 for anything else than the wheel
};

// What came with a key: its modifiers and character, or the mouse event.
struct TEventRecord {
    int32_t modifiers = 0;  // kModifier bits
    int32_t unicode = 0;    // as in TEvent
    MouseEvent mouse;       // filled when the result is kKeyMouse
};

// The next key code; kKeyModifiersChanged, kKeyMouse or kKeyQuit (console/key_codes.h); or 0 when
// the time ran out or a mouse event came that means nothing. The time-out is in milliseconds: 0
// polls, a negative one waits for ever. The record may be null. After kKeyQuit nothing else comes:
// each further read gives it at once.
int32_t ReadKey(TEventRecord* record, int timeoutMilliseconds);

bool KeyWaiting();
// How long operations look for Esc. Takes away whatever event it finds.
bool EscPressed();

// The character that a key stands for: the record's, in lower case, if it has one below 65536,
// else the code. So Alt with a letter counts as the letter.
int32_t ToCharacter(int32_t code, const TEventRecord& record);

// Called at each read and once a second while waiting; draws the clock. Filled in at start-up by
// the owner of the clock; null for none.
extern void (*clockTick)();

}  // namespace zt
