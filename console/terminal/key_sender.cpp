#include "console/terminal/key_sender.h"

#include <fcntl.h>
#include <limits.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include "console/console_interface.h"
#include "foundation/start_thread.h"

namespace zt {

namespace {

// A descriptor that blocks and is ready takes this much at once: a pipe whole pages, a terminal
// perhaps no more than a byte.
size_t SafeChunk(int fd) {
    const int flags = fcntl(fd, F_GETFL);
    if (flags >= 0 && (flags & O_NONBLOCK) != 0) return SIZE_MAX;
    return isatty(fd) != 0 ? 1 : PIPE_BUF;
}

// Signals are for the other threads, and a pipe that nobody reads is an error to be seen here.
void BlockSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

}  // namespace

KeySender::KeySender(int fd_, IConsole& console_)
    : fd(fd_), console(console_), chunk(SafeChunk(fd_)), wakeFd(eventfd(0, EFD_CLOEXEC)) {}

KeySender::~KeySender() {
    {
        const std::lock_guard<std::mutex> guard(mutex);
        hasEnded = true;
    }
    changed.notify_one();
    const uint64_t one = 1;
    if (wakeFd >= 0 && write(wakeFd, &one, sizeof one) < 0) abort();  // an eventfd takes it
    if (thread.joinable()) thread.join();
    if (wakeFd >= 0) close(wakeFd);
}

void KeySender::Send(const std::string& bytes) {
    if (!bytes.empty()) Add(Item{bytes, false});
}

void KeySender::SendClipboard() {
    Add(Item{std::string(), true});
}

void KeySender::Add(Item item) {
    const std::lock_guard<std::mutex> guard(mutex);
    if (wakeFd < 0 || hasEnded || isBroken) return;
    if (waitingBytes + item.bytes.size() > kMostWaitingBytes) return;
    // A clipboard counts for something too, so that the queue stays bounded.
    waitingBytes += std::max<size_t>(item.bytes.size(), 1);
    items.push_back(std::move(item));
    // Without a thread the bytes wait; the next ones try again.
    if (!thread.joinable() && !StartThread(thread, [this] { Run(); })) return;
    changed.notify_one();
}

bool KeySender::Next(Item& item) {
    std::unique_lock<std::mutex> guard(mutex);
    changed.wait(guard, [&] { return hasEnded || !items.empty(); });
    if (items.empty() || isBroken) return false;
    item = std::move(items.front());
    items.pop_front();
    waitingBytes -= std::max<size_t>(item.bytes.size(), 1);
    // At the end nobody waits for the clipboard's owner any more.
    if (hasEnded && item.isClipboard) item = Item{};
    return true;
}

void KeySender::Run() {
    BlockSignals();
    Item item;
    while (Next(item)) {
        const bool isDone = WriteAll(item.isClipboard ? ClipboardBytes() : item.bytes);
        if (isDone) continue;
        const std::lock_guard<std::mutex> guard(mutex);
        isBroken = true;
        items.clear();
    }
}

std::string KeySender::ClipboardBytes() {
    Westring text;
    if (!console.GetClipboardText(text)) return std::string();
    const Estring utf8 = text.ToUtf8();
    if (static_cast<size_t>(utf8.Length()) > kMostWaitingBytes) return std::string();
    return std::string(utf8.c_str(), static_cast<size_t>(utf8.Length()));
}

// False when there will be no room any more, or none now and the end has come.
bool KeySender::WaitForRoom() {
    for (;;) {
        pollfd wait[] = {{fd, POLLOUT, 0}, {wakeFd, POLLIN, 0}};
        if (poll(wait, 2, -1) < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if ((wait[0].revents & POLLOUT) != 0) return true;
        if (wait[0].revents != 0 || wait[1].revents != 0) return false;
    }
}

bool KeySender::WriteAll(const std::string& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        if (!WaitForRoom()) return false;
        const ssize_t written =
            write(fd, bytes.data() + done, std::min(chunk, bytes.size() - done));
        if (written > 0) done += static_cast<size_t>(written);
        if (written < 0 && errno != EINTR && errno != EAGAIN) return false;
    }
    return true;
}

}  // namespace zt
