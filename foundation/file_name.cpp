#include "foundation/file_name.h"

#include <cstdint>
#include <cstring>
#include <cwchar>

#include <memory>

namespace zt {

namespace {

// The rows of well-formed sequences by RFC 3629, "UTF-8, a transformation format of ISO 10646":
// only the second byte's range depends on the lead byte.
struct LeadRow {
    unsigned char first, last;            // lead bytes
    unsigned char secondLow, secondHigh;  // what may follow them
    int more;                             // continuation bytes in all
};
constexpr LeadRow kLeads[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 1}, {0xE0, 0xE0, 0xA0, 0xBF, 2}, {0xE1, 0xEC, 0x80, 0xBF, 2},
    {0xED, 0xED, 0x80, 0x9F, 2}, {0xEE, 0xEF, 0x80, 0xBF, 2}, {0xF0, 0xF0, 0x90, 0xBF, 3},
    {0xF1, 0xF3, 0x80, 0xBF, 3}, {0xF4, 0xF4, 0x80, 0x8F, 3},
};

// How many bytes the well-formed sequence at `at` takes, or 0. It never looks past the terminator,
// which is in no range.
int WellFormedSequence(const unsigned char* at, wchar_t& code) {
    for (const LeadRow& row : kLeads) {
        if (*at < row.first || *at > row.last) continue;
        if (at[1] < row.secondLow || at[1] > row.secondHigh) return 0;
        code = *at & (0x3F >> row.more);
        for (int i = 1; i <= row.more; i++) {
            if ((at[i] & 0xC0) != 0x80) return 0;
            code = code << 6 | (at[i] & 0x3F);
        }
        return row.more + 1;
    }
    return 0;
}

bool IsAscii(const unsigned char* eightBytes) {
    uint64_t word;
    std::memcpy(&word, eightBytes, sizeof word);
    return (word & 0x8080808080808080u) == 0;
}

}  // namespace

int NameFromBytes(const char* bytes, wchar_t* target) {
    const auto* at = reinterpret_cast<const unsigned char*>(bytes);
    const unsigned char* end = at + std::strlen(bytes);
    wchar_t* out = target;
    while (at < end) {
        while (end - at >= 8 && IsAscii(at)) {
            for (int i = 0; i < 8; i++)
                out[i] = at[i];
            at += 8;
            out += 8;
        }
        while (at < end && *at < 0x80)
            *out++ = *at++;
        if (at == end) break;
        wchar_t code;
        int taken = WellFormedSequence(at, code);
        *out++ = taken > 0 ? code : kRawByteBase + *at;
        at += taken > 0 ? taken : 1;
    }
    *out = 0;
    return static_cast<int>(out - target);
}

Westring NameFromBytes(const char* bytes) {
    if (bytes == nullptr) return Westring();
    size_t n = std::strlen(bytes) + 1;
    constexpr size_t kOnStack = 512;
    if (n <= kOnStack) {
        wchar_t wide[kOnStack];
        NameFromBytes(bytes, wide);
        return Westring(wide);
    }
    auto wide = std::make_unique<wchar_t[]>(n);
    NameFromBytes(bytes, wide.get());
    return Westring(wide.get());
}

Estring NameToBytes(const wchar_t* name) {
    Estring result;
    if (name == nullptr) return result;
    while (*name != 0) {
        const wchar_t* run = name;
        while (*name != 0 && !IsRawByte(*name))
            name++;
        if (name > run) {
            Westring text;
            text.Assign(run, static_cast<int>(name - run));
            result += text.ToUtf8();
        }
        for (; IsRawByte(*name); name++)
            result += static_cast<char>(*name - kRawByteBase);
    }
    return result;
}

Estring NameToBytes(const Westring& name) {
    return NameToBytes(name.c_str());
}

Westring ShownText(const Westring& name) {
    Westring result(name);
    for (int i = 0; i < name.Length(); i++) {
        if (IsRawByte(name[i])) result.SetAt(i, ShownCharacter(name[i]));
    }
    return result;
}

Westring ParentOfPath(const Westring& path) {
    const int slash = path.FindLast('/');
    return path.Left(slash == 0 ? 1 : slash);
}

Westring NameOfPath(const Westring& path) {
    return path.Right(path.Length() - path.FindLast('/') - 1);
}

}  // namespace zt
