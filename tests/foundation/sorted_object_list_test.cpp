// Sorted lists: searching, inserting, and the exact outcome of the sort.
#include "foundation/sorted_object_list.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace zt {
namespace {

struct Item {
    int key;
    int tag;  // tells equal keys apart
};
using Pairs = std::vector<std::pair<int, int>>;

class ItemList : public TSortedObjectList<Item, int> {
public:
    long comparisons = 0;
    // The lowest place of the stack that a comparison was made at.
    uintptr_t deepest = std::numeric_limits<uintptr_t>::max();

protected:
    const int* KeyOf(Item* item) override { return &item->key; }
    int Compare(const int* a, const int* b) override {
        comparisons++;
        deepest = std::min(deepest, reinterpret_cast<uintptr_t>(__builtin_frame_address(0)));
        return *a < *b ? -1 : *a > *b ? 1 : 0;
    }
};

std::vector<Item> ItemsWithKeys(const std::vector<int>& keys) {
    std::vector<Item> items;
    for (int key : keys)
        items.push_back({key, static_cast<int>(items.size())});
    return items;
}

void FillInBulk(ItemList& list, std::vector<Item>& items) {
    list.bulkMode = true;
    for (Item& item : items)
        EXPECT_TRUE(list.Insert(&item));
}

Pairs InOrder(const ItemList& list) {
    Pairs result;
    for (int i = 0; i < list.Count(); i++) {
        result.emplace_back(list.Peek(i)->key, list.Peek(i)->tag);
    }
    return result;
}

// The sort written down step by step, without any care for the depth of its calls.
void PlainSort(std::vector<Item>& v, int low, int high) {
    auto at = [&](int index) -> Item& { return v[static_cast<size_t>(index)]; };
    if (low >= high) return;
    if (low + 1 == high) {
        if (at(low).key > at(high).key) std::swap(at(low), at(high));
        return;
    }
    Item pivot = at((low + high) / 2);
    std::swap(at((low + high) / 2), at(low));
    int i = low + 1;
    int j = high;
    while (j >= i) {
        bool moved = false;
        if (at(i).key < pivot.key) {
            i++;
            moved = true;
        }
        if (at(j).key > pivot.key) {
            j--;
            moved = true;
        }
        if (!moved) std::swap(at(i++), at(j--));
    }
    at(low) = at(i - 1);
    at(i - 1) = pivot;
    PlainSort(v, low, i - 2);
    PlainSort(v, i, high);
}

TEST(SortedListSearch, GivesThePlaceOfAKey) {
    std::vector<Item> items = ItemsWithKeys({10, 20, 30});
    ItemList list;
    for (Item& item : items)
        EXPECT_TRUE(list.Insert(&item));
    struct {
        int key, found, index;
    } rows[] = {{5, -1, 0}, {10, 0, 0}, {15, -1, 1}, {20, 0, 1}, {30, 0, 2}, {35, -1, 3}};
    for (const auto& row : rows) {
        int index = -9;
        EXPECT_EQ(list.Search(&row.key, index), row.found) << row.key;
        EXPECT_EQ(index, row.index) << row.key;
    }
    ItemList empty;
    int index = -9;
    EXPECT_EQ(empty.Search(&rows[0].key, index), -1);
    EXPECT_EQ(index, 0);
}

TEST(SortedListSearch, FindsExactAndNeighbouring) {
    std::vector<Item> items = ItemsWithKeys({10, 20, 30});
    ItemList list;
    for (Item& item : items)
        EXPECT_TRUE(list.Insert(&item));
    const int kNone = -1;
    struct {
        int key, exact, notLess, notGreater;
    } rows[] = {{5, kNone, 10, kNone},
                {10, 10, 10, 10},
                {15, kNone, 20, 10},
                {30, 30, 30, 30},
                {35, kNone, kNone, 30}};
    auto keyOf = [&](const Item* item) { return item == nullptr ? kNone : item->key; };
    for (const auto& row : rows) {
        for (auto [got, expected] :
             {std::pair{&ItemList::Find, row.exact}, std::pair{&ItemList::FindNotLess, row.notLess},
              std::pair{&ItemList::FindNotGreater, row.notGreater}}) {
            list.At(77);
            EXPECT_EQ(keyOf((list.*got)(&row.key)), expected) << row.key;
            if (expected == kNone) {
                EXPECT_EQ(list.CurrentIndex(), 77) << "a miss leaves the cursor";
            } else {
                EXPECT_EQ(keyOf(list.Current()), expected);
            }
        }
    }
}

TEST(SortedListInsert, KeepsOrderAndRefusesEqualKeys) {
    std::vector<Item> items = ItemsWithKeys({3, 1, 2, 1});
    ItemList list;
    EXPECT_TRUE(list.Insert(&items[0]));
    EXPECT_TRUE(list.Insert(&items[1]));
    EXPECT_TRUE(list.Insert(&items[2]));
    EXPECT_FALSE(list.Insert(&items[3]));
    EXPECT_EQ(InOrder(list), (Pairs{{1, 1}, {2, 2}, {3, 0}}));
}

TEST(SortedListInsert, TakesEqualKeysWhenAllowed) {
    std::vector<Item> items = ItemsWithKeys({1, 1, 1});
    ItemList list;
    list.duplicatesAllowed = true;
    for (Item& item : items)
        EXPECT_TRUE(list.Insert(&item));
    EXPECT_EQ(list.Count(), 3);
}

TEST(SortedListInsert, OnlyAppendsInBulkMode) {
    std::vector<Item> items = ItemsWithKeys({3, 1, 1});
    ItemList list;
    FillInBulk(list, items);
    EXPECT_EQ(InOrder(list), (Pairs{{3, 0}, {1, 1}, {1, 2}}));
    EXPECT_EQ(list.comparisons, 0);
}

TEST(SortedListSort, LeavesEqualKeysWhereTheSwapsPutThem) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; round++) {
        std::vector<int> keys(random() % 40);
        int distinct = static_cast<int>(random() % 12) + 1;
        for (int& key : keys)
            key = static_cast<int>(random()) % distinct;
        std::vector<Item> items = ItemsWithKeys(keys);
        std::vector<Item> expected = items;
        PlainSort(expected, 0, static_cast<int>(expected.size()) - 1);
        ItemList list;
        FillInBulk(list, items);
        list.Sort();
        Pairs wanted;
        for (const Item& item : expected)
            wanted.emplace_back(item.key, item.tag);
        ASSERT_EQ(InOrder(list), wanted) << "round " << round;
    }
}

