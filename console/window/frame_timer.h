// Calls a function on the GTK thread, under the GDK lock, when there is something to paint, and
// not more often than the screen is refreshed. Requests may come from any thread; they never wait.
#pragma once

#include <glib.h>

#include <functional>
#include <limits>
#include <mutex>

namespace zt {

class FrameTimer {
public:
    static constexpr gint64 kFrameMicroseconds = 16000;
    // What is written shortly after one another is painted as one.
    static constexpr gint64 kGatherMicroseconds = 4000;

    enum class Urgency { kGather, kNow };

    explicit FrameTimer(std::function<void()> onFrame);
    // On the GTK thread, or when it has ended.
    ~FrameTimer();
    FrameTimer(const FrameTimer&) = delete;
    FrameTimer& operator=(const FrameTimer&) = delete;

    // One frame follows, at the earliest when the last one is a frame's time ago.
    void Request(Urgency urgency);

private:
    static constexpr gint64 kNever = std::numeric_limits<gint64>::max();
    static gboolean Dispatch(GSource* source, GSourceFunc, gpointer);
    void Run();

    struct TimerSource;
    static GSourceFuncs sourceFunctions;

    std::function<void()> onFrame;
    TimerSource* timerSource;
    std::mutex mutex;  // guards the two times; nothing is locked inside
    gint64 lastFrame = 0;
    gint64 due = kNever;
};

}  // namespace zt
