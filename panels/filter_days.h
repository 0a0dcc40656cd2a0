// The first second of the day that a time falls into, local time. An evaluator's own; one thread.
#pragma once

#include <array>
#include <cstdint>

namespace zt {

// By taking the time apart and putting it together again.
int64_t StartOfDay(int64_t seconds);

// The same for many times, remembering days.
class FilterDays {
public:
    int64_t StartOf(int64_t seconds);

private:
    // Times from..last all fall on the day that begins at `start`.
    struct Day {
        int64_t from = 1;
        int64_t last = 0;
        int64_t start = 0;
    };

    Day DayOf(int64_t seconds) const;

    std::array<Day, 64> days_;
};

}  // namespace zt
