#include "foundation/locale_formats.h"

#include <langinfo.h>

#include <clocale>
#include <cstdio>
#include <cstring>

#include "foundation/westring.h"

namespace zt {

LocaleFormats localeFormats;

namespace {

bool IsDigit(wchar_t ch) {
    return ch >= '0' && ch <= '9';
}
bool IsLetter(wchar_t ch) {
    return (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z');
}

}  // namespace

void SetThousandsFormat(const char* separator, LocaleFormats& formats) {
    const Westring text(separator);
    formats.thousandsSeparator = text.IsEmpty() ? L',' : text[0];
}

void SetDateFormat(const char* pattern, LocaleFormats& formats) {
    const Westring text(pattern);
    Estring letters;
    formats.dateSeparator = 0;
    for (int i = 0; i < text.Length(); i++) {
        const wchar_t ch = text[i];
        if (IsLetter(ch)) {
            letters += static_cast<char>(ch | 0x20);
        } else if (!IsDigit(ch) && ch != '%' && formats.dateSeparator == 0) {
            formats.dateSeparator = ch;
        }
    }
    formats.dateOrder = kYearFirst;
    if (letters == "mdy") formats.dateOrder = kMonthFirst;
    if (letters == "dmy") formats.dateOrder = kDayFirst;

    Westring separator;
    if (formats.dateSeparator != 0) separator += formats.dateSeparator;
    const Estring utf8 = separator.ToUtf8();
    snprintf(formats.dateFormat, sizeof formats.dateFormat, "%%02d%s%%02d%s%%02d", utf8.c_str(),
             utf8.c_str());
}

void InitLocaleFormats() {
    setlocale(LC_ALL, "");
    SetThousandsFormat(nl_langinfo(THOUSEP), localeFormats);
    SetDateFormat(nl_langinfo(D_FMT), localeFormats);
}

}  // namespace zt
