#include "foundation/shell_text.h"

namespace zt {

namespace {

constexpr wchar_t kSpecial[] = L" !$~`[]{}()\\'\"<>&|;#";

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

bool NeedsQuotes(const Westring& text) {
    for (int i = 0; i < text.Length(); i++) {
        const wchar_t ch = text[i];
        if (ch < L' ' || ch == 0x7F || ch == L'*' || ch == L'?' || ch == L'^') return true;
    }
    return false;
}

}  // namespace

Westring ShellEscape(const Westring& text) {
    if (text.Find(L'\n') >= 0) return Quoted(text);
    Westring escaped(text.Length());
    const Westring special = kSpecial;
    for (int i = 0; i < text.Length(); i++) {
        if (special.Find(text[i]) >= 0) escaped += L'\\';
        escaped += static_cast<wchar_t>(text[i]);
    }
    return escaped;
}

Westring ShellWord(const Westring& name) {
    const Westring text = name[0] == L'-' ? L"./" + name : name;
    return NeedsQuotes(text) ? Quoted(text) : ShellEscape(text);
}

}  // namespace zt
