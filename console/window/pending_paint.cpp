// What the window still has to paint. Guarded by its owner's lock.
#include "console/window/pending_paint.h"

#include <algorithm>
#include <cstdlib>

namespace zt {

namespace {

bool SameRect(const CellRect& a, const CellRect& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

}  // namespace

void PendingPaint::Reset(int newColumns, int rows) {
    columns = newColumns;
    hasSpans = false;
    spans.assign(static_cast<size_t>(rows), Span{});
    moves.clear();
    expose = CellRect{};
}

void PendingPaint::Widen(int row, int from, int to) {
    if (from >= to) return;
    Span& span = spans[static_cast<size_t>(row)];
    span = span.IsEmpty() ? Span{from, to} : Span{std::min(span.from, from), std::max(span.to, to)};
    hasSpans = true;
}

void PendingPaint::Add(const CellRect& rect) {
    const int from = std::max(rect.left, 0);
    const int to = std::min(rect.right, columns);
    const int bottom = std::min(rect.bottom, Rows());
    for (int row = std::max(rect.top, 0); row < bottom; row++)
        Widen(row, from, to);
}

// A row has one span, so the parts left and right of the rectangle and the part that moved in are
// joined to their hull: painting a cell that did not change costs a comparison only.
void PendingPaint::ShiftSpans(const CellRect& rect, int lines) {
    shifted.assign(spans.begin() + rect.top, spans.begin() + rect.bottom);
    for (int row = rect.top; row < rect.bottom; row++) {
        const Span old = spans[static_cast<size_t>(row)];
        spans[static_cast<size_t>(row)] = Span{};
        Widen(row, old.from, std::min(old.to, rect.left));
        Widen(row, std::max(old.from, rect.right), old.to);
        const int source = row + lines;
        if (source < rect.top || source >= rect.bottom) {
            Widen(row, rect.left, rect.right);
            continue;
        }
        const Span& moved = shifted[static_cast<size_t>(source - rect.top)];
        Widen(row, std::max(moved.from, rect.left), std::min(moved.to, rect.right));
    }
}

bool PendingPaint::IsWholePending(const CellRect& rect) const {
    return std::all_of(
        spans.begin() + rect.top, spans.begin() + rect.bottom,
        [&](const Span& span) { return span.from <= rect.left && span.to >= rect.right; });
}

void PendingPaint::AddMove(const CellRect& asked, int lines) {
    const CellRect rect{std::max(asked.left, 0), std::max(asked.top, 0),
                        std::min(asked.right, columns), std::min(asked.bottom, Rows())};
    if (rect.IsEmpty() || lines == 0 || IsWholePending(rect)) return;
    ShiftSpans(rect, lines);
    if (!moves.empty() && SameRect(moves.back().rect, rect)) {
        moves.back().lines += lines;
    } else {
        moves.push_back({rect, lines});
    }
    if (moves.back().lines == 0) {
        moves.pop_back();
    } else if (std::abs(moves.back().lines) >= rect.bottom - rect.top) {
        moves.pop_back();
        Add(rect);
    } else if (moves.size() > kMaxMoves) {
        for (const Move& move : moves)
            Add(move.rect);
        moves.clear();
    }
}

void PendingPaint::AddExpose(int column, int row) {
    if (column < 0 || column >= columns || row < 0 || row >= Rows()) return;
    if (expose.IsEmpty()) {
        expose = CellRect{column, row, column + 1, row + 1};
        return;
    }
    expose.left = std::min(expose.left, column);
    expose.top = std::min(expose.top, row);
    expose.right = std::max(expose.right, column + 1);
    expose.bottom = std::max(expose.bottom, row + 1);
}

void PendingPaint::MoveTo(PendingPaint& target) {
    std::swap(*this, target);
    Reset(target.columns, target.Rows());
}

}  // namespace zt
