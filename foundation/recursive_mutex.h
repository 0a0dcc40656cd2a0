// A lock that its owner may take again. Any thread may call anything but the destructor.
#pragma once

#include <pthread.h>
#include <cstdint>

#include <atomic>

#include "foundation/thread_event.h"

namespace zt {

class CRecursiveMutex {
public:
    CRecursiveMutex();
    ~CRecursiveMutex();  // gives back one level that the calling thread still holds
    CRecursiveMutex(const CRecursiveMutex&) = delete;
    CRecursiveMutex& operator=(const CRecursiveMutex&) = delete;

    // 0 tries once, kWaitForever waits without limit, anything else waits so long. Gives 0, or the
    // errno value of the thread library: EBUSY of a try, ETIMEDOUT of a wait.
    int Lock(uint32_t milliseconds = kWaitForever);
    void Unlock();  // nothing unless the calling thread holds the lock
    bool IsLocked() const { return lockCount.load() > 0; }

private:
    pthread_mutex_t mutex;
    std::atomic<int32_t> lockCount;
    std::atomic<pthread_t> owner;
};

// Holds a lock for the length of a scope.
class MutexHold {
public:
    explicit MutexHold(CRecursiveMutex& mutex) : mutex_(mutex) { mutex_.Lock(); }
    ~MutexHold() { mutex_.Unlock(); }
    MutexHold(const MutexHold&) = delete;
    MutexHold& operator=(const MutexHold&) = delete;

private:
    CRecursiveMutex& mutex_;
};

}  // namespace zt
