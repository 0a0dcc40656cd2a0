// How a hook is written. Part of the fault injector. A hook has a name of its own and takes the
// symbol of the C library's function, so that no header's declaration of that function is in the
// way.
#pragma once

#include <cerrno>

#include "tests/support/fault_injector/fault_verdict.h"
#include "tests/support/fault_injector/real_call.h"

// The opening of the hook for `symbol`; its body follows.
#define ZT_HOOK(result, symbol, ...)                  \
    extern "C" __attribute__((visibility("default"))) \
    result Hook_##symbol(__VA_ARGS__) asm(#symbol);   \
    result Hook_##symbol(__VA_ARGS__)

namespace zt::faults {

// The call is carried out, or fails as it was judged.
template <class Carry>
auto Guarded(const Verdict& verdict, Carry carry) -> decltype(carry()) {
    if (verdict.error != 0) {
        errno = verdict.error;
        return -1;
    }
    return carry();
}

// Moves `n` bytes, or half of them; `carry` takes how many.
template <class Carry>
auto Transferred(const Verdict& verdict, size_t n, Carry carry) -> decltype(carry(n)) {
    return Guarded(verdict, [&] { return carry(verdict.shortened && n > 1 ? n / 2 : n); });
}

}  // namespace zt::faults
