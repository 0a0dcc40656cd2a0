// Dates, time stamps and the files that a time stamp may name.
#include <filesystem>

#include "panels/filter_days.h"
#include "tests/panels/filter_fixture.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

class FilterTimes : public FilterFixture {
protected:
    FilterTimes() : workingDirectory_(std::filesystem::current_path()) {
        std::filesystem::current_path(tree.Path());
    }
    ~FilterTimes() override { std::filesystem::current_path(workingDirectory_); }

    void At(int64_t seconds) { subject->time.seconds = seconds; }
    std::string PathText(const char* name) const { return tree.PathOf(name); }
    std::string Missing(const char* name) const {
        return "-1: File '" + tree.PathOf(name) + "' not found";
    }

    TemporaryTree tree;

private:
    std::filesystem::path workingDirectory_;
};

TEST_F(FilterTimes, ReadDatesInTheOrderOfTheLocale) {
    At(Seconds(2012, 3, 4, 17, 0, 0));
    const struct {
        int order;
        wchar_t separator;
        const wchar_t* value;
        const char* result;
    } rows[] = {
        {kMonthFirst, '/', L"3/4/2012", "1"},    {kMonthFirst, '/', L"4/3/2012", "0"},
        {kMonthFirst, '/', L"03/04/12", "1"},    {kDayFirst, '/', L"4/3/2012", "1"},
        {kDayFirst, '/', L"3/4/2012", "0"},      {kDayFirst, '.', L"4.3.12", "1"},
        {kDayFirst, '.', L"04.03.2012", "1"},    {kYearFirst, '-', L"2012-3-4", "1"},
        {kYearFirst, '-', L"12-03-04", "1"},     {kYearFirst, '-', L"2012-4-3", "0"},
        {kYearFirst, '/', L"2012/03/04", "1"},   {kMonthFirst, 0x3000, L"3\u30004\u30002012", "1"},
        {kMonthFirst, '/', L"3/35/2012", "0"},   {kMonthFirst, '/', L"2/33/2012", "1"},
        {kMonthFirst, '/', L"15/4/2011", "1"},   {kMonthFirst, '/', L"3/4/2012/9", "1"},
        {kMonthFirst, '/', L"3x/4y/2012z", "1"},
    };
    for (const auto& row : rows) {
        localeFormats.dateOrder = row.order;
        localeFormats.dateSeparator = row.separator;
        EXPECT_EQ(Result(Westring(L"%date=") + row.value), row.result)
            << row.order << Westring(row.value).ToUtf8().c_str();
    }
}

TEST_F(FilterTimes, TellTheCenturyByTheYear) {
    const struct {
        const wchar_t* value;
        int year;
    } rows[] = {{L"1/1/0", 2000},    {L"1/1/12", 2012},   {L"1/1/70", 2070},
                {L"1/1/71", 1971},   {L"1/1/99", 1999},   {L"1/1/100", 100},
                {L"1/1/1999", 1999}, {L"1/1/2071", 2071}, {L"1/1/3000", 3000}};
    for (const auto& row : rows) {
        At(Seconds(row.year, 1, 1, 23, 59, 59));
        EXPECT_EQ(Result(Westring(L"%date=") + row.value), "1") << row.year;
        At(Seconds(row.year, 1, 2));
        EXPECT_EQ(Result(Westring(L"%date>") + row.value), "1") << row.year;
    }
}

TEST_F(FilterTimes, TakeTheNumbersThatADateLacksAsZero) {
    localeFormats.dateOrder = kYearFirst;
    localeFormats.dateSeparator = '-';
    const struct {
        const wchar_t* value;
        int64_t day;
    } rows[] = {{L"2012-3", Seconds(2012, 3, 0)}, {L"2012-3-", Seconds(2012, 3, 0)},
                {L"2012", Seconds(2012, 0, 0)},   {L"2012--4", Seconds(2012, 0, 4)},
                {L"-2-4", Seconds(2000, 2, 4)},   {L"x", Seconds(2000, 0, 0)}};
    for (const auto& row : rows) {
        At(row.day + 4000);
        EXPECT_EQ(Result(Westring(L"%date=") + row.value), "1") << row.day;
    }
    localeFormats.dateSeparator = 0;
    At(Seconds(2012, 0, 0));
    Expect({{L"%date=2012", "1"}, {L"%date=2012-12-31", "1"}});
}

TEST_F(FilterTimes, CompareDatesByTheDay) {
    At(Seconds(2012, 6, 15, 0, 0, 0));
    Expect({{L"%date=6/15/12", "1"}, {L"%date>6/14/12", "1"}, {L"%date<6/16/12", "1"}});
    At(Seconds(2012, 6, 15, 23, 59, 59));
    Expect({{L"%date=6/15/12", "1"}, {L"%date>6/15/12", "0"}, {L"%date<=6/15/12", "1"}});
}

