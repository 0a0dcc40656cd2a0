// While one lives, the Break key may ask for the end of the work. Layers of the work nest: only the
// outermost goes back to what was before, so that a request reaches every layer above the one that
// heard it. First thread only; the request comes from the thread that takes the input.
#pragma once

#include "console/program_state.h"
#include "fileops/file_operation.h"

namespace zt {

class AbortGuard {
public:
    AbortGuard() {
        int idle = kAbortIdle;
        outermost_ = abortState.compare_exchange_strong(idle, kAbortPossible);
    }
    ~AbortGuard() {
        if (outermost_) abortState.store(kAbortIdle);
    }
    AbortGuard(const AbortGuard&) = delete;
    AbortGuard& operator=(const AbortGuard&) = delete;

    static bool Asked() { return abortState.load(std::memory_order_relaxed) == kAbortRequested; }
    // By the Break key, or by Esc, for which the keyboard's queue is looked through.
    static bool Asked(FileOperation& operation) {
        return operation.user.EscapePressed() || Asked();
    }

private:
    bool outermost_;
};

}  // namespace zt
