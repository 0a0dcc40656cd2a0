// The growing array of a panel's entries.
#include "panels/entry_array.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <utility>

namespace zt {

EntryArray::EntryArray()
    : items(std::make_unique<entry*[]>(kFirstCapacity)), pool(std::make_unique<EntryPool>()) {}

entry* EntryArray::At(int index) const {
    return index >= 0 && index < Count() ? items[static_cast<size_t>(index)] : nullptr;
}

void EntryArray::MakeRoom() {
    if (Count() < capacity) return;
    auto larger = std::make_unique_for_overwrite<entry*[]>(static_cast<size_t>(capacity) * 2);
    memcpy(larger.get(), items.get(), static_cast<size_t>(Count()) * sizeof(entry*));
    items = std::move(larger);
    capacity *= 2;
}

entry* EntryArray::Append(const entry& from) {
    entry* kept = pool->Keep(from);
    if (!kept) return nullptr;
    MakeRoom();
    items[static_cast<size_t>(Count())] = kept;
    count.store(Count() + 1, std::memory_order_relaxed);
    order = EntryOrder();
    return kept;
}

entry* EntryArray::InsertAtStart(const entry& from) {
    entry* kept = Append(from);
    if (!kept) return nullptr;
    memmove(&items[1], &items[0], static_cast<size_t>(Count() - 1) * sizeof(entry*));
    items[0] = kept;
    return kept;
}

void EntryArray::Clear() {
    count.store(0, std::memory_order_relaxed);
    order = EntryOrder();
    pool->Reset();
    if (capacity > kFirstCapacity) {
        items = std::make_unique<entry*[]>(kFirstCapacity);
        capacity = kFirstCapacity;
    }
}

void EntryArray::Swap(EntryArray& other) {
    std::swap(items, other.items);
    std::swap(capacity, other.capacity);
    std::swap(pool, other.pool);
    std::swap(order, other.order);
    const int mine = Count();
    count.store(other.Count(), std::memory_order_relaxed);
    other.count.store(mine, std::memory_order_relaxed);
}

int EntryArray::Find(const wchar_t* name) const {
    for (int i = 0; i < Count(); ++i) {
        if (wcscmp(items[static_cast<size_t>(i)]->name, name) == 0) return i;
    }
    return -1;
}

int EntryArray::IndexOf(const entry* item) const {
    entry* const* const first = Items();
    entry* const* const end = first + Count();
    entry* const* const at = std::find(first, end, item);
    return at == end ? -1 : static_cast<int>(at - first);
}

}  // namespace zt
