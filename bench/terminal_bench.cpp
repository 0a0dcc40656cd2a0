// How fast the embedded terminal takes output: 100 MB of mixed text through the escape-sequence
// parser and its screen into the grid, in the pieces that a pseudo-terminal gives. Bytes a second
// are those of the output.
#include <benchmark/benchmark.h>

#include <poll.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "bench/mixed_text.h"
#include "console/grid_console.h"
#include "console/scroll_back.h"
#include "console/terminal/program_run.h"
#include "console/terminal/pseudo_terminal.h"
#include "console/terminal/terminal.h"

namespace zt {
namespace {

using bench::MixedLine;
using bench::PlainLine;
using bench::Repeated;

constexpr size_t kOutputBytes = 100'000'000;
constexpr size_t kPieceBytes = 4095;        // what one read gives
constexpr size_t kFrameBytes = 512 * 1024;  // what comes between two pictures, about

// A grid that nobody looks at.
class BlindConsole : public GridConsole {
public:
    BlindConsole(int columnCount, int rowCount) : GridConsole(columnCount, rowCount) {}
    ~BlindConsole() override { CloseTerminal(); }

    bool ReadEvent(TEvent&, int) override { return false; }
    int PendingEvents() override { return 0; }
    void SetTitle(const Westring&) override {}
    void SetIconList(EstringStore&) override {}
    void Beep() override {}
    int Resize(int, int, const char*, int) override { return 0; }
    bool GetClipboardText(Westring&) override { return false; }
    void SetClipboardText(const Westring&) override {}

protected:
    void CellsChanged(const CellRect&) override {}
    bool RowsMoved(const CellRect&, int, Attribute, bool) override { return true; }
    void CursorChanged(int, int) override {}
};

std::string WideLine(int i) {
    std::string line;
    for (int n = 0; n < 30; n++)
        line += (i + n) % 3 == 0 ? "\u0416" : (i + n) % 3 == 1 ? "\u20AC" : "\u00E9";
    return line;
}

void Feed(benchmark::State& state, std::string (*line)(int), bool keeps) {
    const std::string text = Repeated(line);
    int64_t lines = 0;
    for (auto _ : state) {
        CScrollBackBuffer scrollBack;
        BlindConsole console(80, 25);
        if (keeps) console.SetScrollBackSink(&scrollBack);
        console.OpenTerminal(-1);
        CTerminal& terminal = *console.Terminal();
        size_t sinceShown = 0;
        for (size_t done = 0; done < kOutputBytes; done += kPieceBytes) {
            const size_t at = done % (text.size() - kPieceBytes);
            terminal.Gather(text.data() + at, static_cast<int>(kPieceBytes));
            sinceShown += kPieceBytes;
            if (sinceShown < kFrameBytes) continue;
            terminal.Show();
            sinceShown = 0;
        }
        terminal.Show();
        lines = scrollBack.Count();
        if (lines > 0) {
            state.counters["bytes_a_kept_line"] =
                static_cast<double>(scrollBack.MemoryBytes()) / static_cast<double>(lines);
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(kOutputBytes));
}
BENCHMARK_CAPTURE(Feed, mixed, MixedLine, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Feed, mixed_not_kept, MixedLine, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Feed, plain, PlainLine, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Feed, no_ascii, WideLine, true)->Unit(benchmark::kMillisecond);

// Each piece shown at once: what the smallest answers of a program cost.
void WriteOneKey(benchmark::State& state) {
    BlindConsole console(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    console.OpenTerminal(-1);
    CTerminal& terminal = *console.Terminal();
    int column = 0;
    for (auto _ : state) {
        terminal.Write(column % 40 == 39 ? "\r" : "x", 1);
        column++;
    }
}
BENCHMARK(WriteOneKey)->Args({80, 25})->Args({200, 60});

// A real "cat" of 100 MB: through the whole terminal, and read from its pseudo-terminal by someone
// who throws everything away, which is as fast as it can be.
class CatFile {
public:
    CatFile() {
        const int fd = mkstemp(path);
        const std::string text = Repeated(MixedLine);
        for (size_t done = 0; fd >= 0 && done < kOutputBytes; done += text.size())
            if (write(fd, text.data(), text.size()) < 0) break;
        if (fd >= 0) close(fd);
    }
    ~CatFile() { unlink(path); }
    ProgramStart Start() {
        ProgramStart start;
        start.path = "/bin/cat";
        start.arguments = arguments;
        start.environment = environment;
        return start;
    }

private:
    char path[32] = "/tmp/zt-bench-XXXXXX";
    const char* arguments[3] = {"/bin/cat", path, nullptr};
    const char* environment[1] = {nullptr};
};

void CatInTheTerminal(benchmark::State& state) {
    CatFile file;
    for (auto _ : state) {
        CScrollBackBuffer scrollBack;
        BlindConsole console(80, 25);
        console.SetScrollBackSink(&scrollBack);
        if (RunProgram(console, file.Start()).Status() != 0) state.SkipWithError("cat failed");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(kOutputBytes));
}
BENCHMARK(CatInTheTerminal)->Unit(benchmark::kMillisecond)->UseRealTime();

void CatThrownAway(benchmark::State& state) {
    CatFile file;
    static char buffer[65536];
    for (auto _ : state) {
        PseudoTerminal terminal;
        if (terminal.Open(80, 25) != 0) return state.SkipWithError("no pseudo-terminal");
        const pid_t cat = StartProgram(file.Start(), terminal);
        for (;;) {
            pollfd wait{terminal.Master(), POLLIN, 0};
            poll(&wait, 1, -1);
            const ssize_t got = read(terminal.Master(), buffer, sizeof buffer);
            if (got < 0 && errno != EAGAIN) break;
        }
        waitpid(cat, nullptr, 0);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(kOutputBytes));
}
BENCHMARK(CatThrownAway)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zt

BENCHMARK_MAIN();
