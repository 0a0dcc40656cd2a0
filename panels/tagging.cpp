#include "panels/tagging.h"

#include "panels/panel.h"
#include "panels/panel_drawing.h"

namespace zt {

void TagEntry(CPanel& panel, int index, TagMode mode) {
    entry* e = panel.entries.At(index);
    if (!e || !panel.IsFiles() || panel.IsTree() || e->IsDotDot()) return;
    const bool wanted = mode == TagMode::kToggle ? !e->tagged : mode == TagMode::kSet;
    if (wanted == (e->tagged != 0)) return;
    e->tagged = wanted ? 1 : 0;
    panel.taggedCount += wanted ? 1 : -1;
    panel.taggedBytes += wanted ? e->size : -e->size;
    if (index >= panel.top && index < panel.top + panel.visibleEntries) DrawEntry(panel, index);
}

}  // namespace zt
