#include "panels/filter_prompt.h"

#include "panels/filter_check.h"
#include "panels/filter_compiled.h"
#include "panels/panel.h"
#include "ui/dialog.h"

namespace zt {

static constexpr int kTop = 5;
static constexpr int kHeight = 8;

bool FilterPrompt(CPanel& panel) {
    const Estring caption =
        Estring::Format("Filter for %s panel", panel.side == 0 ? "left" : "right");
    Westring filter = panel.filter;

    Dialog dialog(-1, kTop, 76, kTop + kHeight - 1, Colour(ColourClass::kMessages));
    dialog.AddText(1, 0, Westring(caption));
    dialog.AddString(1, 1, true, filter, 72, -1, kHistoryFilters);
    while (dialog.Run() == kExitEnter) {
        CompiledFilter compiled(filter);
        if (!CheckFilter(compiled, "Error in expression")) continue;
        panel.filter = filter;
        return true;
    }
    return false;
}

}  // namespace zt
