// One character cell of the screen, and the rectangle of cells.
// A cell is packed to 5 bytes, so that regions are copied and compared as plain memory.
#pragma once

#include <cstdint>

namespace zt {

// Low four bits of an attribute: foreground; high four: background. In each, bits 0 to 2 are
// blue, green, red and bit 3 is bright.
using Attribute = uint8_t;

#pragma pack(push, 1)
struct Cell {
    uint32_t character;
    Attribute attribute;
};
#pragma pack(pop)
static_assert(sizeof(Cell) == 5);

inline bool operator==(const Cell& a, const Cell& b) {
    return a.character == b.character && a.attribute == b.attribute;
}

inline constexpr Cell kBlankCell{U' ', 7};

// Columns left to right-1 and rows top to bottom-1: half open, in cells.
struct CellRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool IsEmpty() const { return left >= right || top >= bottom; }
    bool Contains(int column, int row) const {
        return column >= left && column < right && row >= top && row < bottom;
    }
};

}  // namespace zt
