// ObjectList and its typed face: growth, cursor and removal.
#include "foundation/object_list.h"

#include <vector>

#include "foundation/list_facade.h"

namespace zt {
namespace {

// A list of the numbers 0 to n - 1, which it does not own.
class Numbers {
public:
    explicit Numbers(int n) : values(static_cast<size_t>(n)) {
        for (int i = 0; i < n; i++) {
            values[static_cast<size_t>(i)] = i;
            list.Append(&values[static_cast<size_t>(i)]);
        }
    }
    std::vector<int> InOrder() const {
        std::vector<int> result;
        for (int i = 0; i < list.Count(); i++)
            result.push_back(*list.Peek(i));
        return result;
    }

    std::vector<int> values;
    TObjectList<int> list;
};

using Ints = std::vector<int>;

TEST(ObjectListGrowth, TakesThreeTenthsMore) {
    TObjectList<int> list;
    int item = 0;
    std::vector<int> capacities{list.Capacity()};
    for (int i = 0; i < 60; i++) {
        list.Append(&item);
        if (list.Capacity() != capacities.back()) capacities.push_back(list.Capacity());
    }
    EXPECT_EQ(capacities, (Ints{10, 13, 16, 20, 26, 33, 42, 54, 70}));
    EXPECT_EQ(list.Count(), 60);
}

TEST(ObjectListCursor, FollowsAppending) {
    Numbers numbers(3);
    EXPECT_EQ(numbers.list.CurrentIndex(), 2);
    EXPECT_EQ(*numbers.list.Current(), 2);
}

TEST(ObjectListCursor, WalksBothWays) {
    Numbers numbers(3);
    Ints seen;
    for (int* item = numbers.list.First(); item != nullptr; item = numbers.list.Next()) {
        seen.push_back(*item);
    }
    EXPECT_EQ(seen, (Ints{0, 1, 2}));
    EXPECT_EQ(numbers.list.CurrentIndex(), 3);
    EXPECT_EQ(numbers.list.Next(), nullptr);
    seen.clear();
    for (int* item = numbers.list.Last(); item != nullptr; item = numbers.list.Prev()) {
        seen.push_back(*item);
    }
    EXPECT_EQ(seen, (Ints{2, 1, 0}));
    EXPECT_EQ(numbers.list.CurrentIndex(), -1);
    EXPECT_EQ(numbers.list.Prev(), nullptr);
}

TEST(ObjectListCursor, EmptyListHasNoItems) {
    TObjectList<int> list;
    EXPECT_EQ(list.First(), nullptr);
    EXPECT_EQ(list.Last(), nullptr);
    EXPECT_EQ(list.Current(), nullptr);
    EXPECT_EQ(list.Next(), nullptr);
    EXPECT_EQ(list.Prev(), nullptr);
    EXPECT_EQ(list.RemoveCurrent(), nullptr);
    EXPECT_EQ(list.RemoveAt(0), nullptr);
    EXPECT_EQ(list.RemoveRange(0, 1), 0);
}

TEST(ObjectListCursor, AtMovesItAndPeekDoesNot) {
    Numbers numbers(3);
    EXPECT_EQ(*numbers.list.At(1), 1);
    EXPECT_EQ(*numbers.list.Peek(2), 2);
    EXPECT_EQ(numbers.list.CurrentIndex(), 1);
    for (int outside : {-1, 3, 1000000, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(numbers.list.Peek(outside), nullptr);
        EXPECT_EQ(numbers.list.CurrentIndex(), 1);
        EXPECT_EQ(numbers.list.At(outside), nullptr);
        EXPECT_EQ(numbers.list.CurrentIndex(), outside);
        EXPECT_EQ(numbers.list.Current(), nullptr);
        numbers.list.At(1);
    }
}

TEST(ObjectListCursor, StaysAtTheEdgesOfItsRange) {
    Numbers numbers(1);
    numbers.list.At(2147483647);
    EXPECT_EQ(numbers.list.Next(), nullptr);
    numbers.list.At(-2147483647 - 1);
    EXPECT_EQ(numbers.list.Prev(), nullptr);
}

TEST(ObjectListInsert, ShiftsTheTailAndClamps) {
    Numbers numbers(2);
    int extra[] = {10, 11, 12, 13};
    numbers.list.InsertAt(&extra[0], 1);
    EXPECT_EQ(numbers.InOrder(), (Ints{0, 10, 1}));
    EXPECT_EQ(numbers.list.CurrentIndex(), 1);
    numbers.list.InsertAt(&extra[1], 99);
    EXPECT_EQ(numbers.InOrder(), (Ints{0, 10, 1, 11}));
    EXPECT_EQ(numbers.list.CurrentIndex(), 3);
    numbers.list.InsertAt(&extra[2], -5);
    EXPECT_EQ(numbers.InOrder(), (Ints{12, 0, 10, 1, 11}));
    numbers.list.At(2);
    numbers.list.InsertAtCurrent(&extra[3]);
    EXPECT_EQ(numbers.InOrder(), (Ints{12, 0, 13, 10, 1, 11}));
    EXPECT_EQ(*numbers.list.Current(), 13);
}

TEST(ObjectListInsert, GrowsWhenFull) {
    Numbers numbers(10);
    int extra = 99;
    numbers.list.InsertAt(&extra, 0);
    EXPECT_EQ(numbers.list.Capacity(), 13);
    EXPECT_EQ(numbers.InOrder(), (Ints{99, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(ObjectListRemoval, LeavesTheCursorOnTheFollowingItem) {
    Numbers numbers(4);
    numbers.list.At(1);
    EXPECT_EQ(*numbers.list.RemoveCurrent(), 1);
    EXPECT_EQ(*numbers.list.Current(), 2);
    EXPECT_EQ(*numbers.list.RemoveAt(0), 0);
    EXPECT_EQ(numbers.list.CurrentIndex(), 1);
    EXPECT_EQ(numbers.InOrder(), (Ints{2, 3}));
    numbers.list.Last();
    EXPECT_EQ(*numbers.list.RemoveCurrent(), 3);
    EXPECT_EQ(numbers.list.Current(), nullptr);
    EXPECT_EQ(numbers.list.RemoveCurrent(), nullptr);
    EXPECT_EQ(numbers.list.RemoveAt(-1), nullptr);
    EXPECT_EQ(numbers.list.RemoveAt(1), nullptr);
    EXPECT_EQ(numbers.list.Count(), 1);
}

TEST(ObjectListRemoval, CutsARangeDown) {
    struct {
        int index, n, removed;
        Ints left;
    } rows[] = {
        {1, 2, 2, {0, 3, 4}},
        {3, 99, 2, {0, 1, 2}},
        {0, 5, 5, {}},
        {5, 1, 0, {0, 1, 2, 3, 4}},
        {-1, 2, 0, {0, 1, 2, 3, 4}},
        {2, 0, 0, {0, 1, 2, 3, 4}},
        {2, -1, 0, {0, 1, 2, 3, 4}},
        {4, 2147483647, 1, {0, 1, 2, 3}},
    };
    for (const auto& row : rows) {
        Numbers numbers(5);
        EXPECT_EQ(numbers.list.RemoveRange(row.index, row.n), row.removed);
        EXPECT_EQ(numbers.InOrder(), row.left) << row.index << "+" << row.n;
        EXPECT_EQ(numbers.list.CurrentIndex(), 4);
    }
}

TEST(ObjectListRemoval, ForgetEmptiesTheList) {
    Numbers numbers(3);
    numbers.list.Forget();
    EXPECT_EQ(numbers.list.Count(), 0);
    EXPECT_EQ(numbers.list.First(), nullptr);
    EXPECT_EQ(numbers.values, (Ints{0, 1, 2}));
}

}  // namespace
}  // namespace zt
