// The widget that shows the grid. Under the GDK lock only.
#include "console/window/drawing_area.h"

#include <algorithm>

#include "console/window/gtk_console.h"

namespace zt {

namespace {

// No character: DisplayCharacter never lets it through, and nobody writes it.
constexpr Cell kNeverPainted{0xFFFFFFFF, 0};

CellRect Hull(const CellRect& a, const CellRect& b) {
    if (a.IsEmpty()) return b;
    if (b.IsEmpty()) return a;
    return CellRect{std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                    std::max(a.bottom, b.bottom)};
}

}  // namespace

CConsoleDrawingArea::CConsoleDrawingArea(CConsole& consoleArgument) : console(consoleArgument) {}

CConsoleDrawingArea::~CConsoleDrawingArea() = default;

void CConsoleDrawingArea::SetGrid(int newColumns, int newRows, std::unique_ptr<CellFont> newFont) {
    columns = newColumns;
    rows = newRows;
    painter.reset();
    pixmap.reset();
    font = std::move(newFont);
    set_size_request(font->CellWidth() * columns, font->CellHeight() * rows);
}

void CConsoleDrawingArea::on_realize() {
    Gtk::DrawingArea::on_realize();
    const Gdk::Color black("black");
    modify_bg(Gtk::STATE_NORMAL, black);
    copier = Gdk::GC::create(get_window());
    gdk_gc_set_exposures(copier->gobj(), FALSE);
}

bool CConsoleDrawingArea::NeedPixmap() {
    if (pixmap) return true;
    const Glib::RefPtr<Gdk::Window> window = get_window();
    if (!window) return false;
    pixmap = Gdk::Pixmap::create(window, font->CellWidth() * columns, font->CellHeight() * rows);
    painter = MakeCellPainter(pixmap->gobj(), *font);
    painted.assign(static_cast<size_t>(columns) * static_cast<size_t>(rows), kNeverPainted);
    copier->set_rgb_fg_color(Gdk::Color("black"));
    pixmap->draw_rectangle(copier, true, 0, 0, font->CellWidth() * columns,
                           font->CellHeight() * rows);
    queue_draw();
    return true;
}

Gdk::Rectangle CConsoleDrawingArea::Pixels(const CellRect& rect) const {
    return Gdk::Rectangle(rect.left * font->CellWidth(), rect.top * font->CellHeight(),
                          (rect.right - rect.left) * font->CellWidth(),
                          (rect.bottom - rect.top) * font->CellHeight());
}

void CConsoleDrawingArea::AddToChanged(const CellRect& rect) {
    changed = Hull(changed, rect);
}

void CConsoleDrawingArea::Expose(const CellRect& rect) {
    const Gdk::Rectangle pixels = Pixels(rect);
    queue_draw_area(pixels.get_x(), pixels.get_y(), pixels.get_width(), pixels.get_height());
}

void CConsoleDrawingArea::ExposeCell(int column, int row) {
    if (column < 0 || column >= columns || row < 0 || row >= rows) return;
    Expose(CellRect{column, row, column + 1, row + 1});
}

void CConsoleDrawingArea::Paint(const PaintJob& job) {
    const PendingPaint& pending = job.pending;
    if (pending.Columns() != columns || pending.Rows() != rows || !NeedPixmap()) return;
    changed = CellRect{};
    for (const PendingPaint::Move& move : pending.Moves())
        MovePixels(move);
    for (int row = 0; row < rows; row++) {
        if (!pending.RowSpan(row).IsEmpty()) PaintRow(row, pending.RowSpan(row), job);
    }
    painter->Flush();
    if (!changed.IsEmpty()) Expose(changed);
    if (!pending.Exposed().IsEmpty()) Expose(pending.Exposed());
    if (is_drawable()) get_window()->process_updates(false);
}

void CConsoleDrawingArea::MovePixels(const PendingPaint::Move& move) {
    const CellRect& rect = move.rect;
    const int distance = std::abs(move.lines);
    const bool up = move.lines > 0;
    const CellRect source{rect.left, up ? rect.top + distance : rect.top, rect.right,
                          up ? rect.bottom : rect.bottom - distance};
    const Gdk::Rectangle from = Pixels(source);
    const int shift = move.lines * font->CellHeight();
    pixmap->draw_drawable(copier, pixmap, from.get_x(), from.get_y(), from.get_x(),
                          from.get_y() - shift, from.get_width(), from.get_height());
    const int height = source.bottom - source.top;
    for (int i = 0; i < height; i++) {
        const int row = up ? source.top + i : source.bottom - 1 - i;
        const auto at = [&](int line) {
            return painted.begin() + static_cast<ptrdiff_t>(line) * columns + rect.left;
        };
        std::copy_n(at(row), rect.right - rect.left, at(row - move.lines));
    }
    AddToChanged(rect);
}

void CConsoleDrawingArea::PaintRow(int row, const PendingPaint::Span& span, const PaintJob& job) {
    const size_t line = static_cast<size_t>(row) * static_cast<size_t>(columns);
    CellRect here;
    for (int column = span.from; column < span.to; column++) {
        const Cell& cell = job.cells[line + static_cast<size_t>(column)];
        Cell& shown = painted[line + static_cast<size_t>(column)];
        if (shown == cell) continue;
        shown = cell;
        painter->Add(column, row, cell);
        cellsPainted.fetch_add(1, std::memory_order_relaxed);
        here = here.IsEmpty() ? CellRect{column, row, column + 1, row + 1}
                              : CellRect{here.left, row, column + 1, row + 1};
    }
    AddToChanged(here);
}

bool CConsoleDrawingArea::on_expose_event(GdkEventExpose* event) {
    if (!pixmap) return true;
    const GdkRectangle& area = event->area;
    const Glib::RefPtr<Gdk::Window> window = get_window();
    window->draw_drawable(copier, pixmap, area.x, area.y, area.x, area.y, area.width, area.height);
    CursorView cursor;
    if (console.ViewCursor(cursor)) {
        const Gdk::Rectangle cell =
            Pixels(CellRect{cursor.column, cursor.row, cursor.column + 1, cursor.row + 1});
        GdkRectangle common;
        if (gdk_rectangle_intersect(&area, cell.gobj(), &common)) DrawCursor(cursor);
    }
    return true;
}

void CConsoleDrawingArea::DrawCursor(const CursorView& cursor) {
    const int height = std::min(font->CellHeight() * cursor.sizePercent / 100, font->CellHeight());
    if (height <= 0) return;
    copier->set_rgb_fg_color(Gdk::Color(cursor.isWhite ? "white" : "black"));
    get_window()->draw_rectangle(copier, true, cursor.column * font->CellWidth(),
                                 (cursor.row + 1) * font->CellHeight() - height, font->CellWidth(),
                                 height);
}

}  // namespace zt
