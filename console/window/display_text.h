// Characters and text as they may be handed to the toolkit: always valid UTF-8, whatever stands
// in a cell or a name. Knows no toolkit; any thread.
#pragma once

#include <cstdint>
#include <string>

#include "foundation/westring.h"

namespace zt {

inline constexpr int kMaxUtf8Bytes = 4;

// The character that stands for any 32-bit value: a private code of a file name as the character
// it shows as, control characters as a blank, and what is no character as U+FFFD.
uint32_t DisplayCharacter(uint32_t value);
// Gives the number of bytes; `character` must be valid, as DisplayCharacter gives it.
int EncodeUtf8(uint32_t character, char* utf8);
// For titles and the clipboard. Control characters stay; the rest as DisplayCharacter.
std::string DisplayText(const Westring& text);

}  // namespace zt
