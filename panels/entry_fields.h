// The texts of an entry's fields other than its name, each exactly as wide as its column.
// Settings and locale formats are read; nothing is changed. First thread only.
#pragma once

#include <cstdint>

#include "foundation/westring.h"
#include "panels/entry.h"

namespace zt {

inline constexpr wchar_t kRightTriangle = 0x10;  // shows as code page 437 has it
inline constexpr wchar_t kLeftTriangle = 0x11;

// Grouped digits, and where they would not fit `width` columns the value in the first unit of 1024
// (K), 1024^2 (M), 1024^3 (G) and 1024^4 (T) that does.
Westring FormatSize(uint64_t value, int width);
// A size, or for a directory of unknown total the label of its kind. Right-aligned; what does not
// fit loses its start.
Westring SizeField(const entry& e, int width);
// Blank for an unknown time.
Westring DateField(const entry& e, int width);
Westring TimeField(const entry& e, int width);
// "rwxr-x---", with s, S, t and T for the special bits.
Westring ModeField(uint16_t mode);

}  // namespace zt
