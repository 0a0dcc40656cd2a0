// The numbers that the values of a filter expression's tests stand for. Local time; dates as the
// locale writes them (localeFormats). Pure functions.
#pragma once

#include <cstdint>

#include "foundation/westring.h"

namespace zt {

// Decimal, cut to what 32 bits hold; the digits end at the first other character.
int64_t NumberOfValue(const Westring& value);
// Bytes: a number with 'k', 'm' or 'g' behind it, in either case.
int64_t SizeOfValue(const Westring& value);
// Seconds: a number with 'd', 'h' or 'm' behind it.
int64_t AgeOfValue(const Westring& value);
// The first second of a date, since the epoch. A number that is not there is 0; of years up to 99
// those below 71 belong to this century.
int64_t DateOfValue(const Westring& value);
// Seconds since the epoch of "YYYY" up to "YYYYMMDDHHMMSS"; false when it is no such text.
bool TimeStampOfValue(const Westring& value, int64_t& seconds);
// Bits of entry::flags, and a sum of kMay values; letters in either case, unknown ones ignored.
int64_t AttributesOfValue(const Westring& value);
int64_t PermissionsOfValue(const Westring& value);
// -1 when there is no such user or group; 16 bits otherwise, as an entry keeps them.
int64_t UserOfValue(const Westring& value);
int64_t GroupOfValue(const Westring& value);

}  // namespace zt
