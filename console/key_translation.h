// From what the window system tells of keys and the mouse to the program's events, without any of
// the window system's types. Called on the thread that takes the input.
#pragma once

#include <cstdint>

#include "console/event.h"

namespace zt {

struct KeyStroke {
    uint32_t keyval = 0;        // X key symbol
    uint32_t state = 0;         // X modifier state, as it was before the key
    uint32_t hardwareCode = 0;  // the X server's code of the physical key
    bool isPress = true;
    uint32_t unicode = 0;  // the character of `keyval`, 0 for none
};

enum class KeyOutcome {
    kQueue,        // `event` goes to the terminal sink or to the queue
    kDrop,         // nothing more happens
    kInputMethod,  // no key of the program's: the input method may make text of it
};

struct KeyResult {
    KeyOutcome outcome = KeyOutcome::kDrop;
    TEvent event;
};

// Handles presses and releases alike: modifier keys count in both directions, other keys only when
// pressed. Keeps `modifiersLive` up to date. Break asks for an abort when something abortable runs,
// and is dropped in any case.
KeyResult TranslateKey(const KeyStroke& stroke);

// kModifier bits of an X modifier state.
int32_t TranslateModifiers(uint32_t state);

// The event of a character that the input method gave.
TEvent TextEvent(int32_t character);
// What closing the window stands for: F10, with its question.
TEvent CloseEvent();

}  // namespace zt
