// Size, date, time and mode as text.
#include "panels/entry_fields.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include "foundation/locale_formats.h"
#include "foundation/settings.h"
#include "foundation/size_text.h"

namespace zt {

namespace {

constexpr int kWideLabel = 10;

// The labels of directories, for columns of at least kWideLabel and for narrower ones.
struct DirectoryLabel {
    const wchar_t* wide;
    const wchar_t* narrow;
};
constexpr DirectoryLabel kParentLabel = {L"\x10 UP-DIR \x11", L"\x10UP-DIR\x11"};
constexpr DirectoryLabel kLinkLabel = {L"\x10  LINK  \x11", L"\x10 LINK \x11"};
constexpr DirectoryLabel kSubdirectoryLabel = {L"\x10 SUBDIR \x11", L"\x10SUBDIR\x11"};

const DirectoryLabel& LabelOf(const entry& e) {
    if (e.IsDotDot()) return kParentLabel;
    return e.IsLink() ? kLinkLabel : kSubdirectoryLabel;
}

uint64_t PowerOfTen(int exponent) {
    constexpr int kLargest = 19;  // the last that 64 bits hold
    uint64_t power = 1;
    for (int i = 0; i < exponent && i < kLargest; ++i)
        power *= 10;
    return power;
}

Westring Digits(uint64_t value) {
    wchar_t digits[24];
    swprintf(digits, sizeof digits / sizeof *digits, L"%llu",
             static_cast<unsigned long long>(value));
    return digits;
}

constexpr const wchar_t* kUnits = L"KMGT";

Westring PlainSize(uint64_t size, int width) {
    if (size < PowerOfTen(width)) return Digits(size);
    // Units beyond M are for what M cannot show in the column.
    const uint64_t limit = PowerOfTen(width - 1);
    const wchar_t* unit = kUnits;
    for (size /= 1024; size >= limit && unit[1] != 0; ++unit)
        size /= 1024;
    return Digits(size) + Westring::Repeat(*unit, 1);
}

Westring SizeText(uint64_t size, int width) {
    if (static_cast<int64_t>(size) < 0) return Westring();
    return settings.thousandSep ? FormatSize(size, width) : PlainSize(size, width);
}

}  // namespace

// A value that equals the limit takes the next unit, which FormatSize64 does for the first only:
// a column has no room to spare.
Westring FormatSize(uint64_t value, int width) {
    constexpr int kMostDigits = 18;
    uint64_t limit = PowerOfTen(std::clamp(width - width / 4, 0, kMostDigits));
    const wchar_t* unit = kUnits;
    for (; value >= limit && *unit != 0; ++unit) {
        const bool first = unit == kUnits;
        if (first && width % 4 != 0) limit = std::max<uint64_t>(limit / 10, 1);
        value /= 1024;
    }
    Westring text;
    GroupThousands(Digits(value).c_str(), text);
    if (unit != kUnits) text += unit[-1];
    return text;
}

Westring SizeField(const entry& e, int width) {
    if (e.IsDirectory() && e.level == 0) {
        const DirectoryLabel& label = LabelOf(e);
        return Westring(width < kWideLabel ? label.narrow : label.wide).PadLeft(width);
    }
    return SizeText(e.size, width).PadLeft(width);
}

Westring DateField(const entry& e, int width) {
    if (e.time == kInvalidTime) return Westring::Repeat(L' ', width);
    TDateTime date;
    ToDateTime(e.time, date);
    const int year = abs(date.year % 100);
    const LocaleFormats& formats = localeFormats;
    int fields[3] = {date.month, date.day, year};
    if (formats.dateOrder == kDayFirst) {
        fields[0] = date.day;
        fields[1] = date.month;
    } else if (formats.dateOrder != kMonthFirst) {
        fields[0] = year;
        fields[1] = date.month;
        fields[2] = date.day;
    }
    char text[64];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    snprintf(text, sizeof text, formats.dateFormat, fields[0], fields[1], fields[2]);
#pragma GCC diagnostic pop
    return Westring(text).PadRight(width);
}

Westring TimeField(const entry& e, int width) {
    if (e.time == kInvalidTime) return Westring::Repeat(L' ', width);
    TDateTime time;
    ToDateTime(e.time, time);
    if (settings.timeMode == 24) {
        return Westring(Estring::Format("%3d:%02d", time.hour, time.minute)).PadRight(width);
    }
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    const char half = time.hour < 12 ? 'a' : 'p';
    return Westring(Estring::Format("%2d:%02d%c", hour, time.minute, half)).PadRight(width);
}

Westring ModeField(uint16_t mode) {
    Westring text;
    for (int group = 0; group < 3; ++group) {
        const int shift = 6 - 3 * group;
        const bool executes = (mode >> shift & 1) != 0;
        const bool special = (mode & (S_ISUID >> group)) != 0;
        const wchar_t* letters = group < 2 ? L"sS" : L"tT";
        text += (mode >> shift & 4) != 0 ? L'r' : L'-';
        text += (mode >> shift & 2) != 0 ? L'w' : L'-';
        if (special) {
            text += executes ? letters[0] : letters[1];
        } else {
            text += executes ? L'x' : L'-';
        }
    }
    return text;
}

}  // namespace zt
