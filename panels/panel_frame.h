// The lines around and inside a panel, and its title. Nothing is drawn without a window.
#pragma once

#include "console/cell_string.h"

namespace zt {

struct CPanel;

// The top line: double line, junctions of the columns, title.
CellString HeaderCells(const CPanel& panel);
// The line above the status row.
CellString SeparatorCells(const CPanel& panel);
CellString BottomCells(const CPanel& panel);
void DrawHeaderLine(CPanel& panel);  // but for what the clock covers
void DrawFrameLines(CPanel& panel);  // all three

}  // namespace zt
