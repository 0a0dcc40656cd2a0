// The fields of the date form, their ranges, and the time they make.
#include "fileops/change_date_form.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>

#include "fileops/change_date_command.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

// The time zone of a test, put back to UTC at its end.
class Zone {
public:
    explicit Zone(const char* name) { Set(name); }
    ~Zone() { Set("UTC"); }

private:
    static void Set(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }
};

constexpr char kEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";

TTime At(int64_t seconds, int32_t nanoseconds = 0) {
    TTime time;
    time.seconds = seconds;
    time.nanoseconds = nanoseconds;
    return time;
}

DateForm Form(int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
              int half = kForenoon) {
    return {year, month, day, hour, minute, second, half};
}

bool IsAccepted(const DateForm& form) {
    TTime time;
    return ComposeTime(form, false, time);
}

TEST(DateForm, AcceptsAndRefusesByRange) {
    const Zone zone("UTC");
    const struct {
        DateForm form;
        bool accepted;
    } rows[] = {
        {Form(1980, 1, 1), true},
        {Form(1979, 12, 31), false},
        {Form(2099, 12, 31, 23, 59, 59), true},
        {Form(2100, 1, 1), false},
        {Form(0, 1, 1), false},
        {Form(80, 1, 1), false},
        {Form(2024, 0, 1), false},
        {Form(2024, 13, 1), false},
        {Form(2024, 1, 0), false},
        {Form(2024, 1, 32), false},
        {Form(2024, 4, 31), false},
        {Form(2024, 2, 29), true},
        {Form(2024, 2, 30), false},
        {Form(2023, 2, 28), true},
        {Form(2023, 2, 29), false},
        {Form(2000, 2, 29), true},
        {Form(2096, 2, 29), true},
        {Form(2024, 1, 1, 24), false},
        {Form(2024, 1, 1, 23), true},
        {Form(2024, 1, 1, 0, 60), false},
        {Form(2024, 1, 1, 0, 59), true},
        {Form(2024, 1, 1, 0, 0, 60), false},
        {Form(2024, 1, 1, 0, 0, 59), true},
        {Form(2024, 1, 1, 99), false},
        {Form(9999, 1, 1), false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.accepted, IsAccepted(row.form))
            << row.form.year << '-' << row.form.month << '-' << row.form.day << ' ' << row.form.hour
            << ':' << row.form.minute << ':' << row.form.second;
    }
}

TEST(DateForm, KnowsTheLengthOfEachMonth) {
    const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(days[month - 1], DaysInMonth(2023, month)) << month;
        EXPECT_TRUE(IsAccepted(Form(2023, month, days[month - 1]))) << month;
        EXPECT_FALSE(IsAccepted(Form(2023, month, days[month - 1] + 1))) << month;
    }
    EXPECT_EQ(29, DaysInMonth(2024, 2));
    EXPECT_EQ(29, DaysInMonth(2100, 2));
}

TEST(DateForm, ARefusedOneLeavesTheTime) {
    TTime time = At(5, 7);
    EXPECT_FALSE(ComposeTime(Form(1900, 1, 1), false, time));
    EXPECT_EQ(At(5, 7), time);
}

TEST(DateForm, MakesATimeWithoutNanoseconds) {
    const Zone zone("UTC");
    TTime time = At(1, 2);
    ASSERT_TRUE(ComposeTime(Form(2024, 5, 6, 17, 8, 9), false, time));
    EXPECT_EQ(At(1715015289), time);
    const DateForm back = DateFormOf(At(1715015289, 999999999), false);
    EXPECT_EQ(2024, back.year);
    EXPECT_EQ(5, back.month);
    EXPECT_EQ(6, back.day);
    EXPECT_EQ(17, back.hour);
    EXPECT_EQ(8, back.minute);
    EXPECT_EQ(9, back.second);
}

TEST(DateForm, CountsTwelveHours) {
    const Zone zone("UTC");
    const struct {
        int hour, half, full;
    } rows[] = {
        {12, kForenoon, 0},   {1, kForenoon, 1},    {11, kForenoon, 11}, {12, kAfternoon, 12},
        {1, kAfternoon, 13},  {11, kAfternoon, 23}, {0, kForenoon, 0},   {0, kAfternoon, 0},
        {13, kAfternoon, 13}, {15, kForenoon, 15},  {23, kForenoon, 23},
    };
    for (const auto& row : rows) {
        TTime time;
        ASSERT_TRUE(ComposeTime(Form(2024, 1, 1, row.hour, 0, 0, row.half), true, time));
        TDateTime at;
        ToDateTime(time, at);
        EXPECT_EQ(row.full, at.hour) << row.hour << (row.half ? "pm" : "am");
        EXPECT_EQ(1, at.day);
    }
    TTime time;
    EXPECT_FALSE(ComposeTime(Form(2024, 1, 1, 24, 0, 0, kAfternoon), true, time));
}

