// Finds the rectangles that have become blank and are cheaper to fill than to write row by row.
#pragma once

#include <vector>

#include "console/cell.h"
#include "console/wire/cell_grid.h"

namespace zt {

// The columns of each row that may differ; empty where left is not below right.
struct ColumnSpan {
    int left = 0;
    int right = 0;
    bool IsEmpty() const { return left >= right; }
};

// A rectangle of blanks in one attribute.
struct BlankArea {
    CellRect rect;
    Attribute attribute;
};

// The next such area whose first row is `row` and which holds cells from `column` on; false when
// the row has no more. `spans` has one element a row.
bool FindBlankArea(const CellGrid& wanted, const CellGrid& sent,
                   const std::vector<ColumnSpan>& spans, int row, int& column, BlankArea& area);

}  // namespace zt
