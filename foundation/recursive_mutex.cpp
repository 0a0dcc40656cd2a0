#include "foundation/recursive_mutex.h"

#include "foundation/deadline.h"

namespace zt {

CRecursiveMutex::CRecursiveMutex() : lockCount(0), owner(pthread_t{}) {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_init(&mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

CRecursiveMutex::~CRecursiveMutex() {
    Unlock();
    pthread_mutex_destroy(&mutex);
}

int CRecursiveMutex::Lock(uint32_t milliseconds) {
    int result;
    if (milliseconds == 0) {
        result = pthread_mutex_trylock(&mutex);
    } else if (milliseconds == kWaitForever) {
        result = pthread_mutex_lock(&mutex);
    } else {
        timespec deadline = DeadlineIn(milliseconds);
        result = pthread_mutex_timedlock(&mutex, &deadline);
    }
    if (result == 0) {
        owner = pthread_self();
        lockCount++;
    }
    return result;
}

void CRecursiveMutex::Unlock() {
    if (!pthread_equal(owner, pthread_self()) || lockCount <= 0) return;
    if (--lockCount == 0) owner = pthread_t{};
    pthread_mutex_unlock(&mutex);
}

}  // namespace zt
