// What becomes of a call: whether it counts, and whether it is the one that fails. Part of the
// fault injector; any thread, without locks and without allocating, for it runs inside other
// programs.
#pragma once

#include <cstddef>

#include "tests/support/fault_injector/fault_plan.h"

namespace zt::faults {

struct Verdict {
    int error = 0;           // fail with this errno value
    bool shortened = false;  // move half of what was asked for
};

// For a call on a path, relative to the open folder `directory` (or AT_FDCWD).
Verdict JudgePath(Call call, int directory, const char* path);
// For a call on two paths: it counts once, when one of them does.
Verdict JudgePaths(Call call, int directory1, const char* path1, int directory2, const char* path2);
Verdict JudgeDescriptor(Call call, int descriptor);
// Before a folder is listed; tells the end of the walk by its path.
Verdict JudgeListing(int directory, const char* path);

// What is opened is followed. `descriptor` below 0 is left out; errno stays as it is.
void Watch(int descriptor, int directory, const char* path);
void WatchAs(int copy, int descriptor);
void Forget(int descriptor);

}  // namespace zt::faults
