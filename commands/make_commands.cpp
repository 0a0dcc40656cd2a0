#include "commands/make_commands.h"

#include "fileops/make_directory.h"
#include "fileops/make_link_command.h"

namespace zt {

void MakeDirectoryKey(LoopState& state, const KeyPress&) {
    MakeDirectoryCommand(state.panels, state.panels.active);
    state.DrawAll();
}

void MakeLinksKey(LoopState& state, const KeyPress&) {
    CPanel& other = state.Other();
    IPanelTree* tree = state.panels.seams.tree;
    MakeLinkCommand(state.Active(),
                    other.IsTree() && tree ? tree->SelectedPath(other) : other.path);
    state.DrawAll();
}

}  // namespace zt
