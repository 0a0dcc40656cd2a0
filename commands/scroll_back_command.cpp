#include "commands/scroll_back_command.h"

#include "foundation/settings.h"

namespace zt {

void ShowScrollBackKey(LoopState& state, const KeyPress&) {
    if (settings.consoleScrollback && state.scrollBack) state.scrollBack->ShowScrollBack(state);
}

}  // namespace zt
