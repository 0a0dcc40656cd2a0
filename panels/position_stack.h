// Where the cursor stood in each directory that was left: one record a directory.
// Owned by a panel. First thread only.
#pragma once

#include "foundation/sorted_collection.h"
#include "foundation/westring.h"

namespace zt {

struct TPanelPosition {
    Westring path;
    int top = 0;
    Westring name;  // of the entry under the cursor
};

class CPosStack : public TSortedCollection<TPanelPosition, Westring> {
public:
    // Storing again for the same path overwrites.
    void Store(const Westring& path, int top, const Westring& name);
    // Null when the path has no record.
    const TPanelPosition* Lookup(const Westring& path);

protected:
    const Westring* KeyOf(TPanelPosition* item) override { return &item->path; }
    int Compare(const Westring* a, const Westring* b) override;
};

}  // namespace zt
