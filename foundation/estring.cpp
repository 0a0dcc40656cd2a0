// Estring: its storage, its appending and its cutting. Short texts stay in the object; longer ones
// have a heap block of their own. Any operation may be given a piece of the string itself.
#include "foundation/estring.h"

#include <strings.h>
#include <cctype>
#include <cstdio>
#include <cstring>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace zt {

namespace {

constexpr int32_t kMaxLength = std::numeric_limits<int32_t>::max() - 1;

int BoundedLength(const char* text) {
    if (text == nullptr) return 0;
    return static_cast<int>(std::min<size_t>(std::strlen(text), static_cast<size_t>(kMaxLength)));
}

size_t Bytes(int n) {
    return static_cast<size_t>(n);
}

bool IsBlank(char ch) {
    return std::isspace(static_cast<unsigned char>(ch)) != 0;
}

const char* OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

Estring::Reader::operator char() const {
    return text_.data[std::clamp(index_, 0, text_.capacity - 1)];
}

Estring::Estring() : data(inlineBuffer), capacity(kInlineCapacity), length(0), inlineBuffer{} {}

Estring::Estring(const char* text) : Estring() {
    Assign(text, BoundedLength(text));
}

Estring::Estring(const Estring& other) : Estring() {
    *this = other;
}

Estring::Estring(Estring&& other) noexcept : Estring() {
    *this = static_cast<Estring&&>(other);
}

Estring::Estring(int reserve) : Estring() {
    ReallocateDiscarding(std::clamp(reserve, 0, kMaxLength));
    std::memset(data, 0, Bytes(capacity));
}

Estring::~Estring() {
    Release();
}

void Estring::Release() {
    if (data != nullptr && data != inlineBuffer) delete[] data;
}

// Makes room for n characters; what the string held is lost and the caller refills it.
void Estring::ReallocateDiscarding(int n) {
    if (capacity > n) return;
    char* block = new char[Bytes(n) + 1];
    Release();
    data = block;
    capacity = n + 1;
}

// Makes room for n characters and some more, keeping all that the old block held.
void Estring::GrowPreserving(int n) {
    if (capacity > n) return;
    int64_t wanted = static_cast<int64_t>(n) + n / 4 + 1;
    int32_t grown = static_cast<int32_t>(std::min<int64_t>(wanted, kMaxLength + int64_t{1}));
    char* block = new char[Bytes(grown)];
    std::memcpy(block, data, Bytes(capacity));
    std::memset(block + capacity, 0, Bytes(grown - capacity));
    Release();
    data = block;
    capacity = grown;
}

Estring& Estring::operator=(const Estring& other) {
    if (this != &other) {
        ReallocateDiscarding(other.length);
        std::memcpy(data, other.data, Bytes(other.length) + 1);
        length = other.length;
    }
    return *this;
}

Estring& Estring::operator=(Estring&& other) noexcept {
    if (this == &other) return *this;
    Release();
    if (other.data == other.inlineBuffer) {
        std::memcpy(inlineBuffer, other.inlineBuffer, sizeof inlineBuffer);
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

Estring& Estring::operator=(const char* text) {
    Assign(text, BoundedLength(text));
    return *this;
}

void Estring::Assign(const char* bytes, int n) {
    int taken = bytes == nullptr || n <= 0
                    ? 0
                    : static_cast<int>(strnlen(bytes, Bytes(std::min(n, kMaxLength))));
    // A piece of this very string always fits, so that it is never freed before it is copied.
    ReallocateDiscarding(taken);
    if (taken > 0) std::memmove(data, bytes, Bytes(taken));
    data[taken] = 0;
    length = taken;
}

void Estring::Clear() {
    data[0] = 0;
    length = 0;
}

Estring& Estring::operator+=(const Estring& other) {
    Append(other.data, other.length);
    return *this;
}

Estring& Estring::operator+=(const char* text) {
    Append(text, BoundedLength(text));
    return *this;
}

Estring& Estring::operator+=(char ch) {
    if (ch != 0 && length < kMaxLength) {
        GrowPreserving(length + 1);
        data[length++] = ch;
        data[length] = 0;
    }
    return *this;
}

void Estring::Append(const char* bytes, int n) {
    if (bytes == nullptr || n <= 0) return;
    int taken = static_cast<int>(strnlen(bytes, Bytes(std::min(n, kMaxLength - length))));
    bool own = bytes >= data && bytes < data + capacity;
    std::ptrdiff_t offset = own ? bytes - data : 0;
    GrowPreserving(length + taken);
    if (own) bytes = data + offset;
    std::memmove(data + length, bytes, Bytes(taken));
    length += taken;
    data[length] = 0;
}

void Estring::SetAt(int index, char ch) {
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

Estring Estring::Left(int n) const {
    Estring result;
    result.Assign(data, std::clamp(n, 0, length));
    return result;
}

Estring Estring::Mid(int start, int n) const {
    start = std::clamp(start, 0, length);
    if (n <= 0 || n > length - start) n = length - start;
    Estring result;
    result.Assign(data + start, n);
    return result;
}

Estring Estring::Right(int n) const {
    n = std::clamp(n, 0, length);
    Estring result;
    result.Assign(data + length - n, n);
    return result;
}

Estring Estring::DropRight(int n) const {
    return Left(length - std::clamp(n, 0, length));
}

Estring Estring::PadRight(int width, char fill) const {
    Estring result = Left(width);
    return result + Repeat(fill, width - result.length);
}

Estring Estring::PadLeft(int width, char fill) const {
    Estring tail = Right(width);
    return Repeat(fill, width - tail.length) + tail;
}

Estring Estring::Repeat(char ch, int n) {
    Estring result;
    if (n < 1 || ch == 0) return result;
    n = std::min(n, kMaxLength);
    result.ReallocateDiscarding(n);
    std::memset(result.data, ch, Bytes(n));
    result.data[n] = 0;
    result.length = n;
    return result;
}

int Estring::Find(char ch) const {
    const char* hit = ch == 0 ? nullptr : std::strchr(data, ch);
    return hit == nullptr ? -1 : static_cast<int>(hit - data);
}

int Estring::FindLast(char ch) const {
    const char* hit = ch == 0 ? nullptr : std::strrchr(data, ch);
    return hit == nullptr ? -1 : static_cast<int>(hit - data);
}

int Estring::FindOutsideQuotes(char ch, char quote) const {
    if (ch == 0) return -1;
    bool inQuotes = false;
    for (int i = 0; i < length; i++) {
        if (data[i] == quote) {
            inQuotes = !inQuotes;
        } else if (data[i] == ch && !inQuotes) {
            return i;
        }
    }
    return -1;
}

Estring Estring::TrimLeft() const {
    int start = 0;
    while (start < length && IsBlank(data[start]))
        start++;
    return Right(length - start);
}

Estring Estring::TrimRight() const {
    int end = length;
    while (end > 0 && IsBlank(data[end - 1]))
        end--;
    return Left(end);
}

Estring Estring::Trim() const {
    return TrimLeft().TrimRight();
}

Estring operator+(const Estring& a, const Estring& b) {
    Estring result(a.Length() + b.Length());
    result.Append(a.c_str(), a.Length());
    result.Append(b.c_str(), b.Length());
    return result;
}

Estring operator+(const char* a, const Estring& b) {
    int n = BoundedLength(a);
    Estring result(n + b.Length());
    result.Append(a, n);
    result.Append(b.c_str(), b.Length());
    return result;
}

Estring operator+(const Estring& a, const char* b) {
    int n = BoundedLength(b);
    Estring result(a.Length() + n);
    result.Append(a.c_str(), a.Length());
    result.Append(b, n);
    return result;
}

static int Relation(const Estring& a, const char* b) {
    return strcasecmp(a.c_str(), OrEmpty(b));
}

bool operator==(const Estring& a, const Estring& b) {
    return Relation(a, b.c_str()) == 0;
}
bool operator==(const Estring& a, const char* b) {
    return Relation(a, b) == 0;
}
bool operator!=(const Estring& a, const Estring& b) {
    return Relation(a, b.c_str()) != 0;
}
bool operator!=(const Estring& a, const char* b) {
    return Relation(a, b) != 0;
}
bool operator<(const Estring& a, const Estring& b) {
    return Relation(a, b.c_str()) < 0;
}
bool operator<(const Estring& a, const char* b) {
    return Relation(a, b) < 0;
}
bool operator<=(const Estring& a, const Estring& b) {
    return Relation(a, b.c_str()) <= 0;
}
bool operator<=(const Estring& a, const char* b) {
    return Relation(a, b) <= 0;
}
bool operator>(const Estring& a, const Estring& b) {
    return Relation(a, b.c_str()) > 0;
}
bool operator>(const Estring& a, const char* b) {
    return Relation(a, b) > 0;
}
bool operator>=(const Estring& a, const Estring& b) {
    return Relation(a, b.c_str()) >= 0;
}
bool operator>=(const Estring& a, const char* b) {
    return Relation(a, b) >= 0;
}

}  // namespace zt
