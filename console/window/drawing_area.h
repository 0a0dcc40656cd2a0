// The widget that shows the grid: the pixmap that holds its picture, and its way to the screen.
// Owned by the console; under the GDK lock only.
#pragma once

#include <gdkmm/gc.h>
#include <gdkmm/pixmap.h>
#include <gtkmm/drawingarea.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "console/cell.h"
#include "console/window/cell_font.h"
#include "console/window/cell_painter.h"
#include "console/window/pending_paint.h"

namespace zt {

class CConsole;

// One frame: what is to be painted, and the cells that stand there, with the colours of selected
// ones already exchanged. Of `cells`, which has the size of the grid, only the pending are valid.
struct PaintJob {
    PendingPaint pending;
    std::vector<Cell> cells;
};

// The cursor as it is to be seen now.
struct CursorView {
    int column;
    int row;
    int sizePercent;
    bool isWhite;
};

class CConsoleDrawingArea : public Gtk::DrawingArea {
public:
    explicit CConsoleDrawingArea(CConsole& console);
    ~CConsoleDrawingArea() override;

    // A grid of another size or font: what was painted is gone.
    void SetGrid(int columns, int rows, std::unique_ptr<CellFont> font);
    const CellFont& Font() const { return *font; }

    // Paints into the pixmap those cells that differ from what it shows, and brings them to the
    // screen.
    void Paint(const PaintJob& job);
    // Brings the cell from the pixmap to the screen again, with or without the cursor.
    void ExposeCell(int column, int row);
    // Any thread.
    int64_t CellsPainted() const { return cellsPainted.load(std::memory_order_relaxed); }

protected:
    void on_realize() override;
    bool on_expose_event(GdkEventExpose* event) override;

private:
    bool NeedPixmap();
    void MovePixels(const PendingPaint::Move& move);
    void PaintRow(int row, const PendingPaint::Span& span, const PaintJob& job);
    void AddToChanged(const CellRect& rect);
    void Expose(const CellRect& rect);
    void DrawCursor(const CursorView& cursor);
    Gdk::Rectangle Pixels(const CellRect& rect) const;

    CConsole& console;
    int columns = 0;
    int rows = 0;
    std::unique_ptr<CellFont> font;
    Glib::RefPtr<Gdk::Pixmap> pixmap;  // null until the first paint
    std::unique_ptr<CellPainter> painter;
    Glib::RefPtr<Gdk::GC> copier;
    // What the pixmap shows; attribute and character of a cell that was never painted differ from
    // any that can be.
    std::vector<Cell> painted;
    CellRect changed;
    std::atomic<int64_t> cellsPainted{0};
};

}  // namespace zt
