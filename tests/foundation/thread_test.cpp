// The event and the recursive lock, between threads.
#include <cerrno>

#include <atomic>
#include <thread>
#include <vector>

#include "foundation/deadline.h"
#include "foundation/recursive_mutex.h"
#include "foundation/thread_event.h"

namespace zt {
namespace {

// Nanoseconds since 1970.
__int128 InNanoseconds(const timespec& time) {
    return static_cast<__int128>(time.tv_sec) * kNanosecondsPerSecond + time.tv_nsec;
}

TEST(Deadline, IsSoManyMillisecondsFromNow) {
    for (uint32_t milliseconds : {0u, 1u, 999u, 1000u, 1999u, 4294967294u}) {
        timespec before, after;
        clock_gettime(CLOCK_REALTIME, &before);
        timespec deadline = DeadlineIn(milliseconds);
        clock_gettime(CLOCK_REALTIME, &after);
        __int128 wait = static_cast<__int128>(milliseconds) * kNanosecondsPerMillisecond;
        EXPECT_TRUE(InNanoseconds(deadline) - InNanoseconds(before) >= wait) << milliseconds;
        EXPECT_TRUE(InNanoseconds(deadline) - InNanoseconds(after) <= wait) << milliseconds;
        EXPECT_LT(deadline.tv_nsec, kNanosecondsPerSecond);
    }
}

TEST(ThreadEvent, GivesZeroAtOnceWhenSet) {
    CThreadEvent event;
    EXPECT_FALSE(event.IsSet());
    event.Set();
    EXPECT_TRUE(event.IsSet());
    EXPECT_EQ(event.Wait(0), 0);
    EXPECT_EQ(event.Wait(kWaitForever), 0) << "it stays set";
    EXPECT_EQ(event.Wait(5), 0);
}

TEST(ThreadEvent, TimesOutWhenNotSet) {
    CThreadEvent event;
    EXPECT_EQ(event.Wait(0), 110);
    EXPECT_EQ(event.Wait(1), 110);
    event.Set();
    event.Reset();
    EXPECT_EQ(event.Wait(0), ETIMEDOUT);
}

TEST(ThreadEvent, WakesAWaitingThread) {
    for (uint32_t limit : {kWaitForever, 60000u}) {
        CThreadEvent event;
        std::atomic<int> result{-1};
        std::thread waiter([&] { result = event.Wait(limit); });
        event.Set();
        waiter.join();
        EXPECT_EQ(result, 0);
    }
}

TEST(ThreadEvent, PassesWorkBackAndForth) {
    CThreadEvent there;
    CThreadEvent back;
    int shared = 0;
    const int kRounds = 2000;
    std::thread worker([&] {
        for (int i = 0; i < kRounds; i++) {
            while (!there.IsSet())
                there.Wait(60000);
            there.Reset();
            shared++;
            back.Set();
        }
    });
    for (int i = 0; i < kRounds; i++) {
        shared++;
        there.Set();
        while (!back.IsSet())
            back.Wait(60000);
        back.Reset();
    }
    worker.join();
    EXPECT_EQ(shared, 2 * kRounds);
}

// The result of trying the lock from another thread, which gives it back at once.
int LockElsewhere(CRecursiveMutex& mutex, uint32_t milliseconds) {
    int result = -1;
    std::thread other([&] {
        result = mutex.Lock(milliseconds);
        mutex.Unlock();
    });
    other.join();
    return result;
}

TEST(RecursiveMutex, IsTakenAgainByItsOwner) {
    CRecursiveMutex mutex;
    EXPECT_FALSE(mutex.IsLocked());
    EXPECT_EQ(mutex.Lock(), 0);
    EXPECT_EQ(mutex.Lock(0), 0);
    EXPECT_EQ(mutex.Lock(10), 0);
    EXPECT_TRUE(mutex.IsLocked());
    mutex.Unlock();
    mutex.Unlock();
    EXPECT_TRUE(mutex.IsLocked());
    EXPECT_EQ(LockElsewhere(mutex, 0), EBUSY);
    mutex.Unlock();
    EXPECT_FALSE(mutex.IsLocked());
    EXPECT_EQ(LockElsewhere(mutex, 0), 0);
}

TEST(RecursiveMutex, TimesOutForOthers) {
    CRecursiveMutex mutex;
    ASSERT_EQ(mutex.Lock(), 0);
    EXPECT_EQ(LockElsewhere(mutex, 0), EBUSY);
    EXPECT_EQ(LockElsewhere(mutex, 2), ETIMEDOUT);
    EXPECT_TRUE(mutex.IsLocked()) << "a stranger's Unlock does nothing";
    mutex.Unlock();
}

TEST(RecursiveMutex, IgnoresUnlockWithoutLock) {
    CRecursiveMutex mutex;
    mutex.Unlock();
    EXPECT_FALSE(mutex.IsLocked());
    EXPECT_EQ(mutex.Lock(), 0);
    mutex.Unlock();
    mutex.Unlock();
    EXPECT_EQ(LockElsewhere(mutex, 0), 0);
}

TEST(RecursiveMutex, GoesWhileHeld) {
    CRecursiveMutex mutex;
    EXPECT_EQ(mutex.Lock(), 0);
    // The destructor gives the one level back; a thread checker would complain otherwise.
}

TEST(RecursiveMutex, KeepsThreadsApart) {
    CRecursiveMutex mutex;
    int shared = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++) {
        threads.emplace_back([&] {
            for (int round = 0; round < 5000; round++) {
                MutexHold outer(mutex);
                MutexHold inner(mutex);
                shared++;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(shared, 20000);
    EXPECT_FALSE(mutex.IsLocked());
}

}  // namespace
}  // namespace zt
