// How long a key takes to its changed cell when the way to the far end and the way back take 50 ms
// each: one round trip and no second one, whatever the key does.
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <string>

#include "bench/figures.h"
#include "tests/support/child_process.h"
#include "tests/support/display.h"
#include "tests/support/file_tree.h"
#include "tests/support/key_names.h"

namespace zt::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kDelay{50};
constexpr double kMostMilliseconds = 120;  // two delays, and the work
constexpr int kRestMilliseconds = 400;     // nothing moves for so long: all has arrived
constexpr int kLimitMilliseconds = 10000;
constexpr int kTimes = 5;

double MillisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Bytes on their way.
struct Travelling {
    Clock::time_point due;
    std::string bytes;
};

// zt-remote at the end of a long line, and its display at this one.
class LongLine {
public:
    explicit LongLine(const std::string& directory) : display(80, 25) {
        headless::ProcessOptions options;
        const char* named = getenv("ZT_REMOTE");
        options.program =
            named ? named
                  : std::filesystem::read_symlink("/proc/self/exe").replace_filename("zt-remote");
        options.directory = directory;
        options.environment = {{"HOME", directory}, {"LANG", "C.UTF-8"}, {"PATH", "/usr/bin:/bin"}};
        started = process.Start(options);
    }

    bool Rest() {
        const Clock::time_point start = Clock::now();
        for (Clock::time_point last = start; MillisecondsSince(last) < kRestMilliseconds;) {
            if (Pump()) last = Clock::now();
            if (!started || MillisecondsSince(start) > kLimitMilliseconds) return false;
        }
        return display.Connected();
    }
    // Below 0 when no cell changes.
    double MillisecondsToCell(const char* key) {
        display.ResetTraffic();
        const Clock::time_point start = Clock::now();
        for (const headless::WireEvent& event : headless::KeyPress(key))
            toFar.push_back({start + kDelay, headless::EncodeEvent(event)});
        while (display.SinceReset().changedCells == 0) {
            Pump();
            if (MillisecondsSince(start) > kLimitMilliseconds) return -1;
        }
        return MillisecondsSince(start);
    }

private:
    // True when something arrived at either end.
    bool Pump() {
        pollfd wait{process.OutputFd(), POLLIN, 0};
        char buffer[65536];
        if (poll(&wait, 1, 1) > 0) {
            const ssize_t got = read(process.OutputFd(), buffer, sizeof buffer);
            if (got > 0) {
                toDisplay.push_back(
                    {Clock::now() + kDelay, std::string(buffer, static_cast<size_t>(got))});
            }
        }
        bool moved = false;
        for (; IsDue(toDisplay); toDisplay.pop_front(), moved = true) {
            const std::string answer = display.Take(toDisplay.front().bytes);
            if (!answer.empty()) toFar.push_back({Clock::now() + kDelay, answer});
        }
        for (; IsDue(toFar); toFar.pop_front(), moved = true) {
            const std::string& bytes = toFar.front().bytes;
            started = started && write(process.InputFd(), bytes.data(), bytes.size()) ==
                                     static_cast<ssize_t>(bytes.size());
        }
        return moved;
    }
    static bool IsDue(const std::deque<Travelling>& way) {
        return !way.empty() && way.front().due <= Clock::now();
    }

    headless::Display display;
    headless::ChildProcess process;
    bool started = false;
    std::deque<Travelling> toFar;
    std::deque<Travelling> toDisplay;
};

int Main() {
    headless::FileTree tree;
    for (int i = 0; i < 300; i++)
        tree.File("file" + std::to_string(1000 + i));
    LongLine line(tree.Path());
    Figures figures("From a key to its changed cell, 50 ms each way");
    const bool there = line.Rest();
    for (const char* key : {"Down", "PgDn", "Tab", "F9", "Esc", "F7", "Esc"}) {
        std::vector<double> times;
        for (int i = 0; there && i < (key[0] == 'D' || key[0] == 'P' ? kTimes : 1); i++) {
            times.push_back(line.MillisecondsToCell(key));
            if (!line.Rest()) times.back() = -1;
        }
        figures.Budget(key, Median(times), "ms", kMostMilliseconds);
    }
    return figures.Failures() == 0 ? 0 : 1;
}

}  // namespace

}  // namespace zt::bench

int main() {
    return zt::bench::Main();
}
