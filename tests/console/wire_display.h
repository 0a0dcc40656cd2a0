// The display side of the wire over a fake console: for one thread with bytes in hand, or as a
// thread of its own between two pipes.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "console/wire/remote_connection.h"
#include "tests/console/fake_console.h"
#include "tests/console/wire_bytes.h"

namespace zt {

class RecordingSession : public IDisplaySession {
public:
    void Connected() override { calls += "connected "; }
    void StartEvents() override { calls += "events "; }
    void ShowWrongVersion() override { calls += "wrong-version "; }
    bool UserHasLeft() const override {
        looks++;
        return hasLeft;
    }
    std::string calls;
    std::atomic<bool> hasLeft{false};
    mutable std::atomic<int> looks{0};
};

// Waits for the condition, at most ten seconds.
inline bool Eventually(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::yield();
    }
    return true;
}

// A fake console that also counts what requests do and nothing shows.
class DisplayConsole : public FakeConsole {
public:
    using FakeConsole::FakeConsole;
    int CodePageNumber() const { return CodePage(); }
};

// A connection whose answers are read back from a pipe.
class LocalDisplay {
public:
    explicit LocalDisplay(int columns = 80, int rows = 25) : screen(columns, rows) {
        int ends[2];
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        EXPECT_EQ(fcntl(ends[1], F_SETPIPE_SZ, 1 << 20), 1 << 20);
        answers_ = ends[0];
        fcntl(answers_, F_SETFL, O_NONBLOCK);
        connection = std::make_unique<CRemoteConnection>(screen, session, ends[1]);
    }
    ~LocalDisplay() { close(answers_); }

    void Feed(const std::string& bytes) {
        connection->Feed(bytes.data(), static_cast<int>(bytes.size()));
    }
    // What the display has sent since the last call.
    std::string Answers() {
        std::string all;
        char piece[4096];
        for (ssize_t got = 0; (got = read(answers_, piece, sizeof(piece))) > 0;)
            all.append(piece, static_cast<size_t>(got));
        return all;
    }
    std::string Ask(const std::string& bytes) {
        Feed(bytes);
        return Answers();
    }

    DisplayConsole screen;
    RecordingSession session;
    std::unique_ptr<CRemoteConnection> connection;

private:
    int answers_;
};

// Two pipes with a display at one end of them. The other end is for the far end.
class PipedDisplay {
public:
    explicit PipedDisplay(int columns = 80, int rows = 25) : screen(columns, rows) {
        int down[2];
        int up[2];
        EXPECT_EQ(pipe2(down, O_CLOEXEC), 0);
        EXPECT_EQ(pipe2(up, O_CLOEXEC), 0);
        fcntl(down[1], F_SETPIPE_SZ, 1 << 20);
        requests_ = down[0];
        farOutput = down[1];
        farInput = up[0];
        connection = std::make_unique<CRemoteConnection>(screen, session, up[1]);
        thread_ = std::thread([this] { Run(); });
    }
    ~PipedDisplay() {
        if (farOutput >= 0) close(farOutput);
        thread_.join();
        close(requests_);
        close(farInput);
    }

    // The far end hangs up.
    void CloseFarOutput() {
        close(farOutput);
        farOutput = -1;
    }
    // The display hangs up: what it sends ends.
    void CloseAnswers() {
        const std::lock_guard<std::mutex> hold(lock_);
        connection.reset();
    }

    // Waits until all that the far end has sent is carried out. A title marks the end of it.
    template <class Far>
    bool Settle(Far& far) {
        const std::string mark = "mark " + std::to_string(++marks_);
        far.SetTitle(mark.c_str());
        return Eventually([&] {
            const std::lock_guard<std::mutex> hold(lock_);
            return screen.title == mark;
        });
    }
    // Bytes and reads since the last call. Settle adds its own frame to the bytes.
    int TakeBytes() { return bytes_.exchange(0); }
    std::string TakeLog() {
        const std::lock_guard<std::mutex> hold(lock_);
        return std::move(log_);
    }
    // While set, requests stay in the pipe.
    std::atomic<bool> paused{false};
    // How much the display takes out of the pipe at once.
    std::atomic<size_t> pieceBytes{65536};

    DisplayConsole screen;
    RecordingSession session;
    std::unique_ptr<CRemoteConnection> connection;
    int farInput = -1;
    int farOutput = -1;

private:
    void Run() {
        std::string piece(65536, '\0');
        while (true) {
            while (paused)
                std::this_thread::yield();
            const ssize_t got = read(requests_, piece.data(), pieceBytes);
            if (got <= 0) return;
            bytes_ += static_cast<int>(got);
            const std::lock_guard<std::mutex> hold(lock_);
            log_.append(piece.data(), static_cast<size_t>(got));
            if (connection) connection->Feed(piece.data(), static_cast<int>(got));
        }
    }

    int requests_;
    std::mutex lock_;
    std::string log_;
    std::atomic<int> bytes_{0};
    int marks_ = 0;
    std::thread thread_;
};

}  // namespace zt
