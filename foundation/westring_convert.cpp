// Westring: its conversions from and to bytes. The UTF-8 decoding is lenient, so that texts in
// other encodings stay readable; file names go through file_name.h instead, which loses nothing.
#include <cstring>

#include <algorithm>
#include <limits>

#include "foundation/code_page.h"
#include "foundation/westring.h"

namespace zt {

namespace {

constexpr wchar_t kOverlongNul = -1;  // 0xFFFFFFFF, and the single byte 0xFF when encoded

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

int ContinuationsAfter(unsigned char lead) {
    if ((lead & 0xE0) == 0xC0) return 1;
    if ((lead & 0xF0) == 0xE0) return 2;
    if ((lead & 0xF8) == 0xF0) return 3;
    return 0;
}

// Decodes the sequence at `at`, which starts with a byte of 0x80 or more. Gives how many bytes it
// takes, or 0 when it is malformed. The terminator behind the text is no continuation byte.
int DecodeSequence(const unsigned char* at, const unsigned char* end, uint32_t& code) {
    int more = ContinuationsAfter(*at);
    if (more == 0 || end - at <= more) return 0;
    code = *at & (0x3Fu >> more);
    for (int i = 1; i <= more; i++) {
        if (!IsContinuation(at[i])) return 0;
        code = code << 6 | (at[i] & 0x3Fu);
    }
    return more + 1;
}

int EncodedLength(wchar_t ch) {
    if (ch <= 0x7F) return 1;
    if (ch < 0x800) return 2;
    return ch <= 0xFFFF ? 3 : 4;
}

char Byte(wchar_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

// Writes up to 4 bytes and gives how many.
int Encode(wchar_t ch, char* bytes) {
    constexpr wchar_t kLeadMarks[] = {0, 0xC0, 0xE0, 0xF0};
    int n = EncodedLength(ch);
    if (n == 1) {
        bytes[0] = Byte(ch);
        return 1;
    }
    for (int i = n - 1; i > 0; i--) {
        bytes[i] = Byte(0x80 | (ch & 0x3F));
        ch >>= 6;
    }
    bytes[0] = Byte(kLeadMarks[n - 1] | ch);
    return n;
}

}  // namespace

bool Westring::AssignUtf8(const char* utf8) {
    size_t n = utf8 == nullptr ? 0 : std::strlen(utf8);
    constexpr size_t kMost = std::numeric_limits<int>::max() - 1;
    return AssignUtf8(utf8, static_cast<int>(std::min(n, kMost)));
}

bool Westring::AssignUtf8(const char* utf8, int n) {
    n = utf8 == nullptr || n <= 0 ? 0 : static_cast<int>(strnlen(utf8, static_cast<size_t>(n)));
    ReallocateDiscarding(n);
    const auto* at = reinterpret_cast<const unsigned char*>(utf8);
    const unsigned char* end = at + n;
    bool wellFormed = true;
    wchar_t* out = data;
    while (at < end) {
        if (*at < 0x80) {
            *out++ = *at++;
            continue;
        }
        uint32_t code = 0;
        int taken = DecodeSequence(at, end, code);
        if (taken == 0) {
            code = *at;
            taken = 1;
            wellFormed = false;
        }
        if (code == 0) wellFormed = false;
        *out++ = code == 0 ? kOverlongNul : static_cast<wchar_t>(code);
        at += taken;
    }
    *out = 0;
    length = static_cast<int32_t>(out - data);
    return wellFormed;
}

Estring Westring::ToUtf8() const {
    int64_t bytes = 0;
    for (int i = 0; i < length; i++)
        bytes += EncodedLength(data[i]);
    Estring result(static_cast<int>(std::min<int64_t>(bytes, std::numeric_limits<int>::max() - 1)));
    char piece[256];
    int filled = 0;
    for (int i = 0; i < length; i++) {
        if (filled > static_cast<int>(sizeof piece) - 4) {
            result.Append(piece, filled);
            filled = 0;
        }
        filled += Encode(data[i], piece + filled);
    }
    result.Append(piece, filled);
    return result;
}

Estring Westring::ToNarrow() const {
    Estring result(length);
    for (int i = 0; i < length; i++)
        result += Byte(data[i]);
    return result;
}

Westring Westring::FromWiden(const Estring& bytes) {
    Westring result(bytes.Length());
    for (int i = 0; i < bytes.Length(); i++) {
        result += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]));
    }
    return result;
}

Westring Westring::FromUtf16(const uint16_t* units) {
    if (units == nullptr) return Westring();
    auto isPair = [](const uint16_t* at) {
        return (at[0] & 0xFC00) == 0xD800 && (at[1] & 0xFC00) == 0xDC00;
    };
    int count = 0;
    for (const uint16_t* at = units; *at != 0; at += isPair(at) ? 2 : 1)
        count++;
    Westring result(count);
    for (const uint16_t* at = units; *at != 0; at++) {
        if (isPair(at)) {
            result += static_cast<wchar_t>(((at[0] & 0x3FF) << 10 | (at[1] & 0x3FF)) + 0x10000);
            at++;
        } else {
            result += static_cast<wchar_t>(*at);
        }
    }
    return result;
}

bool Westring::FromCodePage(const char* bytes, int codePage, Westring& target) {
    // The bytes may be the target's own only after a cast; the result is built apart anyhow.
    return DecodeCodePage(bytes, codePage, target);
}

Estring Westring::ToCodePage(int codePage) const {
    return EncodeCodePage(*this, codePage);
}

}  // namespace zt
