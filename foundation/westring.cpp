// Westring: its storage, its appending and its cutting. Short texts stay in the object; longer
// ones have a heap block of their own. Any operation may be given a piece of the string itself.
#include "foundation/westring.h"

#include <cwchar>
#include <cwctype>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace zt {

namespace {

constexpr int32_t kMaxLength = std::numeric_limits<int32_t>::max() - 1;

int BoundedLength(const wchar_t* text) {
    if (text == nullptr) return 0;
    return static_cast<int>(std::min<size_t>(std::wcslen(text), static_cast<size_t>(kMaxLength)));
}

size_t Elements(int n) {
    return static_cast<size_t>(n);
}

bool IsBlank(wchar_t ch) {
    return std::iswspace(static_cast<wint_t>(ch)) != 0;
}

}  // namespace

Westring::Reader::operator wchar_t() const {
    return text_.data[std::clamp(index_, 0, text_.capacity - 1)];
}

Westring::Westring() : data(inlineBuffer), capacity(kInlineCapacity), length(0), inlineBuffer{} {}

Westring::Westring(const char* utf8) : Westring() {
    AssignUtf8(utf8);
}

Westring::Westring(const wchar_t* text) : Westring() {
    Assign(text, BoundedLength(text));
}

Westring::Westring(const Estring& utf8) : Westring() {
    AssignUtf8(utf8.c_str(), utf8.Length());
}

Westring::Westring(const Westring& other) : Westring() {
    *this = other;
}

Westring::Westring(Westring&& other) noexcept : Westring() {
    *this = static_cast<Westring&&>(other);
}

Westring::Westring(int reserve) : Westring() {
    ReallocateDiscarding(std::clamp(reserve, 0, kMaxLength));
    std::wmemset(data, 0, Elements(capacity));
}

Westring::~Westring() {
    Release();
}

void Westring::Release() {
    if (data != nullptr && data != inlineBuffer) delete[] data;
}

// Makes room for n characters; what the string held is lost and the caller refills it.
void Westring::ReallocateDiscarding(int n) {
    if (capacity > n) return;
    wchar_t* block = new wchar_t[Elements(n) + 1];
    Release();
    data = block;
    capacity = n + 1;
}

// Makes room for n characters and some more, keeping all that the old block held.
void Westring::GrowPreserving(int n) {
    if (capacity > n) return;
    int64_t wanted = static_cast<int64_t>(n) + n / 4 + 1;
    int32_t grown = static_cast<int32_t>(std::min<int64_t>(wanted, kMaxLength + int64_t{1}));
    wchar_t* block = new wchar_t[Elements(grown)];
    std::wmemcpy(block, data, Elements(capacity));
    std::wmemset(block + capacity, 0, Elements(grown - capacity));
    Release();
    data = block;
    capacity = grown;
}

Westring& Westring::operator=(const Westring& other) {
    if (this != &other) {
        ReallocateDiscarding(other.length);
        std::wmemcpy(data, other.data, Elements(other.length) + 1);
        length = other.length;
    }
    return *this;
}

Westring& Westring::operator=(Westring&& other) noexcept {
    if (this == &other) return *this;
    Release();
    if (other.data == other.inlineBuffer) {
        std::wmemcpy(inlineBuffer, other.inlineBuffer, kInlineCapacity);
        data = inlineBuffer;
    } else {
        data = other.data;
        other.data = other.inlineBuffer;
    }
    capacity = other.capacity;
    length = other.length;
    other.capacity = kInlineCapacity;
    other.Clear();
    return *this;
}

Westring& Westring::operator=(const wchar_t* text) {
    Assign(text, BoundedLength(text));
    return *this;
}

Westring& Westring::operator=(const char* utf8) {
    AssignUtf8(utf8);
    return *this;
}

void Westring::Assign(const wchar_t* text, int n) {
    int taken = text == nullptr || n <= 0
                    ? 0
                    : static_cast<int>(wcsnlen(text, Elements(std::min(n, kMaxLength))));
    // A piece of this very string always fits, so that it is never freed before it is copied.
    ReallocateDiscarding(taken);
    if (taken > 0) std::wmemmove(data, text, Elements(taken));
    data[taken] = 0;
    length = taken;
}

void Westring::Clear() {
    data[0] = 0;
    length = 0;
}

Westring& Westring::operator+=(const Westring& other) {
    Append(other.data, other.length);
    return *this;
}

Westring& Westring::operator+=(const wchar_t* text) {
    Append(text, BoundedLength(text));
    return *this;
}

