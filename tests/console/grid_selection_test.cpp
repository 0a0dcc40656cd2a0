// Selection of screen text with the mouse.
#include <gtest/gtest.h>

#include <climits>

#include "tests/console/fake_console.h"

namespace zt {
namespace {

class SelectionTest : public testing::Test {
protected:
    void SetUp() override {
        const wchar_t* rows[] = {L"abcdefghij", L"klmnopqrst", L"uvwx", L"0123456789", L""};
        for (int row = 0; row < 5; row++)
            console.WriteWide(0, row, rows[row], 0x1E);
        console.SetSelectableRect(0, 0, 10, 5, true);
        console.ForgetRecords();
    }
    // The selected cells' smallest rectangle, which must be full.
    CellRect Shown() {
        CellRect rect{INT_MAX, INT_MAX, 0, 0};
        int count = 0;
        for (int row = 0; row < 5; row++) {
            for (int column = 0; column < 10; column++) {
                if (!console.Selected(column, row)) continue;
                count++;
                rect.left = std::min(rect.left, column);
                rect.top = std::min(rect.top, row);
                rect.right = std::max(rect.right, column + 1);
                rect.bottom = std::max(rect.bottom, row + 1);
            }
        }
        if (count == 0) return CellRect{};
        EXPECT_EQ(count, (rect.right - rect.left) * (rect.bottom - rect.top));
        return rect;
    }
    std::string Release() {
        Westring text("untouched");
        const bool shown = console.SelectionRelease(text);
        return shown ? text.ToUtf8().c_str() : "(none)";
    }

