// Size, cursor, freeze and the bookkeeping of what is to be painted. The writers, the scrolling,
// the teletype and the selection have files of their own.
#include "console/grid_console.h"

#include <algorithm>

#include "console/terminal/terminal.h"
#include "foundation/colour_classes.h"

namespace zt {

GridConsole::GridConsole(int columns_, int rows_)
    : columns(0), rows(0), fillAttribute(Colour(ColourClass::kCommandLine)) {
    Allocate(columns_, rows_);
}

GridConsole::~GridConsole() = default;

void GridConsole::Allocate(int newColumns, int newRows) {
    columns = std::clamp(newColumns, 1, kLargestSide);
    rows = std::clamp(newRows, 1, kLargestSide);
    cells.assign(static_cast<size_t>(columns) * static_cast<size_t>(rows), kBlankCell);
    dirty.assign(static_cast<size_t>(rows), RowSpan{});
}

void GridConsole::Rebuild(int newColumns, int newRows) {
    Guard guard(gridLock);
    Allocate(newColumns, newRows);
    selecting = false;
    selectionPressed = false;
    MarkChanged(WholeGrid());
}

void GridConsole::GetSize(int& outColumns, int& outRows) {
    Guard guard(gridLock);
    outColumns = columns;
    outRows = rows;
}

void GridConsole::GetCursor(int& column, int& row) {
    Guard guard(gridLock);
    column = cursorColumn;
    row = cursorRow;
}

void GridConsole::SetCursor(int column, int row) {
    Guard guard(gridLock);
    if (column == cursorColumn && row == cursorRow) return;
    const int oldColumn = cursorColumn;
    const int oldRow = cursorRow;
    cursorColumn = column;
    cursorRow = row;
    CursorChanged(oldColumn, oldRow);
}

int GridConsole::GetCursorSize() {
    Guard guard(gridLock);
    return cursorSize;
}

void GridConsole::SetCursorSize(int percent) {
    Guard guard(gridLock);
    if (percent == cursorSize) return;
    cursorSize = percent;
    CursorChanged(cursorColumn, cursorRow);
}

Attribute GridConsole::GetFillAttribute() {
    Guard guard(gridLock);
    return fillAttribute;
}

void GridConsole::SetFillAttribute(Attribute attribute) {
    Guard guard(gridLock);
    fillAttribute = attribute;
}

void GridConsole::SetCodePage(int newCodePage) {
    Guard guard(gridLock);
    if (newCodePage != 0) codePage = newCodePage;
}

void GridConsole::SetTitleBytes(const Estring& title) {
    SetTitle(DecodeBytes(title.c_str()));
}

void GridConsole::SetClipboardBytes(const Estring& text) {
    SetClipboardText(DecodeBytes(text.c_str()));
}

Westring GridConsole::DecodeBytes(const char* text) {
    int page;
    {
        Guard guard(gridLock);
        page = codePage;
    }
    Westring decoded;
    Westring::FromCodePage(text, page, decoded);
    // An unknown code page gives nothing at all; the bare bytes can at least be read.
    if (decoded.IsEmpty() && text[0] != 0) decoded = Westring::FromWiden(text);
    return decoded;
}

const Cell* GridConsole::RowCells(int row) const {
    return cells.data() + static_cast<size_t>(row) * static_cast<size_t>(columns);
}

Cell* GridConsole::RowAt(int row) {
    return cells.data() + static_cast<size_t>(row) * static_cast<size_t>(columns);
}

CellRect GridConsole::Clip(int64_t column, int64_t row, int64_t width, int64_t height) const {
    const auto cut = [](int64_t value, int limit) {
        return static_cast<int>(std::clamp<int64_t>(value, 0, limit));
    };
    const CellRect rect{cut(column, columns), cut(row, rows), cut(column + width, columns),
                        cut(row + height, rows)};
    return rect.IsEmpty() ? CellRect{} : rect;
}

void GridConsole::BeginUpdate() {
    Guard guard(gridLock);
    if (++freezeCount == 1) FreezeChanged(true);
}

void GridConsole::EndUpdate() {
    Guard guard(gridLock);
    if (freezeCount == 0 || --freezeCount > 0) return;
    PaintDirty();
    FreezeChanged(false);
}

void GridConsole::Invalidate(int column, int row, int width, int height) {
    Guard guard(gridLock);
    MarkChanged(Clip(column, row, width, height));
}

void GridConsole::MarkChanged(const CellRect& rect) {
    if (rect.IsEmpty()) return;
    if (!IsFrozen()) {
        CellsChanged(rect);
        return;
    }
    for (int row = rect.top; row < rect.bottom; row++) {
        RowSpan& span = dirty[static_cast<size_t>(row)];
        const bool clean = span.left >= span.right;
        span.left = clean ? rect.left : std::min(span.left, rect.left);
        span.right = clean ? rect.right : std::max(span.right, rect.right);
    }
}

// Rows that wait with the same columns are painted as one area.
void GridConsole::PaintDirty() {
    for (int row = 0; row < rows;) {
        const RowSpan span = dirty[static_cast<size_t>(row)];
        const int top = row;
        while (row < rows && dirty[static_cast<size_t>(row)].left == span.left &&
               dirty[static_cast<size_t>(row)].right == span.right) {
            dirty[static_cast<size_t>(row++)] = RowSpan{};
        }
        if (span.left < span.right) CellsChanged(CellRect{span.left, top, span.right, row});
    }
}

void GridConsole::SetTerminalSink(ITerminalSink* sink) {
    Guard guard(sinkLock);
    terminalSink = sink;
}

ITerminalSink* GridConsole::TerminalSink() {
    Guard guard(sinkLock);
    return terminalSink;
}

void GridConsole::SetScrollBackSink(IScrollBackSink* sink) {
    Guard guard(gridLock);
    scrollBackSink = sink;
}

void GridConsole::OpenTerminal(int fd) {
    CloseTerminal();
    IScrollBackSink* scrollBack;
    {
        Guard guard(gridLock);
        scrollBack = scrollBackSink;
    }
    terminal = std::make_unique<CTerminal>(*this, fd, scrollBack);
    SetTerminalSink(terminal.get());
}

void GridConsole::CloseTerminal() {
    if (terminal == nullptr) return;
    SetTerminalSink(nullptr);
    terminal->Close();
    terminal.reset();
}

bool GridConsole::GiveKeyToSink(int32_t code, int32_t modifiers, int32_t unicode) {
    Guard guard(sinkLock);
    if (terminalSink == nullptr) return false;
    terminalSink->TakeKey(code, modifiers, unicode);
    return true;
}

bool GridConsole::GiveCharacterToSink(int32_t character) {
    Guard guard(sinkLock);
    if (terminalSink == nullptr) return false;
    terminalSink->TakeCharacter(character);
    return true;
}

bool GridConsole::HasTerminalSink() {
    return TerminalSink() != nullptr;
}

}  // namespace zt
