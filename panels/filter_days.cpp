#include "panels/filter_days.h"

#include <ctime>

#include "foundation/date_time.h"

namespace zt {

namespace {

constexpr int64_t kSecondsOfDay = 86400;

// Whether both fall on one calendar day with the clock set alike.
bool OnSameDay(const tm& a, const tm& b) {
    return a.tm_mday == b.tm_mday && a.tm_mon == b.tm_mon && a.tm_year == b.tm_year &&
           a.tm_gmtoff == b.tm_gmtoff;
}

bool IsOnDayOf(const tm& day, int64_t seconds) {
    const time_t time = seconds;
    tm local = {};
    return localtime_r(&time, &local) && OnSameDay(day, local);
}

}  // namespace

int64_t StartOfDay(int64_t seconds) {
    TTime time;
    time.seconds = seconds;
    TDateTime date;
    ToDateTime(time, date);
    date.hour = date.minute = date.second = date.nanoseconds = 0;
    FromDateTime(date, time);
    return time.seconds;
}

int64_t FilterDays::StartOf(int64_t seconds) {
    const auto index = static_cast<uint64_t>(seconds) / kSecondsOfDay % days_.size();
    Day& day = days_[index];
    if (seconds < day.from || seconds > day.last) day = DayOf(seconds);
    return day.start;
}

// A day on which the clock is not changed is remembered whole, of any other only this second.
FilterDays::Day FilterDays::DayOf(int64_t seconds) const {
    Day day;
    day.from = day.last = seconds;
    day.start = StartOfDay(seconds);
    const time_t time = seconds;
    tm local = {};
    if (!localtime_r(&time, &local)) return day;
    const int64_t from = seconds - (local.tm_hour * 60 + local.tm_min) * 60 - local.tm_sec;
    const int64_t last = from + kSecondsOfDay - 1;
    if (!IsOnDayOf(local, from) || !IsOnDayOf(local, last)) return day;
    day.from = from;
    day.last = last;
    return day;
}

}  // namespace zt
