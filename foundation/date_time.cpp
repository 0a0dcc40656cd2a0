#include "foundation/date_time.h"

#include <sys/time.h>

#include <climits>
#include <ctime>

namespace zt {

void ToDateTime(const TTime& time, TDateTime& dateTime) {
    dateTime = TDateTime();
    const time_t seconds = time.seconds;
    tm local = {};
    if (!localtime_r(&seconds, &local) || local.tm_year > INT_MAX - 1900) return;
    dateTime.year = local.tm_year + 1900;
    dateTime.month = local.tm_mon + 1;
    dateTime.day = local.tm_mday;
    dateTime.hour = local.tm_hour;
    dateTime.minute = local.tm_min;
    dateTime.second = local.tm_sec;
    dateTime.nanoseconds = time.nanoseconds;
}

void FromDateTime(const TDateTime& dateTime, TTime& time) {
    tm local = {};
    local.tm_year = dateTime.year < INT_MIN + 1900 ? INT_MIN : dateTime.year - 1900;
    local.tm_mon = dateTime.month == INT_MIN ? INT_MIN : dateTime.month - 1;
    local.tm_mday = dateTime.day;
    local.tm_hour = dateTime.hour;
    local.tm_min = dateTime.minute;
    local.tm_sec = dateTime.second;
    local.tm_isdst = -1;
    time.seconds = mktime(&local);
    time.nanoseconds = dateTime.nanoseconds;
}

TTime NowTime() {
    timeval now = {};
    gettimeofday(&now, nullptr);
    TTime time;
    time.seconds = now.tv_sec;
    time.nanoseconds = static_cast<int32_t>(now.tv_usec * 1000);
    return time;
}

double SecondsNow() {
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

Estring TimeToText(const TTime& time) {
    TDateTime at;
    ToDateTime(time, at);
    Estring text = Estring::Format("%04d-%02d-%02d %2d:%02d:%02d", at.year, at.month, at.day,
                                   at.hour, at.minute, at.second);
    if (at.nanoseconds == 0) return text;
    text += Estring::Format(".%09d", at.nanoseconds);
    int zeros = 0;
    while (text[text.Length() - 1 - zeros] == '0')
        zeros++;
    return text.DropRight(zeros);
}

Estring DurationText(int64_t seconds) {
    const long long all = seconds < 0 ? 0 : seconds;
    const auto minute = static_cast<int>(all / 60 % 60);
    const auto second = static_cast<int>(all % 60);
    if (all >= 3600) return Estring::Format("%lld:%02d:%02d", all / 3600, minute, second);
    return Estring::Format("%d:%02d", minute, second);
}

}  // namespace zt