TEST(SortedListSort, IsNotStable) {
    std::vector<Item> items = ItemsWithKeys({1, 1, 1});
    ItemList list;
    FillInBulk(list, items);
    list.Sort();
    EXPECT_NE(InOrder(list), (Pairs{{1, 0}, {1, 1}, {1, 2}}));
}

// An order of n keys in which every middle item is the smallest of its range, or the greatest.
std::vector<int> WorstOrder(int n, bool smallest) {
    auto at = [](std::vector<int>& list, int index) -> int& {
        return list[static_cast<size_t>(index)];
    };
    std::vector<int> keys(static_cast<size_t>(n));
    std::vector<int> places(static_cast<size_t>(n));
    for (int i = 0; i < n; i++)
        at(places, i) = i;
    for (int done = 0; done < n; done++) {
        int low = smallest ? done : 0;
        int high = smallest ? n - 1 : n - 1 - done;
        int middle = (low + high) / 2;
        at(keys, at(places, middle)) = smallest ? low : high;
        std::swap(at(places, middle), at(places, low));
        if (!smallest) std::swap(at(places, low), at(places, high));
    }
    return keys;
}

TEST(SortedListSort, SurvivesTheWorstOrders) {
    // Calls for both sides would go as deep as the order is long, 48 bytes each at the least.
    const int kItems = 5000;
    const uintptr_t kStackBytes = 64 * 1024;
    for (bool smallest : {true, false}) {
        std::vector<Item> items = ItemsWithKeys(WorstOrder(kItems, smallest));
        ItemList list;
        FillInBulk(list, items);
        list.Sort();
        for (int i = 0; i < kItems; i++)
            ASSERT_EQ(list.Peek(i)->key, i);
        EXPECT_GT(list.comparisons, static_cast<long>(kItems) * kItems / 4) << "not the worst";
        auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
        EXPECT_LT(here - list.deepest, kStackBytes);
    }
}

TEST(SortedListSort, SortsManyInUsualTime) {
    const int kItems = 50000;
    for (int distinct : {1, 2, 1000, kItems}) {
        std::mt19937 random(3);
        std::vector<int> keys(kItems);
        for (int& key : keys)
            key = static_cast<int>(random() % static_cast<unsigned>(distinct));
        std::vector<Item> items = ItemsWithKeys(keys);
        ItemList list;
        FillInBulk(list, items);
        list.Sort();
        for (int i = 1; i < kItems; i++)
            ASSERT_LE(list.Peek(i - 1)->key, list.Peek(i)->key);
        EXPECT_LT(list.comparisons, 60L * kItems) << distinct << " distinct keys";
    }
}

TEST(SortedListSort, SortsSortedAndReversed) {
    for (bool reversed : {false, true}) {
        std::vector<int> keys;
        for (int i = 0; i < 1000; i++)
            keys.push_back(reversed ? 1000 - i : i);
        std::vector<Item> items = ItemsWithKeys(keys);
        ItemList list;
        FillInBulk(list, items);
        list.Sort();
        std::sort(keys.begin(), keys.end());
        for (int i = 0; i < 1000; i++) {
            ASSERT_EQ(list.Peek(i)->key, keys[static_cast<size_t>(i)]);
        }
    }
}

}  // namespace
}  // namespace zt
