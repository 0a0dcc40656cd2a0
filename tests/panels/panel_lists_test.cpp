// What a panel remembers: positions, the directory history, entries in bulk.
#include <gtest/gtest.h>

#include "panels/directory_history.h"
#include "panels/entry_array.h"
#include "panels/entry_lists.h"
#include "panels/position_stack.h"

namespace zt {
namespace {

TEST(PositionStack, OverwritesTheRecordOfAPath) {
    CPosStack positions;
    positions.Store("/a", 3, "x");
    positions.Store("/b", 4, "y");
    positions.Store("/a", 5, "z");
    ASSERT_NE(positions.Lookup("/a"), nullptr);
    EXPECT_EQ(positions.Lookup("/a")->top, 5);
    EXPECT_STREQ(positions.Lookup("/a")->name.c_str(), L"z");
    EXPECT_EQ(positions.Lookup("/b")->top, 4);
    EXPECT_EQ(positions.Count(), 2);
}

TEST(PositionStack, TellsCasesApart) {
    CPosStack positions;
    positions.Store("/a", 1, "x");
    EXPECT_EQ(positions.Lookup("/A"), nullptr);
}

TEST(DirectoryHistory, HoldsEachPathOnce) {
    DirectoryHistory history;
    for (const char* path : {"/a", "/b", "/a", "/A"})
        history.Record(path);
    ASSERT_EQ(history.Count(), 3);
    EXPECT_STREQ(history.Peek(0)->c_str(), L"/b");
    EXPECT_STREQ(history.Peek(1)->c_str(), L"/a");
    EXPECT_STREQ(history.Peek(2)->c_str(), L"/A");
}

TEST(DirectoryHistory, DropsItsOldestAt101) {
    DirectoryHistory history;
    for (int i = 0; i < 101; ++i)
        history.Record(Westring("/") + Westring(Estring::FromInteger(i)));
    ASSERT_EQ(history.Count(), 100);
    EXPECT_STREQ(history.Peek(0)->c_str(), L"/1");
    EXPECT_STREQ(history.Peek(99)->c_str(), L"/100");
}

TEST(DirectoryHistory, TakesTheNewestOffOnlyWhenItIsMeant) {
    DirectoryHistory history;
    history.Record("/a");
    history.Record("/b");
    history.DropNewest("/a");
    EXPECT_EQ(history.Count(), 2);
    history.DropNewest("/b");
    ASSERT_EQ(history.Count(), 1);
    EXPECT_STREQ(history.Peek(0)->c_str(), L"/a");
}

TEST(EntryArray, GrowsByDoublingFrom4096) {
    EntryArray entries;
    entry* e = NewEntry(L"name");
    EXPECT_EQ(entries.Capacity(), 4096);
    for (int i = 0; i < 4096; ++i)
        ASSERT_NE(entries.Append(*e), nullptr);
    EXPECT_EQ(entries.Capacity(), 4096);
    entries.Append(*e);
    EXPECT_EQ(entries.Capacity(), 8192);
    EXPECT_EQ(entries.Count(), 4097);
    FreeEntry(e);
    EXPECT_STREQ(entries.At(4096)->name, L"name");
    EXPECT_EQ(entries.At(4097), nullptr);
    EXPECT_EQ(entries.At(-1), nullptr);
    entries.Clear();
    EXPECT_EQ(entries.Count(), 0);
    EXPECT_EQ(entries.Capacity(), 4096);
}

TEST(EntryArray, FindsExactNamesOnly) {
    EntryArray entries;
    for (const wchar_t* name : {L"b", L"a", L"A"}) {
        entry* e = NewEntry(name);
        entries.Append(*e);
        FreeEntry(e);
    }
    EXPECT_EQ(entries.Find(L"A"), 2);
    EXPECT_EQ(entries.Find(L"B"), -1);
}

TEST(EntryStore, FreesWhatItOwns) {
    EntryStore store;
    entry* e = NewEntry(L"a long name that does not fit anywhere inline");
    e->size = 9;
    store.Append(CopyEntry(*e));
    store.Append(e);
    EXPECT_STREQ(store.Peek(0)->name, store.Peek(1)->name);
    EXPECT_EQ(store.Peek(0)->size, 9u);
}

TEST(PanelEntryList, FindsByName) {
    EntryStore store;
    CPanelEntryList list;
    for (const wchar_t* name : {L"b", L"a", L"B"}) {
        store.Append(NewEntry(name));
        EXPECT_TRUE(list.Insert(store.Current()));
    }
    EXPECT_FALSE(list.Insert(store.Peek(0)));
    ASSERT_NE(list.Find(L"a"), nullptr);
    EXPECT_STREQ(list.Peek(0)->name, L"B");
    EXPECT_EQ(list.Find(L"A"), nullptr);
}

}  // namespace
}  // namespace zt
