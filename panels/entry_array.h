// The entries of a panel: a plain array of pointers, in the order of the screen, over the pool
// that holds the records. First thread only.
#pragma once

#include <atomic>
#include <memory>

#include "panels/entry_pool.h"

namespace zt {

// How a list was put in order; a `sort` below 0: not at all, or not since entries came.
struct EntryOrder {
    int sort = -1;
    bool natural = false;

    friend bool operator==(const EntryOrder&, const EntryOrder&) = default;
};

class EntryArray {
public:
    static constexpr int kFirstCapacity = 4096;

    EntryArray();

    int Count() const { return count.load(std::memory_order_relaxed); }
    int Capacity() const { return capacity; }
    // Null outside the list.
    entry* At(int index) const;
    entry** Items() { return items.get(); }
    entry* const* Items() const { return items.get(); }
    // The running count, for a progress box on a thread of its own.
    const std::atomic<int>* CountAddress() const { return &count; }

    // Copies the entry to the end. Null when memory ran out: the list is then as it was.
    entry* Append(const entry& from);
    entry* InsertAtStart(const entry& from);
    // Forgets all entries and gives their memory back.
    void Clear();
    void Swap(EntryArray& other);
    // The index of the entry with exactly this name, or -1.
    int Find(const wchar_t* name) const;
    // The index of this very entry, or -1. Looks into no entry.
    int IndexOf(const entry* item) const;

    // Kept by those who sort; whatever adds an entry or clears the list takes it back.
    EntryOrder Order() const { return order; }
    void SetOrder(const EntryOrder& value) { order = value; }

private:
    void MakeRoom();

    std::unique_ptr<entry*[]> items;
    int capacity = kFirstCapacity;
    std::atomic<int> count{0};
    EntryOrder order;
    std::unique_ptr<EntryPool> pool;
};

}  // namespace zt
