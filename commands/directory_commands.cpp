#include "commands/directory_commands.h"

#include <cstdlib>

#include "console/event.h"
#include "console/key_codes.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/entry.h"
#include "panels/link_targets.h"
#include "panels/navigation.h"
#include "panels/panel_window.h"

namespace zt {

namespace {

constexpr int32_t kMenuRereadLeft = 0x100013;

void RereadShowing(LoopState& state, int side) {
    if (!state.panels.panel[side].showing) return;
    RereadSide(state.panels, side);
    state.DrawAll();
}

}  // namespace

bool GoToPath(LoopState& state, const Westring& path) {
    if (!ChangeDirectory(state.Active(), path)) return false;
    state.Active().top = 0;
    state.Active().cursor = 0;
    GoTo(state.panels, state.panels.active, Westring());
    state.DrawAll();
    return true;
}

void EnterCurrent(LoopState& state, const KeyPress&) {
    const entry* current = state.Active().Current();
    if (!current || !(current->flags & kDirectory)) return;
    GoTo(state.panels, state.panels.active, current->name);
    state.DrawAll();
}

void GoUp(LoopState& state, const KeyPress&) {
    GoToParent(state.panels, state.panels.active);
    state.DrawAll();
}

void GoHome(LoopState& state, const KeyPress&) {
    const char* home = getenv("HOME");
    if (home && *home) GoToPath(state, NameFromBytes(home));
}

void GoBackKey(LoopState& state, const KeyPress&) {
    GoBack(state.panels, state.panels.active);
    state.DrawAll();
}

void GoToLinkTarget(LoopState& state, const KeyPress&) {
    CPanel& panel = state.Active();
    const entry* current = panel.Current();
    if (!current || !(current->flags & kSymbolicLink)) return;
    Westring target;
    ResolveLinkTarget(panel, *current, target);
    if (MakeAbsolute(target, panel.path.c_str()) != 0) return;
    if (GoToPath(state, target)) return;
    if (!GoToPath(state, ParentOfPath(target))) return;
    FindName(panel, NameOfPath(target).c_str());
    panel.needPaint = true;
}

void GoToOtherPath(LoopState& state) {
    GoToPath(state, state.Other().path);
}

void GoToTopOrOther(LoopState& state, const KeyPress& key) {
    if (!state.Active().showing || key.modifiers & kModifierAlt) return;
    if (key.HasShift()) return GoToOtherPath(state);
    const Westring& mountPoint = state.Active().mountPoint;
    GoToPath(state, mountPoint.IsEmpty() ? Westring(L"/") : Westring(mountPoint));
}

void Reread(LoopState& state, const KeyPress&) {
    // Then the key belongs to the choice of a mount point, which is not there yet.
    if (settings.ctrlRDriveChng) return;
    RereadShowing(state, state.panels.active);
}

void RereadByMenu(LoopState& state, const KeyPress& key) {
    RereadShowing(state, key.code == kMenuRereadLeft ? 0 : 1);
}

}  // namespace zt
