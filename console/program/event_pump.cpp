// The thread that carries the console's events to a remote session.
#include "console/program/event_pump.h"

#include <utility>

#include "console/console_interface.h"

namespace zt {

namespace {

// How long a stop may take.
constexpr int kLookMilliseconds = 50;
// A mouse moved while nobody listens is no reason to fill the memory.
constexpr size_t kMostKeptEvents = 1 << 16;

}  // namespace

EventPump::EventPump(IConsole& screen, Send sender) : console(screen), send(std::move(sender)) {}

void EventPump::Start() {
    if (thread.joinable()) return;
    isStopping.store(false);
    thread = std::thread([this] { Run(); });
}

void EventPump::Stop() {
    isStopping.store(true);
    if (thread.joinable()) thread.join();
}

void EventPump::Run() {
    while (!isStopping.load()) {
        TEvent event;
        if (console.ReadEvent(event, kLookMilliseconds)) Take(event);
        if (isSending.load()) SendKept();
    }
}

void EventPump::Take(const TEvent& event) {
    if (event.kind == static_cast<int32_t>(EventKind::kQuit)) quits.fetch_add(1);
    if (kept.size() == kMostKeptEvents) kept.pop_front();
    kept.push_back(event);
}

void EventPump::SendKept() {
    while (!kept.empty() && !isStopping.load() && send(kept.front()))
        kept.pop_front();
}

}  // namespace zt