TEST_F(FilterTimes, CompareDatesInLocalTime) {
    SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
    At(Seconds(2012, 6, 15, 0, 30));  // in UTC still the day before
    Expect({{L"%date=6/15/12", "1"}});
    At(Seconds(2012, 3, 25, 12));  // the clock goes forward
    Expect({{L"%date=3/25/12", "1"}});
    At(Seconds(2012, 10, 28, 23, 30));  // and back
    Expect({{L"%date=10/28/12", "1"}});
}

TEST_F(FilterTimes, SurviveDatesOutOfAllRange) {
    for (const int64_t seconds : {INT64_MIN, INT64_MIN + 86400, int64_t{-1}, INT64_MAX - 1}) {
        At(seconds);
        for (const wchar_t* expression : {L"%date>1/1/12", L"%date=99999/99999/99999",
                                          L"%date<1/1/2147483647", L"%date!=0/0/99999999999"}) {
            EXPECT_THAT(Result(expression), testing::AnyOf("0", "1")) << seconds;
        }
    }
}

// Clocks that are changed at midnight, and within a day, and by half an hour.
TEST_F(FilterTimes, FindTheStartOfEveryDay) {
    for (const char* zone :
         {"UTC", "CET-1CEST,M3.5.0,M10.5.0/3", "XST3:30XDT,M3.2.0/0:01,M11.1.0/0:01",
          "YST5YDT,M3.2.0/0,M11.1.0/0", "ZST-10:30ZDT-11,M10.1.0,M4.1.0", "<+14>-14"}) {
        SetZone(zone);
        FilterDays days;
        const int64_t start = Seconds(2012, 1, 1);
        for (int64_t at = start; at < start + int64_t{366} * 86400; at += 577) {
            ASSERT_EQ(days.StartOf(at), StartOfDay(at)) << zone << " " << at;
        }
        for (int64_t at = start; at > start - int64_t{100000} * 86400; at -= 8640017) {
            ASSERT_EQ(days.StartOf(at), StartOfDay(at)) << zone << " " << at;
        }
        for (int shift = 0; shift < 63; ++shift) {
            const auto at = static_cast<int64_t>(uint64_t{1} << shift);
            ASSERT_EQ(days.StartOf(at), StartOfDay(at)) << zone << " " << at;
            ASSERT_EQ(days.StartOf(at - 1), StartOfDay(at - 1)) << zone << " " << at - 1;
            ASSERT_EQ(days.StartOf(-at + 5), StartOfDay(-at + 5)) << zone << " " << -at + 5;
        }
    }
}

TEST_F(FilterTimes, ReadTimeStampsOfEveryLength) {
    const struct {
        const wchar_t* value;
        int64_t seconds;
    } rows[] = {{L"20120615133005", Seconds(2012, 6, 15, 13, 30, 5)},
                {L"201206151330", Seconds(2012, 6, 15, 13, 30)},
                {L"2012061513", Seconds(2012, 6, 15, 13)},
                {L"20120615", Seconds(2012, 6, 15)},
                {L"201206", Seconds(2012, 6, 1)},
                {L"2012", Seconds(2012, 1, 1)},
                {L"20120101", Seconds(2012, 1, 1)},
                {L"00010101", Seconds(1, 1, 1)},
                {L"99991231235959", Seconds(9999, 12, 31, 23, 59, 59)},
                {L"20121399", Seconds(2013, 4, 9)}};
    for (const auto& row : rows) {
        At(row.seconds);
        EXPECT_EQ(Result(Westring(L"%timestamp=") + row.value), "1") << row.seconds;
        At(row.seconds + 1);
        EXPECT_EQ(Result(Westring(L"%timestamp>") + row.value), "1") << row.seconds;
        At(row.seconds - 1);
        EXPECT_EQ(Result(Westring(L"%timestamp<") + row.value), "1") << row.seconds;
    }
}

TEST_F(FilterTimes, RefuseTimeStampsOfOtherForms) {
    for (const char* value :
         {"1", "12", "123", "12345", "1234567", "123456789", "12345678901", "1234567890123",
          "123456789012345", "1234567890123456", "2012a1", "abcd", "2012/6/1"}) {
        const std::string wanted = std::string("-1: Invalid timestamp value '") + value + "'";
        EXPECT_EQ(Result(Westring(L"%timestamp>") + value), wanted);
    }
    Expect({{L"%timestamp~123", "-1: Invalid comparitor '~'"}});
}

