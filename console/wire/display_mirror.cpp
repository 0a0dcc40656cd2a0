// Comparing what the display shows with what it is to show, and writing the requests.
#include "console/wire/display_mirror.h"

#include <algorithm>

#include "console/code_page_437.h"

namespace zt {

namespace {

constexpr int kScrollBytes = 51;
// Of a rectangle of cells, before the first cell.
constexpr int kRectangleStart = 43;
// A rough price of a run: its frame, and a byte a cell.
constexpr int kRunStart = 31;
// More moves than this within one update are a sign that they do not help.
constexpr size_t kMostScrolls = 64;

// The cell as the display's grid will hold it.
Cell ShownCell(Cell cell) {
    return {WireCode(ControlGlyph(cell.character)), cell.attribute};
}

bool SameRect(const CellRect& a, const CellRect& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

void AddRectangle(FrameBuffer& out, const CellRect& rect) {
    out.AddInteger(rect.left);
    out.AddInteger(rect.top);
    out.AddInteger(rect.right - rect.left);
    out.AddInteger(rect.bottom - rect.top);
}

// What a row costs about, given what of it differs.
template <class ShownAt>
int PriceOfRow(const Cell* wanted, const CellRect& rect, ShownAt shownAt) {
    int differing = 0;
    for (int column = rect.left; column < rect.right; column++)
        if (!(wanted[column] == shownAt(column))) differing++;
    return differing > 0 ? kRunStart + differing : 0;
}

}  // namespace

void DisplayMirror::Resize(int columns, int rows) {
    wanted_.Resize(columns, rows);
    sent_.Resize(columns, rows);
    spans_.assign(static_cast<size_t>(rows), ColumnSpan{});
    scrolls_.clear();
}

void DisplayMirror::Wipe(Attribute attribute) {
    const CellRect whole{0, 0, Columns(), Rows()};
    wanted_.Fill(whole, Cell{' ', attribute});
    sent_.Fill(whole, Cell{' ', attribute});
    spans_.assign(spans_.size(), ColumnSpan{});
    fillAttribute_ = attribute;
}

void DisplayMirror::Want(int row, int column, const Cell* cells, int count) {
    Cell* wanted = wanted_.Row(row) + column;
    const Cell* sent = sent_.Row(row) + column;
    int first = count;
    int last = -1;
    for (int i = 0; i < count; i++) {
        wanted[i] = ShownCell(cells[i]);
        if (wanted[i] == sent[i]) continue;
        first = std::min(first, i);
        last = i;
    }
    if (last < 0) return;
    MayDiffer(row, column + first, column + last + 1);
}

void DisplayMirror::MayDiffer(int row, int left, int right) {
    ColumnSpan& span = spans_[static_cast<size_t>(row)];
    const bool clean = span.IsEmpty();
    span.left = clean ? left : std::min(span.left, left);
    span.right = clean ? right : std::max(span.right, right);
}

bool DisplayMirror::Scroll(const CellRect& rect, int lines, Attribute attribute) {
    const bool merges = !scrolls_.empty() && SameRect(scrolls_.back().rect, rect) &&
                        scrolls_.back().attribute == attribute &&
                        (scrolls_.back().lines < 0) == (lines < 0);
    if (!merges && scrolls_.size() >= kMostScrolls) return false;
    const Cell blank{' ', attribute};
    int64_t asItStands = 0;
    int64_t moved = merges ? 0 : kScrollBytes;
    for (int row = rect.top; row < rect.bottom; row++) {
        const Cell* wanted = wanted_.Row(row);
        const Cell* shown = sent_.Row(row);
        asItStands += PriceOfRow(wanted, rect, [&](int column) { return shown[column]; });
        const int source = row + lines;
        const bool isFreed = source < rect.top || source >= rect.bottom;
        const Cell* comes = isFreed ? nullptr : sent_.Row(source);
        moved += PriceOfRow(wanted, rect,
                            [&](int column) { return comes != nullptr ? comes[column] : blank; });
    }
    if (moved >= asItStands) return false;
    const int height = rect.bottom - rect.top;
    if (merges) {
        const int together = scrolls_.back().lines + lines;
        scrolls_.back().lines = std::clamp(together, -height, height);
    } else {
        scrolls_.push_back({rect, lines, attribute});
    }
    sent_.Scroll(rect, lines, blank);
    for (int row = rect.top; row < rect.bottom; row++)
        MayDiffer(row, rect.left, rect.right);
    return true;
}

int DisplayMirror::Encode(FrameBuffer& out) {
    int frames = EncodeScrolls(out);
    if (!TrimSpans()) return frames;
    frames += EncodeBlankAreas(out);
    if (!TrimSpans()) return frames;
    PlanRows();
    ChooseBands();
    return frames + EncodeBands(out);
}

int DisplayMirror::EncodeScrolls(FrameBuffer& out) {
    for (const ScrollRequest& scroll : scrolls_) {
        out.BeginRequest(scroll.lines > 0 ? Opcode::kScrollUp : Opcode::kScrollDown, 6);
        AddRectangle(out, scroll.rect);
        out.AddInteger(std::abs(scroll.lines));
        out.AddAttribute(scroll.attribute);
    }
    const int frames = static_cast<int>(scrolls_.size());
    scrolls_.clear();
    return frames;
}

// Cuts the spans down to what really differs; false when nothing does.
bool DisplayMirror::TrimSpans() {
    bounds_ = {Columns(), Rows(), 0, 0};
    for (int row = 0; row < Rows(); row++) {
        ColumnSpan& span = spans_[static_cast<size_t>(row)];
        const Cell* wanted = wanted_.Row(row);
        const Cell* sent = sent_.Row(row);
        while (!span.IsEmpty() && wanted[span.left] == sent[span.left])
            span.left++;
        while (!span.IsEmpty() && wanted[span.right - 1] == sent[span.right - 1])
            span.right--;
        if (span.IsEmpty()) continue;
        bounds_ = {std::min(bounds_.left, span.left), std::min(bounds_.top, row),
                   std::max(bounds_.right, span.right), row + 1};
    }
    return !bounds_.IsEmpty();
}

int DisplayMirror::EncodeBlankAreas(FrameBuffer& out) {
    int frames = 0;
    for (int row = bounds_.top; row < bounds_.bottom; row++) {
        int column = 0;
        BlankArea area{};
        while (FindBlankArea(wanted_, sent_, spans_, row, column, area)) {
            const bool isWhole = SameRect(area.rect, CellRect{0, 0, Columns(), Rows()});
            const bool isClear = isWhole && area.attribute == fillAttribute_;
            out.BeginRequest(Opcode::kFillRect, isClear ? 0 : 5);
            if (!isClear) {
                AddRectangle(out, area.rect);
                out.AddAttribute(area.attribute);
            }
            sent_.Fill(area.rect, Cell{' ', area.attribute});
            frames++;
        }
    }
    return frames;
}

void DisplayMirror::PlanRows() {
    runs_.clear();
    rows_.clear();
    for (int row = bounds_.top; row < bounds_.bottom; row++) {
        const ColumnSpan span = spans_[static_cast<size_t>(row)];
        if (span.IsEmpty()) continue;
        const size_t firstRun = runs_.size();
        const int cost =
            planner_.Plan(wanted_.Row(row), sent_.Row(row), row, span.left, span.right, runs_);
        rows_.push_back({row, firstRun, runs_.size(), cost});
    }
}

void DisplayMirror::SumRectangleBytes() {
    rectangleBytes_.assign(1, 0);
    for (int row = bounds_.top; row < bounds_.bottom; row++) {
        int64_t bytes = 0;
        const Cell* wanted = wanted_.Row(row);
        for (int column = bounds_.left; column < bounds_.right; column++) {
            const uint32_t code = wanted[column].character;
            // A code that must not go as it is makes the rectangle too long for one payload.
            bytes += IsShownAsHouse(code) ? kLongestPayload : Utf8Bytes(code) + 1;
        }
        rectangleBytes_.push_back(rectangleBytes_.back() + bytes);
    }
}

// For each number of rows the cheapest way to send them: the last ones as one rectangle over all
// columns that differ anywhere, or the last one by its runs.
void DisplayMirror::ChooseBands() {
    SumRectangleBytes();
    bands_.assign(1, Band{0, 0, false, 0});
    for (int last = 0; last < static_cast<int>(rows_.size()); last++) {
        const RowRuns& lastRow = rows_[static_cast<size_t>(last)];
        Band best{last, last + 1, false, bands_.back().cost + lastRow.cost};
        const int64_t upToLast =
            rectangleBytes_[static_cast<size_t>(lastRow.row + 1 - bounds_.top)];
        for (int begin = last; begin >= 0; begin--) {
            const int top = rows_[static_cast<size_t>(begin)].row - bounds_.top;
            const int64_t bytes = upToLast - rectangleBytes_[static_cast<size_t>(top)];
            if (bytes >= kLongestPayload) break;
            const int64_t cost = bands_[static_cast<size_t>(begin)].cost + kRectangleStart + bytes;
            if (cost < best.cost) best = {begin, last + 1, true, cost};
        }
        bands_.push_back(best);
    }
}

int DisplayMirror::EncodeBands(FrameBuffer& out) {
    chosen_.clear();
    for (size_t end = rows_.size(); end > 0; end = static_cast<size_t>(chosen_.back().begin))
        chosen_.push_back(bands_[end]);
    int frames = 0;
    for (size_t i = chosen_.size(); i-- > 0;)
        frames += EncodeBand(out, chosen_[i]);
    for (int row = bounds_.top; row < bounds_.bottom; row++) {
        ColumnSpan& span = spans_[static_cast<size_t>(row)];
        const Cell* wanted = wanted_.Row(row);
        if (!span.IsEmpty())
            std::copy(wanted + span.left, wanted + span.right, sent_.Row(row) + span.left);
        span = ColumnSpan{};
    }
    return frames;
}

int DisplayMirror::EncodeBand(FrameBuffer& out, const Band& band) {
    const RowRuns& first = rows_[static_cast<size_t>(band.begin)];
    const RowRuns& last = rows_[static_cast<size_t>(band.end) - 1];
    if (band.isRectangle) {
        EncodeRectangle(out, {bounds_.left, first.row, bounds_.right, last.row + 1});
        return 1;
    }
    for (size_t run = first.firstRun; run < last.endRun; run++)
        EncodeRun(out, runs_[run]);
    return static_cast<int>(last.endRun - first.firstRun);
}

void DisplayMirror::EncodeRectangle(FrameBuffer& out, const CellRect& rect) {
    rectangle_.clear();
    for (int row = rect.top; row < rect.bottom; row++)
        rectangle_.insert(rectangle_.end(), wanted_.Row(row) + rect.left,
                          wanted_.Row(row) + rect.right);
    out.BeginRequest(Opcode::kWriteCells, 5);
    AddRectangle(out, rect);
    out.AddCellString(rectangle_.data(), static_cast<int>(rectangle_.size()));
}

void DisplayMirror::EncodeRun(FrameBuffer& out, const CellRun& run) const {
    const Cell* cells = wanted_.Row(run.row) + run.left;
    const int count = run.right - run.left;
    const auto begin = [&](Opcode opcode, int parameters) {
        out.BeginRequest(opcode, parameters);
        out.AddInteger(run.left);
        out.AddInteger(run.row);
    };
    switch (run.kind) {
        case RunKind::kNone:
            break;
        case RunKind::kCells:
            begin(Opcode::kWriteText, 3);
            out.AddCellString(cells, count);
            break;
        case RunKind::kText:
            begin(Opcode::kWriteText, 4);
            out.AddUnicodeCells(cells, count);
            out.AddAttribute(cells[0].attribute);
            break;
        case RunKind::kRepeat:
            begin(Opcode::kFillChar, 4);
            out.AddInteger(count);
            out.AddCellString(cells, 1);
            break;
        case RunKind::kAttributes:
            begin(Opcode::kSetAttributes, 4);
            out.AddInteger(count);
            out.AddAttribute(cells[0].attribute);
            break;
    }
}

}  // namespace zt
