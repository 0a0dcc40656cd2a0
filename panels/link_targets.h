// What the symbolic links of a directory point to, so that drawing a link again reads nothing.
// Owned by a panel and emptied at each read. First thread only.
#pragma once

#include "foundation/sorted_collection.h"
#include "foundation/westring.h"

namespace zt {

struct CPanel;
struct entry;

struct TLinkTargetCacheEntry {
    Westring link;  // name within the directory
    Westring target;
};

class CLinkTargetCache : public TSortedCollection<TLinkTargetCacheEntry, Westring> {
public:
    // The target as the link states it; empty when it cannot be read.
    const Westring& TargetOf(const Westring& directory, const wchar_t* name);

protected:
    const Westring* KeyOf(TLinkTargetCacheEntry* item) override { return &item->link; }
    int Compare(const Westring* a, const Westring* b) override;
};

// The target that a panel shows for a link: what the link states, or inside an archive what the
// archive's record has.
void ResolveLinkTarget(CPanel& panel, const entry& link, Westring& target);

}  // namespace zt
