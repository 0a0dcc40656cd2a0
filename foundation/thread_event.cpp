#include "foundation/thread_event.h"

#include <cerrno>

#include "foundation/deadline.h"

namespace zt {

CThreadEvent::CThreadEvent() : signalled(false) {
    pthread_cond_init(&condition, nullptr);
    pthread_mutex_init(&mutex, nullptr);
}

CThreadEvent::~CThreadEvent() {
    pthread_cond_destroy(&condition);
    pthread_mutex_destroy(&mutex);
}

void CThreadEvent::Set() {
    pthread_mutex_lock(&mutex);
    signalled = true;
    pthread_cond_signal(&condition);
    pthread_mutex_unlock(&mutex);
}

void CThreadEvent::Reset() {
    signalled = false;
}

int CThreadEvent::Wait(uint32_t milliseconds) {
    if (signalled) return 0;
    if (milliseconds == 0) return ETIMEDOUT;
    timespec deadline = DeadlineIn(milliseconds);
    pthread_mutex_lock(&mutex);
    int result = 0;
    // Looked at again under the lock, lest a Set between the two be slept through.
    if (!signalled) {
        result = milliseconds == kWaitForever
                     ? pthread_cond_wait(&condition, &mutex)
                     : pthread_cond_timedwait(&condition, &mutex, &deadline);
    }
    pthread_mutex_unlock(&mutex);
    return result;
}

}  // namespace zt
