// The time values of the program, the broken-down time, and their texts. Pure functions; any
// thread. Local time throughout.
#pragma once

#include <cstdint>

#include "foundation/estring.h"

namespace zt {

struct TTime {
    int32_t nanoseconds = 0;
    int64_t seconds = 0;  // since the Unix epoch; 64 bits, since files may be dated past 2038

    friend bool operator==(const TTime&, const TTime&) = default;
};

// Stands for a time that is not known; columns show blanks for it.
inline constexpr TTime kInvalidTime = {-1, -1};

struct TDateTime {
    int32_t year = 0;   // full, as 2024
    int32_t month = 0;  // 1 to 12
    int32_t day = 0;
    int32_t hour = 0;
    int32_t minute = 0;
    int32_t second = 0;
    int32_t nanoseconds = 0;
};

// All zero for a time whose year has no 32-bit number.
void ToDateTime(const TTime& time, TDateTime& dateTime);
// The library decides about daylight saving, and carries fields that are out of range.
void FromDateTime(const TDateTime& dateTime, TTime& time);

TTime NowTime();      // to the microsecond
double SecondsNow();  // of the real-time clock, since the epoch

// "2024-05-06 17:08:09", the hour padded with a blank, and a fraction without trailing zeros when
// there is one.
Estring TimeToText(const TTime& time);
// "59:59" or "1:00:00"; what is below 0 counts as 0.
Estring DurationText(int64_t seconds);

}  // namespace zt
