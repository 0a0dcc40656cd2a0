// The way of changed cells to the screen: the first thread notes them, the GTK thread copies and
// paints them.
#include <gdkmm/display.h>

#include <algorithm>
#include <future>

#include "console/window/gtk_console.h"

namespace zt {

namespace {

Attribute Exchanged(Attribute attribute) {
    return static_cast<Attribute>((attribute << 4) | (attribute >> 4));
}

// Backgrounds below this attribute are black or blue.
constexpr Attribute kFirstBrightBackground = 32;

}  // namespace

void CConsole::CellsChanged(const CellRect& rect) {
    pending.Add(rect);
    frames.Request(FrameTimer::Urgency::kGather);
}

bool CConsole::RowsMoved(const CellRect& rect, int lines, Attribute, bool frozen) {
    if (frozen) return false;
    pending.AddMove(rect, lines);
    frames.Request(FrameTimer::Urgency::kGather);
    return true;
}

void CConsole::CursorChanged(int oldColumn, int oldRow) {
    RestartBlink();
    pending.AddExpose(oldColumn, oldRow);
    pending.AddExpose(cursorColumn, cursorRow);
    frames.Request(FrameTimer::Urgency::kGather);
}

// What was written before a freeze is still to be seen during it, and nothing of what comes after.
void CConsole::FreezeChanged(bool frozen) {
    frozenCells.clear();
    if (frozen && !pending.IsEmpty()) {
        frozenCells.assign(RowCells(0), RowCells(0) + static_cast<ptrdiff_t>(columns) * rows);
    }
}

bool CConsole::ViewCursor(CursorView& view) {
    std::lock_guard<std::recursive_mutex> guard(gridLock);
    view = CursorView{cursorColumn, cursorRow, cursorSize, true};
    const bool onGrid =
        cursorColumn >= 0 && cursorColumn < columns && cursorRow >= 0 && cursorRow < rows;
    if (!onGrid || cursorSize < 1) return false;
    view.isWhite = RowCells(cursorRow)[cursorColumn].attribute < kFirstBrightBackground;
    return blinkPhase.load(std::memory_order_relaxed) < kShownPhases;
}

void CConsole::PaintFrame() {
    if (area.is_realized() && TakeJob()) area.Paint(job);
}

void CConsole::PaintAndSync() {
    PaintFrame();
    get_display()->sync();
}

void CConsole::WaitPainted() {
    std::promise<void> painted;
    calls.Post([&] {
        PaintAndSync();
        painted.set_value();
    });
    painted.get_future().wait();
}

// The only step of painting under the grid's lock: a copy of what changed.
bool CConsole::TakeJob() {
    std::lock_guard<std::recursive_mutex> guard(gridLock);
    if (pending.IsEmpty()) return false;
    pending.MoveTo(job.pending);
    const size_t count = static_cast<size_t>(columns) * static_cast<size_t>(rows);
    job.cells.resize(count);
    const bool frozen = IsFrozen() && frozenCells.size() == count;
    for (int row = 0; row < rows; row++) {
        if (job.pending.RowSpan(row).IsEmpty()) continue;
        const size_t line = static_cast<size_t>(row) * static_cast<size_t>(columns);
        CopyPendingRow(row, frozen ? frozenCells.data() + line : RowCells(row));
    }
    return true;
}

void CConsole::CopyPendingRow(int row, const Cell* source) {
    const PendingPaint::Span& span = job.pending.RowSpan(row);
    Cell* target = job.cells.data() + static_cast<size_t>(row) * static_cast<size_t>(columns);
    std::copy(source + span.from, source + span.to, target + span.from);
    if (!selecting) return;
    for (int column = span.from; column < span.to; column++) {
        if (!IsSelected(column, row)) continue;
        target[column].attribute = Exchanged(target[column].attribute);
    }
}

}  // namespace zt
