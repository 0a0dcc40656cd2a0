// The command that makes symbolic links to the tagged entries, or else to the current one. First
// thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

struct CPanel;

// Asks where and how, makes the links, and reads both panels again. An entry that is done loses
// its tag and can be tagged again by restoring the selection. `otherDirectory` is what is
// suggested. An empty panel, or the cursor on "..", ends it.
void MakeLinkCommand(CPanel& panel, const Westring& otherDirectory);

}  // namespace zt
