// What the window still has to paint: a span of cells in each row, blocks of rows whose pixels
// only move, and cells whose pixels are only copied again (the cursor). Knows no toolkit.
// Guarded by its owner's lock.
#pragma once

#include <cstddef>
#include <vector>

#include "console/cell.h"

namespace zt {

class PendingPaint {
public:
    // Cells from..to-1 of a row; empty when from >= to.
    struct Span {
        int from = 0;
        int to = 0;
        bool IsEmpty() const { return from >= to; }
    };
    // The rows of `rect` move by `lines`; positive: up.
    struct Move {
        CellRect rect;
        int lines;
    };

    // Beyond this many different moves between two paints it is cheaper to paint the cells.
    static constexpr size_t kMaxMoves = 16;

    // Nothing pending, on a grid of this size.
    void Reset(int columns, int rows);
    // The cells of `rect`, cut to the grid, are to be painted.
    void Add(const CellRect& rect);
    // To be carried out before anything pending is painted; so what is pending inside `rect`
    // moves with it, and the freed rows become pending.
    void AddMove(const CellRect& rect, int lines);
    // The pixels of the cell go to the window again.
    void AddExpose(int column, int row);

    bool IsEmpty() const { return !hasSpans && moves.empty() && expose.IsEmpty(); }
    // Hands all that is pending over to `target`, whose storage is used again here.
    void MoveTo(PendingPaint& target);

    int Columns() const { return columns; }
    int Rows() const { return static_cast<int>(spans.size()); }
    const Span& RowSpan(int row) const { return spans[static_cast<size_t>(row)]; }
    const std::vector<Move>& Moves() const { return moves; }
    const CellRect& Exposed() const { return expose; }

private:
    void Widen(int row, int from, int to);
    void ShiftSpans(const CellRect& rect, int lines);
    bool IsWholePending(const CellRect& rect) const;

    int columns = 0;
    bool hasSpans = false;
    std::vector<Span> spans;
    std::vector<Span> shifted;
    std::vector<Move> moves;
    CellRect expose;
};

}  // namespace zt
