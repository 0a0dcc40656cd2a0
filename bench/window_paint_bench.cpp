// What it costs to paint the window: from the first cell written to the last pixel on the display.
// Needs a display (xvfb-run will do). Prints milliseconds for a whole screen of which every cell
// changes, beside the time that a display of 60 frames a second leaves for it.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

#include "console/window/window_console.h"

namespace zt {

namespace {

constexpr double kFrameMilliseconds = 1000.0 / 60;
constexpr int kRounds = 50;

// Characters and colours of a cell; every cell differs from round to round.
using Pattern = Cell (*)(int column, int row, int round);

// As a directory list is: words in one colour, some rows in another.
Cell ListPattern(int column, int row, int round) {
    const auto letter = static_cast<uint32_t>('a' + (column * 7 + row + round) % 26);
    return Cell{letter, static_cast<Attribute>((row + round) % 3 == 0 ? 0x1E : 0x1B)};
}

// The worst there is: no two neighbours with the same colours.
Cell ColourPattern(int column, int row, int round) {
    const auto letter = static_cast<uint32_t>('!' + (column * 5 + row * 3 + round) % 90);
    return Cell{letter, static_cast<Attribute>(column * 37 + row * 11 + round * 5)};
}

double MillisecondsOf(WindowConsole& window, const std::vector<Cell>& cells, int columns,
                      int rows) {
    const auto start = std::chrono::steady_clock::now();
    window.Console().WriteCells(0, 0, columns, rows, cells.data());
    window.WaitPainted();
    const std::chrono::duration<double, std::milli> passed =
        std::chrono::steady_clock::now() - start;
    return passed.count();
}

void Measure(WindowConsole& window, int columns, int rows, const char* name, Pattern pattern) {
    if (window.Console().Resize(columns, rows, nullptr, 0) != 1) {
        std::printf("%dx%d %s: the window does not get that size\n", columns, rows, name);
        return;
    }
    std::vector<double> times;
    std::vector<Cell> cells(static_cast<size_t>(columns * rows));
    for (int round = 0; round < kRounds; round++) {
        for (int i = 0; i < columns * rows; i++) {
            cells[static_cast<size_t>(i)] = pattern(i % columns, i / columns, round);
        }
        times.push_back(MillisecondsOf(window, cells, columns, rows));
    }
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    std::printf("window repaint %3dx%-3d %-8s median %6.2f ms, worst %6.2f ms: %.2f of a frame\n",
                columns, rows, name, median, times.back(), median / kFrameMilliseconds);
}

}  // namespace

}  // namespace zt

int main(int argc, char** argv) {
    const std::unique_ptr<zt::WindowConsole> window = zt::OpenWindowConsole(argc, argv);
    if (window == nullptr) {
        std::fprintf(stderr, "window_paint_bench: cannot open the display\n");
        return 1;
    }
    zt::Measure(*window, 80, 25, "list", zt::ListPattern);
    zt::Measure(*window, 80, 25, "colours", zt::ColourPattern);
    zt::Measure(*window, 200, 60, "list", zt::ListPattern);
    zt::Measure(*window, 200, 60, "colours", zt::ColourPattern);
    return 0;
}
