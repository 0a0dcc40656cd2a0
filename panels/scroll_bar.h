// Where the thumb of a panel's scroll bar lies. Pure arithmetic.
#pragma once

namespace zt {

struct ScrollThumb {
    int start = 0;
    int length = 0;  // 0: no bar, all entries show
};

ScrollThumb ThumbOf(int rows, int visibleEntries, int count, int top);

}  // namespace zt
