// The memory of one directory's entries: dropping them all is one call, and none costs an
// allocation of its own. Owned by an EntryArray. First thread only.
#pragma once

#include "foundation/memory_pool.h"
#include "panels/entry.h"

namespace zt {

class EntryPool {
public:
    // A copy that lives until the next Reset. Null when memory ran out.
    [[nodiscard]] entry* Keep(const entry& from);
    void Reset();

private:
    MemoryPool pool;
    bool used = false;  // an unused pool is not reset, so that an empty one costs nothing
};

}  // namespace zt
