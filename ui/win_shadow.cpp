// The shadow of a window: two columns to its right, one row under it. What stands there keeps its
// text and turns dim on black.
#include "console/program_state.h"
#include "ui/win.h"

namespace zt {

namespace {

constexpr int kShadowColumns = 2;
constexpr int kShadowRows = 1;
constexpr Attribute kBright = 8;
constexpr Attribute kDarkGrey = 8;

Attribute ShadowOf(Attribute attribute) {
    const int foreground = attribute & 0x0F;
    return foreground >= kBright ? static_cast<Attribute>(foreground - kBright) : kDarkGrey;
}

void ShadeStrip(int column, int row, int width, int height) {
    if (width <= 0 || height <= 0) return;
    const std::unique_ptr<Cell[]> cells(console->ReadCells(column, row, width, height));
    for (size_t i = 0; i < static_cast<size_t>(width) * static_cast<size_t>(height); ++i)
        cells[i].attribute = ShadowOf(cells[i].attribute);
    console->WriteCells(column, row, width, height, cells.get());
}

}  // namespace

void Win::DrawShadow() const {
    ShadeStrip(edges.left + kShadowColumns, edges.bottom + 1, edges.right - edges.left + 1,
               kShadowRows);
    ShadeStrip(edges.right + 1, edges.top + 1, kShadowColumns, edges.bottom - edges.top);
}

}  // namespace zt
