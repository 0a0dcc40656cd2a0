// The screen of the embedded terminal while output is worked in: a copy of the console's cells
// whose rows change places by their numbers, so that a line feed moves no cell. Show brings the
// console up to it, with few calls. First thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "console/cell.h"
#include "console/cell_string.h"

namespace zt {

class IConsole;

class TerminalScreen {
public:
    // Takes over what the console shows. Nothing else may draw until Show.
    void Load(IConsole& console);
    bool IsLoaded() const { return isLoaded; }
    // Moves and writes what has changed since Load. The copy is done with then.
    void Show(IConsole& console);
    // At most one moved block and two rows have changed.
    bool IsSmallChange() const;

    int Columns() const { return columns; }
    int Rows() const { return rows; }

    const Cell* Row(int row) const { return RowOf(row); }
    // The row's cells to be written to.
    Cell* Change(int row) {
        isChanged[Slot(row)] = 1;
        return RowOf(row);
    }
    // Blanks in the cells from..to-1 of the row, which must lie on it.
    void Fill(int row, int from, int to, Attribute attribute);
    void FillAll(Attribute attribute);
    // Moves the rest of the row by `count` cells; what it leaves is blank, what leaves it is gone.
    void InsertCells(int row, int column, int count, Attribute attribute);
    void DeleteCells(int row, int column, int count, Attribute attribute);
    // Rows top to bottom-1 move up by `lines` (down when below 0); rows that come in are blank.
    void Scroll(int top, int bottom, int lines, Attribute attribute);

    // All cells, row by row, and back: what fits, the rest is blank.
    void Save(std::vector<Cell>& cells) const;
    void Restore(const std::vector<Cell>& cells, int savedColumns, int savedRows);

private:
    struct Move {
        int top, bottom, lines;
        Attribute attribute;
    };

    size_t Slot(int row) const { return static_cast<size_t>(slots[static_cast<size_t>(row)]); }
    Cell* RowOf(int row) const { return cells + Slot(row) * static_cast<size_t>(columns); }
    void NoteMove(const Move& move);
    const Cell* BlankRow(Attribute attribute);

    CellString image;       // the cells, by slots
    Cell* cells = nullptr;  // of the image
    int columns = 0;
    int rows = 0;
    bool isLoaded = false;
    std::vector<Cell> blankRow;      // kept, since rows that scroll in are copies of it
    std::vector<int> slots;          // of each row
    std::vector<uint8_t> isChanged;  // of each slot: differs from the console after the moves
    std::vector<Move> moves;         // to be carried out on the console first
    bool isAllChanged = false;       // too many moves: all rows are written instead
};

}  // namespace zt
