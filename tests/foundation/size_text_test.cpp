// Sizes in columns, and what the locale says about them and about dates.
#include "foundation/size_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <string>

#include "foundation/locale_formats.h"

namespace zt {
namespace {

class SizeText : public testing::Test {
protected:
    void SetUp() override { localeFormats = LocaleFormats(); }
    static std::string Grouped(const wchar_t* digits) {
        Westring target;
        GroupThousands(digits, target);
        return target.ToUtf8().c_str();
    }
    static std::string Size32(uint32_t value, int width) {
        Westring target;
        FormatSize32(value, target, width);
        return target.ToUtf8().c_str();
    }
    static std::string Size64(uint64_t value, int width) {
        Westring target;
        FormatSize64(value, target, width);
        return target.ToUtf8().c_str();
    }
};

TEST_F(SizeText, GroupsFromTheRight) {
    EXPECT_EQ(Grouped(L""), "");
    EXPECT_EQ(Grouped(L"1"), "1");
    EXPECT_EQ(Grouped(L"123"), "123");
    EXPECT_EQ(Grouped(L"1234"), "1,234");
    EXPECT_EQ(Grouped(L"123456"), "123,456");
    EXPECT_EQ(Grouped(L"1234567"), "1,234,567");
    EXPECT_EQ(Grouped(L"18446744073709551615"), "18,446,744,073,709,551,615");
}

TEST_F(SizeText, GroupsATextInPlace) {
    Westring text("1234");
    GroupThousands(text.c_str(), text);
    EXPECT_STREQ(text.c_str(), L"1,234");
}

TEST_F(SizeText, Fits32BitsIntoTheWidth) {
    const struct {
        uint32_t value;
        int width;
        const char* text;
    } rows[] = {
        // Width 4: three digits' room; above 1,000 comes K, above 100 of those comes M.
        {999, 4, "999"},
        {1000, 4, "1,000"},
        {1001, 4, "0K"},
        {102400, 4, "100K"},
        {103424, 4, "0M"},
        {1048576, 4, "1M"},
        {0xFFFFFFFF, 4, "4,095M"},
        // Width 8: six digits.
        {1000000, 8, "1,000,000"},
        {1000001, 8, "976K"},
        {102400000, 8, "100,000K"},
        {102401024, 8, "97M"},
        // From ten digits on everything fits.
        {0xFFFFFFFF, 13, "4,294,967,295"},
        {0xFFFFFFFF, 14, "4,294,967,295"},
        {0xFFFFFFFF, 100, "4,294,967,295"},
        // No room at all.
        {0, 0, "0"},
        {1, 0, "1"},
        {2, 0, "0K"},
        {0xFFFFFFFF, -8, "4,095M"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Size32(row.value, row.width), row.text) << row.width;
}

TEST_F(SizeText, Fits64BitsIntoTheWidth) {
    const struct {
        uint64_t value;
        int width;
        const char* text;
    } rows[] = {
        // Width 8: six digits, no digit less for the suffix.
        {999999, 8, "999,999"},
        {1000000, 8, "976K"},
        {1024000000, 8, "1,000,000K"},  // at the limit is not above it
        {1024001024, 8, "976M"},
        // Width 9: seven digits, six with a suffix.
        {9999999, 9, "9,999,999"},
        {10000000, 9, "9,765K"},
        {1024000000, 9, "1,000,000K"},
        {1024001024, 9, "976M"},
        {1024ull * 1024 * 1000001, 9, "976G"},
        {1024ull * 1024 * 1024 * 1000001, 9, "976T"},
        {UINT64_MAX, 9, "16,777,215T"},
        {UINT64_MAX, 4, "16,777,215T"},
        // 18 digits at most, whatever the width.
        {999999999999999999ull, 100, "999,999,999,999,999,999"},
        {1000000000000000000ull, 100, "976,562,500,000,000K"},
        {1000000000000000000ull, 23, "976,562,500,000,000K"},
        {0, 0, "0"},
        {1, 0, "0K"},
        {5, -3, "0K"},
        {1536, 20, "1,536"},
        {1536, 6, "1,536"},
        {99999, 6, "99,999"},
        {100000, 6, "97K"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Size64(row.value, row.width), row.text) << row.width;
}

TEST_F(SizeText, KeepsTheWidth) {
    for (int width = 6; width <= 24; width++) {
        for (uint64_t value = 1; value < 1ull << 50; value = value * 3 + 1) {
            EXPECT_LE(static_cast<int>(Size64(value, width).size()), width) << value;
        }
    }
}

class Locale : public testing::Test {
protected:
    void TearDown() override {
        unsetenv("LC_ALL");
        setlocale(LC_ALL, "C");
        localeFormats = LocaleFormats();
    }
    static void Take(const char* name) {
        setenv("LC_ALL", name, 1);
        ASSERT_TRUE(setlocale(LC_ALL, "")) << name << " is not installed";
        setlocale(LC_ALL, "C");
        InitLocaleFormats();
        EXPECT_STREQ(setlocale(LC_ALL, nullptr), name);
    }
};

TEST_F(Locale, GivesSeparatorsAndTheDateOrder) {
    const struct {
        const char* name;
        wchar_t thousands, date;
        int order;
        const char* format;
    } rows[] = {
        {"C", ',', '/', kMonthFirst, "%02d/%02d/%02d"},
        {"C.UTF-8", ',', '/', kMonthFirst, "%02d/%02d/%02d"},
        {"en_US.UTF-8", ',', '/', kMonthFirst, "%02d/%02d/%02d"},
        {"de_DE.UTF-8", '.', '.', kDayFirst, "%02d.%02d.%02d"},
        {"fr_FR.UTF-8", 0x202F, '/', kDayFirst, "%02d/%02d/%02d"},
        {"sv_SE.UTF-8", 0x202F, '-', kYearFirst, "%02d-%02d-%02d"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Take(row.name);
        EXPECT_EQ(localeFormats.thousandsSeparator, row.thousands);
        EXPECT_EQ(localeFormats.dateSeparator, row.date);
        EXPECT_EQ(localeFormats.dateOrder, row.order);
        EXPECT_STREQ(localeFormats.dateFormat, row.format);
    }
}

TEST_F(Locale, GroupsWithItsOwnSeparator) {
    Take("de_DE.UTF-8");
    Westring text;
    GroupThousands(L"1234567", text);
    EXPECT_STREQ(text.c_str(), L"1.234.567");
}

TEST(LocaleFormats, ReadsDatePatterns) {
    const struct {
        const char* pattern;
        int order;
        wchar_t separator;
        const char* shown;
    } rows[] = {
        {"%m/%d/%y", kMonthFirst, '/', "01/02/03"},
        {"%d.%m.%Y", kDayFirst, '.', "01.02.03"},
        {"%D-%M-%Y", kDayFirst, '-', "01-02-03"},
        {"%Y-%m-%d", kYearFirst, '-', "01-02-03"},
        {"%e. %m. %Y", kYearFirst, '.', "01.02.03"},
        {"%-d. %-m. %Y", kDayFirst, '-', "01-02-03"},
        {"%m2%d2%y", kMonthFirst, 0, "010203"},
        {"%d%m%y", kDayFirst, 0, "010203"},
        {"", kYearFirst, 0, "010203"},
        {"%Y年%m月%d日", kYearFirst, L'年', "01年02年03"},
    };
    for (const auto& row : rows) {
        LocaleFormats formats;
        SetDateFormat(row.pattern, formats);
        EXPECT_EQ(formats.dateOrder, row.order) << row.pattern;
        EXPECT_EQ(formats.dateSeparator, row.separator) << row.pattern;
        char shown[40];
        snprintf(shown, sizeof shown, formats.dateFormat, 1, 2, 3);
        EXPECT_STREQ(shown, row.shown);
    }
}

TEST(LocaleFormats, TakesACommaWhereTheLocaleHasNoSeparator) {
    LocaleFormats formats;
    SetThousandsFormat("", formats);
    EXPECT_EQ(formats.thousandsSeparator, L',');
    SetThousandsFormat("’x", formats);
    EXPECT_EQ(formats.thousandsSeparator, L'’');
}

TEST(LocaleFormats, HasACodePageForTheConsole) {
    EXPECT_EQ(ConsoleCodePage(0), 850);
    EXPECT_EQ(ConsoleCodePage(1252), 1252);
}

}  // namespace
}  // namespace zt
