// The box that appears when reading a file takes longer than a second.
// Made and destroyed by the thread that does the reading.
#pragma once

#include <atomic>
#include <cstdint>

#include "foundation/estring.h"
#include "ui/progress_thread.h"

namespace zt {

// `done` bytes of `total` have been read; a total of 0 is not known yet.
class FileReadProgress : public ProgressIndicatorThread {
public:
    FileReadProgress(const std::atomic<int64_t>* done, const std::atomic<int64_t>* total,
                     const Estring& title, uint32_t delayMilliseconds = kDelayMilliseconds);
    ~FileReadProgress() override;

protected:
    void Update() override;

private:
    const std::atomic<int64_t>* done;
    const std::atomic<int64_t>* total;
    Estring title;
    float fraction = 0;
};

}  // namespace zt
