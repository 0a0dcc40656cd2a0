// Sizes as text for a column of a given width. First thread: the separator is the locale's
// (locale_formats.h).
#pragma once

#include <cstdint>

#include "foundation/westring.h"

namespace zt {

// Copies a row of digits with the thousands separator before each group of three from the right.
void GroupThousands(const wchar_t* digits, Westring& target);

// Grouped digits, and where they would not fit the width the value in units of 1024 (K), 1024^2
// (M), and in the 64-bit form also 1024^3 (G) and 1024^4 (T). A quarter of the width is kept for
// the separators. What is too large even for the last unit gets wider than asked.
void FormatSize32(uint32_t value, Westring& target, int width);
void FormatSize64(uint64_t value, Westring& target, int width);

}  // namespace zt
