// Lists of entries outside a panel: sets that own theirs, and lookups by name.
#pragma once

#include <cwchar>

#include "foundation/object_store.h"
#include "foundation/sorted_object_list.h"
#include "panels/entry.h"

namespace zt {

// Owns entries that come from NewEntry or CopyEntry.
class EntryStore : public TObjectStore<entry> {
public:
    ~EntryStore() override { Clear(); }

protected:
    void FreeItem(entry* item) override { FreeEntry(item); }
};

// Sorted by name, case-sensitively; borrows its entries.
class CPanelEntryList : public TSortedObjectList<entry, wchar_t> {
protected:
    const wchar_t* KeyOf(entry* item) override { return item->name; }
    int Compare(const wchar_t* a, const wchar_t* b) override { return wcscmp(a, b); }
};

}  // namespace zt
