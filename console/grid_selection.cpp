// Selection of screen text with the mouse: which part of the grid allows it, how the selected
// rectangle follows the pointer, and the text that comes of it.
#include <algorithm>

#include "console/grid_console.h"

namespace zt {

namespace {

int SaturatedSum(int a, int b) {
    const int64_t sum = static_cast<int64_t>(a) + b;
    return static_cast<int>(std::clamp<int64_t>(sum, INT32_MIN, INT32_MAX));
}

// One axis of the selection follows the pointer: the edge that moves passes over the one that
// stands still, which keeps the cell of the press selected.
void Follow(int pointer, int& low, int& high, bool& growsHigh) {
    if (growsHigh && pointer < low) {
        high = low;
        growsHigh = false;
    } else if (!growsHigh && pointer > high) {
        low = high;
        growsHigh = true;
    }
    (growsHigh ? high : low) = pointer;
}

}  // namespace

void GridConsole::SetSelectableRect(int left, int top, int width, int height, bool dropSelection) {
    SetSelectableRect(CellRect{left, top, SaturatedSum(left, width), SaturatedSum(top, height)},
                      dropSelection);
}

void GridConsole::SetSelectableRect(const CellRect& rect, bool dropSelection) {
    Guard guard(gridLock);
    selectable = rect;
    if (dropSelection) DropSelection();
    SelectableChanged(rect, dropSelection);
}

CellRect GridConsole::GetSelectableRect() {
    Guard guard(gridLock);
    return selectable;
}

void GridConsole::ClearSelectableRect() {
    SetSelectableRect(CellRect{}, false);
}

bool GridConsole::IsSelected(int column, int row) const {
    return SelectionRect().Contains(column, row);
}

// The shown selection, within the grid; empty when none is shown.
CellRect GridConsole::SelectionRect() const {
    if (!selecting) return CellRect{};
    return Clip(selection.left, selection.top, int64_t{selection.right} - selection.left + 1,
                int64_t{selection.bottom} - selection.top + 1);
}

void GridConsole::DropSelection() {
    const CellRect shown = SelectionRect();
    selecting = false;
    selectionPressed = false;
    MarkChanged(shown);
}

bool GridConsole::SelectionPress(int column, int row) {
    Guard guard(gridLock);
    if (!selectable.Contains(column, row)) return false;
    DropSelection();
    selection = Selection{column, row, column, row};
    selectionGrowsRight = true;
    selectionGrowsDown = true;
    selectionPressed = true;
    return true;
}

bool GridConsole::SelectionMotion(int column, int row) {
    Guard guard(gridLock);
    if (!selectionPressed || !selectable.Contains(column, row)) return false;
    const CellRect before = SelectionRect();
    const Selection old = selection;
    Follow(column, selection.left, selection.right, selectionGrowsRight);
    Follow(row, selection.top, selection.bottom, selectionGrowsDown);
    const bool same = old.left == selection.left && old.top == selection.top &&
                      old.right == selection.right && old.bottom == selection.bottom;
    if (selecting && same) return true;
    selecting = true;
    MarkChanged(before);
    MarkChanged(SelectionRect());
    return true;
}

bool GridConsole::SelectionRelease(Westring& text) {
    Guard guard(gridLock);
    selectionPressed = false;
    if (!selecting) return false;
    const CellRect rect = SelectionRect();
    text.Clear();
    for (int row = rect.top; row < rect.bottom; row++) {
        Westring line(rect.right - rect.left + 1);
        for (int column = rect.left; column < rect.right; column++) {
            line += static_cast<wchar_t>(RowCells(row)[column].character);
        }
        if (row > rect.top) text += L'\n';
        text += line.TrimRight();
    }
    DropSelection();
    return true;
}

}  // namespace zt
