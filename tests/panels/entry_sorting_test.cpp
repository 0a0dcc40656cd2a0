// The sort orders.
#include "panels/entry_sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "foundation/settings.h"
#include "panels/entry_rules.h"
#include "panels/panel_kinds.h"
#include "panels/panel_pair.h"

namespace zt {
namespace {

class EntrySorting : public testing::Test {
protected:
    void SetUp() override { settings = Settings(); }
    void TearDown() override {
        for (entry* e : items)
            FreeEntry(e);
        settings = Settings();
    }

    void Add(const wchar_t* name, int flags = 0, uint64_t size = 0, int64_t seconds = 0,
             int32_t nanoseconds = 0) {
        entry* e = NewEntry(name);
        e->flags = static_cast<uint16_t>(flags | (IsHiddenName(name) ? kHidden : 0));
        e->size = size;
        e->time.seconds = seconds;
        e->time.nanoseconds = nanoseconds;
        e->group = GroupOf(*e);
        items.push_back(e);
    }
    std::wstring Sorted(int sort) {
        SortEntries(panels.panel[0], sort, items.data(), static_cast<int>(items.size()));
        std::wstring names;
        for (const entry* e : items)
            names += std::wstring(e->name) + L" ";
        return names;
    }

    PanelPair panels;
    std::vector<entry*> items;
};

TEST_F(EntrySorting, SortsEveryOrderAndItsReverse) {
    Add(L"b.c", 0, 10, 100, 7);
    Add(L"A.txt", 0, 30, 100, 9);
    Add(L"..", kDirectory, 0, 50);
    Add(L"zdir", kDirectory, 0, 10);
    Add(L".hid", 0, 5, 20);
    Add(L"c", 0, 20, 300);
    Add(L"adir", kDirectory, 0, 20);
    Add(L"_u.c", 0, 10, -5);
    const struct {
        int sort;
        const wchar_t* names;
    } rows[] = {
        {kSortName, L".. adir zdir .hid _u.c A.txt b.c c "},
        {kSortName + kReversed, L".. zdir adir .hid c b.c A.txt _u.c "},
        {kSortExtension, L".. adir zdir .hid c _u.c b.c A.txt "},
        {kSortExtension + kReversed, L".. zdir adir .hid A.txt b.c _u.c c "},
        {kSortTime, L".. adir zdir .hid c A.txt b.c _u.c "},
        {kSortTime + kReversed, L".. zdir adir .hid _u.c b.c A.txt c "},
        {kSortSize, L".. adir zdir .hid A.txt c _u.c b.c "},
        {kSortSize + kReversed, L".. zdir adir .hid b.c _u.c c A.txt "},
    };
    for (const auto& row : rows) {
        for (const int before : {kSortName, kSortSize + kReversed}) {
            Sorted(before);
            EXPECT_EQ(Sorted(row.sort), row.names) << row.sort << " after " << before;
        }
    }
}

TEST_F(EntrySorting, LeavesTheListAsReadInBothUnsortedOrders) {
    Add(L"b");
    Add(L"a");
    Add(L"d", kDirectory);
    EXPECT_EQ(Sorted(kSortUnsorted), L"b a d ");
    EXPECT_EQ(Sorted(kSortUnsorted + kReversed), L"b a d ");
}

TEST_F(EntrySorting, SortsNumbersNaturallyWhereAsked) {
    for (const wchar_t* name : {L"file10", L"file9", L"file1", L"file100"})
        Add(name);
    EXPECT_EQ(Sorted(kSortName), L"file1 file10 file100 file9 ");
    settings.naturalSort = true;
    EXPECT_EQ(Sorted(kSortName), L"file1 file9 file10 file100 ");
    EXPECT_EQ(Sorted(kSortName + kReversed), L"file100 file10 file9 file1 ");
}

TEST_F(EntrySorting, LeavesShortListsAlone) {
    EXPECT_EQ(Sorted(kSortName), L"");
    Add(L"a");
    EXPECT_EQ(Sorted(kSortName), L"a ");
}

std::wstring RandomName(std::mt19937& random) {
    static const std::wstring letters = L"abAB_01.29äЯ";
    std::wstring name(random() % 2 ? L"common-beginning-" : L"");
    for (auto n = 1 + random() % 12; n > 0; --n)
        name += letters[random() % letters.size()];
    return name;
}

TEST_F(EntrySorting, AgreesWithTheComparisonOfTwoEntries) {
    std::mt19937 random(7);
    for (int i = 0; i < 3000; ++i) {
        Add(RandomName(random).c_str(), random() % 5 == 0 ? kDirectory : 0, random() % 50,
            static_cast<int64_t>(random() % 40) - 20, static_cast<int32_t>(random() % 3));
    }
    for (const bool natural : {false, true}) {
        settings.naturalSort = natural;
        for (int sort = 0; sort < kSortCount; ++sort) {
            if (sort % kReversed == kSortUnsorted) continue;
            std::shuffle(items.begin(), items.end(), random);
            Sorted(sort);
            for (size_t i = 1; i < items.size(); ++i) {
                ASSERT_LE(CompareEntries(*items[i - 1], *items[i], sort), 0)
                    << sort << (natural ? " natural " : " plain ") << items[i - 1]->name << " "
                    << items[i]->name;
            }
        }
    }
}

TEST_F(EntrySorting, KeepsEveryEntry) {
    std::mt19937 random(3);
    for (int i = 0; i < 1000; ++i)
        Add(RandomName(random).c_str());
    std::vector<entry*> before = items;
    Sorted(kSortExtension);
    std::vector<entry*> after = items;
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_EQ(before, after);
}

TEST_F(EntrySorting, SortsNamesThatShareTheirFirstBytes) {
    const std::wstring start(300, L'x');
    for (const wchar_t* end : {L"b", L"", L"a", L"bb", L"12345678", L"1234567", L"123456789"}) {
        Add((start + end).c_str());
    }
    const auto sorted = [&](const wchar_t* end) { return start + end + L" "; };
    EXPECT_EQ(Sorted(kSortName), sorted(L"") + sorted(L"1234567") + sorted(L"12345678") +
                                     sorted(L"123456789") + sorted(L"a") + sorted(L"b") +
                                     sorted(L"bb"));
}

}  // namespace
}  // namespace zt
