// Letter case of names.
#include "fileops/change_case.h"

#include <locale.h>
#include <wctype.h>

#include "foundation/case_fold.h"
#include "foundation/file_name.h"

namespace zt {

namespace {

// As Unicode has it, whatever the user's locale: names look alike to everyone.
bool IsLetter(wchar_t ch) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (IsRawByte(ch)) return false;
    if (LowerCaseOf(ch) != UpperCaseOf(ch)) return true;
    const auto code = static_cast<wint_t>(ch);
    return unicode ? iswalpha_l(code, unicode) != 0 : iswalpha(code) != 0;
}

bool IsDigit(wchar_t ch) {
    return ch >= L'0' && ch <= L'9';
}

Westring Convert(const Westring& text, wchar_t (*caseOf)(wchar_t)) {
    Westring result(text);
    for (int i = 0; i < text.Length(); ++i)
        result.SetAt(i, caseOf(text[i]));
    return result;
}

// Whether the letters from `start` on are a word of their own behind an apostrophe.
bool BeginsWord(const Westring& text, int start) {
    int end = start;
    while (end < text.Length() && IsLetter(text[end]))
        ++end;
    if (end - start <= 1) return false;
    if (end - start > 2) return true;
    const wchar_t first = LowerCaseOf(text[start]);
    const wchar_t second = LowerCaseOf(text[start + 1]);
    const bool isShort = (first == L'l' && second == L'l') || (first == L'v' && second == L'e');
    return !isShort;
}

Westring InMode(const Westring& text, char mode) {
    switch (mode) {
        case kLowerCase:
            return Convert(text, LowerCaseOf);
        case kUpperCase:
            return Convert(text, UpperCaseOf);
        case kMixedCase:
            return MixedCase(text);
        default:
            return text;
    }
}

}  // namespace

Westring MixedCase(const Westring& text) {
    Westring result(text);
    bool capitalise = true;
    for (int i = 0; i < text.Length(); ++i) {
        const wchar_t ch = text[i];
        if (IsLetter(ch)) {
            result.SetAt(i, capitalise ? UpperCaseOf(ch) : LowerCaseOf(ch));
            const bool atApostrophe = i + 1 < text.Length() && text[i + 1] == L'\'';
            capitalise = capitalise && atApostrophe && BeginsWord(text, i + 2);
        } else if (IsDigit(ch)) {
            capitalise = false;
        } else if (ch != L'\'') {
            capitalise = true;
        }
    }
    return result;
}

Westring NameInCase(const Westring& name, char nameMode, char extensionMode) {
    const int dot = name.FindLast(L'.');
    const int length = dot < 0 ? name.Length() : dot;
    return InMode(name.Left(length), nameMode) +
           InMode(name.Right(name.Length() - length), extensionMode);
}

}  // namespace zt
