// Box-drawing and block characters (Unicode blocks "Box Drawing" and "Block Elements"), drawn to
// the very edges of a cell so that they join whatever the font. Knows no toolkit.
#pragma once

#include <cstdint>

namespace zt {

// An 8-bit coverage mask of one cell, row by row.
struct CellMask {
    unsigned char* pixels;
    int width;
    int height;
    int stride;  // bytes from one row to the next
};

// Draws the character into a mask of zeros. False, and nothing drawn, for a character that is
// left to the font.
bool DrawBoxGlyph(uint32_t character, const CellMask& mask);

}  // namespace zt
