// The embedded terminal: its life, the way of output through it, and keys.
#include "console/terminal/terminal.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "console/code_page_437.h"
#include "console/console_interface.h"
#include "console/terminal/dec_graphics.h"
#include "console/terminal/key_sequences.h"
#include "foundation/colour_classes.h"

namespace zt {

namespace {

constexpr unsigned char kBell = 7;
constexpr unsigned char kBackspace = 8;
constexpr unsigned char kTab = 9;
constexpr unsigned char kLineFeed = 10;
constexpr unsigned char kCarriageReturn = 13;
constexpr unsigned char kDelete = 127;
// Codes from here on, below the surrogates, are shown as they are.
constexpr uint32_t kFirstPlainCode = 0xA0;
constexpr uint32_t kFirstSurrogate = 0xD800;
// A program that prints bells without end is not to keep the bell busy after its own end.
constexpr int kMostBeepsAtOnce = 4;

}  // namespace

CTerminal::CTerminal(IConsole& console_, int fd, IScrollBackSink* scrollBack_)
    : console(console_),
      scrollBack(scrollBack_),
      parser(*this),
      colours(Colour(ColourClass::kCommandLine)),
      keys(fd, console_) {
    console.GetSize(columns, rows);
    scrollBottom = rows - 1;
}

CTerminal::~CTerminal() = default;

void CTerminal::Write(const char* bytes, int n) {
    Gather(bytes, n);
    Show();
}

void CTerminal::Gather(const char* bytes, int n) {
    if (!screen.IsLoaded()) Load();
    parser.Feed(bytes, n);
}

// Others may have drawn since, or moved the cursor.
void CTerminal::Load() {
    screen.Load(console);
    FitToSize();
    console.GetCursor(column, row);
    column = std::clamp(column, 0, columns);
    row = std::clamp(row, 0, rows - 1);
    cursorSize = console.GetCursorSize();
}

void CTerminal::FitToSize() {
    if (columns == screen.Columns() && rows == screen.Rows()) return;
    const bool reachedEnd = scrollBottom >= rows - 1;
    columns = screen.Columns();
    rows = screen.Rows();
    scrollBottom = reachedEnd ? rows - 1 : std::min(scrollBottom, rows - 1);
    scrollTop = std::min(scrollTop, rows - 1);
}

void CTerminal::Show() {
    if (!screen.IsLoaded()) return;
    // A single line is painted as it is, its move included; more is painted as one.
    const bool freezes = !screen.IsSmallChange();
    if (freezes) console.BeginUpdate();
    screen.Show(console);
    console.SetCursor(column, row);
    console.SetCursorSize(cursorSize);
    if (freezes) console.EndUpdate();
    for (; pendingBeeps > 0; pendingBeeps--)
        console.Beep();
}

void CTerminal::Close() {
    if (alternateScreen) {
        if (!screen.IsLoaded()) Load();
        LeaveAlternateScreen();
    }
    Show();
}

void CTerminal::TakeText(const char* utf8) {
    const size_t length = std::strlen(utf8);
    constexpr size_t kMost = std::numeric_limits<int>::max();
    Write(utf8, static_cast<int>(std::min(length, kMost)));
}

void CTerminal::TakeKey(int32_t code, int32_t /*modifiers*/, int32_t /*unicode*/) {
    if (code == kPasteKey) {
        keys.SendClipboard();
    } else {
        keys.Send(KeyBytes(code, cursorApplication.load(std::memory_order_relaxed)));
    }
}

void CTerminal::TakeCharacter(int32_t character) {
    keys.Send(CharacterBytes(character));
}

void CTerminal::TakeRun(const unsigned char* bytes, int n) {
    for (int at = 0; at < n;) {
        if (column >= columns) {
            column = 0;
            NextLine();
        }
        const int stretch = graphicCharset ? 0 : PutAscii(bytes + at, n - at);
        at += stretch > 0 ? stretch : PutOthers(bytes + at, n - at);
    }
}

// Puts what is plain ASCII up to the end of the row, and gives how many bytes that were.
int CTerminal::PutAscii(const unsigned char* bytes, int n) {
    const int room = std::min(n, columns - column);
    int count = 0;
    while (count < room && bytes[count] < kDelete)
        count++;
    if (count == 0) return 0;
    const Attribute attribute = colours.Current();
    if (insertMode) screen.InsertCells(row, column, count, attribute);
    Cell* target = screen.Change(row) + column;
    for (int i = 0; i < count; i++)
        target[i] = Cell{bytes[i], attribute};
    lastCharacter = bytes[count - 1];
    column += count;
    return count;
}

// Puts characters up to the end of the row or the next plain ASCII, at least one, and gives how
// many bytes they took.
int CTerminal::PutOthers(const unsigned char* bytes, int n) {
    const Attribute attribute = colours.Current();
    Cell* line = screen.Change(row);
    int at = 0;
    do {
        uint32_t code = 0;
        at += DecodeOne(bytes + at, n - at, code);
        const bool isPlain = code >= kFirstPlainCode && code < kFirstSurrogate;
        lastCharacter = isPlain ? code : ShownGlyph(code);
        if (insertMode) screen.InsertCells(row, column, 1, attribute);
        line[column++] = Cell{lastCharacter, attribute};
    } while (at < n && column < columns && (graphicCharset || bytes[at] >= kDelete));
    return at;
}

// Gives how many bytes the character takes. Malformed UTF-8 counts byte by byte, as everywhere in
// the program.
int CTerminal::DecodeOne(const unsigned char* bytes, int n, uint32_t& code) const {
    code = bytes[0];
    if (code < 0x80) {
        const bool isGraphic =
            graphicCharset && code >= kFirstGraphicsByte && code <= kLastGraphicsByte;
        if (isGraphic) code = kDecGraphics[code - kFirstGraphicsByte];
        return 1;
    }
    int more = 0;
    if ((code & 0xE0) == 0xC0) more = 1;
    if ((code & 0xF0) == 0xE0) more = 2;
    if ((code & 0xF8) == 0xF0) more = 3;
    if (more == 0 || more >= n) return 1;
    uint32_t whole = code & (0x3Fu >> more);
    for (int i = 1; i <= more; i++) {
        if ((bytes[i] & 0xC0) != 0x80) return 1;
        whole = whole << 6 | (bytes[i] & 0x3Fu);
    }
    code = whole;
    return more + 1;
}

// One character again and again.
void CTerminal::PutRepeated(uint32_t glyph, int count) {
    const Attribute attribute = colours.Current();
    for (; count > 0; count--) {
        if (column >= columns) {
            column = 0;
            NextLine();
        }
        if (insertMode) screen.InsertCells(row, column, 1, attribute);
        screen.Change(row)[column++] = Cell{glyph, attribute};
    }
}

void CTerminal::TakeControl(unsigned char byte) {
    switch (byte) {
        case kBell:
            pendingBeeps = std::min(pendingBeeps + 1, kMostBeepsAtOnce);
            break;
        case kBackspace:
            if (column > 0) column--;
            break;
        case kTab:
            column = (column | 7) + 1;
            if (column >= columns) {
                column = 0;
                NextLine();
            }
            break;
        case kLineFeed:
            NextLine();
            break;
        case kCarriageReturn:
            column = 0;
            break;
        default:
            break;
    }
}

// Below the region a line feed scrolls it too; the row then stays.
void CTerminal::NextLine() {
    if (row >= scrollBottom) {
        ScrollRegionUp(1);
    } else {
        row++;
    }
}

void CTerminal::ScrollRegionUp(int lines) {
    lines = std::min(lines, scrollBottom - scrollTop + 1);
    if (lines <= 0) return;
    if (scrollBack != nullptr && !alternateScreen) {
        for (int line = 0; line < lines; line++)
            scrollBack->LineLeft(screen.Row(line), columns);
    }
    screen.Scroll(scrollTop, scrollBottom + 1, lines, colours.Current());
}

void CTerminal::ScrollRegionDown(int lines) {
    screen.Scroll(scrollTop, scrollBottom + 1, -lines, colours.Current());
}

void CTerminal::SaveCursor() {
    savedColumn = column;
    savedRow = row;
}

void CTerminal::RestoreCursor() {
    column = std::min(savedColumn, columns);
    row = std::min(savedRow, rows - 1);
}

void CTerminal::EnterAlternateScreen() {
    if (alternateScreen) return;
    alternateScreen = true;
    screen.Save(coveredCells);
    coveredColumns = columns;
    coveredRows = rows;
    screen.FillAll(colours.Current());
    column = 0;
    row = 0;
}

void CTerminal::LeaveAlternateScreen() {
    if (!alternateScreen) return;
    alternateScreen = false;
    screen.Restore(coveredCells, coveredColumns, coveredRows);
    std::vector<Cell>().swap(coveredCells);
}

}  // namespace zt
