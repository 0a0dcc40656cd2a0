// What the locale says about numbers and dates: filled by InitLocaleFormats at start-up and after
// the configuration dialog, read by everything that shows a size or a date. First thread writes.
#pragma once

namespace zt {

enum DateOrder { kMonthFirst = 0, kDayFirst = 1, kYearFirst = 2 };

struct LocaleFormats {
    wchar_t thousandsSeparator = ',';
    wchar_t dateSeparator = '/';  // 0 when the locale has none
    // For three ints in dateOrder, two digits each, with the separator between, as UTF-8.
    char dateFormat[24] = "%02d/%02d/%02d";
    int dateOrder = kMonthFirst;
};

extern LocaleFormats localeFormats;

// Takes the locale that the environment names. The console's code page is the caller's to set
// (ConsoleCodePage).
void InitLocaleFormats();

// The parts, for a locale's own texts (UTF-8): the first character of THOUSEP, and D_FMT.
void SetThousandsFormat(const char* separator, LocaleFormats& formats);
void SetDateFormat(const char* pattern, LocaleFormats& formats);

// The code page for the console when the setting `CodePage` is this.
inline int ConsoleCodePage(int setting) {
    return setting == 0 ? 850 : setting;
}

}  // namespace zt
