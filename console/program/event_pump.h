// Takes the events of the console for a remote session, on a thread of its own, and hands them to
// the connection once it stands. The thread that takes the input never waits for the connection.
// Owned by the session's thread, which alone starts and stops it.
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <thread>

#include "console/event.h"

namespace zt {

class IConsole;

class EventPump {
public:
    // False when there is no room for the event now.
    using Send = std::function<bool(const TEvent&)>;

    // Borrows the console. `send` is called on the pump's thread and does not block.
    EventPump(IConsole& console, Send send);
    ~EventPump() { Stop(); }
    EventPump(const EventPump&) = delete;
    EventPump& operator=(const EventPump&) = delete;

    void Start();
    // Returns when the thread has ended; events stay in the console's queue from then on.
    void Stop();
    // Until this is called, the events are kept.
    void StartSending() { isSending.store(true); }
    // How often the window was asked to close.
    int QuitCount() const { return quits.load(); }

private:
    void Run();
    void Take(const TEvent& event);
    void SendKept();

    IConsole& console;
    const Send send;
    std::deque<TEvent> kept;  // the thread's own
    std::atomic<bool> isSending{false};
    std::atomic<bool> isStopping{false};
    std::atomic<int> quits{0};
    std::thread thread;
};

}  // namespace zt
