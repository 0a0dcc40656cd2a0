// The embedded terminal: what each escape sequence does.
#include <algorithm>
#include <array>

#include "console/console_interface.h"
#include "console/terminal/terminal.h"

namespace zt {

namespace {

constexpr int32_t kInsertReplaceMode = 4;
constexpr int kShownCursorPercent = 15;

// The count of a sequence: 1 where none is written, and for 0.
int Count(const CsiSequence& sequence) {
    return sequence.NumberOr(0, 1);
}

// The same, but a written 0 is 0.
int CountOrNone(const CsiSequence& sequence) {
    return sequence.Number(0) == 0 ? 0 : Count(sequence);
}

}  // namespace

const CTerminal::ActionRow CTerminal::kActions[] = {
    {'@', &CTerminal::InsertBlanks},
    {'A', &CTerminal::MoveUp},
    {'B', &CTerminal::MoveDown},
    {'C', &CTerminal::MoveRight},
    {'D', &CTerminal::MoveLeft},
    {'G', &CTerminal::GoToColumn},
    {'H', &CTerminal::GoTo},
    {'J', &CTerminal::EraseInDisplay},
    {'K', &CTerminal::EraseInRow},
    {'L', &CTerminal::InsertLines},
    {'M', &CTerminal::DeleteLines},
    {'P', &CTerminal::DeleteCharacters},
    {'S', &CTerminal::ScrollUp},
    {'T', &CTerminal::ScrollDown},
    {'X', &CTerminal::EraseCharacters},
    {'b', &CTerminal::Repeat},
    {'d', &CTerminal::GoToRow},
    {'h', &CTerminal::SetMode},
    {'l', &CTerminal::SetMode},
    {'m', &CTerminal::SetColours},
    {'r', &CTerminal::SetRegion},
};

// Null for a byte that names nothing.
CTerminal::Action CTerminal::FindAction(char final) {
    static const std::array<Action, 128> byFinal = [] {
        std::array<Action, 128> all{};
        for (const ActionRow& entry : kActions)
            all[static_cast<size_t>(entry.final)] = entry.action;
        return all;
    }();
    return byFinal[static_cast<size_t>(final) & 127];
}

void CTerminal::TakeCsi(const CsiSequence& sequence) {
    if (sequence.prefix == '?') {
        const bool isMode = sequence.final == 'h' || sequence.final == 'l';
        for (int i = 0; isMode && i < sequence.count; i++)
            SetPrivateMode(sequence.Number(i), sequence.final == 'h');
        return;
    }
    if (sequence.prefix != 0) return;
    const Action action = FindAction(sequence.final);
    if (action != nullptr) (this->*action)(sequence);
}

bool CTerminal::TakeEscape(unsigned char byte) {
    switch (byte) {
        case 'M':
            ScrollRegionDown(1);
            return true;
        case '7':
            SaveCursor();
            return true;
        case '8':
            RestoreCursor();
            return true;
        case '=':
        case '>':
            keypadApplication = byte == '=';
            return true;
        default:
            return false;
    }
}

void CTerminal::TakeCharset(unsigned char byte) {
    if (byte == '0' || byte == 'B') graphicCharset = byte == '0';
}

void CTerminal::SetPrivateMode(int32_t mode, bool on) {
    switch (mode) {
        case 1:
            cursorApplication.store(on, std::memory_order_relaxed);
            break;
        case 25:
            cursorSize = on ? kShownCursorPercent : 0;
            break;
        case 47:
        case 1047:
            on ? EnterAlternateScreen() : LeaveAlternateScreen();
            break;
        case 1048:
            on ? SaveCursor() : RestoreCursor();
            break;
        case 1049:
            if (on) {
                SaveCursor();
                EnterAlternateScreen();
            } else {
                LeaveAlternateScreen();
                RestoreCursor();
            }
            break;
        default:
            break;
    }
}

void CTerminal::InsertBlanks(const CsiSequence& sequence) {
    screen.InsertCells(row, column, Count(sequence), colours.Current());
}

void CTerminal::MoveUp(const CsiSequence& sequence) {
    row = std::max(row - CountOrNone(sequence), 0);
}

void CTerminal::MoveDown(const CsiSequence& sequence) {
    row = std::min(row + CountOrNone(sequence), rows - 1);
}

void CTerminal::MoveRight(const CsiSequence& sequence) {
    const int count = CountOrNone(sequence);
    if (count > 0) column = std::min(column + count, columns - 1);
}

void CTerminal::MoveLeft(const CsiSequence& sequence) {
    column = std::max(column - CountOrNone(sequence), 0);
}

void CTerminal::GoToColumn(const CsiSequence& sequence) {
    column = std::min(Count(sequence), columns) - 1;
}

void CTerminal::GoToRow(const CsiSequence& sequence) {
    row = std::min(Count(sequence), rows) - 1;
}

void CTerminal::GoTo(const CsiSequence& sequence) {
    row = std::min(sequence.NumberOr(0, 1), rows) - 1;
    column = std::min(sequence.NumberOr(1, 1), columns) - 1;
}

void CTerminal::EraseInDisplay(const CsiSequence& sequence) {
    const int part = sequence.NumberOr(0, 0);
    if (part > 2) return;
    EraseInRow(sequence);
    const int first = part == 0 ? row + 1 : 0;
    const int end = part == 1 ? row : rows;
    for (int line = first; line < end; line++)
        screen.Fill(line, 0, columns, colours.Current());
}

void CTerminal::EraseInRow(const CsiSequence& sequence) {
    const int part = sequence.NumberOr(0, 0);
    if (part > 2) return;
    const int from = part == 0 ? column : 0;
    const int to = part == 1 ? column : columns;
    screen.Fill(row, from, to, colours.Current());
}

// Where inserting and deleting lines ends.
int CTerminal::BottomForLines() const {
    return row > scrollBottom ? rows : scrollBottom + 1;
}

void CTerminal::InsertLines(const CsiSequence& sequence) {
    screen.Scroll(row, BottomForLines(), -Count(sequence), colours.Current());
}

void CTerminal::DeleteLines(const CsiSequence& sequence) {
    screen.Scroll(row, BottomForLines(), Count(sequence), colours.Current());
}

void CTerminal::DeleteCharacters(const CsiSequence& sequence) {
    screen.DeleteCells(row, column, Count(sequence), colours.Current());
}

void CTerminal::ScrollUp(const CsiSequence& sequence) {
    if (sequence.Number(0) != CsiSequence::kMissing) ScrollRegionUp(Count(sequence));
}

void CTerminal::ScrollDown(const CsiSequence& sequence) {
    ScrollRegionDown(Count(sequence));
}

void CTerminal::EraseCharacters(const CsiSequence& sequence) {
    const int end = std::min(column + CountOrNone(sequence), columns);
    screen.Fill(row, column, end, colours.Current());
}

// As if the character came that often; more than a screen of it changes nothing.
void CTerminal::Repeat(const CsiSequence& sequence) {
    if (lastCharacter != 0) PutRepeated(lastCharacter, std::min(Count(sequence), columns * rows));
}

void CTerminal::SetMode(const CsiSequence& sequence) {
    for (int i = 0; i < sequence.count; i++)
        if (sequence.Number(i) == kInsertReplaceMode) insertMode = sequence.final == 'h';
}

void CTerminal::SetColours(const CsiSequence& sequence) {
    colours.Apply(sequence);
}

// An edge that does not lie on the screen stays as it was. The cursor stays where it is.
void CTerminal::SetRegion(const CsiSequence& sequence) {
    if (sequence.count < 2) {
        scrollTop = 0;
        return;
    }
    const int top = sequence.Number(0);
    const int bottom = sequence.Number(1);
    if (top >= 1 && top <= rows) scrollTop = top - 1;
    if (bottom >= 1 && bottom <= rows) scrollBottom = bottom - 1;
}

}  // namespace zt
