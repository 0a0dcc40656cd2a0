// The command that sets the modification time of the tagged entries, or else of the current one.
// First thread only.
#pragma once

#include "foundation/date_time.h"
#include "foundation/westring.h"

namespace zt {

struct CPanel;

// Asks, sets, and reads both panels again. Tags stay. An empty panel ends it.
void ChangeDateCommand(CPanel& panel);

// The time of a symbolic link is its own, not its target's. 0 or an errno value.
[[nodiscard]] int SetModificationTime(const Westring& path, const TTime& time);

}  // namespace zt
