// The tests of filter expressions: each keyword with each comparator, and the forms of its values.
#include "panels/filter_comparison.h"

#include <sys/stat.h>
#include <unistd.h>

#include <clocale>

#include "tests/panels/filter_fixture.h"

namespace zt {
namespace {

class FilterTests : public FilterFixture {
protected:
    static void ExpectAll(const entry& e, const std::string& keyword, const std::string& value,
                          int order);
};

struct Comparator {
    const char* text;
    bool whenLess, whenEqual, whenGreater;  // by how the entry's value stands to the other
};

constexpr Comparator kComparators[] = {
    {"<", true, false, false},  {">", false, false, true},   {"=", false, true, false},
    {"<=", true, true, false},  {">=", false, true, true},   {"!=", true, false, true},
    {"==", false, true, false}, {" < ", true, false, false}, {" != ", true, false, true},
};

// `order`: -1, 0 or 1 as the entry's value is less, equal or greater.
void FilterTests::ExpectAll(const entry& e, const std::string& keyword, const std::string& value,
                            int order) {
    for (const Comparator& row : kComparators) {
        const std::string expression = keyword + row.text + value;
        const bool wanted = order < 0 ? row.whenLess : order > 0 ? row.whenGreater : row.whenEqual;
        EXPECT_EQ(ResultOn(e, Westring(expression.c_str())), wanted ? "1" : "0") << expression;
    }
    for (const char* unknown : {"~", "!", "&"}) {
        const std::string expression = keyword + unknown + value;
        EXPECT_EQ(ResultOn(e, Westring(expression.c_str())),
                  std::string("-1: Invalid comparitor '") + unknown + "'")
            << expression;
    }
    const std::string odd = keyword + "~=" + value;
    EXPECT_EQ(ResultOn(e, Westring(odd.c_str())), order == 0 ? "1" : "-1: Invalid comparitor '~='")
        << odd;
}

TEST_F(FilterTests, CompareEachKeywordEachWay) {
    subject->size = 1000;
    subject->time.seconds = Seconds(2012, 6, 15, 13, 30, 5);
    subject->time.nanoseconds = 999;
    subject->flags = kDirectory | kReadOnlyForUser;
    subject->uid = 1;  // daemon
    subject->gid = 1;
    subject->mode = S_IFDIR | 0444;
    const struct {
        const char* keyword;
        const char* value;
        int order;
    } rows[] = {
        {"%size", "999", 1},
        {"%size", "1000", 0},
        {"%size", "1001", -1},
        {"%date", "6/14/2012", 1},
        {"%date", "6/15/2012", 0},
        {"%date", "6/16/2012", -1},
        {"%age", "1d", 1},
        {"%age", "20000d", -1},
        {"%attrib", "D", 0},
        {"%attrib", "RD", 0},
        {"%attrib", "RDH", -1},  // 0x11 beside 0x13
        {"%attrib", "H", -1},
        {"%owner", "root", 1},
        {"%owner", "daemon", 0},
        {"%owner", "bin", -1},
        {"%group", "root", 1},
        {"%group", "daemon", 0},
        {"%group", "bin", -1},
        {"%timestamp", "20120615133004", 1},
        {"%timestamp", "20120615133005", 0},
        {"%timestamp", "20120615133006", -1},
    };
    for (const auto& row : rows) {
        ExpectAll(*subject, row.keyword, row.value, row.order);
        std::string capitals = row.keyword;
        for (char& ch : capitals)
            ch = static_cast<char>(toupper(ch));
        ExpectAll(*subject, capitals, row.value, row.order);
    }
}

TEST_F(FilterTests, CompareAges) {
    const struct {
        int64_t age;
        const wchar_t* expression;
        const char* result;
    } rows[] = {
        {3 * 86400, L"%age<7d", "1"}, {8 * 86400, L"%age<7d", "0"}, {100, L"%age<5", "0"},
        {100, L"%age>5", "1"},        {-100, L"%age<5", "1"},       {-100, L"%age<0", "1"},
        {7200, L"%age>1h", "1"},      {1800, L"%age>1h", "0"},      {200, L"%age>3m", "1"},
        {100, L"%age>3m", "0"},       {3 * 86400, L"%age<7D", "0"}, {3 * 86400, L"%age<7x", "0"},
        {3 * 86400, L"%AGE<7d", "1"}, {90000, L"%age>d", "1"},      {90000, L"%age=1d", "0"},
        {90000, L"%age>1k", "1"},     {2000, L"%age>1k3m", "1"},
    };
    for (const auto& row : rows) {
        subject->time.seconds = time(nullptr) - row.age;
        EXPECT_EQ(Result(row.expression), row.result)
            << row.age << " " << Westring(row.expression).ToUtf8().c_str();
    }
}

TEST_F(FilterTests, ReadSizesWithTheirUnits) {
    const struct {
        const wchar_t* value;
        uint64_t size;
    } rows[] = {
        {L"0", 0},
        {L"007", 7},
        {L"1k", 1024},
        {L"1K", 1024},
        {L"3m", 3u << 20},
        {L"3M", 3u << 20},
        {L"2g", uint64_t{2} << 30},
        {L"5G", uint64_t{5} << 30},
        {L"k", 0},
        {L"12abk", 12 * 1024},
        {L"12abc", 12},
        {L"12km", 12u << 20},
        {L"abc", 0},
        {L"2147483647", 2147483647},
        {L"2147483648", 2147483647},  // the number itself has 32 bits
        {L"99999999999999999999", 2147483647},
        {L"2147483647g", uint64_t{2147483647} << 30},
        {L"12/31/99", 12},
    };
    for (const auto& row : rows) {
        subject->size = row.size;
        EXPECT_EQ(Result(Westring(L"%size=") + row.value), "1") << row.size;
        subject->size = row.size + 1;
        EXPECT_EQ(Result(Westring(L"%size=") + row.value), "0") << row.size;
        EXPECT_EQ(Result(Westring(L"%size>") + row.value), "1") << row.size;
    }
}

TEST_F(FilterTests, CompareSizesWithTheirSign) {
    subject->size = uint64_t{1} << 63;
    Expect({{L"%size<0", "1"}, {L"%size>0", "0"}});
    subject->size = (uint64_t{1} << 63) - 1;
    Expect({{L"%size>2147483647g", "1"}});
    localeFormats.dateSeparator = '-';
    subject->size = 0;
    Expect({{L"%size>-5", "1"}, {L"%size<-5", "0"}, {L"%size>-5k", "1"}});
    subject->size = static_cast<uint64_t>(int64_t{INT32_MIN});
    Expect({{L"%size=-2147483648", "1"}, {L"%size=-99999999999999999999", "1"}});
}

TEST_F(FilterTests, AskForAllOfTheAttributes) {
    const struct {
        int flags;
        const wchar_t* expression;
        const char* result;
    } rows[] = {
        {kReadOnlyForUser | kHidden, L"%attrib=RH", "1"},
        {kReadOnlyForUser, L"%attrib=RH", "0"},
        {kHidden, L"%attrib=RH", "0"},
        {kReadOnlyForUser | kHidden | kDirectory, L"%attrib=rh", "1"},
        {kReadOnlyForUser | kHidden, L"%attrib=hRr", "1"},
        {0, L"%attrib!=D", "1"},
        {kDirectory, L"%attrib!=D", "0"},
        {kReadOnlyForUser, L"%attrib!=D", "1"},
        {kDirectory, L"!(%attrib=D)", "0"},
        {0, L"!(%attrib=D)", "1"},
        {kSymbolicLink, L"%attrib=L", "1"},
        {kSymbolicLink, L"%attrib=DL", "0"},
        {kSymbolicLink | kDirectory, L"%attrib=DL", "1"},
        {0x20, L"%attrib=A", "1"},
        {0x04, L"%attrib=S", "1"},
        {0, L"%attrib=A", "0"},
        {0xFFFF, L"%attrib=ADHLRS", "1"},
        {0, L"%attrib=xyz", "1"},  // no letter that means anything asks for nothing
        {kDirectory, L"%attrib=xDz1", "1"},
        {kBrokenLink, L"%attrib!=L", "1"},
    };
    for (const auto& row : rows) {
        subject->flags = static_cast<uint16_t>(row.flags);
        EXPECT_EQ(Result(row.expression), row.result)
            << std::hex << row.flags << " " << Westring(row.expression).ToUtf8().c_str();
    }
}

TEST_F(FilterTests, AskForOwnersByName) {
    subject->uid = 0;
    subject->gid = 0;
    Expect({{L"%owner=root", "1"},
            {L"%owner=daemon", "0"},
            {L"%owner!=daemon", "1"},
            {L"%group=root", "1"},
            {L"%group=daemon", "0"}});
    subject->uid = 65534;
    Expect({{L"%owner=nobody", "1"}});
}

TEST_F(FilterTests, FindNothingOfAnUnknownOwner) {
    for (const int id : {0, 1, 0xFFFF}) {
        subject->uid = subject->gid = static_cast<uint16_t>(id);
        Expect({{L"%owner=nosuchuser", "0"},
                {L"%owner!=nosuchuser", "1"},
                {L"%owner=0", "0"},
                {L"%owner=ROOT", "0"},
                {L"%group=nosuchgroup", "0"},
                {L"%group!=nosuchgroup", "1"}});
    }
}

TEST_F(FilterTests, EndAValueAtTheFirstCharacterThatIsNoPartOfOne) {
    subject->uid = 33;
    Expect({{L"%owner=www-data", "0"}, {L"%owner=\"www-data\"", "-1: Value expected"}});
    subject->size = 12;
    Expect({{L"%size=12.5", "1"}, {L"%size=12_000", "1"}, {L"%size=12,000", "1"}});
}

TEST_F(FilterTests, AskForWhatThisProcessMayDo) {
    const uid_t user = geteuid();
    subject->uid = static_cast<uint16_t>(user);
    subject->mode = S_IFREG | 0700;
    Expect({{L"%perm=RWX", "1"},
            {L"%perm=rwx", "1"},
            {L"%perm=X", "1"},
            {L"%perm!=X", "0"},
            {L"%perm<X", "0"},
            {L"%perm=zR", "1"},
            {L"%perm=z", "1"}});
    subject->mode = S_IFREG | 0600;
    Expect({{L"%perm=RW", "1"},
            {L"%perm=X", "0"},
            {L"%perm!=X", "1"},
            {L"%perm<RWX", "1"},
            {L"%perm<=RWX", "1"},
            {L"%perm>RWX", "0"},
            {L"%perm>=RWX", "0"},
            {L"%perm==RW", "1"},
            {L"%perm~=RW", "1"},
            {L"%perm~=RWX", "-1: Invalid comparitor '~='"}});
}

TEST_F(FilterTests, UnderstandKeywordsInEveryLocale) {
    const std::string before = setlocale(LC_ALL, nullptr);
    for (const char* locale : {"tr_TR.UTF-8", "C.UTF-8", "C"}) {
        if (!setlocale(LC_ALL, locale)) continue;
        subject->size = 5;
        Expect({{L"%SIZE=5", "1"}, {L"%AtTrIb=D", "0"}, {L"%TIMESTAMP=1970", "1"}});
    }
    setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace zt
