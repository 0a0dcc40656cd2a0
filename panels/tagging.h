// Tags on the entries of a panel. First thread only.
#pragma once

namespace zt {

struct CPanel;
struct entry;

enum class TagMode { kClear = -1, kToggle = 0, kSet = 1 };

// In a file panel outside the tree style, and never on "..". Counts and bytes follow, and the
// entry is redrawn when it can be seen. An entry that already is as asked is left alone.
void TagEntry(CPanel& panel, int index, TagMode mode);

// Sets or clears the tag of one of the panel's entries, which must not be so yet. Counts and bytes
// follow; nothing is drawn.
void SetTag(CPanel& panel, entry& e, bool tagged);

}  // namespace zt
