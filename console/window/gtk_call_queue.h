// Carries calls of any thread over to the GTK thread, where they run in order, under the GDK lock.
// Posting never waits: neither for the lock nor for the call.
#pragma once

#include <glib.h>

#include <functional>
#include <mutex>
#include <vector>

namespace zt {

class GtkCallQueue {
public:
    GtkCallQueue();
    // When the GTK thread has ended. What has not run yet never will.
    ~GtkCallQueue();
    GtkCallQueue(const GtkCallQueue&) = delete;
    GtkCallQueue& operator=(const GtkCallQueue&) = delete;

    void Post(std::function<void()> call);

private:
    static gboolean Dispatch(GSource* source, GSourceFunc, gpointer);
    void Run();

    struct QueueSource;
    static GSourceFuncs sourceFunctions;

    QueueSource* queueSource;
    std::mutex mutex;  // guards `calls`; nothing is locked inside
    std::vector<std::function<void()>> calls;
};

}  // namespace zt
