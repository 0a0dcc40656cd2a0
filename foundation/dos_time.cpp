#include "foundation/dos_time.h"

namespace zt {

namespace {

constexpr int kFirstYear = 1980;
constexpr int kLastYear = kFirstYear + 127;

}  // namespace

void DosToTime(uint16_t date, uint16_t time, TTime& result) {
    TDateTime at;
    at.year = kFirstYear + (date >> 9);
    at.month = date >> 5 & 15;
    at.day = date & 31;
    at.hour = time >> 11;
    at.minute = time >> 5 & 63;
    at.second = (time & 31) * 2;
    FromDateTime(at, result);
}

void TimeToDos(const TTime& value, uint16_t& date, uint16_t& time) {
    TDateTime at;
    ToDateTime(value, at);
    if (at.year < kFirstYear) at = {kFirstYear, 1, 1, 0, 0, 0, 0};
    if (at.year > kLastYear) at = {kLastYear, 12, 31, 23, 59, 58, 0};
    date = static_cast<uint16_t>((at.year - kFirstYear) << 9 | at.month << 5 | at.day);
    time = static_cast<uint16_t>(at.hour << 11 | at.minute << 5 | at.second / 2);
}

}  // namespace zt
