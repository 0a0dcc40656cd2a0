// Entries in bulk, over the block allocator.
#include "panels/entry_pool.h"

#include <cstring>
#include <cwchar>

namespace zt {

entry* EntryPool::Keep(const entry& from) {
    const size_t bytes = EntryBytes(wcslen(from.name));
    void* block = pool.AllocateAligned(bytes, alignof(entry));
    if (!block) return nullptr;
    used = true;
    memcpy(block, &from, bytes);
    return static_cast<entry*>(block);
}

void EntryPool::Reset() {
    if (used) pool.Reset();
    used = false;
}

}  // namespace zt
