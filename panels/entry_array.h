// The entries of a panel: a plain array of pointers, in the order of the screen, over the pool
// that holds the records. First thread only.
#pragma once

#include <atomic>
#include <memory>

#include "panels/entry_pool.h"

namespace zt {

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

private:
    void MakeRoom();

    std::unique_ptr<entry*[]> items;
    int capacity = kFirstCapacity;
    std::atomic<int> count{0};
    std::unique_ptr<EntryPool> pool;
};

}  // namespace zt
