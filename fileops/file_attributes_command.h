// The command that sets mode, owner and group of the tagged entries, or else of the current one.
// First thread only.
#pragma once

namespace zt {

struct CPanel;

// Asks, applies, and marks the panel to be painted. Tags stay. An empty panel ends it.
void FileAttributesCommand(CPanel& panel);

}  // namespace zt
