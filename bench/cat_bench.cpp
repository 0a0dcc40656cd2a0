// A "cat" of 100 MB of mixed text with colours, in the window and in xterm on the same X server (of
// DISPLAY): from the start of cat to the moment when what is printed behind it is to be seen. xterm
// is measured with the window's font, and with its own, which are plain bitmaps; where it waits for
// the server at every line, that takes minutes.
//
//   cat_bench [MEGABYTES]     100 without
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "bench/mixed_text.h"
#include "bench/pty_program.h"
#include "bench/x_screen.h"
#include "tests/support/child_process.h"
#include "tests/support/file_tree.h"

namespace zt::bench {

namespace {

using headless::ChildProcess;
using headless::FileTree;
using headless::ProcessOptions;

constexpr size_t kMegabyte = 1'000'000;
constexpr int kRounds = 3;
constexpr int kLimitSeconds = 1800;
constexpr char kYardstick[] = "/usr/bin/xterm";
// Waits, so that nobody's start is measured.
constexpr char kScript[] =
    "touch ready; until test -e go; do sleep 0.01; done\n"
    "cat text; printf '\\033[41m\\033[2J'; sleep 1000\n";

class CatBench {
public:
    explicit CatBench(size_t megabytes) {
        tree.File("r", kScript);
        const std::string text = Repeated(MixedLine);
        std::ofstream file(tree.PathOf("text"), std::ios::binary);
        for (size_t done = 0; done < megabytes * kMegabyte; done += text.size())
            file.write(text.data(), static_cast<std::streamsize>(text.size()));
    }

    bool IsOpen() const { return screen.IsOpen(); }

    double InTheWindow() {
        const char* path = getenv("ZT");
        ChildProcess process;
        if (!StartIn(process, path ? path : ZT_PROGRAM, {})) return -1;
        if (!Until(process, [&] { return screen.ShowsPanels(); })) return -1;
        screen.Focus();
        for (const char* key : {"s", "h", "space", "r", "Return"})
            screen.Press(key);
        return Milliseconds(process);
    }

    double InTheYardstick(std::vector<std::string> arguments) {
        for (const char* word : {"-geometry", "80x25", "-e", "sh", "r"})
            arguments.emplace_back(word);
        ChildProcess process;
        if (!StartIn(process, kYardstick, arguments)) return -1;
        return Milliseconds(process);
    }

private:
    bool StartIn(ChildProcess& process, const char* program,
                 const std::vector<std::string>& arguments) {
        tree.Remove("ready").Remove("go");
        // The window of the last one goes when the server has seen its end.
        while (screen.FindWindow())
            usleep(2000);
        ProcessOptions options;
        options.program = program;
        options.arguments = arguments;
        options.directory = tree.Path();
        options.environment = {{"HOME", home.Path()},
                               {"LANG", "C.UTF-8"},
                               {"PATH", "/usr/bin:/bin"},
                               {"SHELL", "/bin/sh"},
                               {"DISPLAY", getenv("DISPLAY")}};
        return process.Start(options);
    }

    template <typename Condition>
    bool Until(ChildProcess& process, Condition condition) {
        const Clock::time_point end = Clock::now() + std::chrono::seconds(kLimitSeconds);
        while (!condition()) {
            if (process.HasEnded() || Clock::now() > end) return false;
            usleep(2000);
        }
        return true;
    }

    double Milliseconds(ChildProcess& process) {
        if (!Until(process, [&] { return tree.Exists("ready") && screen.FindWindow(); })) return -1;
        const Clock::time_point start = Clock::now();
        tree.File("go");
        if (!Until(process, [&] { return screen.IsRed(); })) return -1;
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    }

    FileTree tree;
    FileTree home;
    XScreen screen;
};

}  // namespace

int Main(int megabytes) {
    CatBench bench(static_cast<size_t>(megabytes));
    if (!bench.IsOpen()) {
        std::printf("no display: nothing measured\n");
        return 0;
    }
    const std::string title =
        "cat of " + std::to_string(megabytes) + " MB of mixed text, the yardstick is xterm";
    Figures figures(title.c_str());
    std::vector<double> times;
    for (int i = 0; i < kRounds; i++)
        times.push_back(bench.InTheWindow());
    const double ours = Median(times);
    std::printf("zt in its window: %.0f ms\n", ours);
    if (access(kYardstick, X_OK) != 0) return 0;
    figures.Ratio("zt, beside xterm with the same font", ours,
                  bench.InTheYardstick({"-fa", "DejaVu Sans Mono", "-fs", "12"}), "ms", 1.0);
    figures.Ratio("zt, beside xterm with its bitmap font", ours, bench.InTheYardstick({}), "ms",
                  1.0);
    return figures.Failures() == 0 ? 0 : 1;
}

}  // namespace zt::bench

int main(int count, char** words) {
    return zt::bench::Main(count > 1 ? atoi(words[1]) : 100);
}
