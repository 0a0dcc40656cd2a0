#include "commands/quit_command.h"

#include "foundation/settings.h"
#include "ui/message_box.h"

namespace zt {

void Quit(LoopState& state, const KeyPress&) {
    if (settings.confirmations & kQuitUnasked) {
        state.leave = true;
        return;
    }
    const int answer =
        MessageBox("Are you sure you want to exit Zanthe ?", nullptr, kBoxOkCancel | kBoxNotice);
    state.leave = answer == 'y' || answer == 'Y';
}

}  // namespace zt
