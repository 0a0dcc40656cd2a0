// The clock at the top right: where it stands, and that it gives the screen back.
#include "ui/clock_window.h"

#include <regex>

#include "tests/ui/ui_fixture.h"

namespace zt {
namespace {

class ClockWindowTest : public UiTest {
protected:
    ~ClockWindowTest() override { DeleteClockWindow(); }
};

TEST_F(ClockWindowTest, ShowsTheTimeAtTheTopRight) {
    struct Row {
        int timeMode, width;
        const char* pattern;
    };
    for (const Row& row :
         {Row{24, 5, "[ 0-9][0-9][: ][0-9][0-9]"}, Row{12, 6, "[ 0-9][0-9][: ][0-9][0-9][ap]"}}) {
        settings.clock = true;
        settings.timeMode = row.timeMode;
        screen.WriteWide(70, 0, L"==========", 0x1B);
        MakeClockWindow();
        ASSERT_TRUE(ClockWindowShown());
        EXPECT_EQ(ClockWidth(), row.width);
        const std::string text = Cells(80 - row.width, 0, row.width);
        EXPECT_TRUE(std::regex_match(text, std::regex(row.pattern))) << text;
        EXPECT_EQ(At(79, 0), 0x30);
        EXPECT_EQ(Cells(79 - row.width, 0, 1), "=");
        DeleteClockWindow();
        EXPECT_EQ(Cells(70, 0, 10), "==========");
        EXPECT_FALSE(ClockWindowShown());
    }
}

TEST_F(ClockWindowTest, TicksOnlyWhileItIsWantedAndThere) {
    screen.WriteWide(74, 0, L"......", 0x07);
    TickClockWindow();  // no window yet
    EXPECT_EQ(Cells(74, 0, 6), "......");
    settings.clock = true;
    MakeClockWindow();
    screen.WriteWide(74, 0, L"......", 0x07);
    settings.clock = false;
    TickClockWindow();
    EXPECT_EQ(Cells(74, 0, 6), "......");
    settings.clock = true;
    TickClockWindow();
    EXPECT_NE(Cells(74, 0, 6), "......");
}

TEST_F(ClockWindowTest, SecondMakeChangesNothing) {
    settings.clock = true;
    screen.WriteWide(74, 0, L"......", 0x07);
    MakeClockWindow();
    MakeClockWindow();
    DeleteClockWindow();
    EXPECT_EQ(Cells(74, 0, 6), "......");
}

}  // namespace
}  // namespace zt
