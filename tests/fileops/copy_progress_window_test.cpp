// The progress window of a copy: where it stands, what it shows, and that it is still when told.
#include <atomic>
#include <chrono>
#include <thread>

#include "fileops/copy_progress_window.h"
#include "foundation/file_name.h"
#include "foundation/locale_formats.h"
#include "tests/ui/ui_fixture.h"
#include "ui/message_box.h"

namespace zt {
namespace {

constexpr int kColumn = 16;  // the frame of a window 48 wide on 80 columns
constexpr int kTop = 4;      // (25 - 9) / 4

class ProgressWindow : public UiTest {
protected:
    ProgressWindow() { localeFormats = LocaleFormats(); }

    template <class Condition>
    bool WaitFor(Condition condition) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (std::chrono::steady_clock::now() < limit) {
            if (condition()) return true;
            std::this_thread::yield();
        }
        return false;
    }
    std::string RowOf(int row) { return screen.RowText(kTop + 1 + row); }
    // Between the frame's lines, blanks at both ends taken off.
    std::string Line(int row) {
        const std::string text = RowOf(row);
        const std::string frame = "║";
        const size_t first = text.find(frame), last = text.rfind(frame);
        if (first == std::string::npos || last <= first) return "no frame: " + text;
        std::string inner = text.substr(first + frame.size(), last - first - frame.size());
        inner.erase(inner.find_last_not_of(' ') + 1);
        return inner.substr(std::min(inner.find_first_not_of(' '), inner.size()));
    }
    static int FullCells(const std::string& bar) {
        int n = 0;
        for (size_t at = bar.find("█"); at != std::string::npos; at = bar.find("█", at + 1))
            ++n;
        return n;
    }
    // Stops twice, as one does who is about to ask: the last state is on the screen.
    static void StopToAsk(CopyProgressWindow& progress) {
        progress.Stop();
        progress.Stop();
    }
};

TEST_F(ProgressWindow, StandsALittleAboveTheMiddle) {
    screen.WriteWide(30, 8, L"under it", 0x07);
    {
        CopyProgressWindow progress;
        progress.Begin(100);
        progress.ShowObject("/a/from", "/b/to", 1, 1, false);
        StopToAsk(progress);
        EXPECT_EQ("╔══", Cells(kColumn, kTop, 3));
        EXPECT_EQ("╗", Cells(kColumn + 47, kTop, 1));
        EXPECT_EQ("╝", Cells(kColumn + 47, kTop + 8, 1));
        EXPECT_EQ("Copying", Line(0));
        EXPECT_EQ("/a/from", Line(1));
        EXPECT_EQ("to", Line(2));
        EXPECT_EQ("/b/to", Line(3));
        EXPECT_EQ("", Line(4));
        EXPECT_EQ(std::string("║ ") + Westring::Repeat(0x2591, 45).ToUtf8().c_str() + "║",
                  Cells(kColumn, kTop + 6, 48));
        EXPECT_EQ("", Line(6));
        EXPECT_EQ(At(kColumn + 3, kTop + 1), Colour(ColourClass::kMessages));
        EXPECT_EQ(0, screen.GetCursorSize());
    }
    EXPECT_EQ("under it", Cells(30, 8, 8));
    EXPECT_EQ(std::string(80, ' '), screen.RowText(kTop));
}

TEST_F(ProgressWindow, ShowsNothingBeforeTheFirstObject) {
    CopyProgressWindow progress;
    progress.Begin(100);
    progress.dirty = true;
    progress.Start();
    StopToAsk(progress);
    EXPECT_EQ(nullptr, progress.Window());
    EXPECT_TRUE(screen.painted.empty());
}

TEST_F(ProgressWindow, SaysMovingAndCounts) {
    CopyProgressWindow progress;
    progress.Begin(100);
    progress.ShowObject("/a/from", "/b/to", 2, 3, true);
    StopToAsk(progress);
    EXPECT_EQ("Moving", Line(0));
    EXPECT_EQ("(2 of 3)", Line(4));
    // What lies inside a directory has no count of its own.
    progress.ShowObject("/a/from/x", "/b/to/x", 1, 1, true);
    StopToAsk(progress);
    EXPECT_EQ("/a/from/x", Line(1));
    EXPECT_EQ("(2 of 3)", Line(4));
}

TEST_F(ProgressWindow, WidensForALongerNameOnly) {
    CopyProgressWindow progress;
    progress.Begin(100);
    const Westring sixty = "/" + Westring::Repeat(L'x', 59);
    progress.ShowObject(sixty, "/b", 1, 1, false);
    const Win* first = progress.Window();
    EXPECT_EQ(64, first->Right() - first->Left() + 1);
    StopToAsk(progress);
    EXPECT_EQ(sixty.ToUtf8().c_str(), Line(1));
    progress.ShowObject("/a", "/b/" + Westring::Repeat(L'y', 57), 1, 1, false);
    EXPECT_EQ(first, progress.Window());
    StopToAsk(progress);
    EXPECT_EQ("/a", Line(1)) << "nothing of the longer name is left";
    progress.ShowObject("/a", "/" + Westring::Repeat(L'y', 60), 1, 1, false);
    const Win* second = progress.Window();
    EXPECT_EQ(66, second->Right() - second->Left() + 1) << "61 becomes even";
    StopToAsk(progress);
    EXPECT_EQ("Copying", Line(0));
    EXPECT_EQ("/a", Line(1));
}

TEST_F(ProgressWindow, AbbreviatesToTheScreenLessTen) {
    CopyProgressWindow progress;
    progress.Begin(100);
    progress.ShowObject("/usr/" + Westring::Repeat(L'x', 200), Westring::Repeat(L'y', 100), 1, 1,
                        false);
    StopToAsk(progress);
    EXPECT_EQ("/usr/..." + std::string(62, 'x'), Line(1));
    EXPECT_EQ(std::string(69, 'y') + "►", Line(3));
    const Win* window = progress.Window();
    EXPECT_EQ(74, window->Right() - window->Left() + 1);
}

TEST_F(ProgressWindow, NamesOfAnyBytesAreShown) {
    CopyProgressWindow progress;
    progress.Begin(100);
    progress.ShowObject(NameFromBytes("/a/not\xFFutf8"), NameFromBytes("/b/line\nfeed"), 1, 1,
                        false);
    StopToAsk(progress);
    EXPECT_EQ("/a/not\xC3\xBFutf8", Line(1));
    EXPECT_EQ(0u, Line(3).find("/b/line"));
    EXPECT_NE(std::string::npos, Line(3).find("feed"));
}

TEST_F(ProgressWindow, PaintsWhatTheWorkHasDone) {
    CopyProgressWindow progress;
    progress.Begin(1000);
    progress.ShowObject("/a/from", "/b/to", 1, 1, false);
    progress.Start();
    EXPECT_TRUE(WaitFor([&] { return Line(1) == "/a/from"; }));
    progress.bytesDone = 500;
    progress.dirty = true;
    EXPECT_TRUE(WaitFor([&] { return FullCells(Line(5)) == 22; }));
    EXPECT_TRUE(WaitFor([&] { return Line(6).find("Time: 0:0") == 0; }));
    EXPECT_NE(std::string::npos, Line(6).find("  BPS: "));
    EXPECT_NE(std::string::npos, Line(6).find("  ETA: 0:0"));
    progress.bytesDone = 2000;
    progress.dirty = true;
    EXPECT_TRUE(WaitFor([&] { return FullCells(Line(5)) == 45; }));
    progress.Stop();
}

TEST_F(ProgressWindow, WithoutATotalEverythingIsBlank) {
    CopyProgressWindow progress;
    progress.Begin(10);
    progress.ShowObject("/a/from", "/b/to", 1, 3, false);
    StopToAsk(progress);
    EXPECT_EQ("(1 of 3)", Line(4));
    progress.bytesTotal = 0;
    progress.dirty = true;
    StopToAsk(progress);
    EXPECT_EQ("Copying", Line(0));
    for (const int row : {1, 3, 4, 5, 6})
        EXPECT_EQ("", Line(row)) << row;
    progress.bytesTotal = 10;
    progress.dirty = true;
    StopToAsk(progress);
    EXPECT_EQ("/a/from", Line(1));
    EXPECT_EQ("(1 of 3)", Line(4));
}

TEST_F(ProgressWindow, HasNoTimesWithoutAClock) {
    CopyProgressWindow progress;
    progress.bytesTotal = 1000;
    progress.ShowObject("/a/from", "/b/to", 1, 1, false);
    progress.bytesDone = 500;
    progress.dirty = true;
    progress.Start();
    StopToAsk(progress);
    EXPECT_EQ(22, FullCells(Line(5)));
    EXPECT_EQ("", Line(6));
}

TEST_F(ProgressWindow, CountsObjectsWhileNothingIsCopied) {
    CopyProgressWindow progress;
    progress.Begin(1000);
    progress.ShowObject("/a/from", "/b/to", 1, 3, true);
    progress.PaintCount(1, 3);
    EXPECT_EQ(15, FullCells(Line(5)));
    EXPECT_EQ("", Line(6));
    EXPECT_EQ("(1 of 3)", Line(4));
    // Two more within a tenth of a second; the last shows before a question.
    progress.PaintCount(2, 3);
    progress.PaintCount(3, 3);
    progress.Stop();
    EXPECT_EQ(45, FullCells(Line(5)));
    // Then bytes are copied after all.
    progress.Start();
    progress.dirty = true;
    StopToAsk(progress);
    EXPECT_EQ(0, FullCells(Line(5)));
}

TEST_F(ProgressWindow, IsStillWhileItIsStopped) {
    CopyProgressWindow progress;
    progress.Begin(100000);
    progress.ShowObject("/a/from", "/b/to", 1, 1, false);
    for (int round = 0; round < 3; ++round) {
        progress.Start();
        progress.bytesDone += 30000;
        progress.dirty = true;
        StopToAsk(progress);
        const std::string before = RowOf(5);
        const size_t painted = screen.painted.size();
        progress.bytesDone += 100;
        progress.dirty = true;
        // Longer than the painter ever waits.
        std::this_thread::sleep_for(
            std::chrono::milliseconds(CopyProgressWindow::kPeriodMilliseconds * 3));
        EXPECT_EQ(painted, screen.painted.size()) << round;
        EXPECT_EQ(before, RowOf(5)) << round;
    }
}

TEST_F(ProgressWindow, PausesDoNotCount) {
    CopyProgressWindow progress;
    progress.Begin(100);
    progress.ShowObject("/a/from", "/b/to", 1, 1, false);
    progress.Start();
    progress.Stop();
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    progress.Start();
    progress.bytesDone = 50;
    progress.dirty = true;
    StopToAsk(progress);
    EXPECT_EQ(0u, Line(6).find("Time: 0:00 ")) << Line(6);
}

TEST_F(ProgressWindow, ABoxStopsIt) {
    CopyProgressWindow progress;
    progress.Begin(100);
    progress.ShowObject("/a/from", "/b/to", 1, 1, false);
    progress.Start();
    progress.bytesDone = 50;
    progress.dirty = true;
    Key(kKeyEnter);
    EXPECT_EQ('y', MessageBoxWithProgress(&progress, "Question", L"name", kBoxOk));
    ASSERT_FALSE(screen.screens.empty());
    EXPECT_TRUE(screen.screens[0].Has("Question"));
    progress.Start();
    EXPECT_TRUE(WaitFor([&] { return FullCells(Line(5)) == 22; }));
}

// Thousands of small objects: each starts and stops the painter, which paints ten times a second.
TEST_F(ProgressWindow, ManySmallObjectsArePaintedSeldom) {
    CopyProgressWindow progress;
    progress.Begin(1000000);
    const auto begin = std::chrono::steady_clock::now();
    constexpr int kObjects = 5000;
    for (int i = 1; i <= kObjects; ++i) {
        progress.ShowObject("/a/from" + Westring(std::to_string(i).c_str()), "/b/to", i, kObjects,
                            false);
        progress.Start();
        progress.bytesDone += 100;
        progress.dirty = true;
        progress.Stop();
    }
    const auto seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    // Each paint writes at most five rows, the window itself some more.
    EXPECT_LT(static_cast<double>(screen.painted.size()), 100 + 10 * (seconds * 10 + 2));
    progress.dirty = true;
    progress.Stop();
    EXPECT_EQ("(5000 of 5000)", Line(4));
}

TEST_F(ProgressWindow, GoesWithAPainterThatRuns) {
    for (int round = 0; round < 20; ++round) {
        CopyProgressWindow progress;
        progress.Begin(100);
        progress.ShowObject("/a/from", "/b/to", 1, 1, false);
        progress.Start();
        progress.dirty = true;
    }
    EXPECT_EQ(std::string(80, ' '), screen.RowText(kTop));
}

}  // namespace
}  // namespace zt
