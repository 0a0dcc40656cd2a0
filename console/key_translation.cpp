// Key presses and releases: modifiers, Break, the key table, the top row of digits.
#include "console/key_translation.h"

#include "console/key_codes.h"
#include "console/key_table.h"
#include "console/keysyms.h"
#include "console/program_state.h"

namespace zt {

namespace {

// The codes that the X server has for the keys "1" to "9" and "0" above the letters of a PC
// keyboard.
constexpr uint32_t kTopRowFirst = 10;
constexpr uint32_t kTopRowLast = 19;

struct ModifierKey {
    uint32_t keyval;
    uint32_t mask;
};

constexpr ModifierKey kModifierKeys[] = {
    {keysym::kAltL, keysym::kMod1Mask},        {keysym::kAltR, keysym::kMod1Mask},
    {keysym::kControlL, keysym::kControlMask}, {keysym::kControlR, keysym::kControlMask},
    {keysym::kShiftL, keysym::kShiftMask},     {keysym::kShiftR, keysym::kShiftMask},
};

struct ModifierBits {
    uint32_t mask;
    int32_t bit;
};

constexpr ModifierBits kModifierBits[] = {
    {keysym::kShiftMask, kModifierShift},
    {keysym::kControlMask, kModifierCtrl},
    {keysym::kMod1Mask, kModifierAlt},
    {keysym::kMod2Mask, kModifierLock},
};

uint32_t MaskOfModifierKey(uint32_t keyval) {
    for (const ModifierKey& key : kModifierKeys) {
        if (key.keyval == keyval) return key.mask;
    }
    return 0;
}

void RequestAbort() {
    int possible = kAbortPossible;
    abortState.compare_exchange_strong(possible, kAbortRequested, std::memory_order_relaxed);
}

// The digit printed on a key of the top row: on some layouts its key symbol is another character.
int32_t TopRowDigit(uint32_t hardwareCode) {
    return static_cast<int32_t>('0' + (hardwareCode - kTopRowFirst + 1) % 10);
}

int32_t CodeOf(uint32_t keyval, uint32_t state, uint32_t hardwareCode) {
    const bool topRow = hardwareCode >= kTopRowFirst && hardwareCode <= kTopRowLast;
    if (topRow && (state & keysym::kControlMask) != 0) return TopRowDigit(hardwareCode);
    return FindKeyCode(keyval, state);
}

}  // namespace

int32_t TranslateModifiers(uint32_t state) {
    int32_t modifiers = 0;
    for (const ModifierBits& row : kModifierBits) {
        if ((state & row.mask) != 0) modifiers |= row.bit;
    }
    return modifiers;
}

KeyResult TranslateKey(const KeyStroke& stroke) {
    KeyResult result;
    // The state is told as it was before the key, so a modifier key changes it first.
    const uint32_t modifierMask = MaskOfModifierKey(stroke.keyval);
    const uint32_t state = stroke.state ^ modifierMask;
    if (stroke.keyval == keysym::kBreak) {
        RequestAbort();
        return result;
    }
    if (!stroke.isPress && modifierMask == 0) return result;
    const int32_t modifiers = TranslateModifiers(state);
    modifiersLive.store(modifiers, std::memory_order_relaxed);

    const bool isCapital = stroke.keyval >= 'A' && stroke.keyval <= 'Z';
    const uint32_t keyval = isCapital ? stroke.keyval - 'A' + 'a' : stroke.keyval;
    const int32_t code = CodeOf(keyval, state, stroke.hardwareCode);
    if (code == 0) {
        result.outcome = KeyOutcome::kInputMethod;
        return result;
    }
    const uint32_t unicode = isCapital ? keyval : stroke.unicode;
    const bool alt = (state & keysym::kMod1Mask) != 0;
    result.outcome = KeyOutcome::kQueue;
    result.event.kind = static_cast<int32_t>(EventKind::kKey);
    result.event.code = code;
    result.event.modifiers = modifiers;
    result.event.unicode = alt ? static_cast<int32_t>(unicode) : 0;
    return result;
}

TEvent TextEvent(int32_t character) {
    TEvent event;
    event.kind = static_cast<int32_t>(EventKind::kKey);
    event.code = character;
    event.unicode = character;
    return event;
}

TEvent CloseEvent() {
    TEvent event;
    event.kind = static_cast<int32_t>(EventKind::kKey);
    event.code = kKeyF10;
    return event;
}

}  // namespace zt
