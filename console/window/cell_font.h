// The font of the grid: the size of a cell, and any character drawn into the mask of one cell.
// Under the GDK lock only.
#pragma once

#include <pango/pango.h>

#include <cstdint>

#include "console/window/box_glyphs.h"

namespace zt {

class CellFont {
public:
    // `size` in points. A family that is missing is replaced by what the system has nearest.
    CellFont(PangoContext* context, const char* family, int size);
    ~CellFont();
    CellFont(const CellFont&) = delete;
    CellFont& operator=(const CellFont&) = delete;

    // In pixels, both at least 1.
    int CellWidth() const { return cellWidth; }
    int CellHeight() const { return cellHeight; }
    // Bytes in a row of a mask; a multiple of 4.
    int MaskStride() const { return (cellWidth + 3) & ~3; }
    int MaskBytes() const { return MaskStride() * cellHeight; }

    // Draws the character into `pixels`, MaskBytes() zeros. A glyph wider than the cell is
    // narrowed to fit; what still stands out is cut off. Any value is safe: what is no character
    // shows as U+FFFD, control characters as blank.
    void Render(uint32_t character, unsigned char* pixels);

private:
    void Measure();
    void DrawText(uint32_t character, const CellMask& mask);

    PangoContext* context;
    PangoLayout* layout;
    int cellWidth = 1;
    int cellHeight = 1;
    int baseline = 0;       // pixels from the cell's top
    int widestAdvance = 0;  // Pango units; what is wider is narrowed
};

}  // namespace zt
