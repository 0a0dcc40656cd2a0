// What the progress window of a copy says of its numbers.
#include <gtest/gtest.h>

#include "fileops/copy_progress_text.h"
#include "foundation/locale_formats.h"

namespace zt {
namespace {

std::string Utf8(const Westring& text) {
    return text.ToUtf8().c_str();
}

class CopyProgressText : public testing::Test {
protected:
    CopyProgressText() { localeFormats = LocaleFormats(); }
};

TEST_F(CopyProgressText, DurationHasHoursFromOneHourUp) {
    const struct {
        double seconds;
        const char* text;
    } rows[] = {{0, "0:00"},
                {0.99, "0:00"},
                {1, "0:01"},
                {59.9, "0:59"},
                {60, "1:00"},
                {125, "2:05"},
                {3599.9, "59:59"},
                {3600, "1:00:00"},
                {3661, "1:01:01"},
                {36000, "10:00:00"},
                {359999, "99:59:59"},
                {-5, "0:00"},
                {1e300, "277777:46:40"}};
    for (const auto& row : rows)
        EXPECT_EQ(row.text, Utf8(DurationText(row.seconds))) << row.seconds;
}

TEST_F(CopyProgressText, RateIsDigitsThenKThenM) {
    const struct {
        uint64_t rate;
        const char* text;
    } rows[] = {{0, "0"},
                {999, "999"},
                {1000000, "1,000,000"},
                {1000001, "976K"},
                {102400000, "100,000K"},
                {102401023, "100,000K"},
                {102401024, "97M"},
                {UINT32_MAX, "4,095M"},
                {uint64_t{1} << 32, "4,096M"},
                {uint64_t{5} << 40, "5,242,880M"}};
    for (const auto& row : rows)
        EXPECT_EQ(row.text, Utf8(RateText(row.rate))) << row.rate;
}

TEST_F(CopyProgressText, StatisticsTellTimeRateAndWhatIsLeft) {
    const struct {
        double elapsed;
        uint64_t done, total;
        const char* text;
    } rows[] = {
        {10, 1000, 4000, "Time: 0:10  BPS: 100      ETA: 0:30"},
        {2, 5, 5, "Time: 0:02  BPS: 2        ETA: 0:00"},
        {7200, 7200, 14400, "Time: 2:00:00  BPS: 1        ETA: 2:00:00"},
        {1, 1000000, 1000000, "Time: 0:01  BPS: 1,000,000  ETA: 0:00"},
        {1, 2000000, 2000000, "Time: 0:01  BPS: 1,953K   ETA: 0:00"},
        // A file that has grown: more is done than was expected.
        {3, 900, 300, "Time: 0:03  BPS: 300      ETA: 0:00"},
        {1, uint64_t{1} << 50, uint64_t{1} << 50, "Time: 0:01  BPS: 1,073,741,824M  ETA: 0:00"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.text, Utf8(StatisticsText(row.elapsed, row.done, row.total))) << row.text;
    }
}

TEST_F(CopyProgressText, StatisticsAreEmptyBeforeThereAreAny) {
    EXPECT_TRUE(StatisticsText(0, 5, 10).IsEmpty());
    EXPECT_TRUE(StatisticsText(-1, 5, 10).IsEmpty());
    EXPECT_TRUE(StatisticsText(5, 0, 10).IsEmpty());
}

TEST_F(CopyProgressText, CellsAreFilledByTheShareThatIsDone) {
    const struct {
        uint64_t done, total;
        int width, filled;
    } rows[] = {{0, 100, 40, 0},
                {1, 100, 40, 0},
                {50, 100, 40, 20},
                {99, 100, 40, 39},
                {100, 100, 40, 40},
                {101, 100, 40, 40},
                {5, 0, 40, 0},
                {5, 10, 0, 0},
                {UINT64_MAX / 2, UINT64_MAX, 40, 20},
                {UINT64_MAX - 1, UINT64_MAX, 40, 40},
                {UINT64_MAX, UINT64_MAX, 40, 40},
                {uint64_t{3} << 61, uint64_t{7} << 61, 70, 30}};
    for (const auto& row : rows) {
        const int filled = FilledCells(row.done, row.total, row.width);
        EXPECT_LE(filled, row.width);
        EXPECT_NEAR(row.filled, filled, row.total > (uint64_t{1} << 60) ? 1 : 0)
            << row.done << " of " << row.total;
    }
}

TEST_F(CopyProgressText, BarCountAndCentredRows) {
    EXPECT_EQ("██░░░", Utf8(BarText(2, 5)));
    EXPECT_EQ("░░", Utf8(BarText(0, 2)));
    EXPECT_EQ("██", Utf8(BarText(2, 2)));
    EXPECT_EQ("(2 of 3)", Utf8(CountText(2, 3)));
    EXPECT_EQ("(2000000000 of 2147483647)", Utf8(CountText(2000000000, 2147483647)));
    EXPECT_EQ(" ab  ", Utf8(CentredText("ab", 5)));
    EXPECT_EQ("abcde", Utf8(CentredText("abcde", 5)));
    EXPECT_EQ("abcde", Utf8(CentredText("abcdefg", 5)));
    EXPECT_EQ("     ", Utf8(CentredText("", 5)));
}

}  // namespace
}  // namespace zt
