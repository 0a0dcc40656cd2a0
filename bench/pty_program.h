// A program in a terminal of its own, for measuring how long it works: it is started on a pty, its
// output is taken, and the time of the last byte before it came to rest is known.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace zt::bench {

using Clock = std::chrono::steady_clock;

class PtyProgram {
public:
    // The terminal has 80 columns and 25 rows.
    PtyProgram(const std::vector<std::string>& words, const std::string& directory,
               const std::map<std::string, std::string>& environment);
    ~PtyProgram();  // ends it

    PtyProgram(const PtyProgram&) = delete;
    PtyProgram& operator=(const PtyProgram&) = delete;

    // Until the program has said `text` and waits. The time is from the start, or from the last
    // Send, to its last byte, in milliseconds; below 0 when the limit ran out or it has ended.
    double MillisecondsToRest(const std::string& text, int limitSeconds);
    void Send(const std::string& keys);
    long PeakKilobytes() const;

private:
    bool Take(int milliseconds);  // output that is there; true when some was

    pid_t id = -1;
    int terminal = -1;
    bool ended = false;
    std::string output;  // since the start or the last Send
    Clock::time_point start;
    Clock::time_point last;
};

}  // namespace zt::bench
