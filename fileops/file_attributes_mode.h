// What the boxes of the attribute dialog mean for the mode of a file. Pure functions; any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zt {

// The state of a box. In the form for one file there are only clear and kAttributeOn; in the form
// for a group the same value stands for a bit that each file keeps as it is.
inline constexpr uint8_t kAttributeClear = 0;
inline constexpr uint8_t kAttributeOn = 1;
inline constexpr uint8_t kAttributeKeep = 1;
inline constexpr uint8_t kAttributeSet = 2;

inline constexpr int kAttributeRows = 3;     // user, group, other
inline constexpr int kAttributeColumns = 4;  // read, write, execute; set-id and sticky bits
inline constexpr int kSpecialColumn = 3;

// Nine states for read, write and execute of user, group and other, and three for set-user-id,
// set-group-id and sticky.
using AttributeStates = std::array<uint8_t, 12>;

// The place of a box in the states; `row` and `column` are in range.
constexpr int AttributeIndex(int row, int column) {
    return column == kSpecialColumn ? 9 + row : 3 * row + column;
}

// The states of the form for one file.
AttributeStates StatesOfMode(uint16_t mode);
// The mode that the states make of `mode`; bits that no box is for stay.
uint16_t ModeWithStates(uint16_t mode, const AttributeStates& states, bool isGroup);

// What follows `state` when a box is pressed.
constexpr uint8_t NextAttributeState(uint8_t state, bool isGroup) {
    const int last = isGroup ? kAttributeSet : kAttributeOn;
    return static_cast<uint8_t>(state < last ? state + 1 : kAttributeClear);
}

}  // namespace zt
