// Reading the values of tests.
#include "panels/filter_values.h"

#include <grp.h>
#include <pwd.h>

#include <algorithm>
#include <climits>

#include "foundation/date_time.h"
#include "foundation/locale_formats.h"
#include "panels/effective_permissions.h"
#include "panels/entry.h"

namespace zt {

namespace {

struct Letter {
    wchar_t letter;  // upper case
    int bit;
};

constexpr int kArchiveBit = 0x20;  // no entry of a real directory has the last two
constexpr int kSystemBit = 0x04;

constexpr Letter kAttributeLetters[] = {
    {L'A', kArchiveBit},   {L'D', kDirectory},       {L'H', kHidden},
    {L'L', kSymbolicLink}, {L'R', kReadOnlyForUser}, {L'S', kSystemBit},
};

constexpr Letter kPermissionLetters[] = {{L'R', kMayRead}, {L'W', kMayWrite}, {L'X', kMayExecute}};

constexpr Letter kSizeUnits[] = {{L'K', 10}, {L'M', 20}, {L'G', 30}};  // powers of 2

struct AgeUnit {
    wchar_t letter;
    int seconds;
};

constexpr AgeUnit kAgeUnits[] = {{L'd', 86400}, {L'h', 3600}, {L'm', 60}};

constexpr int kLastShortYear = 99;
constexpr int kFirstYearOfLastCentury = 71;

wchar_t UpperLetter(wchar_t ch) {
    return ch >= L'a' && ch <= L'z' ? ch - (L'a' - L'A') : ch;
}

wchar_t LastCharacter(const Westring& value) {
    return value.IsEmpty() ? L'\0' : static_cast<wchar_t>(value[value.Length() - 1]);
}

bool IsDigit(wchar_t ch) {
    return ch >= L'0' && ch <= L'9';
}

// One more than 32 bits hold stands for all that is larger.
int64_t DigitsAt(const wchar_t* text) {
    int64_t number = 0;
    for (; IsDigit(*text) && number <= INT_MAX; ++text)
        number = number * 10 + (*text - L'0');
    return std::min<int64_t>(number, int64_t{INT_MAX} + 1);
}

template <size_t N>
int64_t MaskOf(const Westring& value, const Letter (&letters)[N]) {
    int mask = 0;
    for (int i = 0; i < value.Length(); ++i) {
        for (const Letter& row : letters) {
            if (row.letter == UpperLetter(value[i])) mask |= row.bit;
        }
    }
    return mask;
}

int64_t FirstSecond(int year, int month, int day) {
    TDateTime date;
    date.year = year;
    date.month = month;
    date.day = day;
    TTime time;
    FromDateTime(date, time);
    return time.seconds;
}

int FullYear(int year) {
    if (year > kLastShortYear) return year;
    return year + (year < kFirstYearOfLastCentury ? 2000 : 1900);
}

}  // namespace

// A sign can come only where the locale parts dates by it.
int64_t NumberOfValue(const Westring& value) {
    const wchar_t* text = value.c_str();
    if (*text == L'-') return -DigitsAt(text + 1);
    return std::min<int64_t>(DigitsAt(text), INT_MAX);
}

int64_t SizeOfValue(const Westring& value) {
    const int64_t number = NumberOfValue(value);
    const wchar_t last = UpperLetter(LastCharacter(value));
    for (const Letter& unit : kSizeUnits) {
        if (unit.letter == last) return number * (int64_t{1} << unit.bit);
    }
    return number;
}

int64_t AgeOfValue(const Westring& value) {
    const int64_t number = NumberOfValue(value);
    for (const AgeUnit& unit : kAgeUnits) {
        if (unit.letter == LastCharacter(value)) return number * unit.seconds;
    }
    return number;
}

int64_t DateOfValue(const Westring& value) {
    int numbers[3] = {};
    const wchar_t* at = value.c_str();
    for (int& number : numbers) {
        number = static_cast<int>(std::min<int64_t>(DigitsAt(at), INT_MAX));
        while (*at != 0 && *at != localeFormats.dateSeparator)
            ++at;
        if (*at == 0) break;
        ++at;
    }
    switch (localeFormats.dateOrder) {
        case kMonthFirst:
            return FirstSecond(FullYear(numbers[2]), numbers[0], numbers[1]);
        case kDayFirst:
            return FirstSecond(FullYear(numbers[2]), numbers[1], numbers[0]);
        default:
            return FirstSecond(FullYear(numbers[0]), numbers[1], numbers[2]);
    }
}

bool TimeStampOfValue(const Westring& value, int64_t& seconds) {
    constexpr int kLeastDigits = 4;
    constexpr int kMostDigits = 14;
    seconds = 0;
    const int length = value.Length();
    if (length < kLeastDigits || length > kMostDigits || length % 2 != 0) return false;
    // The year has the first two pairs.
    int pairs[kMostDigits / 2] = {0, 0, 1, 1, 0, 0, 0};
    for (int i = 0; i < length; i += 2) {
        const wchar_t tens = value[i];
        const wchar_t ones = value[i + 1];
        if (!IsDigit(tens) || !IsDigit(ones)) return false;
        pairs[i / 2] = static_cast<int>(tens - L'0') * 10 + static_cast<int>(ones - L'0');
    }
    TDateTime date;
    date.year = pairs[0] * 100 + pairs[1];
    date.month = pairs[2];
    date.day = pairs[3];
    date.hour = pairs[4];
    date.minute = pairs[5];
    date.second = pairs[6];
    TTime time;
    FromDateTime(date, time);
    seconds = time.seconds;
    return true;
}

int64_t AttributesOfValue(const Westring& value) {
    return MaskOf(value, kAttributeLetters);
}

int64_t PermissionsOfValue(const Westring& value) {
    return MaskOf(value, kPermissionLetters);
}

int64_t UserOfValue(const Westring& value) {
    const passwd* user = getpwnam(value.ToUtf8().c_str());
    return user ? static_cast<uint16_t>(user->pw_uid) : -1;
}

int64_t GroupOfValue(const Westring& value) {
    const group* found = getgrnam(value.ToUtf8().c_str());
    return found ? static_cast<uint16_t>(found->gr_gid) : -1;
}

}  // namespace zt
