// Arithmetic of the scroll bar, in whole numbers: the fractions of the list are compared by their
// numerators, all of them over `count`.
#include "panels/scroll_bar.h"

#include <algorithm>
#include <cstdint>

namespace zt {

ScrollThumb ThumbOf(int rows, int visibleEntries, int count, int top) {
    ScrollThumb thumb;
    if (count <= 0 || rows <= 0 || visibleEntries >= count) return thumb;
    constexpr int kShortest = 2;
    const int64_t all = count;
    const int64_t below = all - top - rows;
    thumb.length = std::max(static_cast<int>(int64_t{visibleEntries} * rows / all), kShortest);
    if (below > top) {
        thumb.start = static_cast<int>(int64_t{rows} * top / all);
    } else {
        const int64_t hidden = std::max<int64_t>(below, 0);
        const int rowsBelow = static_cast<int>((rows * hidden + all - 1) / all);
        thumb.start = rows - rowsBelow - thumb.length;
    }
    thumb.start = std::clamp(thumb.start, 0, rows - 1);
    return thumb;
}

}  // namespace zt
