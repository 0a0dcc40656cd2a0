// Paints cells into a pixmap: the background in its palette colour, the character's mask over it
// in the foreground's. Nothing of a cell ever reaches beyond it. Under the GDK lock only.
#pragma once

#include <gdk/gdk.h>

#include <memory>

#include "console/cell.h"
#include "console/window/cell_font.h"

namespace zt {

class CellPainter {
public:
    virtual ~CellPainter() = default;
    // Cells are collected, and stand in the pixmap after Flush.
    virtual void Add(int column, int row, Cell cell) = 0;
    virtual void Flush() = 0;
};

// With the display's RENDER extension if it has that, which takes a few requests for a whole
// screen; else with images made here. Both give the same picture but for rounding. `font` and
// `pixmap` must outlive the painter.
std::unique_ptr<CellPainter> MakeCellPainter(GdkPixmap* pixmap, CellFont& font);

// The two kinds, for the function above; the first gives null when the extension is missing.
std::unique_ptr<CellPainter> MakeRenderPainter(GdkPixmap* pixmap, CellFont& font);
std::unique_ptr<CellPainter> MakeImagePainter(GdkPixmap* pixmap, CellFont& font);

}  // namespace zt
