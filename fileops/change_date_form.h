// The fields of the date dialog, from a time and back to one, and what they may hold. Local time.
// Pure functions but for the time zone; any thread.
#pragma once

#include "foundation/date_time.h"

namespace zt {

inline constexpr int kForenoon = 0;
inline constexpr int kAfternoon = 1;

struct DateForm {
    int32_t year = 0;  // full
    int32_t month = 0;
    int32_t day = 0;
    int32_t hour = 0;  // 1 to 12 with twelve hours, else 0 to 23
    int32_t minute = 0;
    int32_t second = 0;
    int32_t half = kForenoon;  // of the day; means something with twelve hours only
};

DateForm DateFormOf(const TTime& time, bool twelveHours);

// Counts every fourth year as a leap year. `month` from 1 to 12.
int DaysInMonth(int year, int month);

// The time that the fields say, to the second. False, with the time as it was, when one is out of
// its range; the years go from 1980 to 2099.
[[nodiscard]] bool ComposeTime(const DateForm& form, bool twelveHours, TTime& time);

}  // namespace zt
