// Boxes that show the progress of work only when it takes longer than a second: a thread of their
// own draws while the thread that made them works. Made and destroyed by the working thread, which
// must open no dialog while one lives. What they show they read through atomics.
#pragma once

#include <cstdint>
#include <memory>
#include <thread>

#include "foundation/thread_event.h"
#include "ui/dialog.h"

namespace zt {

// Waits a second, then calls Update four times a second.
class ProgressIndicatorThread {
public:
    static constexpr uint32_t kDelayMilliseconds = 1000;
    static constexpr uint32_t kPeriodMilliseconds = 250;

    virtual ~ProgressIndicatorThread();
    ProgressIndicatorThread(const ProgressIndicatorThread&) = delete;
    ProgressIndicatorThread& operator=(const ProgressIndicatorThread&) = delete;

protected:
    explicit ProgressIndicatorThread(uint32_t delayMilliseconds = kDelayMilliseconds);

    // Makes `dialog` at the first call and brings it up to date. On the box's own thread, with
    // painting frozen.
    virtual void Update() = 0;
    // Every derived class calls Start at the end of its constructor, when all of the object
    // stands, and Stop at the beginning of its destructor, before its part of the object goes.
    void Start();
    void Stop();

    std::unique_ptr<Dialog> dialog;

private:
    void Loop();

    uint32_t delayMilliseconds;
    CThreadEvent stop;
    std::thread thread;
};

}  // namespace zt
