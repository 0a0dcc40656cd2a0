// A painter that draws the progress of some work on a thread of its own, as a message box sees
// it: something that must be still while the box is on the screen.
#pragma once

namespace zt {

class IPausablePainter {
public:
    virtual ~IPausablePainter() = default;
    // Returns when the painter no longer draws. Whoever goes on with the work starts it again.
    virtual void Stop() = 0;
};

}  // namespace zt
