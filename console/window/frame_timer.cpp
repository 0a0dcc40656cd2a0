// Calls a function on the GTK thread when there is something to paint.
#include "console/window/frame_timer.h"

#include <gdk/gdk.h>

#include <algorithm>
#include <utility>

namespace zt {

struct FrameTimer::TimerSource {
    GSource source;
    FrameTimer* timer;
};

GSourceFuncs FrameTimer::sourceFunctions = {nullptr, nullptr, &FrameTimer::Dispatch,
                                            nullptr, nullptr, nullptr};

FrameTimer::FrameTimer(std::function<void()> onFrameArgument)
    : onFrame(std::move(onFrameArgument)) {
    GSource* source = g_source_new(&sourceFunctions, sizeof(TimerSource));
    timerSource = reinterpret_cast<TimerSource*>(source);
    timerSource->timer = this;
    g_source_set_priority(source, GDK_PRIORITY_EVENTS);
    g_source_attach(source, nullptr);
}

FrameTimer::~FrameTimer() {
    g_source_destroy(&timerSource->source);
    g_source_unref(&timerSource->source);
}

void FrameTimer::Request(Urgency urgency) {
    const gint64 now = g_get_monotonic_time();
    std::lock_guard<std::mutex> guard(mutex);
    const gint64 earliest = urgency == Urgency::kNow ? now : now + kGatherMicroseconds;
    const gint64 wanted = std::max(earliest, lastFrame + kFrameMicroseconds);
    if (wanted >= due) return;
    due = wanted;
    g_source_set_ready_time(&timerSource->source, due);
}

gboolean FrameTimer::Dispatch(GSource* source, GSourceFunc, gpointer) {
    reinterpret_cast<TimerSource*>(source)->timer->Run();
    return G_SOURCE_CONTINUE;
}

void FrameTimer::Run() {
    {
        std::lock_guard<std::mutex> guard(mutex);
        due = kNever;
        lastFrame = g_get_monotonic_time();
        g_source_set_ready_time(&timerSource->source, -1);
    }
    gdk_threads_enter();
    onFrame();
    gdk_threads_leave();
}

}  // namespace zt
