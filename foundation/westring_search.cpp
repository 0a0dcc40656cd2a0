// Westring: finding, replacing and folding of case.
#include <cwchar>

#include "foundation/case_fold.h"
#include "foundation/westring.h"

namespace zt {

int Westring::Find(wchar_t ch) const {
    const wchar_t* hit = ch == 0 ? nullptr : std::wcschr(data, ch);
    return hit == nullptr ? -1 : static_cast<int>(hit - data);
}

int Westring::FindLast(wchar_t ch) const {
    const wchar_t* hit = ch == 0 ? nullptr : std::wcsrchr(data, ch);
    return hit == nullptr ? -1 : static_cast<int>(hit - data);
}

int Westring::Find(const Westring& text) const {
    return Find(text, 0);
}

int Westring::Find(const Westring& text, int from) const {
    if (from > length) return -1;
    const wchar_t* hit = std::wcsstr(data + (from < 0 ? 0 : from), text.data);
    return hit == nullptr ? -1 : static_cast<int>(hit - data);
}

int Westring::FindNoCase(const Westring& text) const {
    return ToUpper().Find(text.ToUpper());
}

int Westring::FindNth(wchar_t ch, int n) const {
    if (ch == 0 || n < 1) return -1;
    for (int i = 0; i < length; i++) {
        if (data[i] == ch && --n == 0) return i;
    }
    return -1;
}

int Westring::FindOutsideQuotes(wchar_t ch) const {
    if (ch == 0) return -1;
    bool inQuotes = false;
    for (int i = 0; i < capacity && data[i] != 0; i++) {
        if (data[i] == L'"') {
            inQuotes = !inQuotes;
        } else if (data[i] == ch && !inQuotes) {
            return i;
        }
    }
    return -1;
}

bool Westring::ReplaceFirst(const Westring& old, const Westring& replacement) {
    int at = old.length == 0 ? -1 : Find(old);
    if (at < 0) return false;
    *this = Left(at) + replacement + Right(length - at - old.length);
    return true;
}

bool Westring::ReplaceAll(const Westring& old, const Westring& replacement) {
    // Built in one pass, so that many replacements in a long text stay linear.
    Westring result;
    int from = 0;
    int at = old.length == 0 ? -1 : Find(old, from);
    if (at < 0) return false;
    for (; at >= 0; at = Find(old, from)) {
        result.Append(data + from, at - from);
        result += replacement;
        from = at + old.length;
    }
    result.Append(data + from, length - from);
    *this = static_cast<Westring&&>(result);
    return true;
}

Westring Westring::ToUpper() const {
    Westring result(*this);
    for (int i = 0; i < length; i++)
        result.data[i] = UpperCaseOf(data[i]);
    return result;
}

Westring Westring::ToLower() const {
    Westring result(*this);
    for (int i = 0; i < length; i++)
        result.data[i] = LowerCaseOf(data[i]);
    return result;
}

}  // namespace zt
