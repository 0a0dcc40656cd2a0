// Threads for work that the program can do without. Any thread.
#pragma once

#include <system_error>
#include <thread>
#include <utility>

namespace zt {

// Starts the work on `thread`, which runs nothing yet. False, with the thread as it was, when the
// system has none to give: the user may have all the processes that are allowed to them.
template <class Work>
bool StartThread(std::thread& thread, Work work) {
    try {
        thread = std::thread(std::move(work));
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

}  // namespace zt
