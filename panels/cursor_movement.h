// Moving the cursor and the page of a panel. All of it repaints what changed, except the cursor
// bar, which the main loop draws.
#pragma once

namespace zt {

struct CPanel;

// Moves by `delta` entries, within the list, and scrolls as needed. Only in a showing file panel.
void MoveCursor(CPanel& panel, int delta);
// Puts the cursor on the entry with this name, scrolling as needed, without painting. False when
// there is none: nothing changes.
bool FindName(CPanel& panel, const wchar_t* name);
// Puts the cursor on entry `index`, which must be in the list, without painting.
void PlaceCursor(CPanel& panel, int index);
// Keeps top and cursor within the list.
void ClampCursor(CPanel& panel);

// The keys of the same names. They clear the quick search.
void PageUp(CPanel& panel);
void PageDown(CPanel& panel);
void ColumnLeft(CPanel& panel);  // by one entry column
void ColumnRight(CPanel& panel);
void FirstEntry(CPanel& panel);
void LastEntry(CPanel& panel);
// True when Left and Right move the cursor: brief and briefwide in a showing file panel.
bool HasColumnKeys(const CPanel& panel);

// Shifts the long name of the current entry by one cell: +1 left, -1 right. The caller redraws
// the cursor bar.
void ShiftName(CPanel& panel, int delta);
// No shift when the cursor has left the entry that it belongs to.
void ResetShiftIfMoved(CPanel& panel);

}  // namespace zt
