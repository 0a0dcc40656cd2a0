// Progress boxes: silent while work is short, drawn by a thread of their own when it is not.
#include <atomic>
#include <chrono>
#include <cmath>
#include <thread>

#include "tests/ui/ui_fixture.h"
#include "ui/directory_progress.h"
#include "ui/file_progress.h"
#include "ui/progress_indicator.h"
#include "ui/searching_notice.h"

namespace zt {
namespace {

class ProgressTest : public UiTest {
protected:
    // Waits for the condition, ten seconds at most.
    template <class Condition>
    bool WaitFor(Condition condition) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (std::chrono::steady_clock::now() < limit) {
            if (condition()) return true;
            std::this_thread::yield();
        }
        return false;
    }
};

TEST_F(ProgressTest, ShortWorkShowsNothing) {
    screen.freezes.clear();
    std::atomic<int> count{5};
    { const DirReadProgress progress(&count); }
    EXPECT_TRUE(screen.freezes.empty());
    EXPECT_TRUE(screen.painted.empty());
}

TEST_F(ProgressTest, LongDirectoryReadShowsItsCountAndSpins) {
    std::atomic<int> count{1234};
    screen.WriteWide(30, 9, L"under it", 0x07);
    {
        const DirReadProgress progress(&count, 1);
        // 35 columns, 6 rows, a third of 19 free rows down.
        ASSERT_TRUE(WaitFor([&] { return Cells(27, 8, 18) == "Reading directory:"; }));
        ASSERT_TRUE(WaitFor([&] { return Cells(27, 9, 12) == "Files: 1,234"; }));
        EXPECT_EQ(Cells(22, 6, 2), "╔═");
        EXPECT_EQ(Cells(56, 11, 1), "╝");
        EXPECT_EQ(At(27, 8), Colour(ColourClass::kMessages));
        count = 99999;
        EXPECT_TRUE(WaitFor([&] { return Cells(27, 9, 13) == "Files: 99,999"; }));
        for (const char* step : {"-", "\\", "|", "/", "-"}) {
            EXPECT_TRUE(WaitFor([&] { return Cells(46, 8, 1) == step; })) << step;
        }
    }
    EXPECT_EQ(Cells(30, 9, 8), "under it");
    EXPECT_EQ(screen.GetCursorSize(), 0);
}

TEST_F(ProgressTest, CountIsGroupedWhateverTheColumnsOfThePanelsAre) {
    for (const bool separators : {false, true}) {
        settings.thousandSep = separators;
        std::atomic<int> count{1234567};
        const DirReadProgress progress(&count, 1);
        EXPECT_TRUE(WaitFor([&] { return Cells(27, 9, 16) == "Files: 1,234,567"; }));
        count = 2'000'000'000;  // too long for its twelve columns
        EXPECT_TRUE(WaitFor([&] { return Cells(27, 9, 17) == "Files: 1,953,125K"; }));
    }
}

TEST_F(ProgressTest, LongFileReadShowsItsShare) {
    std::atomic<int64_t> done{0}, total{0};
    {
        const FileReadProgress progress(&done, &total, "Loading", 1);
        // 40 columns, 5 rows: from column 20, row 6.
        ASSERT_TRUE(WaitFor([&] { return Cells(36, 7, 7) == "Loading"; }));
        EXPECT_TRUE(WaitFor([&] { return Cells(22, 9, 3) == "░░░"; }));
        total = int64_t{6} << 32;
        done = int64_t{3} << 32;
        const std::string half = "██████████████████░░░░░░░░░░░░░░░░░░";
        EXPECT_TRUE(WaitFor([&] { return Cells(22, 9, 36) == half; }));
        EXPECT_EQ(Cells(21, 9, 1), " ");
        EXPECT_EQ(Cells(58, 9, 1), " ");
    }
    EXPECT_EQ(screen.RowText(9), std::string(80, ' '));
}

TEST_F(ProgressTest, EachStepAppearsAtOnce) {
    std::atomic<int> count{1};
    {
        const DirReadProgress progress(&count, 1);
        ASSERT_TRUE(WaitFor([&] { return Cells(27, 9, 8) == "Files: 1"; }));
    }
    // Freezes and thaws alternate, and no paint came between.
    ASSERT_GE(screen.freezes.size(), 4u);
    for (size_t i = 0; i < screen.freezes.size(); ++i)
        EXPECT_EQ(screen.freezes[i], i % 2 == 0);
}

TEST_F(ProgressTest, WorkWritesTheScreenMeanwhile) {
    std::atomic<int> count{0};
    const DirReadProgress progress(&count, 1);
    ASSERT_TRUE(WaitFor([&] {
        ++count;
        screen.WriteWide(0, 0, L"busy", 0x07);
        return Cells(27, 8, 18) == "Reading directory:";
    }));
    EXPECT_EQ(Cells(0, 0, 4), "busy");
}

TEST_F(ProgressTest, BarShowsTheFraction) {
    float fraction = 0;
    Dialog dialog(10, 5, 40, 10, 0x70);
    dialog.AddProgress(2, 1, 10, &fraction);
    const struct {
        float fraction;
        const char* bar;
    } rows[] = {{0, "░░░░░░░░░░"},  {0.5f, "█████░░░░░"}, {0.59f, "█████░░░░░"},
                {1, "██████████"},  {7.5f, "██████████"}, {-1, "░░░░░░░░░░"},
                {NAN, "░░░░░░░░░░"}};
    for (const auto& row : rows) {
        fraction = row.fraction;
        dialog.Redraw(0);
        EXPECT_EQ(Cells(13, 7, 10), row.bar) << row.fraction;
    }
    EXPECT_FALSE(dialog.Element(0)->Selectable());
    EXPECT_EQ(static_cast<int>(dialog.Element(0)->Type()), 13);
}

TEST_F(ProgressTest, SearchingNoticeStandsInViewerAndEditor) {
    {
        const SearchingNotice notice(SearchingNotice::Place::kViewer);
        EXPECT_EQ(Cells(32, 6, 16), "║ Searching... ║");
        EXPECT_EQ(Cells(32, 5, 1), "╔");
        EXPECT_EQ(Cells(32, 7, 1), "╚");
    }
    EXPECT_EQ(Cells(32, 6, 16), std::string(16, ' '));
    const SearchingNotice notice(SearchingNotice::Place::kEditor);
    EXPECT_EQ(Cells(32, 5, 1), "╔");
    EXPECT_EQ(Cells(32, 6, 16), "║ Searching... ║");
    EXPECT_EQ(Cells(32, 11, 1), "╚");
}

}  // namespace
}  // namespace zt
