// Teletype output at the cursor, as a printing terminal would do it: wrapping at the right edge,
// scrolling at the bottom.
#include <algorithm>

#include "console/code_page_437.h"
#include "console/grid_console.h"

namespace zt {

namespace {

// So many characters are put under one hold of the lock, so that the painter waits much less than
// a frame.
constexpr int kCharactersPerHold = 1024;

}  // namespace

// A stretch of output. Lives inside one hold of the grid's lock. What a row got is stored as one
// run when the row is left, so that each row is painted once. The grid itself scrolls only at the
// end, once for all lines: until then the rows that came in at the bottom are kept here, the one
// with number n, counted from 0, at place n modulo the grid's rows.
class GridConsole::Teletype {
public:
    explicit Teletype(GridConsole& grid_)
        : grid(grid_),
          column(std::clamp(grid_.cursorColumn, 0, grid_.columns - 1)),
          row(std::clamp(grid_.cursorRow, 0, grid_.rows - 1)),
          line(grid_.RowCells(row), grid_.RowCells(row) + grid_.columns) {}

    void Put(uint32_t character) {
        switch (character) {
            case '\t':
                column = (column | 7) + 1;
                break;
            case '\r':
                column = 0;
                break;
            case '\b':
                if (column > 0) column--;
                break;
            case '\n':
                NextRow();
                return;
            default:
                if (!IsPrintable(character)) return;
                line[static_cast<size_t>(column++)] =
                    Cell{ShownGlyph(character), grid.fillAttribute};
        }
        if (column >= grid.columns) NextRow();
    }

    void Finish() {
        StoreLine();
        MoveGrid();
        grid.SetCursor(column, row);
    }

private:
    // Not iswprint: its answer would depend on the locale, and a name in any script is to be read.
    static bool IsPrintable(uint32_t character) {
        return character >= 32 && (character < 127 || character > 159);
    }

    Cell* Fresh(int number) {
        return fresh.data() + static_cast<size_t>(number % grid.rows) * line.size();
    }

    void StoreLine() {
        if (scrolled == 0) {
            grid.WriteCells(0, row, grid.columns, 1, line.data());
        } else {
            std::copy(line.begin(), line.end(), Fresh(scrolled - 1));
        }
    }

    void NextRow() {
        StoreLine();
        column = 0;
        if (row + 1 < grid.rows) {
            row++;
            std::copy_n(grid.RowCells(row), grid.columns, line.begin());
        } else {
            ScrollLine();
        }
    }

    void ScrollLine() {
        if (grid.scrollBackSink) {
            const Cell* leaving =
                scrolled < grid.rows ? grid.RowCells(scrolled) : Fresh(scrolled - grid.rows);
            grid.scrollBackSink->LineLeft(leaving, grid.columns);
        }
        if (scrolled < grid.rows) fresh.resize(fresh.size() + line.size());
        if (scrolled == 0) blank.assign(line.size(), Cell{U' ', grid.fillAttribute});
        scrolled++;
        std::copy(blank.begin(), blank.end(), line.begin());
    }

    void MoveGrid() {
        if (scrolled == 0) return;
        const int count = std::min(scrolled, grid.rows);
        grid.Scroll(grid.WholeGrid(), count, grid.fillAttribute);
        for (int i = 0; i < count; i++)
            grid.WriteCells(0, grid.rows - count + i, grid.columns, 1, Fresh(scrolled - count + i));
    }

    GridConsole& grid;
    int column;
    int row;
    std::vector<Cell> line;   // the row that is being written
    std::vector<Cell> blank;  // what a row that comes in holds
    std::vector<Cell> fresh;  // rows that came in at the bottom
    int scrolled = 0;         // how many
};

void GridConsole::WriteStream(const char* utf8) {
    if (ITerminalSink* sink = TerminalSink()) {
        sink->TakeText(utf8);
        return;
    }
    Westring text;
    text.AssignUtf8(utf8);
    for (int start = 0; start < text.Length(); start += kCharactersPerHold) {
        Guard guard(gridLock);
        Teletype teletype(*this);
        const int end = std::min(start + kCharactersPerHold, text.Length());
        for (int i = start; i < end; i++) {
            teletype.Put(static_cast<uint32_t>(static_cast<wchar_t>(text[i])));
        }
        teletype.Finish();
    }
}

}  // namespace zt
