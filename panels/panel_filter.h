// The panels' filters: which files a panel shows. Owned by the application; first thread only.
#pragma once

#include <optional>

#include "panels/filter_compiled.h"
#include "panels/panel_seams.h"

namespace zt {

// A filter that is in error hides nothing: it is better to see a file too many than to take it for
// gone.
class PanelFilter : public IEntryFilter {
public:
    void BeginRead(const CPanel& panel) override;
    bool Accepts(const CPanel& panel, const entry& candidate) override;

private:
    std::optional<CompiledFilter> compiled_[2];  // of each side, for its last read
};

}  // namespace zt
