// Writing frames until they are gone.
#include "console/wire/wire_output.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace zt {

bool WireOutput::WaitForRoom() const {
    pollfd wait{descriptor_, POLLOUT, 0};
    return poll(&wait, 1, -1) >= 0 || errno == EINTR;
}

void WireOutput::Send(const FrameBuffer& frames) {
    const uint8_t* at = frames.Data();
    auto left = static_cast<size_t>(frames.Size());
    while (left > 0 && !broken_) {
        const ssize_t written = write(descriptor_, at, left);
        if (written >= 0) {
            at += written;
            left -= static_cast<size_t>(written);
        } else if (errno == EAGAIN) {
            broken_ = !WaitForRoom();
        } else if (errno != EINTR) {
            broken_ = true;
        }
    }
}

}  // namespace zt
