// Where the thumb lies.
#include "panels/scroll_bar.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

TEST(ScrollBar, PlacesTheThumb) {
    const struct {
        int rows, visible, count, top;
        int start, length;
    } table[] = {
        {19, 19, 0, 0, 0, 0},              // nothing to show
        {19, 19, 19, 0, 0, 0},             // all shows
        {19, 57, 57, 0, 0, 0},             // all shows, in three columns
        {19, 19, 20, 0, 0, 18},            // 19 * 19 / 20
        {19, 19, 20, 1, 1, 18},            // at the end the thumb touches the last row
        {19, 19, 38, 0, 0, 9},             //
        {19, 19, 38, 9, 4, 9},             // below 10/38 is more than above 9/38: 19 * 9 / 38
        {19, 19, 38, 10, 5, 9},            // below 9/38: 19 - ceil(19 * 9 / 38) - 9
        {19, 19, 38, 19, 10, 9},           //
        {19, 19, 1000, 0, 0, 2},           // never shorter than two
        {19, 19, 1000, 981, 17, 2},        // the end
        {19, 19, 1000, 500, 7, 2},         // 19 - ceil(19 * 481 / 1000) - 2
        {19, 57, 58, 1, 0, 18},            // three columns: 38/58 is below
        {19, 57, 1000000, 0, 0, 2},        //
        {19, 57, 1000000, 999943, 16, 2},  // 38 entries count as below: one row
        {1, 1, 5, 4, 0, 2},                // one row: the thumb begins in it
        {19, 57, 60, 40, 0, 18},           // ceil(19 * 1 / 60) rows below, and not above the first
    };
    for (const auto& row : table) {
        const ScrollThumb thumb = ThumbOf(row.rows, row.visible, row.count, row.top);
        EXPECT_EQ(thumb.length, row.length) << row.count << " from " << row.top;
        EXPECT_EQ(thumb.start, row.start) << row.count << " from " << row.top;
    }
}

}  // namespace
}  // namespace zt
