// Pairing replies with requests.
#include "console/wire/reply_queue.h"

#include <chrono>

namespace zt {

ReplyQueue::Ticket ReplyQueue::Expect() {
    auto ticket = std::make_shared<Slot>();
    const std::lock_guard<std::mutex> hold(lock_);
    expected_.push_back(ticket);
    return ticket;
}

void ReplyQueue::Deliver(std::unique_ptr<CParameterList> reply) {
    const std::lock_guard<std::mutex> hold(lock_);
    if (expected_.empty()) return;
    expected_.front()->reply = std::move(reply);
    expected_.pop_front();
    changed_.notify_all();
}

void ReplyQueue::End() {
    const std::lock_guard<std::mutex> hold(lock_);
    ended_ = true;
    changed_.notify_all();
}

std::unique_ptr<CParameterList> ReplyQueue::Wait(const Ticket& ticket, int milliseconds) {
    std::unique_lock<std::mutex> hold(lock_);
    changed_.wait_for(hold, std::chrono::milliseconds(milliseconds),
                      [&] { return ended_ || ticket->reply != nullptr; });
    return std::move(ticket->reply);
}

}  // namespace zt
