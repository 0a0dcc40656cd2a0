// The first second of the day that a time falls into, local time. An evaluator's own; one thread.
#pragma once

#include <cstdint>
#include <vector>

namespace zt {

// By taking the time apart and putting it together again.
int64_t StartOfDay(int64_t seconds);

// The same for many times. Time is cut into blocks of some days; of a block in and around which
// the clock is not changed, the distance to UTC is remembered, and the rest is reckoning.
class FilterDays {
public:
    FilterDays();

    int64_t StartOf(int64_t seconds);

private:
    struct Block {
        int64_t index;
        int32_t offset;  // seconds east of UTC
        bool isPlain;
    };

    static Block Examine(int64_t index);

    std::vector<Block> blocks_;  // by the last bits of their index
};

}  // namespace zt
