// The thread behind progress boxes.
#include "ui/progress_thread.h"

#include <cerrno>

#include "foundation/start_thread.h"
#include "ui/update_freeze.h"

namespace zt {

ProgressIndicatorThread::ProgressIndicatorThread(uint32_t delay) : delayMilliseconds(delay) {}

ProgressIndicatorThread::~ProgressIndicatorThread() {
    Stop();
}

void ProgressIndicatorThread::Start() {
    // The work goes on without its box.
    static_cast<void>(StartThread(thread, [this] { Loop(); }));
}

void ProgressIndicatorThread::Stop() {
    stop.Set();
    if (thread.joinable()) thread.join();
    if (dialog) {
        UpdateFreeze freeze;
        dialog.reset();
    }
}

void ProgressIndicatorThread::Loop() {
    uint32_t wait = delayMilliseconds;
    while (!stop.IsSet()) {
        // A wait may also end for no reason, which must not end the thread.
        if (stop.Wait(wait) != ETIMEDOUT) continue;
        UpdateFreeze freeze;
        Update();
        wait = kPeriodMilliseconds;
    }
}

}  // namespace zt
