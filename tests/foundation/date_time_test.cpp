// Times, their texts and their DOS form, in fixed time zones.
#include "foundation/date_time.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <ctime>
#include <ostream>

#include "foundation/clock_text.h"
#include "foundation/dos_time.h"

namespace zt {
namespace {

class DateTimeTest : public testing::Test {
protected:
    void SetUp() override { SetZone("UTC"); }
    void TearDown() override {
        unsetenv("TZ");
        tzset();
    }
    static void SetZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
};

TEST_F(DateTimeTest, BreaksDownAndComposes) {
    const TTime time = {5, 1715015289};  // 2024-05-06 17:08:09
    TDateTime at;
    ToDateTime(time, at);
    EXPECT_EQ(at.year, 2024);
    EXPECT_EQ(at.month, 5);
    EXPECT_EQ(at.day, 6);
    EXPECT_EQ(at.hour, 17);
    EXPECT_EQ(at.minute, 8);
    EXPECT_EQ(at.second, 9);
    EXPECT_EQ(at.nanoseconds, 5);
    TTime back;
    FromDateTime(at, back);
    EXPECT_EQ(back, time);
}

TEST_F(DateTimeTest, KeepsTimesBeforeTheEpochAndPast2038) {
    for (const int64_t seconds : {-1LL, -86400LL * 365 * 20, 4102444800LL, 1LL << 36}) {
        TDateTime at;
        ToDateTime({0, seconds}, at);
        TTime back;
        FromDateTime(at, back);
        EXPECT_EQ(back.seconds, seconds) << at.year;
    }
}

TEST_F(DateTimeTest, GivesZerosForAYearWithoutANumber) {
    for (const int64_t seconds : {INT64_MAX, INT64_MIN}) {
        TDateTime at;
        at.year = 7;
        ToDateTime({1, seconds}, at);
        EXPECT_EQ(at.year, 0);
        EXPECT_EQ(at.month, 0);
    }
    TTime time;
    FromDateTime({INT_MIN, INT_MIN, INT_MIN, 0, 0, 0, 0}, time);  // no fault
}

TEST_F(DateTimeTest, LeavesDaylightSavingToTheLibrary) {
    SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
    TTime summer, winter;
    FromDateTime({2024, 7, 1, 12, 0, 0, 0}, summer);
    FromDateTime({2024, 1, 1, 12, 0, 0, 0}, winter);
    EXPECT_EQ(summer.seconds, 1719828000);
    EXPECT_EQ(winter.seconds, 1704106800);
}

TEST_F(DateTimeTest, CarriesFieldsOutOfRange) {
    TTime time;
    FromDateTime({2023, 14, 32, 25, 61, 61, 0}, time);
    EXPECT_STREQ(TimeToText(time).c_str(), "2024-03-04  2:02:01");
}

TEST_F(DateTimeTest, TellsTheTimeNow) {
    const time_t before = time(nullptr);
    const TTime now = NowTime();
    const double seconds = SecondsNow();
    EXPECT_GE(now.seconds, before);
    EXPECT_LE(now.seconds, before + 60);
    EXPECT_EQ(now.nanoseconds % 1000, 0);
    EXPECT_GE(seconds, static_cast<double>(before));
    EXPECT_LE(seconds, static_cast<double>(before + 60));
}

TEST_F(DateTimeTest, HasATextForATime) {
    const struct {
        TTime time;
        const char* text;
    } rows[] = {
        {{0, 1715015289}, "2024-05-06 17:08:09"},
        {{0, 1714979289}, "2024-05-06  7:08:09"},
        {{500000000, 1715015289}, "2024-05-06 17:08:09.5"},
        {{1, 1715015289}, "2024-05-06 17:08:09.000000001"},
        {{120000, 1715015289}, "2024-05-06 17:08:09.00012"},
        {{0, 0}, "1970-01-01  0:00:00"},
        {{0, 4102444800}, "2100-01-01  0:00:00"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(TimeToText(row.time).c_str(), row.text);
}

TEST_F(DateTimeTest, HasATextForADuration) {
    const struct {
        int64_t seconds;
        const char* text;
    } rows[] = {
        {0, "0:00"},         {9, "0:09"},           {60, "1:00"},
        {3599, "59:59"},     {3600, "1:00:00"},     {3661, "1:01:01"},
        {86400, "24:00:00"}, {360000, "100:00:00"}, {-5, "0:00"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(DurationText(row.seconds).c_str(), row.text);
}

TEST_F(DateTimeTest, ReadsAndMakesTheDosForm) {
    const uint16_t date = 44 << 9 | 5 << 5 | 6;
    const uint16_t time = 17 << 11 | 8 << 5 | 4;
    TTime value = {77, 0};
    DosToTime(date, time, value);
    EXPECT_STREQ(TimeToText(value).c_str(), "2024-05-06 17:08:08");
    EXPECT_EQ(value.nanoseconds, 0);

    uint16_t backDate = 0, backTime = 0;
    TimeToDos({999, value.seconds + 1}, backDate, backTime);  // an odd second goes down
    EXPECT_EQ(backDate, date);
    EXPECT_EQ(backTime, time);
}

TEST_F(DateTimeTest, CarriesDosFieldsOutOfRange) {
    TTime value;
    DosToTime(0, 0, value);  // month 0, day 0
    EXPECT_STREQ(TimeToText(value).c_str(), "1979-11-30  0:00:00");
    DosToTime(0xFFFF, 0xFFFF, value);
    EXPECT_STREQ(TimeToText(value).c_str(), "2108-04-01  8:04:02");
}

TEST_F(DateTimeTest, GivesTheNearestDosTime) {
    uint16_t date = 0, time = 0;
    TimeToDos({0, 0}, date, time);
    EXPECT_EQ(date, 1 << 5 | 1);
    EXPECT_EQ(time, 0);
    TimeToDos({0, 1LL << 36}, date, time);
    EXPECT_EQ(date, 127 << 9 | 12 << 5 | 31);
    EXPECT_EQ(time, 23 << 11 | 59 << 5 | 29);
}

TEST(ClockText, ShowsBothModes) {
    const struct {
        int hour, minute, second, mode;
        const char* text;
    } rows[] = {
        {0, 5, 0, 24, " 0:05"},   {17, 8, 2, 24, "17:08"},  {17, 8, 3, 24, "17 08"},
        {0, 5, 0, 12, "12:05a"},  {9, 5, 0, 12, " 9:05a"},  {11, 59, 58, 12, "11:59a"},
        {12, 0, 0, 12, "12:00p"}, {13, 0, 1, 12, " 1 00p"}, {23, 59, 59, 12, "11 59p"},
    };
    for (const auto& row : rows) {
        TDateTime now;
        now.hour = row.hour;
        now.minute = row.minute;
        now.second = row.second;
        EXPECT_STREQ(ClockText(now, row.mode).c_str(), row.text);
    }
}

}  // namespace
}  // namespace zt
