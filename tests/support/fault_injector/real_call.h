// The C library's own function behind a hooked name, found when it is first called. Part of the
// fault injector; any thread.
#pragma once

#include <dlfcn.h>

#include <atomic>
#include <utility>

namespace zt::faults {

template <class Function>
class RealCall {
public:
    explicit constexpr RealCall(const char* symbol) : name(symbol) {}

    template <class... Arguments>
    auto operator()(Arguments&&... arguments) {
        return Get()(std::forward<Arguments>(arguments)...);
    }

private:
    Function* Get() {
        Function* known = found.load(std::memory_order_relaxed);
        if (!known) {
            known = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
            found.store(known, std::memory_order_relaxed);
        }
        return known;
    }

    const char* name;
    std::atomic<Function*> found{nullptr};
};

}  // namespace zt::faults

// `real` in the body of a hook: the function of the same name further on.
#define ZT_REAL(name, ...)                                    \
    static constinit zt::faults::RealCall<__VA_ARGS__> real { \
#name                                                 \
    }
