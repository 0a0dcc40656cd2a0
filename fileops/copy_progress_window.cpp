// The progress window of a copy: its life, its clock and its painting.
#include "fileops/copy_progress_window.h"

#include <algorithm>

#include "console/program_state.h"
#include "fileops/copy_progress_text.h"
#include "foundation/colour_classes.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "ui/abbreviate_path.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr int kTitleRow = 0, kSourceRow = 1, kToRow = 2, kTargetRow = 3;
constexpr int kCountRow = 4, kBarRow = 5, kStatisticsRow = 6;
constexpr int kHeight = 9;
constexpr int kPlacement = -4;  // a little above the middle
constexpr int kLeastTextWidth = 44;
constexpr int kTextMargin = 10;  // columns of the screen that a path leaves free

Westring ShownPath(const Westring& path) {
    Westring text = ShownText(path);
    AbbreviatePath(text, screenColumns - kTextMargin);
    return text;
}

}  // namespace

CopyProgressWindow::~CopyProgressWindow() {
    {
        const std::lock_guard hold(lock);
        running = false;
        ending = true;
    }
    wake.Set();
    if (thread.joinable()) thread.join();
    if (window) {
        UpdateFreeze freeze;
        window.reset();
    }
}

void CopyProgressWindow::Begin(uint64_t expectedBytes) {
    const std::lock_guard hold(lock);
    bytesDone = 0;
    bytesTotal = expectedBytes;
    hasClock = true;
    startTime = pauseStart = Clock::now();
    pausedTotal = {};
}

void CopyProgressWindow::Start() {
    bool mustWake = false;
    {
        const std::lock_guard hold(lock);
        if (running) return;
        running = true;
        countTotal = 0;
        countPending = false;
        if (hasClock) pausedTotal += Clock::now() - pauseStart;
        mustWake = resting;
        resting = false;
    }
    if (!thread.joinable()) {
        thread = std::thread([this] { Loop(); });
    } else if (mustWake) {
        wake.Set();
    }
}

// The many small objects of a long command do not each paint their end; but whoever stops what
// stands already is about to ask the user, who is to see the last state.
void CopyProgressWindow::Stop() {
    const std::lock_guard hold(lock);
    const bool stood = !running;
    if (running) {
        running = false;
        pauseStart = Clock::now();
    }
    if (!dirty.load(std::memory_order_relaxed) && !countPending) return;
    if (stood || IsDue()) Paint();
}

bool CopyProgressWindow::IsDue() const {
    return Clock::now() - lastPaint >= std::chrono::milliseconds(kPeriodMilliseconds);
}

// A thread that finds nothing running for a whole period rests until it is woken: so the objects
// of a long command that follow each other at once need not wake it each.
void CopyProgressWindow::Loop() {
    bool wasStill = false;
    for (;;) {
        bool rests = false;
        {
            const std::lock_guard hold(lock);
            if (ending) return;
            if (running && dirty.load(std::memory_order_relaxed)) Paint();
            rests = resting = !running && wasStill;
            wasStill = !running;
        }
        wake.Wait(rests ? kWaitForever : kPeriodMilliseconds);
        wake.Reset();
    }
}

void CopyProgressWindow::ShowObject(const Westring& source, const Westring& target, int index,
                                    int total, bool moving) {
    const std::lock_guard hold(lock);
    sourceText = ShownPath(source);
    targetText = ShownPath(target);
    if (total > 1) countText = CountText(index, total);
    int width =
        std::max({kLeastTextWidth, sourceText.Length(), targetText.Length(), countText.Length()});
    width += width % 2;
    width += 2;
    const int standing = window ? window->Right() - window->Left() + 1 : 0;
    if (standing <= width) OpenWindow(width, moving);
    dirty.store(true, std::memory_order_relaxed);
}

void CopyProgressWindow::OpenWindow(int textWidth, bool moving) {
    UpdateFreeze freeze;
    console->SetCursorSize(0);
    window.reset();  // puts back what it covered, before the new one takes its picture
    const Attribute colour = Colour(ColourClass::kMessages);
    window = std::make_unique<Win>(-1, kPlacement, textWidth + 2, kHeight, colour, colour);
    window->PrintCentred(kTitleRow, moving ? "Moving" : "Copying");
    window->PrintCentred(kToRow, "to");
    shown = Shown();
}

void CopyProgressWindow::PaintCount(uint64_t done, uint64_t total) {
    const std::lock_guard hold(lock);
    countDone = done;
    countTotal = total;
    countPending = true;
    if (IsDue()) Paint();
}

void CopyProgressWindow::Paint() {
    dirty.store(false, std::memory_order_relaxed);
    countPending = false;
    if (!window) return;
    lastPaint = Clock::now();
    UpdateFreeze freeze;
    const bool counts = countTotal != 0;
    const uint64_t done = counts ? countDone : bytesDone.load(std::memory_order_relaxed);
    const uint64_t total = counts ? countTotal : bytesTotal.load(std::memory_order_relaxed);
    if (total == 0) {
        Blank();
        return;
    }
    PaintBar(done, total);
    if (hasClock && !counts) PaintStatistics(done, total);
    PaintRow(kSourceRow, sourceText, shown.source);
    PaintRow(kTargetRow, targetText, shown.target);
    PaintRow(kCountRow, countText, shown.count);
}

void CopyProgressWindow::PaintBar(uint64_t done, uint64_t total) {
    const int width = Inner();
    const int filled = FilledCells(done, total, width);
    if (filled == shown.filled && width == shown.barWidth) return;
    shown.filled = filled;
    shown.barWidth = width;
    window->Print(1, kBarRow, BarText(filled, width));
}

void CopyProgressWindow::PaintStatistics(uint64_t done, uint64_t total) {
    const int width = Inner();
    const Westring line = StatisticsText(Elapsed(), done, total).Left(width).PadRight(width);
    if (wcscmp(line.c_str(), shown.statistics.c_str()) == 0) return;
    shown.statistics = line;
    window->Print(1, kStatisticsRow, line);
}

void CopyProgressWindow::PaintRow(int row, const Westring& text, Westring& last) {
    if (text.IsEmpty() || wcscmp(text.c_str(), last.c_str()) == 0) return;
    last = text;
    window->Print(0, row, CentredText(text, window->ClientWidth()));
}

void CopyProgressWindow::Blank() {
    const Westring empty = Westring::Repeat(L' ', window->ClientWidth());
    for (const int row : {kSourceRow, kTargetRow, kCountRow, kBarRow, kStatisticsRow}) {
        window->Print(0, row, empty);
    }
    shown = Shown();
}

double CopyProgressWindow::Elapsed() const {
    const Clock::time_point now = running ? Clock::now() : pauseStart;
    return std::chrono::duration<double>(now - startTime - pausedTotal).count();
}

}  // namespace zt
