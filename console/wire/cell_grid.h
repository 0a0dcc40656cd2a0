// A plain grid of cells: rows of one width, without any rules of writing.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "console/cell.h"

namespace zt {

class CellGrid {
public:
    // All cells are blank afterwards.
    void Resize(int columns, int rows) {
        columns_ = columns;
        rows_ = rows;
        cells_.assign(static_cast<size_t>(columns) * static_cast<size_t>(rows), kBlankCell);
    }
    int Columns() const { return columns_; }
    int Rows() const { return rows_; }
    Cell* Row(int row) {
        return cells_.data() + static_cast<size_t>(row) * static_cast<size_t>(columns_);
    }
    const Cell* Row(int row) const {
        return cells_.data() + static_cast<size_t>(row) * static_cast<size_t>(columns_);
    }

    void Fill(const CellRect& rect, Cell cell) {
        for (int row = rect.top; row < rect.bottom; row++)
            std::fill(Row(row) + rect.left, Row(row) + rect.right, cell);
    }

    // Positive `lines` move up; the freed rows become `blank`.
    void Scroll(const CellRect& rect, int lines, Cell blank) {
        const int height = rect.bottom - rect.top;
        const int distance = std::min(lines < 0 ? -lines : lines, height);
        for (int i = 0; i < height - distance; i++) {
            const int target = lines > 0 ? rect.top + i : rect.bottom - 1 - i;
            const Cell* source = Row(lines > 0 ? target + distance : target - distance);
            std::copy(source + rect.left, source + rect.right, Row(target) + rect.left);
        }
        const int freed = lines > 0 ? rect.bottom - distance : rect.top;
        Fill({rect.left, freed, rect.right, freed + distance}, blank);
    }

private:
    std::vector<Cell> cells_;
    int columns_ = 0;
    int rows_ = 0;
};

}  // namespace zt
