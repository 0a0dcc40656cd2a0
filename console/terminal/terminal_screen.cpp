#include "console/terminal/terminal_screen.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "console/console_interface.h"

namespace zt {

namespace {

// More different moves than this between two pictures are a sign that they do not help.
constexpr size_t kMostMoves = 8;

}  // namespace

void TerminalScreen::Load(IConsole& console) {
    console.GetSize(columns, rows);
    image.Clear();
    console.ReadCellString(0, 0, columns, rows, image);
    cells = image.Cells();
    slots.resize(static_cast<size_t>(rows));
    std::iota(slots.begin(), slots.end(), 0);
    isChanged.assign(static_cast<size_t>(rows), 0);
    moves.clear();
    isAllChanged = false;
    isLoaded = true;
}

bool TerminalScreen::IsSmallChange() const {
    if (isAllChanged || moves.size() > 1) return false;
    if (!moves.empty() && std::abs(moves[0].lines) > 1) return false;
    return std::count(isChanged.begin(), isChanged.end(), 1) <= 2;
}

void TerminalScreen::Show(IConsole& console) {
    for (const Move& move : moves) {
        const int height = move.bottom - move.top;
        if (move.lines > 0) {
            console.ScrollUp(0, move.top, columns, height, move.lines, move.attribute);
        } else {
            console.ScrollDown(0, move.top, columns, height, -move.lines, move.attribute);
        }
    }
    for (int row = 0; row < rows; row++)
        if (isAllChanged || isChanged[Slot(row)]) console.WriteCells(0, row, columns, 1, Row(row));
    isLoaded = false;
}

void TerminalScreen::Fill(int row, int from, int to, Attribute attribute) {
    Cell* line = Change(row);
    std::fill(line + from, line + std::max(from, to), Cell{U' ', attribute});
}

void TerminalScreen::FillAll(Attribute attribute) {
    for (int row = 0; row < rows; row++)
        Fill(row, 0, columns, attribute);
}

void TerminalScreen::InsertCells(int row, int column, int count, Attribute attribute) {
    if (column >= columns) return;
    count = std::min(count, columns - column);
    Cell* line = Change(row);
    std::copy_backward(line + column, line + columns - count, line + columns);
    std::fill_n(line + column, count, Cell{U' ', attribute});
}

void TerminalScreen::DeleteCells(int row, int column, int count, Attribute attribute) {
    if (column >= columns) return;
    count = std::min(count, columns - column);
    Cell* line = Change(row);
    std::copy(line + column + count, line + columns, line + column);
    std::fill_n(line + columns - count, count, Cell{U' ', attribute});
}

void TerminalScreen::Scroll(int top, int bottom, int lines, Attribute attribute) {
    const int height = bottom - top;
    if (height <= 0 || lines == 0) return;
    const int count = std::min(std::abs(lines), height);
    const auto first = slots.begin() + top;
    const auto last = slots.begin() + bottom;
    const bool up = lines > 0;
    std::rotate(first, up ? first + count : last - count, last);
    const int freed = up ? bottom - count : top;
    const Cell* blank = BlankRow(attribute);
    for (int row = freed; row < freed + count; row++) {
        std::copy_n(blank, columns, RowOf(row));
        isChanged[Slot(row)] = 0;
    }
    NoteMove({top, bottom, up ? count : -count, attribute});
}

const Cell* TerminalScreen::BlankRow(Attribute attribute) {
    const auto width = static_cast<size_t>(columns);
    if (blankRow.size() != width || blankRow[0].attribute != attribute)
        blankRow.assign(width, Cell{U' ', attribute});
    return blankRow.data();
}

// Moves of one block in one direction are one move. What the console's rows then hold may have
// passed over others on the way, but no row that counts as unchanged has.
void TerminalScreen::NoteMove(const Move& move) {
    if (isAllChanged) return;
    if (!moves.empty()) {
        Move& last = moves.back();
        const bool isSame = last.top == move.top && last.bottom == move.bottom &&
                            last.attribute == move.attribute &&
                            (last.lines > 0) == (move.lines > 0);
        if (isSame) {
            const int height = move.bottom - move.top;
            last.lines = std::clamp(last.lines + move.lines, -height, height);
            return;
        }
    }
    if (moves.size() < kMostMoves) {
        moves.push_back(move);
        return;
    }
    moves.clear();
    isAllChanged = true;
}

void TerminalScreen::Save(std::vector<Cell>& saved) const {
    saved.clear();
    saved.reserve(static_cast<size_t>(columns) * static_cast<size_t>(rows));
    for (int row = 0; row < rows; row++)
        saved.insert(saved.end(), Row(row), Row(row) + columns);
}

void TerminalScreen::Restore(const std::vector<Cell>& saved, int savedColumns, int savedRows) {
    const int width = std::min(columns, savedColumns);
    for (int row = 0; row < rows; row++) {
        Cell* line = Change(row);
        const int kept = row < savedRows ? width : 0;
        const size_t start = static_cast<size_t>(row) * static_cast<size_t>(savedColumns);
        if (kept > 0) std::copy_n(saved.data() + start, kept, line);
        std::fill(line + kept, line + columns, kBlankCell);
    }
}

}  // namespace zt