TEST_F(FilterTimes, CompareWithTheTimeOfAFile) {
    tree.File("mark");
    tree.Time("mark", 1000);
    tree.File("two words");
    tree.Time("two words", 2000);
    tree.Folder("dir");
    tree.File("dir/inner");
    tree.Time("dir/inner", 3000);
    tree.Time("dir", 4000);
    tree.Link("link", "mark");
    tree.Time("link", 5000);
    tree.Link("broken", "nowhere");
    tree.Time("broken", 6000);
    const struct {
        const wchar_t* value;
        int64_t seconds;
    } rows[] = {{L"@mark", 1000},          {L"@\"mark\"", 1000},  {L"@\"two words\"", 2000},
                {L"@two\" \"words", 2000}, {L"@dir/inner", 3000}, {L"@dir\\inner", 3000},
                {L"@dir", 4000},           {L"@dir/", 4000},      {L"@./dir/../mark", 1000},
                {L"@link", 5000},          {L"@broken", 6000}};
    for (const auto& row : rows) {
        At(row.seconds);
        EXPECT_EQ(Result(Westring(L"%timestamp=") + row.value), "1") << row.seconds;
        EXPECT_EQ(Result(Westring(L"%timestamp>") + row.value), "0") << row.seconds;
        At(row.seconds + 1);
        EXPECT_EQ(Result(Westring(L"%timestamp>") + row.value + L" & *.txt"), "1") << row.seconds;
        EXPECT_EQ(Result(Westring(L"(%timestamp<") + row.value + L")|*.c"), "0") << row.seconds;
    }
    At(1000);
    EXPECT_EQ(Result(L"%timestamp=@" + tree.Wide("mark")), "1") << "a whole path";
}

TEST_F(FilterTimes, RefuseAFileThatIsNotThere) {
    tree.File("two");
    EXPECT_EQ(Result(L"%timestamp>@missing"), Missing("missing"));
    EXPECT_EQ(Result(L"%timestamp>@\"two words\""), Missing("two words"));
    EXPECT_EQ(Result(L"%timestamp>@two words"), "0") << "the blank ends the name";
    EXPECT_EQ(Result(L"%timestamp>@dir/missing"), Missing("dir/missing"));
    EXPECT_EQ(Result(L"%timestamp>@tw*"), Missing("tw*")) << "no mask";
    EXPECT_EQ(Result(L"%timestamp~@missing"), "-1: Invalid comparitor '~'");
}

TEST_F(FilterTimes, TakeAnAtSignElsewhereForAWord) {
    Expect({{L"%size>@5", "0"}, {L"%owner=@root", "0"}, {L"%date>@\"1/1/12\"", "0"}});
    Name(L"@home");
    Expect({{L"@home", "1"}});
}

class FilterStampCache : public FilterTimes {};

TEST_F(FilterStampCache, AsksForTheSameFileOnce) {
    tree.File("mark");
    tree.Time("mark", 1000);
    At(1000);
    FilterEvaluator evaluator;
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@mark", *subject), 1);
    EXPECT_EQ(evaluator.stampFileTime, 1000);
    EXPECT_EQ(PathText("mark"), evaluator.stampFileName.ToUtf8().c_str());
    tree.Time("mark", 2000);
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@mark", *subject), 1) << "from memory";
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@./mark", *subject), 1) << "the same file";
    FilterEvaluator fresh;
    EXPECT_EQ(EvaluateFilter(fresh, L"%timestamp=@mark", *subject), 0);
}

TEST_F(FilterStampCache, HoldsOneFileOnly) {
    tree.File("a");
    tree.Time("a", 1000);
    tree.File("b");
    tree.Time("b", 2000);
    At(1000);
    FilterEvaluator evaluator;
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@a", *subject), 1);
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@b", *subject), 0);
    tree.Time("a", 3000);
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@a", *subject), 0) << "asked for again";
    EXPECT_EQ(evaluator.stampFileTime, 3000);
}

TEST_F(FilterStampCache, RemembersAMissingFileAsOneOfTimeZero) {
    FilterEvaluator evaluator;
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@missing", *subject), -1);
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@missing", *subject), 1);
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@other", *subject), -1);
    EXPECT_EQ(EvaluateFilter(evaluator, L"%timestamp=@missing", *subject), -1);
    CompiledFilter one(L"%timestamp=@missing");
    EXPECT_EQ(one.Evaluate(*subject), -1);
    EXPECT_EQ(one.Evaluate(*subject), 1);
    EXPECT_EQ(one.Matches(*subject), -1);
    EXPECT_EQ(one.Matches(*subject), -1);
    CompiledFilter two(L"%timestamp=@missing & %timestamp=@other");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(two.Evaluate(*subject), -1) << i;
    CompiledFilter same(L"%timestamp=@missing & %timestamp=@./missing");
    EXPECT_EQ(same.Evaluate(*subject), -1);
    EXPECT_EQ(same.Evaluate(*subject), 1);
}

TEST_F(FilterStampCache, OfTheCompiledFormLastsUntilItIsToForget) {
    tree.File("mark");
    tree.Time("mark", 1000);
    At(1000);
    CompiledFilter filter(L"%timestamp=@mark");
    tree.Time("mark", 2000);
    EXPECT_EQ(filter.Evaluate(*subject), 0) << "nothing is asked for before it is needed";
    tree.Time("mark", 1000);
    EXPECT_EQ(filter.Evaluate(*subject), 0);
    EXPECT_EQ(filter.Matches(*subject), 0);
    filter.ForgetFiles();
    EXPECT_EQ(filter.Evaluate(*subject), 1);
    tree.Remove("mark");
    filter.ForgetFiles();
    EXPECT_EQ(filter.Evaluate(*subject), -1);
    EXPECT_EQ(Missing("mark"), std::string("-1: ") + filter.errorText.ToUtf8().c_str());
}

}  // namespace
}  // namespace zt
