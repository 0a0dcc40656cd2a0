// Scrolling of a rectangle of the grid.
#include <algorithm>

#include "console/grid_console.h"

namespace zt {

void GridConsole::ScrollUp(int column, int row, int width, int height, int lines,
                           Attribute attribute) {
    Guard guard(gridLock);
    if (lines > 0) Scroll(Clip(column, row, width, height), lines, attribute);
}

void GridConsole::ScrollDown(int column, int row, int width, int height, int lines,
                             Attribute attribute) {
    Guard guard(gridLock);
    const CellRect rect = Clip(column, row, width, height);
    if (lines > 0) Scroll(rect, -std::min(lines, rows), attribute);
}

// Positive `lines` move up. What would come in from outside the grid is blank.
void GridConsole::Scroll(const CellRect& rect, int lines, Attribute attribute) {
    if (rect.IsEmpty()) return;
    const int height = rect.bottom - rect.top;
    const int width = rect.right - rect.left;
    const int distance = std::min(lines < 0 ? -lines : lines, height);
    const bool up = lines > 0;
    const Cell blank{U' ', attribute};
    for (int i = 0; i < height; i++) {
        const int target = up ? rect.top + i : rect.bottom - 1 - i;
        const int source = up ? target + distance : target - distance;
        Cell* line = RowAt(target) + rect.left;
        if (i < height - distance) {
            std::copy_n(RowAt(source) + rect.left, width, line);
        } else {
            std::fill_n(line, width, blank);
        }
    }
    const bool seenTo = RowsMoved(rect, up ? distance : -distance, attribute, IsFrozen());
    if (!seenTo) {
        MarkChanged(rect);
        return;
    }
    const CellRect marks = SelectionRect();
    const bool meet = marks.left < rect.right && rect.left < marks.right &&
                      marks.top < rect.bottom && rect.top < marks.bottom;
    if (meet) MarkChanged(rect);
}

}  // namespace zt
