// The window that shows how far a copy is, and the thread that paints it ten times a second while
// the first thread works. The thread lives as long as the object and rests between objects; a lock
// keeps it still while the first thread lays out the window or asks the user something. Made,
// called and destroyed by the first thread; one serves a whole command.
#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <thread>

#include "fileops/copy_progress.h"
#include "foundation/thread_event.h"
#include "ui/win.h"

namespace zt {

class CopyProgressWindow : public CopyProgress {
public:
    static constexpr uint32_t kPeriodMilliseconds = 100;

    CopyProgressWindow() = default;
    // The window goes, and what it covered is back.
    ~CopyProgressWindow() override;

    // The clock starts at 0:00, and so many bytes are expected. Without it there is no line of
    // times.
    void Begin(uint64_t expectedBytes);

    void Start() override;
    void Stop() override;
    void ShowObject(const Westring& source, const Westring& target, int index, int total,
                    bool moving) override;
    void PaintCount(uint64_t done, uint64_t total) override;

    // Null before the first object. For tests.
    const Win* Window() const { return window.get(); }

private:
    using Clock = std::chrono::steady_clock;

    // What stands on the screen, to draw only what differs.
    struct Shown {
        int filled = -1;
        int barWidth = -1;
        Westring statistics, source, target, count;
    };

    void Loop();
    void OpenWindow(int textWidth, bool moving);
    // These are called with `lock` held.
    bool IsDue() const;
    void Paint();
    void PaintBar(uint64_t done, uint64_t total);
    void PaintStatistics(uint64_t done, uint64_t total);
    void PaintRow(int row, const Westring& text, Westring& shown);
    void Blank();
    double Elapsed() const;
    int Inner() const { return window->ClientWidth() - 1; }

    std::mutex lock;  // over all below, but for `wake`
    std::unique_ptr<Win> window;
    Westring sourceText, targetText, countText;
    Shown shown;
    bool hasClock = false;
    Clock::time_point startTime;
    Clock::time_point pauseStart;
    Clock::duration pausedTotal{};
    Clock::time_point lastPaint;
    bool running = false;
    bool resting = true;  // the thread waits for `wake` without a limit
    bool ending = false;
    // A bar that counts objects takes the place of the one of bytes until the next Start.
    uint64_t countDone = 0, countTotal = 0;
    bool countPending = false;

    CThreadEvent wake;
    std::thread thread;  // started by the first Start
};

}  // namespace zt
