// Lists that own their items: what is freed, when, and in which order.
#include "foundation/object_store.h"

#include <vector>

#include "foundation/sorted_collection.h"
#include "foundation/string_lists.h"

namespace zt {
namespace {

using Ints = std::vector<int>;

// Writes its number down when it is freed.
struct Witness {
    Witness(int itsNumber, Ints& list) : number(itsNumber), gone(list) {}
    ~Witness() { gone.push_back(number); }
    int number;
    Ints& gone;
};

class WitnessCollection : public TSortedCollection<Witness, int> {
protected:
    const int* KeyOf(Witness* item) override { return &item->number; }
    int Compare(const int* a, const int* b) override { return *a - *b; }
};

// Its items belong to someone else: it only counts what it is told to free.
class CountingStore : public TObjectStoreAbstract<int> {
public:
    explicit CountingStore(int& counter) : freed(counter) {}
    ~CountingStore() override { Clear(); }

protected:
    void FreeItem(int*) override { freed++; }

private:
    int& freed;
};

TEST(ObjectStoreLifetime, FreesAllInOrderAtTheEnd) {
    Ints gone;
    {
        TObjectStore<Witness> store;
        for (int i = 0; i < 12; i++)
            store.Append(new Witness(i, gone));
        EXPECT_TRUE(gone.empty());
    }
    EXPECT_EQ(gone, (Ints{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST(ObjectStoreLifetime, ClearLeavesTheCursorAtTheOldCount) {
    Ints gone;
    TObjectStore<Witness> store;
    for (int i = 0; i < 3; i++)
        store.Append(new Witness(i, gone));
    store.At(1);
    store.Clear();
    EXPECT_EQ(gone, (Ints{0, 1, 2}));
    EXPECT_EQ(store.Count(), 0);
    EXPECT_EQ(store.CurrentIndex(), 3);
    EXPECT_EQ(store.Current(), nullptr);
}

TEST(ObjectStoreLifetime, DeleteCurrentFreesOne) {
    Ints gone;
    TObjectStore<Witness> store;
    for (int i = 0; i < 3; i++)
        store.Append(new Witness(i, gone));
    store.At(1);
    store.DeleteCurrent();
    EXPECT_EQ(gone, (Ints{1}));
    EXPECT_EQ(store.Current()->number, 2);
    store.At(2);
    store.DeleteCurrent();
    store.At(-1);
    store.DeleteCurrent();
    EXPECT_EQ(gone, (Ints{1}));
    EXPECT_EQ(store.Count(), 2);
}

TEST(ObjectStoreLifetime, RemovedItemsBelongToTheCaller) {
    Ints gone;
    TObjectStore<Witness> store;
    store.Append(new Witness(7, gone));
    Witness* mine = store.RemoveAt(0);
    store.Clear();
    EXPECT_TRUE(gone.empty());
    delete mine;
    Witness onStack(8, gone);
    store.Append(&onStack);
    store.Forget();
    EXPECT_EQ(gone, (Ints{7}));
}

TEST(ObjectStoreLifetime, AsksItsOwnFreeing) {
    int freed = 0;
    int item = 0;
    {
        CountingStore store(freed);
        for (int i = 0; i < 3; i++)
            store.Append(&item);
        store.At(0);
        store.DeleteCurrent();
        EXPECT_EQ(freed, 1);
    }
    EXPECT_EQ(freed, 3);
}

TEST(SortedCollectionLifetime, FreesItsItems) {
    Ints gone;
    {
        WitnessCollection collection;
        for (int i : {3, 1, 2})
            EXPECT_TRUE(collection.Insert(new Witness(i, gone)));
        collection.At(1);
        collection.DeleteCurrent();
        EXPECT_EQ(gone, (Ints{2}));
        collection.At(2);
        collection.DeleteCurrent();
        EXPECT_EQ(collection.Count(), 2);
    }
    EXPECT_EQ(gone, (Ints{2, 1, 3}));
}

TEST(SortedCollectionLifetime, ClearLeavesTheCursorAtTheOldCount) {
    Ints gone;
    WitnessCollection collection;
    for (int i : {3, 1})
        EXPECT_TRUE(collection.Insert(new Witness(i, gone)));
    collection.Clear();
    EXPECT_EQ(collection.CurrentIndex(), 2);
    EXPECT_EQ(collection.Current(), nullptr);
    EXPECT_EQ(gone, (Ints{1, 3}));
}

TEST(SortedCollectionLifetime, RefusedItemStaysWithTheCaller) {
    Ints gone;
    WitnessCollection collection;
    EXPECT_TRUE(collection.Insert(new Witness(1, gone)));
    {
        Witness second(1, gone);
        EXPECT_FALSE(collection.Insert(&second));
        EXPECT_TRUE(gone.empty());
    }
    EXPECT_EQ(collection.Count(), 1);
}

TEST(StringLists, KeepTheOrderOfAppending) {
    EstringStore narrow;
    narrow.Append(new Estring("b"));
    narrow.Append(new Estring("a"));
    EXPECT_STREQ(narrow.First()->c_str(), "b");
    WestringStore wide;
    wide.Append(new Westring(L"b"));
    wide.Append(new Westring(L"a"));
    EXPECT_STREQ(wide.Last()->c_str(), L"a");
}

TEST(StringLists, HoldEachTextOnceWithoutRegardToCase) {
    StringCollection narrow;
    EXPECT_TRUE(narrow.AddCopy("b"));
    EXPECT_TRUE(narrow.AddCopy("A"));
    EXPECT_FALSE(narrow.AddCopy("B"));
    EXPECT_EQ(narrow.Count(), 2);
    EXPECT_STREQ(narrow.Peek(0)->c_str(), "A");
    EXPECT_STREQ(narrow.FindText("B")->c_str(), "b");
    EXPECT_EQ(narrow.FindText("c"), nullptr);

    WestringCollection wide;
    EXPECT_TRUE(wide.AddCopy(L"b"));
    EXPECT_FALSE(wide.AddCopy(L"B"));
    EXPECT_EQ(wide.FindText(L"x"), nullptr);

    FnStringCollection names;
    EXPECT_TRUE(names.AddCopy(L"Readme"));
    EXPECT_FALSE(names.AddCopy(L"README"));
    EXPECT_STREQ(names.FindText(L"readme")->c_str(), L"Readme");
}

TEST(StringLists, AddDuplicatesWhenAllowed) {
    StringCollection list;
    list.duplicatesAllowed = true;
    EXPECT_TRUE(list.AddCopy("a"));
    EXPECT_TRUE(list.AddCopy("A"));
    EXPECT_EQ(list.Count(), 2);
}

TEST(StringLists, KeyedValuesAreFoundByKey) {
    KeyedValueSet set;
    EXPECT_TRUE(set.AddCopy("Path", "/bin"));
    EXPECT_TRUE(set.AddCopy("Home", "/root"));
    EXPECT_FALSE(set.AddCopy("PATH", "/sbin"));
    ASSERT_NE(set.FindText("path"), nullptr);
    EXPECT_STREQ(set.FindText("path")->value.c_str(), "/bin");
    EXPECT_STREQ(set.Peek(0)->key.c_str(), "Home");
    EXPECT_EQ(set.FindText("shell"), nullptr);
}

}  // namespace
}  // namespace zt
