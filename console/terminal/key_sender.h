// Hands what the user types to a program, on a thread of its own: whoever takes the keys never
// waits for a program that does not read. Send and SendClipboard may be called from any thread.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "foundation/westring.h"

namespace zt {

class IConsole;

class KeySender {
public:
    // What waits at most; a text that no longer fits is dropped whole.
    static constexpr size_t kMostWaitingBytes = 16 << 20;

    // Borrows both. `fd`: the master of a pseudo-terminal or the end of a pipe, blocking or not.
    KeySender(int fd, IConsole& console);
    // Hands over what the program has room for at this moment, and drops the rest. When it
    // returns, the descriptor is no longer used.
    ~KeySender();
    KeySender(const KeySender&) = delete;
    KeySender& operator=(const KeySender&) = delete;

    void Send(const std::string& bytes);
    // The clipboard's text as it is when its turn comes. It is asked for on the thread here, since
    // the answer may need the very thread that takes the keys.
    void SendClipboard();

private:
    struct Item {
        std::string bytes;
        bool isClipboard = false;
    };

    void Add(Item item);
    void Run();
    bool Next(Item& item);
    std::string ClipboardBytes();
    bool WaitForRoom();
    bool WriteAll(const std::string& bytes);

    const int fd;
    IConsole& console;
    size_t chunk;  // so many bytes are written without waiting when there is room at all
    int wakeFd;    // readable from the end on
    std::mutex mutex;
    std::deque<Item> items;
    size_t waitingBytes = 0;
    std::condition_variable changed;
    bool hasEnded = false;
    bool isBroken = false;  // nobody will read any more
    std::thread thread;     // from the first item on
};

}  // namespace zt
