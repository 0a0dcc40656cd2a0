// Waiting for a condition, with a limit that only a failure reaches.
#pragma once

#include <chrono>
#include <thread>

namespace zt::testing {

inline constexpr std::chrono::seconds kWaitLimit{20};

template <class Condition>
bool WaitFor(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + kWaitLimit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

}  // namespace zt::testing
