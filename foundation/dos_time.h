// The DOS form of a time, as some archive formats store it: two 16-bit words of local time. Pure
// functions; any thread.
//
//   date   bits 0-4 day, 5-8 month, 9-15 years since 1980
//   time   bits 0-4 seconds / 2, 5-10 minutes, 11-15 hours
#pragma once

#include <cstdint>

#include "foundation/date_time.h"

namespace zt {

// A field out of its range is carried into the next, as mktime does. No fraction.
void DosToTime(uint16_t date, uint16_t time, TTime& result);
// Seconds are halved. What lies outside 1980 to 2107 becomes the nearest time that has a form.
void TimeToDos(const TTime& value, uint16_t& date, uint16_t& time);

}  // namespace zt
