// The box that appears when reading a directory takes longer than a second.
// Made and destroyed by the thread that does the reading.
#pragma once

#include <atomic>
#include <cstdint>

#include "ui/progress_thread.h"

namespace zt {

class DirReadProgress : public ProgressIndicatorThread {
public:
    explicit DirReadProgress(const std::atomic<int>* count,
                             uint32_t delayMilliseconds = kDelayMilliseconds);
    ~DirReadProgress() override;

protected:
    void Update() override;

private:
    const std::atomic<int>* count;
    int spinner = 0;
};

}  // namespace zt
