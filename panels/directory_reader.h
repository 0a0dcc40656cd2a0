// Reading a panel's directory into its entries.
#pragma once

namespace zt {

struct CPanel;

// Reads panel.path. A panel that is not showing, or shows info, only notes that a read is due.
// Reading the path of the last completed read keeps tags and the cursor's name. Failures are
// shown in a message box; a directory that may not be entered is left for its parent. The Break
// key ends the reading, and what was read so far is the list. Always gives 0.
int ReadDirectory(CPanel& panel);

// True when the user's list of file systems that know one case of letters has the panel's, so that
// its names are shown in capitals.
bool FoldsCase(const CPanel& panel);

}  // namespace zt