    FakeConsole console{10, 5};
};

struct DragCase {
    const char* name;
    int pressColumn, pressRow;
    std::vector<std::pair<int, int>> motions;
    CellRect shown;
    const char* text;
};

TEST_F(SelectionTest, FollowsThePointerInAllDirections) {
    const DragCase cases[] = {
        {"right and down", 2, 0, {{4, 1}}, {2, 0, 5, 2}, "cde\nmno"},
        {"left and up", 4, 1, {{2, 0}}, {2, 0, 5, 2}, "cde\nmno"},
        {"right and up", 2, 1, {{4, 0}}, {2, 0, 5, 2}, "cde\nmno"},
        {"left and down", 4, 0, {{2, 1}}, {2, 0, 5, 2}, "cde\nmno"},
        {"one cell", 3, 3, {{3, 3}}, {3, 3, 4, 4}, "3"},
        {"grows and shrinks", 2, 0, {{8, 0}, {4, 0}}, {2, 0, 5, 1}, "cde"},
        {"left, then over to the right", 4, 0, {{1, 0}, {6, 0}}, {4, 0, 7, 1}, "efg"},
        {"right, then over to the left", 4, 0, {{6, 0}, {1, 0}}, {1, 0, 5, 1}, "bcde"},
        {"up, then over to below", 0, 1, {{0, 0}, {0, 3}}, {0, 1, 1, 4}, "k\nu\n0"},
        {"down, then over to above", 0, 1, {{0, 3}, {0, 0}}, {0, 0, 1, 2}, "a\nk"},
        {"left and back to the press", 4, 0, {{1, 0}, {4, 0}}, {4, 0, 5, 1}, "e"},
        {"there and back twice", 4, 2, {{1, 3}, {8, 1}, {2, 4}, {5, 0}}, {4, 0, 6, 3}, "ef\nop\n"},
        {"rows trimmed on the right", 2, 1, {{9, 4}}, {2, 1, 10, 5}, "mnopqrst\nwx\n23456789\n"},
    };
    for (const DragCase& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_TRUE(console.SelectionPress(c.pressColumn, c.pressRow));
        for (const auto& [column, row] : c.motions) {
            EXPECT_TRUE(console.SelectionMotion(column, row));
        }
        EXPECT_EQ(Shown(), c.shown);
        EXPECT_EQ(Release(), c.text);
        EXPECT_EQ(Shown(), CellRect{});
    }
}

TEST_F(SelectionTest, ShowsNothingForAClickWithoutMotion) {
    EXPECT_TRUE(console.SelectionPress(3, 1));
    EXPECT_EQ(Shown(), CellRect{});
    EXPECT_EQ(Release(), "(none)");
    EXPECT_TRUE(console.painted.empty());
}

TEST_F(SelectionTest, LetsGoOfEventsOutsideTheSelectablePart) {
    console.SetSelectableRect(2, 1, 3, 2, true);  // columns 2 to 4, rows 1 to 2
    const std::pair<int, int> outside[] = {{1, 1}, {5, 1}, {2, 0}, {2, 3}, {-1, -1}, {99, 99}};
    for (const auto& [column, row] : outside) {
        EXPECT_FALSE(console.SelectionPress(column, row)) << column << ", " << row;
    }
    EXPECT_TRUE(console.SelectionPress(4, 2));
    for (const auto& [column, row] : outside) {
        EXPECT_FALSE(console.SelectionMotion(column, row)) << column << ", " << row;
    }
    EXPECT_EQ(Shown(), CellRect{});
    EXPECT_TRUE(console.SelectionMotion(2, 1));
    EXPECT_EQ(Shown(), (CellRect{2, 1, 5, 3}));
    EXPECT_FALSE(console.SelectionMotion(9, 4));
    EXPECT_EQ(Shown(), (CellRect{2, 1, 5, 3}));
    EXPECT_EQ(Release(), "mno\nwx");
}

TEST_F(SelectionTest, IgnoresMotionWithoutAPressInside) {
    EXPECT_FALSE(console.SelectionMotion(3, 1));
    console.SelectionPress(1, 1);
    Release();
    EXPECT_FALSE(console.SelectionMotion(3, 1));
    EXPECT_EQ(Shown(), CellRect{});
}

TEST_F(SelectionTest, SelectsNothingWhereNothingIsSelectable) {
    console.ClearSelectableRect();
    EXPECT_EQ(console.GetSelectableRect(), CellRect{});
    EXPECT_FALSE(console.SelectionPress(0, 0));
}

TEST_F(SelectionTest, APressTakesAShownSelectionAway) {
    console.SelectionPress(1, 1);
    console.SelectionMotion(3, 2);
    console.ForgetRecords();
    console.SelectionPress(8, 3);
    EXPECT_EQ(Shown(), CellRect{});
    EXPECT_EQ(console.painted, (std::vector<CellRect>{{1, 1, 4, 3}}));
    EXPECT_EQ(Release(), "(none)");
}

TEST_F(SelectionTest, PaintsTheRectangleWhenASelectionEnds) {
    console.SelectionPress(1, 1);
    console.SelectionMotion(3, 2);
    console.ForgetRecords();
    Release();
    EXPECT_EQ(console.painted, (std::vector<CellRect>{{1, 1, 4, 3}}));
}

TEST_F(SelectionTest, PaintsNothingWhenThePointerStaysInItsCell) {
    console.SelectionPress(1, 1);
    console.SelectionMotion(3, 2);
    console.ForgetRecords();
    EXPECT_TRUE(console.SelectionMotion(3, 2));
    EXPECT_TRUE(console.painted.empty());
}

TEST_F(SelectionTest, ANewSelectablePartDropsTheSelectionIfAsked) {
    console.SelectionPress(1, 1);
    console.SelectionMotion(3, 2);
    console.SetSelectableRect(0, 0, 5, 5, false);
    EXPECT_EQ(Shown(), (CellRect{1, 1, 4, 3}));
    console.SetSelectableRect(CellRect{0, 0, 4, 4}, true);
    EXPECT_EQ(Shown(), CellRect{});
    EXPECT_EQ(Release(), "(none)");
    EXPECT_FALSE(console.SelectionMotion(2, 2));
}

TEST_F(SelectionTest, KeepsTheSelectableEdgesAsLeftTopAndBehind) {
    console.SetSelectableRect(2, 1, 3, 2, false);
    EXPECT_EQ(console.GetSelectableRect(), (CellRect{2, 1, 5, 3}));
    console.SetSelectableRect(CellRect{1, 2, 3, 4}, false);
    EXPECT_EQ(console.GetSelectableRect(), (CellRect{1, 2, 3, 4}));
    console.SetSelectableRect(INT_MAX, 1, INT_MAX, INT_MIN, false);
    EXPECT_EQ(console.GetSelectableRect(), (CellRect{INT_MAX, 1, INT_MAX, INT_MIN + 1}));
    EXPECT_FALSE(console.SelectionPress(0, 0));
    EXPECT_EQ(console.selectableRects.size(), 4u);
}

TEST_F(SelectionTest, StaysWithinAGridThatIsSmallerThanTheSelectablePart) {
    console.SetSelectableRect(-5, -5, 100, 100, true);
    console.SelectionPress(8, 3);
    console.SelectionMotion(50, 50);
    EXPECT_EQ(Shown(), (CellRect{8, 3, 10, 5}));
    EXPECT_EQ(Release(), "89\n");
    console.SelectionPress(1, 0);
    console.SelectionMotion(-3, -3);
    EXPECT_EQ(Release(), "ab");
}

TEST_F(SelectionTest, AResizeTakesTheSelectionAway) {
    console.SelectionPress(1, 1);
    console.SelectionMotion(3, 2);
    console.Resize(4, 2, nullptr, 0);
    EXPECT_EQ(Release(), "(none)");
    EXPECT_FALSE(console.SelectionMotion(1, 1));
}

}  // namespace
}  // namespace zt
