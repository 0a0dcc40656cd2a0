// The queue between the thread that takes the input and the reader.
#include "console/event_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace zt {
namespace {

TEST(EventQueueTest, GivesEventsInTheOrderTheyCame) {
    CEventQueue queue;
    EXPECT_EQ(queue.Pending(), 0);
    queue.Push(TEvent{0, 'a', 1, 2, 3, 4});
    queue.Push(TEvent{5, -1, 0, 7, 8, 0});
    EXPECT_EQ(queue.Pending(), 2);
    const auto first = queue.Pop(0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->code, 'a');
    EXPECT_EQ(first->modifiers, 1);
    EXPECT_EQ(first->column, 2);
    EXPECT_EQ(first->row, 3);
    EXPECT_EQ(first->unicode, 4);
    TEvent second;
    EXPECT_TRUE(queue.Pop(second, -1));
    EXPECT_EQ(second.kind, 5);
    EXPECT_EQ(second.code, -1);
    EXPECT_EQ(queue.Pending(), 0);
}

TEST(EventQueueTest, GivesNothingWhenPolledEmpty) {
    CEventQueue queue;
    EXPECT_EQ(queue.Pop(0), nullptr);
    TEvent event{1, 2, 3, 4, 5, 6};
    EXPECT_FALSE(queue.Pop(event, 0));
    EXPECT_EQ(event.code, 2);
}

TEST(EventQueueTest, GivesNothingWhenTheTimeRunsOut) {
    CEventQueue queue;
    EXPECT_EQ(queue.Pop(5), nullptr);
    queue.Push(TEvent{0, 'x', 0, 0, 0, 0});
    EXPECT_NE(queue.Pop(0), nullptr);
    EXPECT_EQ(queue.Pop(5), nullptr);  // the flag of the event before is still set
}

TEST(EventQueueTest, WakesAReaderThatWaits) {
    CEventQueue queue;
    constexpr int kCount = 2000;
    std::thread writer([&] {
        for (int i = 0; i < kCount; i++)
            queue.Push(TEvent{0, i, 0, 0, 0, 0});
    });
    for (int i = 0; i < kCount; i++) {
        const auto event = queue.Pop(-1);
        ASSERT_NE(event, nullptr);
        EXPECT_EQ(event->code, i);
    }
    writer.join();
    EXPECT_EQ(queue.Pending(), 0);
}

// An event taken without waiting leaves the flag set; the next reader must wait all the same.
TEST(EventQueueTest, WaitsThoughAnEarlierEventSetTheFlag) {
    CEventQueue queue;
    std::atomic<int> asked{0};
    constexpr int kRounds = 200;
    std::thread writer([&] {
        for (int i = 0; i < kRounds; i++) {
            while (asked <= i)
                std::this_thread::yield();
            queue.Push(TEvent{0, i, 0, 0, 0, 0});
        }
    });
    int missed = 0;
    for (int i = 0; i < kRounds; i++) {
        queue.Push(TEvent{});
        queue.Pop(0);
        asked++;
        if (queue.Pop(-1) == nullptr) missed++;
    }
    writer.join();
    EXPECT_EQ(missed, 0);
}

TEST(EventQueueTest, FreesWhatWasNeverRead) {
    CEventQueue queue;
    for (int i = 0; i < 100; i++)
        queue.Push(TEvent{});
    EXPECT_EQ(queue.Pending(), 100);
}

}  // namespace
}  // namespace zt
