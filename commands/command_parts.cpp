#include "commands/command_parts.h"

namespace zt {

namespace {

// Where the name of the program ends: at a blank or a '|' with no backslash before it.
int ProgramEnd(const Westring& text) {
    int place = 0;
    while (place < text.Length() && text[place] != L' ' && text[place] != L'|')
        place += text[place] == L'\\' ? 2 : 1;
    return place < text.Length() ? place : text.Length();
}

}  // namespace

Westring Unescape(const Westring& text) {
    Westring plain(text.Length());
    for (int i = 0; i < text.Length(); i++) {
        if (text[i] == L'\\' && i + 1 < text.Length()) i++;
        plain += static_cast<wchar_t>(text[i]);
    }
    return plain;
}

CommandParts SplitCommand(const Westring& text) {
    CommandParts parts;
    parts.command = text;
    const int length = text.Length();
    if (text[0] == L'#') {
        parts.place = RunPlace::kConsole;
        parts.command = text.Right(length - 1);
    } else if (length > 0 && text[length - 1] == L'&') {
        parts.place = RunPlace::kDetached;
        int end = length - 1;
        while (end > 0 && text[end - 1] == L' ')
            end--;
        parts.command = text.Left(end);
    }
    const Westring line = parts.command.TrimLeft();
    const int end = ProgramEnd(line);
    parts.program = Unescape(line.Left(end));
    parts.arguments = line.Right(line.Length() - end).Trim();
    return parts;
}

}  // namespace zt
