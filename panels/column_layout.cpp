// Sharing a panel's width among its columns.
#include "panels/column_layout.h"

#include <algorithm>

namespace zt {

namespace {

struct ColumnRow {
    int minimum;  // negative: the style has no more columns
    int maximum;
};

constexpr ColumnRow kEnd = {-1, 0};
constexpr int kWidest = 256;

constexpr ColumnRow kColumns[kFileStyleCount][kMaxColumns] = {
    {{12, kWidest}, {12, kWidest}, {12, kWidest}, kEnd, kEnd},  // brief: three names
    {{13, kWidest}, {8, 10}, {8, 8}, {6, 6}, kEnd},             // full: name, size, date, time
    {{8, 10}, {29, kWidest}, kEnd, kEnd, kEnd},                 // wide: size, name
    {{12, kWidest}, {12, kWidest}, kEnd, kEnd, kEnd},           // briefwide: two names
    {{12, kWidest}, {7, 10}, {9, 9}, {3, 10}, {3, 10}},  // unix: name, size, mode, owner, group
};

// Gives out what the minimums leave: in each pass every column gets its share by its present
// width, until nothing is left or all columns are at their maximum.
StyleColumns Share(const ColumnRow (&rows)[kMaxColumns], int available) {
    StyleColumns columns;
    int left = available;
    while (columns.count < kMaxColumns && rows[columns.count].minimum >= 0) {
        columns.width[columns.count] = rows[columns.count].minimum;
        left -= rows[columns.count].minimum + (columns.count > 0 ? 1 : 0);
        ++columns.count;
    }
    while (left > 0) {
        const int atStart = left;
        for (int i = 0; i < columns.count; ++i) {
            const int wanted = (atStart * columns.width[i] + available - 1) / available;
            const int room = rows[i].maximum - columns.width[i];
            const int share = std::min({wanted, left, room});
            columns.width[i] += share;
            left -= share;
        }
        if (left == atStart) break;
    }
    return columns;
}

}  // namespace

int StyleColumns::Start(int index) const {
    int x = 0;
    for (int i = 0; i < index; ++i)
        x += width[i] + 1;
    return x;
}

void ColumnLayout::Compute(int panelWidth) {
    for (int style = 0; style < kFileStyleCount; ++style) {
        styles[style] = Share(kColumns[style], panelWidth - 2);
    }
}

EntryPlace PlaceOf(const ColumnLayout& layout, int style, int index, int rows) {
    EntryPlace place;
    place.y = index;
    if (style >= kFileStyleCount) return place;
    const StyleColumns& columns = layout.Of(style);
    int column = style == kStyleWide ? 1 : 0;
    if (EntryColumns(style) > 1 && rows > 0) {
        column = std::min(index / rows, columns.count - 1);
        place.x = columns.Start(column);
        place.y = index % rows;
    }
    place.nameWidth = columns.width[column];
    return place;
}

}  // namespace zt
