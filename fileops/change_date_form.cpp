// Ranges of the date fields, and the two ways to count hours.
#include "fileops/change_date_form.h"

namespace zt {

namespace {

constexpr int kFirstYear = 1980;
constexpr int kLastYear = 2099;
constexpr int kFebruary = 2;
constexpr int kAugust = 8;
constexpr int kNoon = 12;

bool IsBetween(int value, int low, int high) {
    return value >= low && value <= high;
}

bool IsValid(const DateForm& form) {
    return IsBetween(form.year, kFirstYear, kLastYear) && IsBetween(form.month, 1, 12) &&
           IsBetween(form.day, 1, DaysInMonth(form.year, form.month)) &&
           IsBetween(form.hour, 0, 23) && IsBetween(form.minute, 0, 59) &&
           IsBetween(form.second, 0, 59);
}

// An hour past 12 is one of 24 already, whatever the half of the day says.
int FullHour(const DateForm& form) {
    if (form.half == kAfternoon && IsBetween(form.hour, 1, kNoon - 1)) return form.hour + kNoon;
    return form.half == kForenoon && form.hour == kNoon ? 0 : form.hour;
}

}  // namespace

DateForm DateFormOf(const TTime& time, bool twelveHours) {
    TDateTime at;
    ToDateTime(time, at);
    DateForm form = {at.year, at.month, at.day, at.hour, at.minute, at.second, kForenoon};
    if (!twelveHours) return form;
    form.half = at.hour < kNoon ? kForenoon : kAfternoon;
    form.hour = at.hour % kNoon == 0 ? kNoon : at.hour % kNoon;
    return form;
}

int DaysInMonth(int year, int month) {
    if (month == kFebruary) return year % 4 == 0 ? 29 : 28;
    return 30 + (month + (month >= kAugust ? 1 : 0)) % 2;
}

bool ComposeTime(const DateForm& form, bool twelveHours, TTime& time) {
    if (!IsValid(form)) return false;
    TDateTime at;
    at.year = form.year;
    at.month = form.month;
    at.day = form.day;
    at.hour = twelveHours ? FullHour(form) : form.hour;
    at.minute = form.minute;
    at.second = form.second;
    FromDateTime(at, time);
    return true;
}

}  // namespace zt
