// The table that turns an X key symbol with its modifiers into the program's key code. Constant
// data; any thread.
#pragma once

#include <cstdint>
#include <span>

namespace zt {

struct KeyRow {
    uint32_t keyval;  // X key symbol; letters in lower case
    int32_t mask;     // Shift, Ctrl and Alt bits that must be down, no others; -1 for any
    int32_t code;
};

inline constexpr int kKeyRowCount = 310;
inline constexpr int32_t kAnyModifiers = -1;

std::span<const KeyRow> KeyTable();

// The code of the first row for `keyval` whose mask fits `state` (lock bits do not count), or 0.
int32_t FindKeyCode(uint32_t keyval, uint32_t state);

}  // namespace zt
