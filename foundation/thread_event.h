// A flag that threads wait for. Set, Reset and Wait may be called from any thread.
#pragma once

#include <pthread.h>
#include <cstdint>

#include <atomic>

namespace zt {

inline constexpr uint32_t kWaitForever = 0xFFFFFFFF;

class CThreadEvent {
public:
    CThreadEvent();
    ~CThreadEvent();
    CThreadEvent(const CThreadEvent&) = delete;
    CThreadEvent& operator=(const CThreadEvent&) = delete;

    void Set();    // stays set until Reset; wakes one waiting thread
    void Reset();  // takes no lock
    bool IsSet() const { return signalled.load(); }
    // 0 when the flag is set, ETIMEDOUT (110) when the time is over. It waits once: a wake-up
    // without a Set also gives 0, so callers look at what they wait for. kWaitForever has no limit.
    int Wait(uint32_t milliseconds);

private:
    pthread_cond_t condition;
    pthread_mutex_t mutex;
    std::atomic<bool> signalled;
};

}  // namespace zt
