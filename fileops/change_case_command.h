// The command that changes the letter case of the names of the tagged entries, or else of the
// current one. First thread only.
#pragma once

namespace zt {

struct CPanel;

// Asks, renames, and reads both panels again. The modes stay in the settings for the next time,
// after Esc too. An empty panel ends it.
void ChangeCaseCommand(CPanel& panel);

}  // namespace zt
