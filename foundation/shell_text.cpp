#include "foundation/shell_text.h"

namespace zt {

namespace {

constexpr wchar_t kSpecial[] = L" !$~`[]{}()\\'\"<>&|;#";
constexpr wchar_t kPatterns[] = L"*?^";

Westring Quoted(const Westring& text) {
    Westring quoted = L"'";
    for (int i = 0; i < text.Length(); i++) {
        if (text[i] == L'\'') {
            quoted += L"'\\''";
        } else {
            quoted += static_cast<wchar_t>(text[i]);
        }
    }
    return quoted + L"'";
}

// A backslash before each character of `special`; what no backslash protects goes into quotes.
Westring Escape(const Westring& text, const Westring& special, bool quoteControls) {
    Westring escaped(text.Length());
    for (int i = 0; i < text.Length(); i++) {
        const wchar_t ch = text[i];
        const bool isControl = ch < L' ' || ch == 0x7F;
        if (ch == L'\n' || (isControl && quoteControls)) return Quoted(text);
        if (special.Find(ch) >= 0) escaped += L'\\';
        escaped += ch;
    }
    return escaped;
}

}  // namespace

Westring ShellEscape(const Westring& text) {
    return Escape(text, kSpecial, false);
}

Westring ShellWord(const Westring& name) {
    return Escape(name[0] == L'-' ? L"./" + name : name, Westring(kSpecial) + kPatterns, true);
}

}  // namespace zt
