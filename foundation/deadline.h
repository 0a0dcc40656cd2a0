// The absolute time that the timed waits of POSIX threads take.
#pragma once

#include <cstdint>
#include <ctime>

namespace zt {

inline constexpr long kNanosecondsPerMillisecond = 1000000;
inline constexpr long kNanosecondsPerSecond = 1000000000;

// CLOCK_REALTIME now plus the milliseconds.
inline timespec DeadlineIn(uint32_t milliseconds) {
    timespec deadline;
    clock_gettime(CLOCK_REALTIME, &deadline);
    deadline.tv_sec += milliseconds / 1000;
    deadline.tv_nsec += static_cast<long>(milliseconds % 1000) * kNanosecondsPerMillisecond;
    if (deadline.tv_nsec >= kNanosecondsPerSecond) {
        deadline.tv_sec++;
        deadline.tv_nsec -= kNanosecondsPerSecond;
    }
    return deadline;
}

}  // namespace zt