TEST(DateForm, ShowsEachHourInBothWays) {
    const Zone zone("UTC");
    for (int hour = 0; hour < 24; ++hour) {
        const TTime time = At(1704067200 + 3600 * hour);
        const DateForm twelve = DateFormOf(time, true);
        EXPECT_EQ(hour % 12 == 0 ? 12 : hour % 12, twelve.hour);
        EXPECT_EQ(hour < 12 ? kForenoon : kAfternoon, twelve.half);
        EXPECT_EQ(hour, DateFormOf(time, false).hour);
        for (const bool twelveHours : {false, true}) {
            TTime back;
            ASSERT_TRUE(ComposeTime(DateFormOf(time, twelveHours), twelveHours, back));
            EXPECT_EQ(time, back) << hour;
        }
    }
}

TEST(DateForm, IsLocalTimeWinterAndSummer) {
    const Zone zone(kEurope);
    TTime winter, summer;
    ASSERT_TRUE(ComposeTime(Form(2024, 1, 15, 12), false, winter));
    ASSERT_TRUE(ComposeTime(Form(2024, 7, 15, 12), false, summer));
    EXPECT_EQ(1705316400, winter.seconds);
    EXPECT_EQ(1721037600, summer.seconds);
    EXPECT_EQ(12, DateFormOf(winter, false).hour);
    EXPECT_EQ(12, DateFormOf(summer, false).hour);
}

// 02:30 of that night does not exist; the library takes an hour off or adds one.
TEST(DateForm, AnHourThatIsLeftOutBecomesOneBesideIt) {
    const Zone zone(kEurope);
    TTime time;
    ASSERT_TRUE(ComposeTime(Form(2024, 3, 31, 2, 30), false, time));
    const DateForm form = DateFormOf(time, false);
    EXPECT_EQ(30, form.minute);
    EXPECT_TRUE(form.hour == 1 || form.hour == 3) << form.hour;
    EXPECT_EQ(31, form.day);
}

TEST(ModificationTime, IsSetToTheSecondAndTheAccessTimeStays) {
    TemporaryTree tree;
    tree.File("f");
    tree.Time("f", 1000, 5);
    struct stat before, after;
    ASSERT_EQ(0, stat(tree.PathOf("f").c_str(), &before));
    EXPECT_EQ(0, SetModificationTime(tree.Wide("f"), At(2000000000)));
    ASSERT_EQ(0, stat(tree.PathOf("f").c_str(), &after));
    EXPECT_EQ(2000000000, after.st_mtim.tv_sec);
    EXPECT_EQ(0, after.st_mtim.tv_nsec);
    EXPECT_EQ(before.st_atim.tv_sec, after.st_atim.tv_sec);
    EXPECT_EQ(before.st_atim.tv_nsec, after.st_atim.tv_nsec);
}

TEST(ModificationTime, OfALinkIsItsOwn) {
    TemporaryTree tree;
    tree.File("f");
    tree.Time("f", 1000);
    tree.Link("l", "f");
    tree.Link("broken", "nowhere");
    EXPECT_EQ(0, SetModificationTime(tree.Wide("l"), At(1700000000)));
    EXPECT_EQ(0, SetModificationTime(tree.Wide("broken"), At(1700000000)));
    struct stat link, file;
    ASSERT_EQ(0, lstat(tree.PathOf("l").c_str(), &link));
    ASSERT_EQ(0, stat(tree.PathOf("f").c_str(), &file));
    EXPECT_EQ(1700000000, link.st_mtim.tv_sec);
    EXPECT_EQ(1000, file.st_mtim.tv_sec);
}

TEST(ModificationTime, IsRefusedWithTheSystemsError) {
    TemporaryTree tree;
    EXPECT_EQ(ENOENT, SetModificationTime(tree.Wide("gone"), At(1)));
    tree.File("f");
    if (geteuid() != 0) return;
    const OrdinaryUser user;
    EXPECT_EQ(EPERM, SetModificationTime(tree.Wide("f"), At(1)));
}

}  // namespace
}  // namespace zt
