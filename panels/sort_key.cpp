// Name comparison, directly and as rows of bytes.
//
// A character's key becomes its UTF-8 form (five bytes' worth of room is never needed: keys end at
// U+10FFFF), which compares as the code does. A number in natural order becomes one byte '0' + n
// and n digits of base 255, each plus 1 so that no byte is 0: more digits are a larger number, and
// the first byte stands against other characters where a digit would.
#include "panels/sort_key.h"

#include <climits>
#include <cwchar>

#include "foundation/case_fold.h"
#include "foundation/file_name.h"

namespace zt {

static bool IsDigit(wchar_t ch) {
    return ch >= L'0' && ch <= L'9';
}

wchar_t ToSortKey(wchar_t ch) {
    if (ch < 0x80) {
        if (ch >= L'a' && ch <= L'z') return ch - (L'a' - L'A');
        return ch == L'_' ? 1 : ch;
    }
    return UpperCaseOf(ShownCharacter(ch));
}

static int SignOfDifference(unsigned long a, unsigned long b) {
    if (a == b) return 0;
    const unsigned long distance = a > b ? a - b : b - a;
    const int magnitude = distance > INT_MAX ? INT_MAX : static_cast<int>(distance);
    return a > b ? magnitude : -magnitude;
}

static int ComparePlain(const wchar_t* a, const wchar_t* b) {
    while (*a && *b && ToSortKey(*a) == ToSortKey(*b)) {
        ++a;
        ++b;
    }
    return static_cast<int>(ToSortKey(*a)) - static_cast<int>(ToSortKey(*b));
}

static int CompareNatural(const wchar_t* a, const wchar_t* b) {
    while (*a || *b) {
        if (IsDigit(*a) && IsDigit(*b)) {
            wchar_t* endA = nullptr;
            wchar_t* endB = nullptr;
            const unsigned long numberA = wcstoul(a, &endA, 10);
            const unsigned long numberB = wcstoul(b, &endB, 10);
            if (numberA != numberB) return SignOfDifference(numberA, numberB);
            a = endA;
            b = endB;
            continue;
        }
        const int difference = static_cast<int>(ToSortKey(*a)) - static_cast<int>(ToSortKey(*b));
        if (difference != 0) return difference;
        ++a;
        ++b;
    }
    return 0;
}

int CompareNames(const wchar_t* a, const wchar_t* b, bool natural) {
    return natural ? CompareNatural(a, b) : ComparePlain(a, b);
}

const wchar_t* ExtensionOf(const wchar_t* name) {
    const wchar_t* stop = wcsrchr(name, L'.');
    return stop ? stop + 1 : name + wcslen(name);
}

static void AppendKeyBytes(wchar_t key, std::vector<uint8_t>& bytes) {
    const auto code = static_cast<uint32_t>(key);
    const auto add = [&bytes](uint32_t value) { bytes.push_back(static_cast<uint8_t>(value)); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | code >> 6);
        add(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        add(0xE0 | code >> 12);
        add(0x80 | (code >> 6 & 0x3F));
        add(0x80 | (code & 0x3F));
    } else {
        add(0xF0 | (code >> 18 & 0x0F));
        add(0x80 | (code >> 12 & 0x3F));
        add(0x80 | (code >> 6 & 0x3F));
        add(0x80 | (code & 0x3F));
    }
}

static void AppendNumberBytes(unsigned long number, std::vector<uint8_t>& bytes) {
    constexpr unsigned long kBase = 255;
    uint8_t digits[9];  // 255^9 is above 2^64
    int count = 0;
    for (; number != 0; number /= kBase)
        digits[count++] = static_cast<uint8_t>(number % kBase + 1);
    bytes.push_back(static_cast<uint8_t>('0' + count));
    while (count > 0)
        bytes.push_back(digits[--count]);
}

void AppendSortBytes(const wchar_t* name, bool natural, std::vector<uint8_t>& bytes) {
    while (*name) {
        if (natural && IsDigit(*name)) {
            wchar_t* end = nullptr;
            AppendNumberBytes(wcstoul(name, &end, 10), bytes);
            name = end;
        } else {
            AppendKeyBytes(ToSortKey(*name++), bytes);
        }
    }
}

}  // namespace zt
