// Carries calls of any thread over to the GTK thread.
#include "console/window/gtk_call_queue.h"

#include <gdk/gdk.h>

#include <utility>

namespace zt {

namespace {

constexpr gint64 kReadyNow = 0;
constexpr gint64 kReadyNever = -1;

}  // namespace

struct GtkCallQueue::QueueSource {
    GSource source;
    GtkCallQueue* queue;
};

GSourceFuncs GtkCallQueue::sourceFunctions = {nullptr, nullptr, &GtkCallQueue::Dispatch,
                                              nullptr, nullptr, nullptr};

GtkCallQueue::GtkCallQueue() {
    GSource* source = g_source_new(&sourceFunctions, sizeof(QueueSource));
    queueSource = reinterpret_cast<QueueSource*>(source);
    queueSource->queue = this;
    g_source_set_priority(source, GDK_PRIORITY_EVENTS);
    // A call may wait in a loop of its own, in which further calls are to run.
    g_source_set_can_recurse(source, TRUE);
    g_source_attach(source, nullptr);
}

GtkCallQueue::~GtkCallQueue() {
    g_source_destroy(&queueSource->source);
    g_source_unref(&queueSource->source);
}

void GtkCallQueue::Post(std::function<void()> call) {
    std::lock_guard<std::mutex> guard(mutex);
    calls.push_back(std::move(call));
    g_source_set_ready_time(&queueSource->source, kReadyNow);
}

gboolean GtkCallQueue::Dispatch(GSource* source, GSourceFunc, gpointer) {
    reinterpret_cast<QueueSource*>(source)->queue->Run();
    return G_SOURCE_CONTINUE;
}

void GtkCallQueue::Run() {
    std::vector<std::function<void()>> ready;
    {
        std::lock_guard<std::mutex> guard(mutex);
        ready.swap(calls);
        g_source_set_ready_time(&queueSource->source, kReadyNever);
    }
    gdk_threads_enter();
    for (const auto& call : ready)
        call();
    gdk_threads_leave();
}

}  // namespace zt
