// Makes a system call again that a signal interrupted before it did anything. Any thread.
#pragma once

#include <cerrno>

namespace zt {

// `call` gives a negative number with errno set when it fails. Not for close: there the descriptor
// is gone even when the call was interrupted.
template <class Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

}  // namespace zt