Westring& Westring::operator+=(const char* utf8) {
    if (utf8 != nullptr) *this += Westring(utf8);
    return *this;
}

Westring& Westring::operator+=(wchar_t ch) {
    if (ch != 0 && length < kMaxLength) {
        GrowPreserving(length + 1);
        data[length++] = ch;
        data[length] = 0;
    }
    return *this;
}

Westring& Westring::operator+=(char ch) {
    return *this += static_cast<wchar_t>(static_cast<signed char>(ch));
}

void Westring::Append(const wchar_t* text, int n) {
    if (text == nullptr || n <= 0) return;
    int taken = static_cast<int>(wcsnlen(text, Elements(std::min(n, kMaxLength - length))));
    bool own = text >= data && text < data + capacity;
    std::ptrdiff_t offset = own ? text - data : 0;
    GrowPreserving(length + taken);
    if (own) text = data + offset;
    std::wmemmove(data + length, text, Elements(taken));
    length += taken;
    data[length] = 0;
}

void Westring::SetAt(int index, wchar_t ch) {
    if (index < 0 || index >= kMaxLength) return;
    if (ch == 0) {
        if (index < length) {
            data[index] = 0;
            length = index;
        }
        return;
    }
    if (index >= length) {
        GrowPreserving(index + 1);
        length = index + 1;
        data[length] = 0;
    }
    data[index] = ch;
}

Westring Westring::Left(int n) const {
    Westring result;
    result.Assign(data, std::clamp(n, 0, length));
    return result;
}

Westring Westring::Mid(int start, int n) const {
    start = std::clamp(start, 0, length);
    if (n <= 0 || n > length - start) n = length - start;
    Westring result;
    result.Assign(data + start, n);
    return result;
}

Westring Westring::Right(int n) const {
    n = std::clamp(n, 0, length);
    Westring result;
    result.Assign(data + length - n, n);
    return result;
}

Westring Westring::DropRight(int n) const {
    return Left(length - std::clamp(n, 0, length));
}

Westring Westring::PadRight(int width, wchar_t fill) const {
    Westring result = Left(width);
    return result + Repeat(fill, width - result.length);
}

Westring Westring::PadLeft(int width, wchar_t fill) const {
    Westring tail = Right(width);
    return Repeat(fill, width - tail.length) + tail;
}

Westring Westring::Repeat(wchar_t ch, int n) {
    Westring result;
    if (n < 1 || ch == 0) return result;
    n = std::min(n, kMaxLength);
    result.ReallocateDiscarding(n);
    std::wmemset(result.data, ch, Elements(n));
    result.data[n] = 0;
    result.length = n;
    return result;
}

Westring Westring::TrimLeft() const {
    int start = 0;
    while (start < length && IsBlank(data[start]))
        start++;
    return Right(length - start);
}

Westring Westring::TrimRight() const {
    int end = length;
    while (end > 0 && IsBlank(data[end - 1]))
        end--;
    return Left(end);
}

Westring Westring::Trim() const {
    return TrimLeft().TrimRight();
}

static Westring Concatenate(const wchar_t* a, int lengthA, const wchar_t* b, int lengthB) {
    Westring result(lengthA + lengthB);
    result.Append(a, lengthA);
    result.Append(b, lengthB);
    return result;
}

Westring operator+(const Westring& a, const Westring& b) {
    return Concatenate(a.c_str(), a.Length(), b.c_str(), b.Length());
}

Westring operator+(const wchar_t* a, const Westring& b) {
    return Concatenate(a, BoundedLength(a), b.c_str(), b.Length());
}

Westring operator+(const Westring& a, const wchar_t* b) {
    return Concatenate(a.c_str(), a.Length(), b, BoundedLength(b));
}

Westring operator+(const char* utf8, const Westring& b) {
    return Westring(utf8) + b;
}

Westring operator+(const Westring& a, const char* utf8) {
    return a + Westring(utf8);
}

static bool SameText(const Westring& a, const wchar_t* b) {
    return wcscasecmp(a.c_str(), b == nullptr ? L"" : b) == 0;
}

bool operator==(const Westring& a, const Westring& b) {
    return SameText(a, b.c_str());
}
bool operator==(const Westring& a, const wchar_t* b) {
    return SameText(a, b);
}
bool operator!=(const Westring& a, const Westring& b) {
    return !SameText(a, b.c_str());
}
bool operator!=(const Westring& a, const wchar_t* b) {
    return !SameText(a, b);
}

}  // namespace zt
