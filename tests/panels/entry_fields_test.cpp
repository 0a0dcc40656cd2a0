// Size, date, time and mode as text.
#include "panels/entry_fields.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ctime>
#include <memory>
#include <string>

#include "foundation/locale_formats.h"
#include "foundation/settings.h"

namespace zt {
namespace {

class EntryFields : public testing::Test {
protected:
    void SetUp() override {
        setenv("TZ", "UTC", 1);
        tzset();
        settings = Settings();
        localeFormats = LocaleFormats();
    }
    void TearDown() override { SetUp(); }

    static std::string Utf8(const Westring& text) { return text.ToUtf8().c_str(); }
    static std::string Size(uint64_t size, int width) {
        const std::unique_ptr<entry, void (*)(entry*)> e(NewEntry(L"f"), FreeEntry);
        e->size = size;
        return Utf8(SizeField(*e, width));
    }
    static std::string Label(const wchar_t* name, int flags, int width, int level = 0) {
        const std::unique_ptr<entry, void (*)(entry*)> e(NewEntry(name), FreeEntry);
        e->flags = static_cast<uint16_t>(flags);
        e->level = static_cast<int8_t>(level);
        e->size = 4711;
        return Utf8(SizeField(*e, width));
    }
    static std::unique_ptr<entry, void (*)(entry*)> At(int64_t seconds) {
        std::unique_ptr<entry, void (*)(entry*)> e(NewEntry(L"f"), FreeEntry);
        e->time.seconds = seconds;
        return e;
    }
};

TEST_F(EntryFields, ShowsSizesInTheColumn) {
    const struct {
        uint64_t size;
        int width;
        const char* text;
    } rows[] = {
        {0, 8, "       0"},
        {99999999, 8, "99999999"},
        {100000000, 8, "  97656K"},    // 10 to the 8
        {10239999999, 8, "9999999K"},  // the last below 10^7 K
        {10240000000, 8, "   9765M"},  // exactly 10^7 K
        {9999999, 7, "9999999"},
        {10000000, 7, "  9765K"},
        {9999999999, 10, "9999999999"},
        {10000000000, 10, "  9765625K"},
        {uint64_t{10000000} << 20, 8, "   9765G"},  // too many M for the column
        {0x7FFFFFFFFFFFFFFF, 8, "8388607T"},
        {0x8000000000000000, 8, "        "},  // the top bit shows blanks
        {0xFFFFFFFFFFFFFFFF, 10, "          "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Size(row.size, row.width), row.text) << row.size << " in " << row.width;
    }
}

TEST_F(EntryFields, GroupsTheDigitsOfSizes) {
    settings.thousandSep = true;
    const struct {
        uint64_t size;
        int width;
        const char* text;
    } rows[] = {
        {999999, 8, " 999,999"},
        {1000000, 8, "    976K"},
        {1023999999, 8, "999,999K"},
        {9999999, 10, " 9,999,999"},
        {99999999, 10, "99,999,999"},
        {100000000, 10, "   97,656K"},
        {1024000000, 8, "    976M"},      // exactly 1,000,000 K
        {10240000000, 10, "    9,765M"},  // exactly 10,000,000 K
        {102400000, 7, "    97M"},        // exactly 100,000 K
        {uint64_t{1000000} << 20, 8, "    976G"},
        {uint64_t{1000000} << 30, 8, "    976T"},
        {0x7FFFFFFFFFFFFFFF, 10, "8,388,607T"},
        {0x8000000000000000, 8, "        "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Size(row.size, row.width), row.text) << row.size << " in " << row.width;
    }
    localeFormats.thousandsSeparator = L'.';
    EXPECT_EQ(Size(1234567, 10), " 1.234.567");
}

// Up to the sizes for which even the last unit is too small.
TEST_F(EntryFields, KeepsGroupedSizesInTheirColumn) {
    constexpr uint64_t kEnd = uint64_t{100000} << 40;
    for (int width = 7; width <= 30; ++width) {
        for (uint64_t power = 1; power < kEnd; power *= 10) {
            for (int shift = 0; shift <= 40 && power < kEnd >> shift; shift += 10) {
                for (const uint64_t size : {(power << shift) - 1, power << shift}) {
                    EXPECT_LE(FormatSize(size, width).Length(), width) << size;
                }
            }
        }
    }
}

TEST_F(EntryFields, LabelsDirectoriesOfUnknownTotal) {
    EXPECT_EQ(Label(L"..", kDirectory, 10), "\x10 UP-DIR \x11");
    EXPECT_EQ(Label(L"..", kDirectory, 9), " \x10UP-DIR\x11");
    EXPECT_EQ(Label(L"..", kDirectory, 8), "\x10UP-DIR\x11");
    EXPECT_EQ(Label(L"l", kDirectory | kSymbolicLink, 10), "\x10  LINK  \x11");
    EXPECT_EQ(Label(L"l", kDirectory | kSymbolicLink, 8), "\x10 LINK \x11");
    EXPECT_EQ(Label(L"d", kDirectory, 10), "\x10 SUBDIR \x11");
    EXPECT_EQ(Label(L"d", kDirectory, 8), "\x10SUBDIR\x11");
    EXPECT_EQ(Label(L"d", kDirectory, 7), "SUBDIR\x11");
    EXPECT_EQ(Label(L"d", kDirectory, 8, 1), "    4711") << "a known total";
    EXPECT_EQ(Label(L"l", kSymbolicLink, 8), "    4711") << "a link to a file";
}

constexpr int64_t kAfternoon = 1709645940;  // 2024-03-05 13:39:00 UTC

TEST_F(EntryFields, ShowsTimesOfTheDay) {
    const struct {
        int hour;
        const char* twelve;
        const char* twentyFour;
    } rows[] = {{0, "12:05a", "  0:05"},  {1, " 1:05a", "  1:05"},  {11, "11:05a", " 11:05"},
                {12, "12:05p", " 12:05"}, {13, " 1:05p", " 13:05"}, {23, "11:05p", " 23:05"}};
    for (const auto& row : rows) {
        const auto e = At(1709596800 + row.hour * 3600 + 300);
        settings.timeMode = 12;
        EXPECT_EQ(Utf8(TimeField(*e, 6)), row.twelve);
        settings.timeMode = 24;
        EXPECT_EQ(Utf8(TimeField(*e, 6)), row.twentyFour);
    }
}

TEST_F(EntryFields, ShowsDatesInEachOrder) {
    const auto e = At(kAfternoon);
    const struct {
        const char* pattern;
        const char* text;
    } rows[] = {{"%m/%d/%y", "03/05/24"},
                {"%d.%m.%Y", "05.03.24"},
                {"%Y-%m-%d", "24-03-05"},
                {"%e %B", "24 03 05"}};
    for (const auto& row : rows) {
        SetDateFormat(row.pattern, localeFormats);
        EXPECT_EQ(Utf8(DateField(*e, 8)), row.text) << row.pattern;
    }
}

TEST_F(EntryFields, ShowsYearsModulo100) {
    EXPECT_EQ(Utf8(DateField(*At(0), 8)), "01/01/70");
    EXPECT_EQ(Utf8(DateField(*At(-1), 8)), "12/31/69");
    EXPECT_EQ(Utf8(DateField(*At(4102444800), 8)), "01/01/00");  // 2100
}

TEST_F(EntryFields, ShowsBlanksForAnUnknownTime) {
    const auto e = At(0);
    e->time = kInvalidTime;
    EXPECT_EQ(Utf8(DateField(*e, 8)), "        ");
    EXPECT_EQ(Utf8(TimeField(*e, 6)), "      ");
}

TEST_F(EntryFields, SpellsModes) {
    const struct {
        int mode;
        const char* text;
    } rows[] = {{S_IFREG | 0644, "rw-r--r--"}, {S_IFDIR | 0755, "rwxr-xr-x"}, {0, "---------"},
                {0777, "rwxrwxrwx"},           {04755, "rwsr-xr-x"},          {04644, "rwSr--r--"},
                {02755, "rwxr-sr-x"},          {02745, "rwxr-Sr-x"},          {01777, "rwxrwxrwt"},
                {01776, "rwxrwxrwT"},          {07000, "--S--S--T"},          {0421, "r---w---x"}};
    for (const auto& row : rows) {
        EXPECT_EQ(Utf8(ModeField(static_cast<uint16_t>(row.mode))), row.text)
            << std::oct << row.mode;
    }
}

}  // namespace
}  // namespace zt
