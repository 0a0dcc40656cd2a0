// Blocks of single entries.
#include "panels/entry.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>

namespace zt {

void ClearEntry(entry& e) {
    e.size = 0;
    e.flags = e.mode = e.uid = e.gid = 0;
    e.time = TTime{};
    e.tagged = e.wasTagged = 0;
    e.level = 0;
    e.node = nullptr;
    e.group = 0;
}

// With room for "..": optimised, the look for it reads three characters at once, whatever the
// first.
static entry* AllocateEntry(size_t nameLength) {
    void* block = malloc(EntryBytes(std::max<size_t>(nameLength, 2)));
    if (!block) throw std::bad_alloc();
    return static_cast<entry*>(block);
}

entry* NewEntry(const wchar_t* name) {
    entry* e = AllocateEntry(wcslen(name));
    ClearEntry(*e);
    wcscpy(e->name, name);
    return e;
}

entry* CopyEntry(const entry& from) {
    const size_t length = wcslen(from.name);
    entry* e = AllocateEntry(length);
    memcpy(static_cast<void*>(e), &from, EntryBytes(length));
    return e;
}

void FreeEntry(entry* e) {
    free(e);
}

}  // namespace zt
