// The cells of the test display and what can be done to them. Coordinates are cells from 0, 0;
// what lies outside is cut off.
#pragma once

#include <string>
#include <vector>

#include "tests/support/display_wire.h"

namespace zt::headless {

struct CellArea {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

class DisplayGrid {
public:
    DisplayGrid(int width, int height) { Resize(width, height); }

    int Columns() const { return columns; }
    int Rows() const { return rows; }
    ScreenCell At(int column, int row) const;  // blank outside
    // The characters of a piece of a row, in UTF-8.
    std::string Text(int left, int row, int width) const;

    void Resize(int newColumns, int newRows);  // all blank
    void Fill(const CellArea& area, uint8_t attribute);
    // Row by row, as they are.
    void Put(const CellArea& area, const std::vector<ScreenCell>& cells);
    std::vector<ScreenCell> Get(const CellArea& area) const;  // blank outside
    // A piece of a row with the control characters shown as their glyphs, cut at the right edge.
    void Write(int column, int row, const std::vector<ScreenCell>& cells);
    void Repeat(int column, int row, int count, ScreenCell cell);
    void SetAttributes(int column, int row, int count, uint8_t attribute);
    // Moves the rows of the area up by `lines`, or down when negative; the freed rows are blank.
    void Scroll(const CellArea& area, int lines, uint8_t attribute);
    // Teletype output from the cursor on, which moves.
    void Stream(std::u32string_view text, int& cursorColumn, int& cursorRow, uint8_t attribute);

    // Cells that got another content since the last reset.
    int ChangedCells() const { return changed; }
    void ResetChangedCells() { changed = 0; }

private:
    void Store(int column, int row, ScreenCell cell);

    int columns = 0;
    int rows = 0;
    int changed = 0;
    std::vector<ScreenCell> cells;
};

}  // namespace zt::headless
