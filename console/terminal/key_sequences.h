// What a program in the embedded terminal gets for a key. A pure function; any thread.
#pragma once

#include <cstdint>
#include <string>

namespace zt {

// Shift and Ins: the clipboard's text is sent, which only its owner knows.
inline constexpr int32_t kPasteKey = 0x30052;

// The bytes for a key code of console/key_codes.h; empty for a key that means nothing to a
// program. `cursorApplication`: the cursor keys use their application forms.
std::string KeyBytes(int32_t code, bool cursorApplication);
// A character that was typed, in UTF-8; empty for what is no character.
std::string CharacterBytes(int32_t character);

}  // namespace zt
