// Arithmetic of cursor and page, with the least painting that shows it.
#include "panels/cursor_movement.h"

#include <algorithm>
#include <climits>

#include "console/program_state.h"
#include "panels/panel_drawing.h"
#include "panels/panel_pair.h"

namespace zt {

namespace {

// Each entry column moves by a row, and the entry that comes in, from beside or from outside, is
// drawn in the freed row.
void ScrollByOne(CPanel& panel, int direction) {
    panel.top += direction;
    if (!panel.window || panel.window->IsHidden()) return;
    const int columns = EntryColumns(panel.style);
    for (int step = 0; step < columns; ++step) {
        const int column = direction > 0 ? columns - 1 - step : step;
        const int firstIndex = column * panelRows;
        const EntryPlace place = PlaceOf(panel.columns, panel.style, firstIndex, panelRows);
        const int width = columns > 1 ? place.nameWidth : panel.window->ClientWidth();
        panel.window->Scroll(place.x, 0, width, panelRows, direction);
        const int row = direction > 0 ? panelRows - 1 : 0;
        DrawEntry(panel, panel.top + firstIndex + row);
    }
}

void PlaceOnPage(CPanel& panel, int top, int cursor) {
    panel.top = top;
    panel.cursor = cursor;
    DrawEntries(panel);
}

}  // namespace

void MoveCursor(CPanel& panel, int delta) {
    if (!panel.IsShowingFiles() || panel.visibleEntries <= 0) return;
    const int64_t wanted = static_cast<int64_t>(panel.cursor) + delta;
    const int64_t lastRow = panel.Count() - panel.top - 1;
    const int row =
        static_cast<int>(std::clamp<int64_t>(std::min(wanted, lastRow), -INT_MAX / 2, INT_MAX / 2));
    if (row >= 0 && row < panel.visibleEntries) {
        panel.cursor = row;
        return;
    }
    if (panel.top == 0 && row < 0) {
        panel.cursor = 0;
        return;
    }
    const int shift = row < 0 ? row : row - (panel.visibleEntries - 1);
    panel.cursor = row - shift;
    if (shift == 1 || shift == -1) {
        ScrollByOne(panel, shift);
        DrawScrollBar(panel);
    } else {
        PlaceOnPage(panel, std::max(panel.top + shift, 0), panel.cursor);
    }
}

void PlaceCursor(CPanel& panel, int index) {
    const int rows = std::max(panel.visibleEntries, 1);
    if (index < panel.top) panel.top = index;
    if (index >= panel.top + rows) panel.top = index - rows + 1;
    panel.cursor = index - panel.top;
}

bool FindName(CPanel& panel, const wchar_t* name) {
    const int index = panel.entries.Find(name);
    if (index < 0) return false;
    PlaceCursor(panel, index);
    return true;
}

void ClampCursor(CPanel& panel) {
    if (panel.top < 0 || panel.top >= panel.Count()) panel.top = 0;
    const int last = std::max(panel.Count() - panel.top - 1, 0);
    panel.cursor = std::clamp(panel.cursor, 0, last);
    if (panel.visibleEntries > 0 && panel.cursor >= panel.visibleEntries) {
        PlaceCursor(panel, panel.CurrentIndex());
    }
}

void PageUp(CPanel& panel) {
    panel.searchText.Clear();
    if (!panel.IsShowingFiles()) return;
    if (panel.visibleEntries <= 0) return;
    if (panel.top == 0) {
        panel.cursor = 0;
        return;
    }
    int top = panel.top - panel.visibleEntries;
    int cursor = panel.cursor + panel.visibleEntries;
    if (top < 0) {
        cursor += top;
        top = 0;
    }
    PlaceOnPage(panel, top, std::min(cursor, panel.visibleEntries - 1));
}

void PageDown(CPanel& panel) {
    panel.searchText.Clear();
    if (!panel.IsShowingFiles()) return;
    if (panel.top + panel.visibleEntries >= panel.Count()) {
        panel.cursor = std::max(panel.Count() - panel.top - 1, 0);
        return;
    }
    int top = panel.top + panel.visibleEntries;
    int cursor = panel.cursor - panel.visibleEntries;
    const int lastTop = panel.Count() - panel.visibleEntries;
    if (top > lastTop) {
        cursor += top - lastTop;
        top = lastTop;
    }
    PlaceOnPage(panel, top, std::max(cursor, 0));
}

bool HasColumnKeys(const CPanel& panel) {
    return panel.IsShowingFiles() && EntryColumns(panel.style) > 1;
}

void ColumnLeft(CPanel& panel) {
    panel.searchText.Clear();
    if (panel.IsShowingFiles() && panel.top >= panelRows && panel.cursor < panelRows) {
        PlaceOnPage(panel, panel.top - panelRows, panel.cursor);
    } else {
        MoveCursor(panel, -panelRows);
    }
}

void ColumnRight(CPanel& panel) {
    panel.searchText.Clear();
    const bool staysInList = panel.CurrentIndex() + panelRows < panel.Count();
    const bool leavesPage = panel.cursor + panelRows >= panel.visibleEntries;
    if (panel.IsShowingFiles() && staysInList && leavesPage) {
        PlaceOnPage(panel, panel.top + panelRows, panel.cursor);
    } else {
        MoveCursor(panel, panelRows);
    }
}

void FirstEntry(CPanel& panel) {
    panel.searchText.Clear();
    MoveCursor(panel, -panel.CurrentIndex());
}

void LastEntry(CPanel& panel) {
    panel.searchText.Clear();
    MoveCursor(panel, panel.Count() - 1 - panel.CurrentIndex());
}

void ShiftName(CPanel& panel, int delta) {
    ResetShiftIfMoved(panel);
    panel.nameShift = std::max(panel.nameShift + delta, 0);
}

void ResetShiftIfMoved(CPanel& panel) {
    if (panel.nameShiftIndex == panel.CurrentIndex()) return;
    panel.nameShift = 0;
    panel.nameShiftIndex = panel.CurrentIndex();
}

}  // namespace zt
