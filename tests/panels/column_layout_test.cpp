// The shares of the columns at several widths.
#include "panels/column_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace zt {
namespace {

std::vector<int> Widths(int panelWidth, int style) {
    ColumnLayout layout;
    layout.Compute(panelWidth);
    const StyleColumns& columns = layout.Of(style);
    return {columns.width, columns.width + columns.count};
}

using Row = std::vector<int>;

TEST(ColumnLayout, SharesTheWidthAmongTheColumns) {
    const struct {
        int panelWidth;
        int style;
        Row widths;
    } rows[] = {
        {40, kStyleBrief, {12, 12, 12}},
        {40, kStyleFull, {13, 8, 8, 6}},
        {40, kStyleWide, {8, 29}},
        {40, kStyleBriefWide, {19, 18}},
        {40, kStyleUnix, {12, 7, 9, 3, 3}},
        {41, kStyleBrief, {13, 12, 12}},
        {66, kStyleBrief, {21, 21, 20}},
        {66, kStyleFull, {37, 10, 8, 6}},
        {66, kStyleWide, {10, 53}},
        {66, kStyleBriefWide, {32, 31}},
        {66, kStyleUnix, {24, 10, 9, 9, 8}},
        {80, kStyleBrief, {26, 26, 24}},
        {80, kStyleFull, {51, 10, 8, 6}},
        {80, kStyleWide, {10, 67}},
        {80, kStyleBriefWide, {39, 38}},
        {80, kStyleUnix, {35, 10, 9, 10, 10}},
        {132, kStyleBrief, {43, 43, 42}},
        {132, kStyleFull, {103, 10, 8, 6}},
        {132, kStyleWide, {10, 119}},
        {132, kStyleBriefWide, {65, 64}},
        {132, kStyleUnix, {87, 10, 9, 10, 10}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Widths(row.panelWidth, row.style), row.widths)
            << "width " << row.panelWidth << " style " << row.style;
    }
}

TEST(ColumnLayout, FillsEveryWidthItCan) {
    for (int panelWidth = 40; panelWidth <= 260; ++panelWidth) {
        for (int style = 0; style < kFileStyleCount; ++style) {
            int sum = -1;
            for (const int width : Widths(panelWidth, style))
                sum += width + 1;
            EXPECT_EQ(sum, panelWidth - 2) << "style " << style;
        }
    }
}

TEST(ColumnLayout, EndsWhereTheWidthIsTooSmallOrTooLarge) {
    EXPECT_EQ(Widths(10, kStyleFull), (Row{13, 8, 8, 6})) << "the minimums stay";
    EXPECT_EQ(Widths(2, kStyleBrief), (Row{12, 12, 12}));
    EXPECT_EQ(Widths(2000, kStyleWide), (Row{10, 256})) << "the maximums hold";
}

TEST(ColumnLayout, PlacesEntriesColumnByColumn) {
    ColumnLayout layout;
    layout.Compute(41);
    const struct {
        int style;
        int index;
        int x, y, width;
    } rows[] = {
        {kStyleBrief, 0, 0, 0, 13},       {kStyleBrief, 18, 0, 18, 13},
        {kStyleBrief, 19, 14, 0, 12},     {kStyleBrief, 56, 27, 18, 12},
        {kStyleBriefWide, 19, 20, 0, 19}, {kStyleFull, 5, 0, 5, 14},
        {kStyleWide, 5, 0, 5, 29},        {kStyleUnix, 18, 0, 18, 13},
    };
    for (const auto& row : rows) {
        const EntryPlace place = PlaceOf(layout, row.style, row.index, 19);
        EXPECT_EQ(place.x, row.x) << row.style << " " << row.index;
        EXPECT_EQ(place.y, row.y) << row.style << " " << row.index;
        EXPECT_EQ(place.nameWidth, row.width) << row.style << " " << row.index;
    }
}

}  // namespace
}  // namespace zt
