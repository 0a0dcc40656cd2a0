#include "commands/delete_commands.h"

#include "fileops/delete_command.h"
#include "fileops/delete_named_command.h"

namespace zt {

void Delete(LoopState& state, const KeyPress&) {
    DeleteCommand(state.Active());
    state.DrawAll();
}

void DeleteNamed(LoopState& state, const KeyPress&) {
    DeleteNamedCommand(state.Active());
    state.DrawAll();
}

}  // namespace zt
