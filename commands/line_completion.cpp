#include "commands/line_completion.h"

#include <cwchar>

#include "commands/history_dialog.h"

namespace zt {

namespace {

constexpr HistoryShape kShape = {" Line Completion ", 18, 1, 6};

}  // namespace

void CompleteLineFromList(LoopState& state, const KeyPress&) {
    const Westring prefix = state.line.Text().Left(state.line.Position());
    WestringStore& commands = state.history.Commands();
    WestringStore fitting;
    for (int i = 0; i < commands.Count(); i++) {
        const Westring& command = *commands.Peek(i);
        const auto length = static_cast<size_t>(prefix.Length());
        if (wcsncmp(command.c_str(), prefix.c_str(), length) == 0)
            fitting.Append(new Westring(command));
    }
    if (fitting.Count() == 0) return;
    state.DrawAll();
    HistoryDialog dialog(kShape, fitting, {});
    if (dialog.Run() != kExitEnter) return;
    state.line.SetText(*fitting.Peek(dialog.chosen));
    state.history.ForgetPlace();
}

}  // namespace zt
