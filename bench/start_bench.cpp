// From start to the first whole screen, in a small directory: zt-remote, and zt under the X server
// of DISPLAY, beside mc in a terminal. Then how soon the Break key ends the reading of a directory
// of a million files, which only the window has.
//
//   start_bench [FILES]     for the directory of the Break key; 1000000 without, 0 leaves it out
#include <fcntl.h>
#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "bench/pty_program.h"
#include "bench/x_screen.h"
#include "tests/support/file_tree.h"
#include "tests/support/session.h"

namespace zt::bench {

namespace {

using headless::ChildProcess;
using headless::FileTree;
using headless::ProcessOptions;
using headless::Session;
using headless::SessionOptions;

constexpr int kRounds = 11;
constexpr int kLimitSeconds = 60;

double MillisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double StartRemote(const FileTree& tree) {
    SessionOptions options;
    options.directory = tree.Path();
    options.waitForPanels = false;
    const Clock::time_point start = Clock::now();
    Session session(options);
    const bool shown = session.WaitFor([&] { return session.AtPrompt(); }, "the panels");
    return shown ? MillisecondsSince(start) : -1;
}

double StartYardstick(const FileTree& tree, bool subshell) {
    const FileTree home;
    std::vector<std::string> words = {"mc"};
    if (!subshell) words.push_back("-u");
    PtyProgram program(words, tree.Path(),
                       {{"HOME", home.Path()},
                        {"TERM", "xterm-256color"},
                        {"LANG", "C.UTF-8"},
                        {"PATH", "/usr/bin:/bin"},
                        {"SHELL", "/bin/bash"}});
    return program.MillisecondsToRest("10", kLimitSeconds);
}

// zt with a window on DISPLAY.
class WindowProgram {
public:
    WindowProgram(const std::string& directory, const FileTree& home) {
        const char* path = getenv("ZT");
        ProcessOptions options;
        options.program = path ? path : ZT_PROGRAM;
        options.directory = directory;
        options.environment = {{"HOME", home.Path()},
                               {"LANG", "C.UTF-8"},
                               {"PATH", "/usr/bin:/bin"},
                               {"DISPLAY", getenv("DISPLAY")}};
        process.Start(options);
    }

    // Polls: the server tells nobody that a picture is whole.
    template <typename Condition>
    bool Until(Condition condition) {
        const Clock::time_point end = Clock::now() + std::chrono::seconds(kLimitSeconds);
        while (!condition()) {
            if (process.HasEnded() || Clock::now() > end) return false;
            usleep(500);
        }
        return true;
    }

private:
    ChildProcess process;
};

double StartWindow(const FileTree& tree, XScreen& screen) {
    const FileTree home;
    const Clock::time_point start = Clock::now();
    WindowProgram program(tree.Path(), home);
    return program.Until([&] { return screen.ShowsPanels(); }) ? MillisecondsSince(start) : -1;
}

// Into the only directory of `outer`, Break after so many milliseconds (below 0: never). Gives the
// time from Break, or else from Enter, to the title that tells of the new directory.
double ReadInWindow(const FileTree& outer, XScreen& screen, int breakAfterMilliseconds) {
    const FileTree home;
    WindowProgram program(outer.Path(), home);
    if (!program.Until([&] { return screen.ShowsPanels(); })) return -1;
    screen.Focus();
    screen.Press("Down");
    screen.Press("Return");
    Clock::time_point start = Clock::now();
    if (breakAfterMilliseconds >= 0) {
        usleep(static_cast<useconds_t>(breakAfterMilliseconds) * 1000);
        if (screen.Title().ends_with("/many")) return -1;  // the reading was over
        start = Clock::now();
        screen.Press("Control_L", "Pause");
    }
    const bool over = program.Until([&] { return screen.Title().ends_with("/many"); });
    return over ? MillisecondsSince(start) : -1;
}

void Fill(const std::string& path, int count) {
    const int folder = open(path.c_str(), O_DIRECTORY | O_RDONLY);
    for (int i = 0; i < count; i++) {
        const int file =
            openat(folder, ("f" + std::to_string(i)).c_str(), O_CREAT | O_WRONLY, 0644);
        if (file >= 0) close(file);
    }
    close(folder);
}

void MeasureStart(Figures& figures, XScreen& screen) {
    FileTree tree;
    for (int i = 0; i < 10; i++)
        tree.File("file" + std::to_string(i));
    std::vector<double> remote, window, plain, subshell;
    for (int i = 0; i < kRounds; i++) {
        plain.push_back(StartYardstick(tree, false));
        subshell.push_back(StartYardstick(tree, true));
        remote.push_back(StartRemote(tree));
        if (screen.IsOpen()) window.push_back(StartWindow(tree, screen));
    }
    figures.Ratio("zt-remote, beside mc", Median(remote), Median(subshell), "ms", 0.5);
    figures.Ratio("zt-remote, beside mc without subshell", Median(remote), Median(plain), "ms",
                  0.5);
    figures.Ratio("zt in its window, beside mc", Median(window), Median(subshell), "ms", 0.5);
    figures.Ratio("zt in its window, beside mc without subshell", Median(window), Median(plain),
                  "ms", 0.5);
}

void MeasureBreak(Figures& figures, XScreen& screen, int files) {
    FileTree outer;
    outer.Folder("many");
    Fill(outer.PathOf("many"), files);
    const double whole = ReadInWindow(outer, screen, -1);
    std::printf("reading %d files in the window takes %.0f ms\n", files, whole);
    std::vector<double> times;
    for (int part = 1; part <= 5; part++) {
        // In the first half, for sorting and drawing take their share at the end.
        times.push_back(ReadInWindow(outer, screen, static_cast<int>(whole * part / 12)));
    }
    std::sort(times.begin(), times.end());
    figures.Budget("Break while reading, slowest of 5", times.front() < 0 ? -1 : times.back(), "ms",
                   100);
}

}  // namespace

int Main(int files) {
    XScreen screen;
    Figures figures("From start to the first whole screen, the yardstick is mc in a terminal");
    MeasureStart(figures, screen);
    if (files > 0 && screen.IsOpen()) MeasureBreak(figures, screen, files);
    if (!screen.IsOpen()) std::printf("no display: nothing measured in the window\n");
    return figures.Failures() == 0 ? 0 : 1;
}

}  // namespace zt::bench

int main(int count, char** words) {
    return zt::bench::Main(count > 1 ? atoi(words[1]) : 1000000);
}
