// Moving the standard streams out of the way.
#include "console/wire/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

namespace zt {

namespace {

constexpr int kFirstOwnDescriptor = 10;

bool MoveAway(int from, int& to) {
    to = fcntl(from, F_DUPFD_CLOEXEC, kFirstOwnDescriptor);
    return to >= 0;
}

bool PutInPlace(int source, int target) {
    return source >= 0 && dup2(source, target) == target;
}

}  // namespace

bool ClaimStandardStreams(WireDescriptors& wire) {
    if (!MoveAway(STDIN_FILENO, wire.input) || !MoveAway(STDOUT_FILENO, wire.output)) return false;
    const int nothing = open("/dev/null", O_RDWR);
    if (!PutInPlace(nothing, STDIN_FILENO)) return false;
    // A process that was started without standard error keeps quiet.
    const bool moved =
        PutInPlace(STDERR_FILENO, STDOUT_FILENO) || PutInPlace(nothing, STDOUT_FILENO);
    if (nothing > STDERR_FILENO) close(nothing);
    return moved;
}

}  // namespace zt
