// The widths of a panel's columns, for each style, at a given panel width. Plain data.
#pragma once

#include "panels/panel_kinds.h"

namespace zt {

inline constexpr int kMaxColumns = 5;

struct StyleColumns {
    int count = 0;
    int width[kMaxColumns] = {};

    // Where column `index` begins, one separator behind each column before it.
    int Start(int index) const;
};

class ColumnLayout {
public:
    // `panelWidth` is that of the window, frame included.
    void Compute(int panelWidth);
    const StyleColumns& Of(int style) const { return styles[style]; }

private:
    StyleColumns styles[kFileStyleCount];
};

// Where an entry stands in a panel's window, in client cells.
struct EntryPlace {
    int x = 0;
    int y = 0;
    int nameWidth = 0;
};
// For row `index` of the page, `rows` entry rows high.
EntryPlace PlaceOf(const ColumnLayout& layout, int style, int index, int rows);

}  // namespace zt
