// The row under a panel's list: an error, the quick search, the tagged files, or the current
// entry, whichever comes first. First thread only.
#pragma once

#include "console/cell_string.h"

namespace zt {

struct CPanel;

CellString StatusCells(CPanel& panel, int width);

}  // namespace zt
