#include "commands/command_history.h"

#include <cwchar>

namespace zt {

void CommandHistory::Add(const Westring& command) {
    Remove(command);
    Append(command);
}

void CommandHistory::Remove(const Westring& command) {
    for (int i = commands.Count() - 1; i >= 0; i--) {
        if (wcscmp(commands.At(i)->c_str(), command.c_str()) == 0) commands.DeleteCurrent();
    }
    // The place counts from the newest, and what was there may have moved.
    historyIndex = historyIndex > commands.Count() ? commands.Count() : historyIndex;
}

Westring CommandHistory::TextAt(int index) {
    return index == 0 ? ownText : *commands.Peek(commands.Count() - index);
}

void CommandHistory::LeaveOwnText(const CommandLine& line) {
    if (historyIndex == 0) ownText = line.Text();
}

void CommandHistory::RecallOlder(CommandLine& line) {
    if (historyIndex >= commands.Count()) return;
    LeaveOwnText(line);
    line.SetText(TextAt(++historyIndex));
}

void CommandHistory::RecallNewer(CommandLine& line) {
    if (historyIndex == 0) return;
    line.SetText(TextAt(--historyIndex));
}

void CommandHistory::Complete(CommandLine& line, int direction) {
    LeaveOwnText(line);
    const int places = commands.Count() + 1;  // the user's own text among them
    const int position = line.Position();
    const Westring prefix = line.Text().Left(position);
    for (int step = 1; step < places; step++) {
        const int index = (historyIndex + (direction > 0 ? step : places - step)) % places;
        const Westring text = TextAt(index);
        if (wcsncmp(text.c_str(), prefix.c_str(), static_cast<size_t>(position)) != 0) continue;
        historyIndex = index;
        line.SetText(text);
        line.MoveTo(position);
        return;
    }
}

}  // namespace zt
