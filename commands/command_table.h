// Every key code that the main screen knows, a row each, and the function that carries it out.
#pragma once

#include <cstdint>

#include "commands/loop_state.h"

namespace zt {

using Command = void (*)(LoopState& state, const KeyPress& key);

// What must hold before a command is called; otherwise the key is ignored.
inline constexpr uint8_t kNeedsNothing = 0;
inline constexpr uint8_t kNeedsPanel = 1;      // the active panel is on the screen
inline constexpr uint8_t kNeedsFiles = 2;      // ... and shows a file list
inline constexpr uint8_t kNeedsNoArchive = 4;  // ... and is not inside an archive
inline constexpr uint8_t kNeedsBothFiles = 8;  // both panels show file lists

struct CommandRow {
    int32_t code;
    uint8_t needs;
    Command command;  // null: the key is reserved and ignored
};

// The row of a code, or null when the table does not hold it.
const CommandRow* FindCommand(int32_t code);

}  // namespace zt
