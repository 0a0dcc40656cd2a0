// The queue between the thread that takes the input and the one that reads keys. Any thread may
// push; one thread at a time reads.
#pragma once

#include <memory>

#include "console/event.h"
#include "foundation/object_store.h"
#include "foundation/recursive_mutex.h"
#include "foundation/thread_event.h"

namespace zt {

class CEventQueue : private TObjectStore<TEvent> {
public:
    void Push(const TEvent& event);  // never waits for the reader
    // The next event, or null when the time ran out: 0 polls, a negative time-out waits for ever.
    std::unique_ptr<TEvent> Pop(int timeoutMilliseconds);
    // The same by value; false when the time ran out.
    bool Pop(TEvent& event, int timeoutMilliseconds);
    int Pending();

private:
    CRecursiveMutex lock;
    CThreadEvent arrived;
};

}  // namespace zt
