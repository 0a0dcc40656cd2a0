// Painting a panel: all of it, or one entry, the bar, the title, the status row.
// Nothing is drawn for a panel whose window is closed or hidden.
#pragma once

namespace zt {

struct CPanel;

inline constexpr int kByRules = -1;  // in place of an attribute: tag, kind and colour rules decide

void DrawPanel(CPanel& panel);    // frame, title, entries, scroll bar, status row
void DrawEntries(CPanel& panel);  // the list with its empty rows, and the scroll bar
void DrawEntry(CPanel& panel, int index, int attribute = kByRules);
void DrawHeader(CPanel& panel);  // the top line with the title
void DrawScrollBar(CPanel& panel);
void DrawStatusRow(CPanel& panel);
// The cursor bar on the current entry, with the status row; and the entry without it.
void DrawCursorBar(CPanel& panel);
void RemoveCursorBar(CPanel& panel);

}  // namespace zt
