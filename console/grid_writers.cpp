// Writing cells and reading them back. Every writer compares before it stores, and has painted
// only what differs.
#include <algorithm>
#include <cstring>
#include <cwchar>

#include "console/code_page_437.h"
#include "console/grid_console.h"

namespace zt {

// Stores source(0) to source(count - 1), the caller having clipped, and gives the columns that
// differ from what was there.
template <class CellSource>
CellRect GridConsole::StoreRow(int column, int row, int count, CellSource source) {
    Cell* target = RowAt(row) + column;
    int first = count;
    int last = -1;
    for (int i = 0; i < count; i++) {
        const Cell cell = source(i);
        if (target[i] == cell) continue;
        target[i] = cell;
        first = std::min(first, i);
        last = i;
    }
    if (last < 0) return CellRect{};
    return CellRect{column + first, row, column + last + 1, row + 1};
}

// Stores a run of one row that may begin left of the grid or end right of it.
template <class CellSource>
void GridConsole::WriteRun(int column, int row, int64_t count, CellSource source) {
    const CellRect run = Clip(column, row, count, 1);
    if (run.IsEmpty()) return;
    const int skipped = run.left - column;
    MarkChanged(
        StoreRow(run.left, row, run.right - run.left, [&](int i) { return source(skipped + i); }));
}

namespace {

// The smallest rectangle around both.
CellRect Around(const CellRect& a, const CellRect& b) {
    if (a.IsEmpty()) return b;
    if (b.IsEmpty()) return a;
    return CellRect{std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                    std::max(a.bottom, b.bottom)};
}

}  // namespace

void GridConsole::Clear() {
    Guard guard(gridLock);
    FillRect(0, 0, columns, rows, fillAttribute);
}

void GridConsole::FillRect(int column, int row, int width, int height, Attribute attribute) {
    Guard guard(gridLock);
    const CellRect rect = Clip(column, row, width, height);
    const Cell blank{U' ', attribute};
    CellRect changed;
    for (int y = rect.top; y < rect.bottom; y++) {
        changed = Around(
            changed, StoreRow(rect.left, y, rect.right - rect.left, [&](int) { return blank; }));
    }
    MarkChanged(changed);
}

void GridConsole::WriteCells(int column, int row, int width, int height, const Cell* source) {
    Guard guard(gridLock);
    const CellRect rect = Clip(column, row, width, height);
    CellRect changed;
    for (int y = rect.top; y < rect.bottom; y++) {
        const Cell* line = source + static_cast<int64_t>(y - row) * width + (rect.left - column);
        changed = Around(changed, StoreRow(rect.left, y, rect.right - rect.left, [&](int i) {
                             return Cell{CellGlyph(line[i].character), line[i].attribute};
                         }));
    }
    MarkChanged(changed);
}

// Calls visit(row's cells, count, blanks before, blanks behind) for each row of the rectangle.
template <class Visit>
void GridConsole::VisitRead(int column, int row, int width, int height, Visit visit) {
    const CellRect inside = Clip(column, row, width, height);
    for (int y = 0; y < height; y++) {
        const int64_t gridRow = static_cast<int64_t>(row) + y;
        if (gridRow < inside.top || gridRow >= inside.bottom) {
            visit(nullptr, 0, width, 0);
            continue;
        }
        const int count = inside.right - inside.left;
        const int before = inside.left - column;
        visit(RowAt(static_cast<int>(gridRow)) + inside.left, count, before,
              width - before - count);
    }
}

Cell* GridConsole::ReadCells(int column, int row, int width, int height) {
    const size_t lines = static_cast<size_t>(std::max(height, 0));
    Cell* result = new Cell[static_cast<size_t>(std::max(width, 0)) * lines];
    if (width <= 0) return result;
    Cell* out = result;
    Guard guard(gridLock);
    VisitRead(column, row, width, height, [&](const Cell* line, int count, int before, int behind) {
        out = std::fill_n(out, before, kBlankCell);
        out = std::copy_n(line, count, out);
        out = std::fill_n(out, behind, kBlankCell);
    });
    return result;
}

void GridConsole::ReadCellString(int column, int row, int width, int height, CellString& out) {
    width = std::min(width, kLargestSide);
    height = std::min(height, kLargestSide);
    if (width <= 0 || height <= 0) return;
    int position = out.Length();
    out.SetLength(position + width * height);
    Cell* target = out.Cells() + position;
    Guard guard(gridLock);
    VisitRead(column, row, width, height, [&](const Cell* line, int count, int before, int behind) {
        target = std::fill_n(target, before, kBlankCell);
        target = std::copy_n(line, count, target);
        target = std::fill_n(target, behind, kBlankCell);
    });
}

void GridConsole::SetAttributes(int column, int row, int count, Attribute attribute) {
    Guard guard(gridLock);
    if (row < 0 || row >= rows) return;
    const Cell* line = RowAt(row);
    WriteRun(column, row, count, [&](int i) {
        return Cell{line[static_cast<int64_t>(column) + i].character, attribute};
    });
}

void GridConsole::FillChar(int column, int row, int count, Cell cell) {
    Guard guard(gridLock);
    const Cell shown{CellGlyph(cell.character), cell.attribute};
    WriteRun(column, row, count, [&](int) { return shown; });
}

void GridConsole::WriteCellString(int column, int row, const Cell* zeroEnded) {
    int64_t count = 0;
    while (zeroEnded[count].character != 0)
        count++;
    Guard guard(gridLock);
    WriteRun(column, row, count, [&](int i) {
        return Cell{ShownGlyph(zeroEnded[i].character), zeroEnded[i].attribute};
    });
}

void GridConsole::WriteWide(int column, int row, const wchar_t* text, Attribute attribute) {
    const int64_t count = static_cast<int64_t>(std::wcslen(text));
    Guard guard(gridLock);
    WriteRun(column, row, count, [&](int i) {
        return Cell{ShownGlyph(static_cast<uint32_t>(text[i])), attribute};
    });
}

void GridConsole::WriteBytes(int column, int row, const char* text, Attribute attribute) {
    WriteWide(column, row, DecodeBytes(text).c_str(), attribute);
}

}  // namespace zt
