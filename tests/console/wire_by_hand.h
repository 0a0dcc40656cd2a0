// The far end of the wire with the test itself as its display, byte by byte. Belongs to the test's
// thread.
#pragma once

#include <sys/socket.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

#include "console/wire/remote_console.h"
#include "tests/console/wire_display.h"

namespace zt {

inline const WireBytes kHello = WireBytes::Request(0, 1).Int(1);
inline const WireBytes kSizeQuestion = WireBytes::Request(6, 0);
inline const WireBytes kAccepted = WireBytes::Reply(1).Int(1);

// Both directions on one pair of sockets that keep each write apart.
class ByHand {
public:
    explicit ByHand(const RemoteConsole::Patience& patience = {}) {
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets_), 0);
        far = std::make_unique<RemoteConsole>(sockets_[1], sockets_[1], patience);
    }
    ~ByHand() {
        far.reset();
        HangUp();
        close(sockets_[1]);
    }

    // The next write of the far end; waits for it.
    std::string NextWrite() {
        pollfd wait{sockets_[0], POLLIN, 0};
        EXPECT_EQ(poll(&wait, 1, 10000), 1);
        return Receive();
    }
    // Each write since the last look, in hexadecimal and a line each. Does not wait.
    std::string Writes() {
        std::string all;
        for (std::string one = Receive(); !one.empty(); one = Receive())
            all += (all.empty() ? "" : "\n") + Hex(one);
        return all;
    }
    void Send(const std::string& bytes) {
        EXPECT_EQ(send(sockets_[0], bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }
    void HangUp() {
        if (sockets_[0] >= 0) close(sockets_[0]);
        sockets_[0] = -1;
    }
    // Plays the start against the answers; gives what was asked.
    RemoteStart Start(const std::string& toHello, const std::string& toSize = "") {
        RemoteStart result{};
        std::thread starting([&] { result = far->Start(); });
        asked = NextWrite();
        if (toHello.empty()) {
            HangUp();
        } else {
            Send(toHello);
        }
        if (!toSize.empty()) {
            asked += NextWrite();
            Send(toSize);
        }
        starting.join();
        return result;
    }
    void StartWell(int columns = 80, int rows = 25) {
        ASSERT_EQ(Start(kAccepted, WireBytes::Reply(2).Ints({columns, rows})),
                  RemoteStart::kStarted);
        Writes();
    }
    bool Arrived(int events) {
        return Eventually([&] { return far->PendingEvents() >= events; });
    }

    std::unique_ptr<RemoteConsole> far;
    std::string asked;

private:
    std::string Receive() {
        std::string bytes(1 << 20, '\0');
        const ssize_t got = recv(sockets_[0], bytes.data(), bytes.size(), MSG_DONTWAIT);
        bytes.resize(got > 0 ? static_cast<size_t>(got) : 0);
        return bytes;
    }

    int sockets_[2];
};

}  // namespace zt
