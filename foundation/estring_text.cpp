// Estring: texts made from other values (formats, numbers, buffers, error codes, tabs).
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <algorithm>

#include "foundation/estring.h"

namespace zt {

namespace {

constexpr int kFormatBytes = 1024;
constexpr int kMaxDigits = 64;

Estring DigitsOf(uint64_t value, bool negative, int radix) {
    auto base = static_cast<uint64_t>(radix >= 2 && radix <= 36 ? radix : 10);
    char digits[kMaxDigits + 2];
    int start = static_cast<int>(sizeof digits) - 1;
    digits[start] = 0;
    do {
        auto digit = static_cast<char>('0' + value % base);
        digits[--start] = digit > '9' ? static_cast<char>(digit + 7) : digit;
        value /= base;
    } while (value != 0);
    if (negative) digits[--start] = '-';
    return Estring(digits + start);
}

}  // namespace

Estring Estring::Format(const char* format, ...) {
    char buffer[kFormatBytes] = {};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    return Estring(buffer);
}

Estring Estring::FromInteger(int32_t value, int radix) {
    return FromInteger64(value, radix);
}

Estring Estring::FromUnsigned(uint32_t value, int radix) {
    return DigitsOf(value, false, radix);
}

Estring Estring::FromInteger64(int64_t value, int radix) {
    uint64_t magnitude = static_cast<uint64_t>(value);
    return DigitsOf(value < 0 ? 0 - magnitude : magnitude, value < 0, radix);
}

Estring Estring::FromBuffer(const char* bytes, int n) {
    Estring text;
    text.Assign(bytes, n);
    return text.TrimRight();
}

Estring Estring::ErrorText(int errnum) {
    char buffer[256] = {};
    // The form of strerror_r that gives back the text, which may or may not stand in the buffer.
    return Estring(strerror_r(errnum, buffer, sizeof buffer)).TrimRight();
}

Estring Estring::ExpandTabs(const char* text, int tabSize) {
    Estring result;
    if (text == nullptr) return result;
    tabSize = std::max(tabSize, 1);
    int column = 0;
    for (; *text != 0; text++) {
        if (*text != '\t') {
            result += *text;
            column++;
            continue;
        }
        // One blank short of the stop: the columns of files shown with this have always been so.
        int blanks = tabSize - column % tabSize - 1;
        for (int i = 0; i < blanks; i++)
            result += ' ';
        column += blanks;
    }
    return result;
}

}  // namespace zt
