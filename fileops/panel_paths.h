// The full paths of what a panel shows. First thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

struct CPanel;
struct entry;

// The directory that a panel stands for: in the tree style the one under its cursor.
Westring PanelDirectory(const CPanel& panel);
// The full path of an entry; in the tree style that of the row under the cursor. A panel without a
// directory of its own (its path is empty) has full paths for names.
Westring PathOfEntry(const CPanel& panel, const entry& item);
// The path of `name` in `directory`, with one '/' between.
Westring PathInDirectory(const Westring& directory, const Westring& name);
// Without the slashes at the end, but for that of the root.
Westring WithoutTrailingSlash(const Westring& path);

}  // namespace zt
