// The way out to the display: whole frames on a descriptor, nothing lost to short writes, signals
// or a full non-blocking descriptor. The caller sees to it that one thread at a time writes.
#pragma once

#include "console/wire/frame_buffer.h"

namespace zt {

class WireOutput {
public:
    // Borrows the descriptor.
    explicit WireOutput(int descriptor) : descriptor_(descriptor) {}

    // One write where the system takes all at once. After a failure nothing is written any more.
    void Send(const FrameBuffer& frames);
    bool IsBroken() const { return broken_; }

private:
    bool WaitForRoom() const;

    int descriptor_;
    bool broken_ = false;
};

}  // namespace zt
