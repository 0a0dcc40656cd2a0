#include "commands/copy_commands.h"

#include "fileops/copy_command.h"

namespace zt {

namespace {

void Run(LoopState& state, int flags) {
    CPanel& source = state.Active();
    CPanel& other = state.Other();
    // What goes into an archive or comes out of one waits for the work on archives.
    if (source.archive || (other.archive && other.showing)) return;
    CopyMoveCommand(source, other, flags);
    state.DrawAll();
}

}  // namespace

void CopyKey(LoopState& state, const KeyPress&) {
    Run(state, 0);
}

void MoveKey(LoopState& state, const KeyPress&) {
    Run(state, kCommandMoves);
}

void CopyInPlaceKey(LoopState& state, const KeyPress&) {
    Run(state, kCommandSuggestsName);
}

void RenameKey(LoopState& state, const KeyPress&) {
    Run(state, kCommandMoves | kCommandSuggestsName);
}

}  // namespace zt
