#include "foundation/code_page.h"

#include <iconv.h>
#include <cerrno>
#include <cstring>

#include <memory>

namespace zt {

namespace {

constexpr wchar_t kUndecodable = 0x2302;
constexpr char kWideEncoding[] = "UCS-4LE";

struct CodePageRow {
    int codePage;
    const char* name;
};
constexpr CodePageRow kNamedCodePages[] = {
    {878, "KOI8-R"},
    {20866, "KOI8-R"},
    {819, "ISO-8859-1"},
};

class Conversion {
public:
    Conversion(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~Conversion() {
        if (IsOpen()) iconv_close(handle_);
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
    // 0, or the errno value that stopped the conversion. A null `in` writes what is held back.
    int Run(char** in, size_t* inLeft, char** out, size_t* outLeft) {
        return iconv(handle_, in, inLeft, out, outLeft) == static_cast<size_t>(-1) ? errno : 0;
    }

private:
    iconv_t handle_;
};

}  // namespace

Estring CodePageName(int codePage) {
    for (const CodePageRow& row : kNamedCodePages) {
        if (row.codePage == codePage) return row.name;
    }
    return Estring::Format("CP%d", codePage);
}

bool DecodeCodePage(const char* bytes, int codePage, Westring& target) {
    Conversion conversion(kWideEncoding, CodePageName(codePage).c_str());
    if (!conversion.IsOpen()) {
        target.Clear();
        return false;
    }
    size_t inLeft = bytes == nullptr ? 0 : std::strlen(bytes);
    auto wide = std::make_unique<wchar_t[]>(inLeft + 1);
    char* in = const_cast<char*>(bytes);  // iconv's old signature; it does not write there
    char* out = reinterpret_cast<char*>(wide.get());
    size_t outLeft = inLeft * sizeof(wchar_t);
    bool clean = true;
    while (inLeft > 0) {
        int error = conversion.Run(&in, &inLeft, &out, &outLeft);
        if (error == 0) break;
        clean = false;
        if (error == E2BIG || outLeft < sizeof(wchar_t)) break;
        std::memcpy(out, &kUndecodable, sizeof(wchar_t));
        out += sizeof(wchar_t);
        outLeft -= sizeof(wchar_t);
        in++;
        inLeft--;
    }
    // Some code pages hold a letter back until they know that no accent follows.
    conversion.Run(nullptr, nullptr, &out, &outLeft);
    auto length = reinterpret_cast<wchar_t*>(out) - wide.get();
    target.Assign(wide.get(), static_cast<int>(length));
    return clean;
}

Estring EncodeCodePage(const Westring& text, int codePage) {
    Conversion conversion(CodePageName(codePage).c_str(), kWideEncoding);
    if (!conversion.IsOpen()) return Estring();
    auto room = static_cast<size_t>(text.Length());
    auto narrow = std::make_unique<char[]>(room + 1);
    char* in = reinterpret_cast<char*>(const_cast<wchar_t*>(text.c_str()));
    size_t inLeft = room * sizeof(wchar_t);
    char* out = narrow.get();
    size_t outLeft = room;
    conversion.Run(&in, &inLeft, &out, &outLeft);
    Estring result;
    result.Assign(narrow.get(), static_cast<int>(out - narrow.get()));
    return result;
}

}  // namespace zt
