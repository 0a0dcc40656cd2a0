#include "commands/stored_paths.h"

#include <cstdlib>

#include "console/key_codes.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "panels/navigation.h"
#include "panels/panel_switching.h"
#include "ui/message_box.h"

namespace zt {

namespace {

Westring ExpandHome(const Westring& path) {
    const char* home = getenv("HOME");
    if (!home || path[0] != L'~' || path[1] != L'/') return path;
    Westring expanded = NameFromBytes(home);
    expanded.AddTrailingSlash();
    return expanded + path.Right(path.Length() - 2);
}

void GoToStored(LoopState& state, const Westring& stored) {
    if (stored.IsEmpty()) return;
    const int side = StoredPathSide(state);
    CPanel& panel = state.panels.panel[side];
    const Westring path = ExpandHome(stored);
    if (!ChangeDirectory(panel, path)) {
        MessageBox("Invalid Directory", path.c_str(), kBoxOk);
        return;
    }
    panel.top = 0;
    panel.cursor = 0;
    panel.kind = kKindFiles;
    GoTo(state.panels, side, Westring());
}

// In the tree it is the directory under the cursor that one wants to come back to.
Westring PathToStore(LoopState& state) {
    IPanelTree* tree = state.panels.seams.tree;
    if (state.Active().IsTree() && tree) return tree->SelectedPath(state.Active());
    return state.panels.panel[StoredPathSide(state)].path;
}

}  // namespace

int StoredPathSide(LoopState& state) {
    return state.Active().IsTree() ? 1 - state.panels.active : state.panels.active;
}

bool HandleStoredPathKey(LoopState& state, const KeyPress& key) {
    if (!(key.code & kKeyCtrlDigit) || key.code & kKeyGrey) return false;
    const int slot = key.code & 15;
    if (slot > 9) return true;
    if (key.code & (kKeyCtrlShiftDigit - kKeyCtrlDigit)) {
        settings.storedPaths[slot] = PathToStore(state);
    } else {
        GoToStored(state, settings.storedPaths[slot]);
        state.DrawAll();
    }
    return true;
}

}  // namespace zt
