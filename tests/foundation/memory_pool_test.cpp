// MemoryPool: the bump pointer, its blocks and what it refuses.
#include "foundation/memory_pool.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cstring>

#include <limits>

namespace zt {
namespace {

TEST(Pool, AllocatesSideBySide) {
    MemoryPool pool;
    char* first = static_cast<char*>(pool.Allocate(3));
    char* second = static_cast<char*>(pool.Allocate(5));
    EXPECT_EQ(second, first + 3) << "no alignment";
    EXPECT_EQ(pool.Allocate(0), second + 5);
    EXPECT_EQ(pool.BlockCount(), 1);
}

TEST(Pool, FillsABlockToItsLastByte) {
    MemoryPool pool;
    char* block = static_cast<char*>(pool.Allocate(65536));
    ASSERT_NE(block, nullptr);
    std::memset(block, 1, 65536);
    EXPECT_EQ(pool.BlockCount(), 1);
    EXPECT_NE(pool.Allocate(1), nullptr);
    EXPECT_EQ(pool.BlockCount(), 2);
}

TEST(Pool, AbandonsTheRestOfABlock) {
    MemoryPool pool;
    char* first = static_cast<char*>(pool.Allocate(65000));
    char* second = static_cast<char*>(pool.Allocate(1000));
    EXPECT_EQ(pool.BlockCount(), 2);
    EXPECT_EQ(pool.Allocate(100), second + 1000) << "not the 536 bytes behind the first";
    std::memset(first, 1, 65000);
    std::memset(second, 2, 1100);
}

TEST(Pool, MakesALargerBlockForALargerPiece) {
    MemoryPool pool;
    char* large = static_cast<char*>(pool.Allocate(1000000));
    ASSERT_NE(large, nullptr);
    std::memset(large, 1, 1000000);
    EXPECT_EQ(pool.BlockCount(), 2);
    EXPECT_NE(pool.Allocate(1), nullptr);
    EXPECT_EQ(pool.BlockCount(), 3);
}

TEST(Pool, RefusesMoreThanABlockCanCount) {
    MemoryPool pool;
    EXPECT_EQ(pool.Allocate(size_t{1} << 31), nullptr);
    EXPECT_EQ(pool.Allocate(std::numeric_limits<size_t>::max()), nullptr);
    pool.Allocate(1);
    EXPECT_EQ(pool.AllocateAligned(std::numeric_limits<size_t>::max(), 8), nullptr);
    EXPECT_NE(pool.Allocate(10), nullptr) << "it goes on all the same";
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Runs in a child of its own, whose memory is limited.
int AllocateBeyondTheLimit() {
    MemoryPool pool;
    const rlimit limit{size_t{1} << 30, size_t{1} << 30};
    if (setrlimit(RLIMIT_AS, &limit) != 0) return 1;
    if (pool.Allocate((size_t{1} << 31) - 1) != nullptr) return 2;
    if (pool.BlockCount() != 1) return 3;
    return pool.Allocate(65536) == nullptr ? 4 : 0;
}

TEST(Pool, GivesNothingWhenThereIsNoMemory) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) _exit(AllocateBeyondTheLimit());
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}
#endif

TEST(Pool, ResetStartsOneFreshBlock) {
    MemoryPool pool;
    for (int i = 0; i < 10; i++)
        pool.Allocate(60000);
    EXPECT_EQ(pool.BlockCount(), 10);
    pool.Reset();
    EXPECT_EQ(pool.BlockCount(), 1);
    std::memset(pool.Allocate(65536), 1, 65536);
    EXPECT_EQ(pool.BlockCount(), 1);
}

TEST(Pool, AlignsWhenAsked) {
    MemoryPool pool;
    for (size_t alignment : {1u, 2u, 4u, 8u, 16u}) {
        pool.Allocate(1);
        auto place = reinterpret_cast<uintptr_t>(pool.AllocateAligned(24, alignment));
        EXPECT_EQ(place % alignment, 0u);
    }
    pool.Reset();
    pool.Allocate(65536 - 20);
    auto place = reinterpret_cast<uintptr_t>(pool.AllocateAligned(20, 16));
    EXPECT_EQ(place % 16, 0u);
    EXPECT_EQ(pool.BlockCount(), 2) << "the gap does not fit any more";
}

}  // namespace
}  // namespace zt
