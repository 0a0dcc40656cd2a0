// What the progress window of a copy says, made from plain numbers. Pure functions; any thread.
#pragma once

#include <cstdint>

#include "foundation/westring.h"

namespace zt {

// "1:02:03" from an hour up, "2:03" below it. Parts of a second are cut off.
Westring DurationText(double seconds);
// Bytes a second for a column of seven: digits up to a million, above that in K, then in M.
Westring RateText(uint64_t bytesPerSecond);
// "Time: ...  BPS: ...  ETA: ..."; empty while nothing can be said yet, which is so when no time
// has passed or nothing is done. `elapsed` in seconds, the rest in bytes.
Westring StatisticsText(double elapsed, uint64_t done, uint64_t total);
// How many of `width` cells are full: none of nothing, never more than all.
int FilledCells(uint64_t done, uint64_t total, int width);
// U+2588 for what is done, U+2591 for the rest.
Westring BarText(int filled, int width);
// "(2 of 3)"
Westring CountText(int index, int total);
// The text in the middle of a row of so many cells, which it fills; one too long is cut.
Westring CentredText(const Westring& text, int width);

}  // namespace zt
