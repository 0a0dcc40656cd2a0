// The search for blank rectangles that pay.
#include "console/wire/blank_areas.h"

namespace zt {

namespace {

// Bytes of a filled rectangle, and the most that a row of blanks costs by itself: a repeated cell
// for a long one, text for a short one.
constexpr int kFillBytes = 43;
constexpr int kRepeatBytes = 37;
constexpr int kTextStartBytes = 31;

bool IsBlank(Cell cell, Attribute attribute) {
    return cell.character == ' ' && cell.attribute == attribute;
}

bool IsBlankRow(const Cell* cells, int left, int right, Attribute attribute) {
    for (int column = left; column < right; column++)
        if (!IsBlank(cells[column], attribute)) return false;
    return true;
}

bool Differs(const CellGrid& wanted, const CellGrid& sent, int row, int column) {
    return column >= 0 && column < wanted.Columns() &&
           !(wanted.Row(row)[column] == sent.Row(row)[column]);
}

// What writing the blanks of one row between the columns would cost. Beside other text that has
// to be written they cost no frame of their own.
int RowCost(const CellGrid& wanted, const CellGrid& sent, int row, int left, int right) {
    while (left < right && !Differs(wanted, sent, row, left))
        left++;
    while (left < right && !Differs(wanted, sent, row, right - 1))
        right--;
    if (left >= right) return 0;
    const bool hasNeighbour =
        Differs(wanted, sent, row, left - 1) || Differs(wanted, sent, row, right);
    const int asText = right - left + (hasNeighbour ? 0 : kTextStartBytes);
    return asText < kRepeatBytes ? asText : kRepeatBytes;
}

// Stretches the columns of `row` downwards as far as they are blank, and gives what the rows would
// cost by themselves. The area ends with the last row that has something to be written.
int Stretch(const CellGrid& wanted, const CellGrid& sent, const std::vector<ColumnSpan>& spans,
            int row, ColumnSpan columns, BlankArea& area) {
    const int last = static_cast<int>(spans.size()) - 1;
    int cost = 0;
    area.rect = {columns.left, row, columns.right, row + 1};
    for (int y = row; y <= last; y++) {
        if (!IsBlankRow(wanted.Row(y), columns.left, columns.right, area.attribute)) break;
        if (spans[static_cast<size_t>(y)].IsEmpty()) continue;
        const int rowCost = RowCost(wanted, sent, y, columns.left, columns.right);
        if (rowCost > 0) area.rect.bottom = y + 1;
        cost += rowCost;
    }
    return cost;
}

}  // namespace

bool FindBlankArea(const CellGrid& wanted, const CellGrid& sent,
                   const std::vector<ColumnSpan>& spans, int row, int& column, BlankArea& area) {
    const Cell* cells = wanted.Row(row);
    const ColumnSpan span = spans[static_cast<size_t>(row)];
    if (column < span.left) column = span.left;
    while (column < span.right) {
        if (cells[column].character != ' ' || !Differs(wanted, sent, row, column)) {
            column++;
            continue;
        }
        const Attribute attribute = cells[column].attribute;
        ColumnSpan run{column, column + 1};
        while (run.left > 0 && IsBlank(cells[run.left - 1], attribute))
            run.left--;
        while (run.right < wanted.Columns() && IsBlank(cells[run.right], attribute))
            run.right++;
        ColumnSpan changed{column, run.right};
        while (!Differs(wanted, sent, row, changed.right - 1))
            changed.right--;

        BlankArea wide{{}, attribute};
        BlankArea narrow{{}, attribute};
        const int wideCost = Stretch(wanted, sent, spans, row, run, wide);
        const int narrowCost = Stretch(wanted, sent, spans, row, changed, narrow);
        column = run.right;
        if (wideCost <= kFillBytes && narrowCost <= kFillBytes) continue;
        area = wideCost >= narrowCost ? wide : narrow;
        return true;
    }
    return false;
}

}  // namespace zt
