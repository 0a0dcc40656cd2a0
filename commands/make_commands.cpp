#include "commands/make_commands.h"

#include "fileops/make_directory.h"
#include "fileops/make_link_command.h"
#include "fileops/panel_paths.h"

namespace zt {

void MakeDirectoryKey(LoopState& state, const KeyPress&) {
    MakeDirectoryCommand(state.panels, state.panels.active);
    state.DrawAll();
}

void MakeLinksKey(LoopState& state, const KeyPress&) {
    MakeLinkCommand(state.Active(), PanelDirectory(state.Other()));
    state.DrawAll();
}

}  // namespace zt
