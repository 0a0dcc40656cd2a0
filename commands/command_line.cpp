#include "commands/command_line.h"

#include <algorithm>

#include "console/program_state.h"
#include "foundation/settings.h"
#include "ui/word_movement.h"

namespace zt {

namespace {

// The scrolled text keeps at least this many characters in view.
constexpr int kKeptInView = 40;

}  // namespace

void CommandLine::SetText(const Westring& value) {
    text = value.Length() > kMaxLength ? value.Left(kMaxLength) : value;
    linePos = text.Length();
}

void CommandLine::Clear() {
    text.Clear();
    linePos = 0;
    lineScroll = 0;
}

void CommandLine::Insert(wchar_t character) {
    if (text.Length() >= kMaxLength) return;
    const wchar_t one[] = {character, 0};
    Insert(Westring(one));
}

void CommandLine::Insert(const Westring& insertion) {
    Replace(linePos, linePos, insertion);
}

void CommandLine::Replace(int start, int end, const Westring& replacement) {
    if (text.Length() - (end - start) + replacement.Length() > kMaxLength) return;
    const Westring tail = text.Right(text.Length() - end);
    text = text.Left(start) + replacement + tail;
    linePos = start + replacement.Length();
}

void CommandLine::MoveTo(int position) {
    linePos = std::clamp(position, 0, text.Length());
}

void CommandLine::DeleteBackward() {
    if (linePos == 0) return;
    text = text.Left(linePos - 1) + text.Right(text.Length() - linePos);
    linePos--;
}

void CommandLine::DeleteForward() {
    if (linePos == text.Length()) return;
    text = text.Left(linePos) + text.Right(text.Length() - linePos - 1);
}

void CommandLine::MoveWordLeft() {
    linePos = WordLeft(text, linePos);
}

void CommandLine::MoveWordRight() {
    linePos = WordRight(text, linePos);
}

void CommandLine::DeleteWordBackward() {
    Replace(WordLeft(text, linePos), linePos, Westring());
}

void CommandLine::DeleteWordForward() {
    Replace(linePos, WordRight(text, linePos), Westring());
}

void CommandLine::Draw(const Westring& prompt, int row) {
    const int room = std::max(screenColumns - prompt.Length(), 1);
    linePos = std::clamp(linePos, 0, text.Length());
    lineScroll = std::clamp(lineScroll, 0, std::max(text.Length() - kKeptInView, 0));
    lineScroll = std::clamp(lineScroll, std::max(linePos - room + 1, 0), linePos);
    cursorColumn = prompt.Length() + linePos - lineScroll;

    const Westring line = prompt + text.Right(text.Length() - lineScroll);
    console->WriteWide(0, row, line.PadRight(screenColumns).c_str(),
                       Colour(ColourClass::kCommandLine));
}

}  // namespace zt
