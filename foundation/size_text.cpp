#include "foundation/size_text.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "foundation/locale_formats.h"

namespace zt {

namespace {

constexpr uint32_t kLimits32[] = {1,       10,       100,       1000,       10000,      100000,
                                  1000000, 10000000, 100000000, 1000000000, 0xFFFFFFFF, 0xFFFFFFFF};
constexpr int kMostDigits32 = static_cast<int>(std::size(kLimits32)) - 1;
constexpr int kMostDigits64 = 18;
constexpr wchar_t kUnits64[] = {'K', 'M', 'G', 'T'};

// How many digits the separators leave room for.
int DigitRoom(int width, int most) {
    return std::clamp(width - width / 4, 0, most);
}

void AppendSize(uint64_t value, wchar_t suffix, Westring& target) {
    wchar_t digits[24];
    swprintf(digits, std::size(digits), L"%llu", static_cast<unsigned long long>(value));
    GroupThousands(digits, target);
    if (suffix != 0) target += suffix;
}

}  // namespace

void GroupThousands(const wchar_t* digits, Westring& target) {
    const auto length = static_cast<int>(wcslen(digits));
    Westring grouped(length + length / 3);
    for (int i = 0; i < length; i++) {
        if (i > 0 && (length - i) % 3 == 0) grouped += localeFormats.thousandsSeparator;
        grouped += digits[i];
    }
    target = grouped;
}

void FormatSize32(uint32_t value, Westring& target, int width) {
    const int room = DigitRoom(width, kMostDigits32);
    uint32_t shown = value;
    wchar_t suffix = 0;
    if (shown > kLimits32[room]) {
        shown = value / 1024;
        suffix = 'K';
        if (shown > kLimits32[std::max(room - 1, 0)]) {
            shown = value >> 20;
            suffix = 'M';
        }
    }
    AppendSize(shown, suffix, target);
}

void FormatSize64(uint64_t value, Westring& target, int width) {
    uint64_t limit = 1;
    for (int i = DigitRoom(width, kMostDigits64); i > 0; i--)
        limit *= 10;
    wchar_t suffix = 0;
    for (const wchar_t unit : kUnits64) {
        const bool first = suffix == 0;
        if (first ? value < limit : value <= limit) break;
        value /= 1024;
        suffix = unit;
        if (first && width % 4 != 0) limit = std::max<uint64_t>(limit / 10, 1);
    }
    AppendSize(value, suffix, target);
}

}  // namespace zt
