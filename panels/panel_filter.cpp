#include "panels/panel_filter.h"

#include "panels/panel.h"

namespace zt {

// Anew for each read: the files and users that the filter names may have changed.
void PanelFilter::BeginRead(const CPanel& panel) {
    compiled_[panel.side].emplace(panel.filter);
}

bool PanelFilter::Accepts(const CPanel& panel, const entry& candidate) {
    std::optional<CompiledFilter>& compiled = compiled_[panel.side];
    if (!compiled || !compiled->StandsFor(panel.filter)) BeginRead(panel);
    return compiled->Matches(candidate) != 0;
}

}  // namespace zt
