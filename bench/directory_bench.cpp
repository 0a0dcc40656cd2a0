// Large directories: from start to settled panel beside mc on the same directory, memory, cost an
// entry, the slowest key afterwards.
//
//   directory_bench [ENTRIES ...]     numbers of files; 10000 100000 1000000 without
#include <fcntl.h>
#include <unistd.h>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "bench/pty_program.h"
#include "tests/support/file_tree.h"
#include "tests/support/session.h"

namespace zt::bench {

namespace {

using headless::FileTree;
using headless::Session;
using headless::SessionOptions;

constexpr int kLimitSeconds = 120;
constexpr const char* kKeys[] = {"End",  "Home", "PgDn",         "PgDn",  "Down",        "Up",
                                 "PgUp", "End",  "PgUp",         "Up",    "Home",        "Down",
                                 "Tab",  "Tab",  "Alt-Shift-F1", "Right", "Alt-Shift-F2"};

// Milliseconds an entry, with the start of the program and without.
struct Cost {
    int entries;
    double whole;
    double reading;
};

struct Measured {
    double milliseconds = -1;
    long kilobytes = 0;
    double slowestKey = -1;
    std::string slowestName;
};

// Files without content in an order that is not the sorted one.
void Fill(const FileTree& tree, int count) {
    const int folder = open(tree.Path().c_str(), O_DIRECTORY | O_RDONLY);
    constexpr long kStep = 7919;  // a prime that divides no count used here
    for (long i = 0; i < count; i++) {
        char name[40];
        snprintf(name, sizeof name, "f%07ld", i * kStep % count);
        const int file = openat(folder, name, O_CREAT | O_WRONLY, 0644);
        if (file >= 0) close(file);
    }
    close(folder);
}

double MillisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

SessionOptions Options(const FileTree& tree, const FileTree& empty) {
    SessionOptions options;
    options.directory = empty.Path();
    options.arguments = {"-l", tree.Path(), "-r", empty.Path()};
    options.waitForPanels = false;
    return options;
}

// From sending the key until the program waits for the next one.
double KeyMilliseconds(Session& session, const char* key) {
    session.Screen().ResetTraffic();
    const Clock::time_point start = Clock::now();
    session.Send(*headless::KeyEvent(key));
    const bool done = session.WaitFor(
        [&] { return session.LastTraffic().cursorShown > 0 && session.AtPrompt(); }, key);
    return done ? MillisecondsSince(start) : -1;
}

Measured Ours(const FileTree& tree, const FileTree& empty, const std::string& first, bool keys) {
    Measured out;
    const Clock::time_point start = Clock::now();
    Session session(Options(tree, empty));
    const bool settled = session.WaitFor(
        [&] { return session.AtPrompt() && session.Text().find(first) != std::string::npos; },
        "the panel");
    if (!settled) return out;
    out.milliseconds = MillisecondsSince(start);
    for (const char* key : kKeys) {
        if (!keys) break;
        const double time = KeyMilliseconds(session, key);
        if (time > out.slowestKey) {
            out.slowestKey = time;
            out.slowestName = key;
        }
    }
    out.kilobytes = headless::PeakKilobytesOf(session.ProcessId());
    return out;
}

Measured Yardstick(const FileTree& tree, const FileTree& empty, const std::string& first) {
    const FileTree home;
    PtyProgram program({"mc", "-u", tree.Path(), empty.Path()}, empty.Path(),
                       {{"HOME", home.Path()},
                        {"TERM", "xterm-256color"},
                        {"LANG", "C.UTF-8"},
                        {"PATH", "/usr/bin:/bin"},
                        {"SHELL", "/bin/sh"}});
    Measured out;
    out.milliseconds = program.MillisecondsToRest(first, kLimitSeconds);
    out.kilobytes = program.PeakKilobytes();
    return out;
}

double MedianOurs(const FileTree& tree, const FileTree& empty, const std::string& first) {
    std::vector<double> times;
    for (int i = 0; i < 9; i++)
        times.push_back(Ours(tree, empty, first, false).milliseconds);
    return Median(times);
}

void Compare(Figures& figures, int count, std::vector<Cost>& costs) {
    const FileTree tree, empty;
    const FileTree nothing;
    Fill(tree, count);
    const std::string first = "f0000000";
    const std::string task = std::to_string(count) + " files: ";
    Yardstick(tree, empty, first);  // fills the caches for both
    const double idle = MedianOurs(nothing, empty, "UP-DIR");
    const bool small = count <= 100000;
    std::vector<double> ours, theirs;
    Measured last, lastYardstick;
    for (int i = 0; i < (small ? 7 : 3); i++) {
        lastYardstick = Yardstick(tree, empty, first);
        last = Ours(tree, empty, first, true);
        ours.push_back(last.milliseconds);
        theirs.push_back(lastYardstick.milliseconds);
    }
    costs.push_back({count, Median(ours) / count, (Median(ours) - idle) / count});
    figures.Ratio(task + "start to settled panel", Median(ours), Median(theirs), "ms", 0.4);
    figures.Ratio(task + "peak memory", static_cast<double>(last.kilobytes) / 1024,
                  static_cast<double>(lastYardstick.kilobytes) / 1024, "MB", 1.0);
    if (count >= 1000000) {
        figures.Budget(task + "peak memory", static_cast<double>(last.kilobytes) / 1024, "MB", 250);
    }
    figures.Budget(task + "slowest key (" + last.slowestName + ")", last.slowestKey, "ms", 50);
}

int Main(const std::vector<int>& counts) {
    setenv("ZT_TEST_SLOWNESS", "12", 0);
    Figures figures("Large directories, names sorted, the yardstick is mc (without subshell)");
    std::vector<Cost> costs;
    for (int count : counts)
        Compare(figures, count, costs);
    if (costs.size() > 1) {
        const Cost& few = costs.front();
        const Cost& many = costs.back();
        const std::string task =
            "cost an entry, " + std::to_string(many.entries) + " to " + std::to_string(few.entries);
        figures.Ratio(task, many.whole * 1e6, few.whole * 1e6, "ns", 1.3);
        figures.Ratio("the same without the start", many.reading * 1e6, few.reading * 1e6, "ns",
                      1.3);
    }
    return figures.Failures();
}

}  // namespace

}  // namespace zt::bench

int main(int count, char** words) {
    std::vector<int> counts;
    for (int i = 1; i < count; i++)
        counts.push_back(atoi(words[i]));
    if (counts.empty()) counts = {10000, 100000, 1000000};
    return zt::bench::Main(counts) == 0 ? 0 : 1;
}
