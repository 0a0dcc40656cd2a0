// Takes the standard input and output of the process for the wire alone.
#pragma once

namespace zt {

struct WireDescriptors {
    int input = -1;
    int output = -1;
};

// Moves standard input and output to descriptors that programs started later do not get. In their
// place standard input is empty, and what anything prints goes to standard error, so that nothing
// but frames ever reaches the display. False when a descriptor could not be had. To be called once,
// before any other thread runs.
[[nodiscard]] bool ClaimStandardStreams(WireDescriptors& wire);

}  // namespace zt
