// The totals of directories: added up on the disk or in the open archive, shown while that goes
// on, and kept as the sizes of the panel's entries. First thread only; a thread of the window's own
// draws meanwhile.
#pragma once

namespace zt {

struct CPanel;

// Works on the tagged directories when anything is tagged, else on the current entry; links and
// ".." are left alone. Each total becomes its entry's `size`, with `level` 1, and taggedBytes
// follows. Does nothing in a panel that shows no files or shows the tree.
// `quiet`: the window goes when all is counted, whatever SizeCountPause says.
// False when the user pressed Esc: the totals that were found stay, and taggedBytes is as it stood
// before the directory that was not finished.
bool CalculateDirSizes(CPanel& panel, bool quiet);

}  // namespace zt
