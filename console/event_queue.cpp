// The queue of input events: pushing and popping.
#include "console/event_queue.h"

namespace zt {

void CEventQueue::Push(const TEvent& event) {
    auto item = std::make_unique<TEvent>(event);
    {
        MutexHold hold(lock);
        Append(item.release());
    }
    arrived.Set();
}

std::unique_ptr<TEvent> CEventQueue::Pop(int timeoutMilliseconds) {
    const uint32_t wait =
        timeoutMilliseconds < 0 ? kWaitForever : static_cast<uint32_t>(timeoutMilliseconds);
    // The flag may still be set from an event that was taken without waiting, so an empty queue
    // after a wake-up is no surprise.
    while (Pending() == 0) {
        if (wait == 0 || arrived.Wait(wait) != 0) return nullptr;
        arrived.Reset();
    }
    MutexHold hold(lock);
    return std::unique_ptr<TEvent>(RemoveAt(0));
}

bool CEventQueue::Pop(TEvent& event, int timeoutMilliseconds) {
    const std::unique_ptr<TEvent> next = Pop(timeoutMilliseconds);
    if (next == nullptr) return false;
    event = *next;
    return true;
}

int CEventQueue::Pending() {
    MutexHold hold(lock);
    return Count();
}

}  // namespace zt
