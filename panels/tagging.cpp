#include "panels/tagging.h"

#include "panels/panel.h"
#include "panels/panel_drawing.h"

namespace zt {

void SetTag(CPanel& panel, entry& e, bool tagged) {
    e.tagged = tagged ? 1 : 0;
    panel.taggedCount += tagged ? 1 : -1;
    panel.taggedBytes += tagged ? e.size : -e.size;
}

void TagEntry(CPanel& panel, int index, TagMode mode) {
    entry* e = panel.entries.At(index);
    if (!e || !panel.IsFiles() || panel.IsTree() || e->IsDotDot()) return;
    const bool wanted = mode == TagMode::kToggle ? !e->tagged : mode == TagMode::kSet;
    if (wanted == (e->tagged != 0)) return;
    SetTag(panel, *e, wanted);
    if (index >= panel.top && index < panel.top + panel.visibleEntries) DrawEntry(panel, index);
}

}  // namespace zt
