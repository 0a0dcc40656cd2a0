// The replies that the far end still expects, in the order of its requests: replies carry no
// number, so each belongs to the oldest request that has none. Any thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

#include "console/wire/parameter.h"

namespace zt {

class ReplyQueue {
public:
    struct Slot {
        std::unique_ptr<CParameterList> reply;
    };
    using Ticket = std::shared_ptr<Slot>;

    // To be called before the request leaves, and in the order in which requests leave. Who does
    // not need the reply drops the ticket; the reply is still taken off when it comes.
    Ticket Expect();
    // The next reply. One that nobody expects is dropped.
    void Deliver(std::unique_ptr<CParameterList> reply);
    // No reply will come any more.
    void End();
    // The reply, or null when the time ran out or no reply can come.
    std::unique_ptr<CParameterList> Wait(const Ticket& ticket, int milliseconds);

private:
    std::mutex lock_;
    std::condition_variable changed_;
    std::deque<Ticket> expected_;
    bool ended_ = false;
};

}  // namespace zt
