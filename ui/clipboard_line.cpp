// Making one line of what the clipboard holds.
#include "ui/clipboard_line.h"

#include "console/program_state.h"

namespace zt {

Westring JoinLines(const Westring& text) {
    Westring joined(text.Length());
    int pendingBreaks = 0;
    for (int i = 0; i < text.Length(); ++i) {
        const wchar_t ch = text[i];
        if (ch == L'\r' || ch == L'\n') {
            // A carriage return with its line feed is one line end.
            if (ch == L'\r' && text[i + 1] == L'\n') ++i;
            ++pendingBreaks;
            continue;
        }
        if (!joined.IsEmpty()) {
            for (; pendingBreaks > 0; --pendingBreaks)
                joined += L' ';
        }
        pendingBreaks = 0;
        joined += ch;
    }
    return joined;
}

Westring ClipboardLine() {
    Westring text;
    return console->GetClipboardText(text) ? JoinLines(text) : Westring();
}

}  // namespace zt
