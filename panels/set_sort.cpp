// Giving a panel another order.
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/directory_reader.h"
#include "panels/entry_sorting.h"
#include "panels/panel.h"

namespace zt {

void SetSort(CPanel& panel, int sort) {
    panel.sort = sort;
    settings.sides[panel.side].sort = sort;
    if (panel.IsTree()) return;
    panel.needPaint = true;
    if (sort == kSortUnsorted) {
        ReadDirectory(panel);  // only the disk knows its own order
        return;
    }
    const entry* current = panel.Current();
    SortPanel(panel);
    if (current) PlaceCursor(panel, panel.entries.IndexOf(current));
}

}  // namespace zt
