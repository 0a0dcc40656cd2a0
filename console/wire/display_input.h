// The far end's reader of what the display sends: replies and events among whatever else the
// stream brings. Bytes that are no frame are passed over. Belongs to the thread that feeds it.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "console/event.h"
#include "console/wire/parameter.h"

namespace zt {

class IDisplayListener {
public:
    virtual ~IDisplayListener() = default;
    virtual void TakeReply(std::unique_ptr<CParameterList> reply) = 0;
    // Fields that did not come are 0. An event without any field, or of an unknown kind, is not
    // passed on. Mouse cells are within 16 bits, and the wheel turns by 1 at most.
    virtual void TakeEvent(const TEvent& event) = 0;
};

class DisplayInput {
public:
    // Borrows the listener, which is called from Feed.
    explicit DisplayInput(IDisplayListener& listener) : listener_(listener) {}

    // The next bytes, however they are cut.
    void Feed(const uint8_t* data, int n);
    // Bytes kept of a frame that is not whole yet.
    int Pending() const { return static_cast<int>(kept_.size()); }

private:
    int Parse(const uint8_t* data, int n);
    int TakeFrame(const uint8_t* data, int n, bool& waits);

    IDisplayListener& listener_;
    std::vector<uint8_t> kept_;
};

}  // namespace zt
