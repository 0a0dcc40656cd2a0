// Keys by the names that the menus print, and the events that the window makes of them.
//
// A name is any of "Ctrl-", "Alt-", "Shift-" (in this order) before F1 to F12, Enter, Esc, Tab,
// Backspace, Space, Ins, Del, Home, End, PgUp, PgDn, Up, Down, Left, Right, a grey key (Grey+,
// Grey-, Grey*), a key-pad digit (Num0 to Num9) or one character.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/display_wire.h"

namespace zt::headless {

inline constexpr int32_t kModifiersChanged = 0x10100;

// The event of the key alone. Nothing for a name or a combination that the keyboard table does
// not have.
std::optional<WireEvent> KeyEvent(std::string_view name);

// What a person's hands send: modifiers going down, the key, modifiers coming up.
std::vector<WireEvent> KeyPress(std::string_view name);

// The modifiers of a name like "Ctrl-Shift": going down or coming up again.
std::vector<WireEvent> HoldModifiers(std::string_view names);
std::vector<WireEvent> ReleaseModifiers(std::string_view names);

// Characters as the input method hands them over.
std::vector<WireEvent> TypedText(std::string_view utf8);

enum class Mouse { kLeft = 1, kRight = 2 };
WireEvent MousePress(Mouse button, int column, int row);
WireEvent MouseRelease(Mouse button, int column, int row);
WireEvent MouseMove(Mouse button, int column, int row);  // with the button held
// A double click is press, release, press, double click, release.
std::vector<WireEvent> MouseDoubleClick(Mouse button, int column, int row);
WireEvent MouseWheel(bool up, int column, int row);

}  // namespace zt::headless
