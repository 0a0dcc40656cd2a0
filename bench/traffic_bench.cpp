// What a key press costs on the way to the display of zt-remote: requests, bytes and cells, on a
// small and on a large screen. Counts, not times.
#include <cstdio>
#include <string>

#include "tests/support/file_tree.h"
#include "tests/support/session.h"

namespace zt::bench {

namespace {

using headless::FileTree;
using headless::Session;
using headless::SessionOptions;
using headless::Traffic;

constexpr int kMostCellsForACursorStep = 200;

struct Step {
    const char* key;
    const char* what;
    bool isCursorStep;
};

constexpr Step kSteps[] = {
    {"Down", "cursor step", true},
    {"Down", "cursor step", true},
    {"PgDn", "page", false},
    {"End", "to the end", false},
    {"Up", "cursor step", true},
    {"Tab", "other panel", false},
    {"Down", "cursor step", true},
    {"F9", "menu opens", false},
    {"Right", "menu to the right", false},
    {"Down", "step in the menu", false},
    {"Esc", "menu closes its list", false},
    {"Esc", "menu closes", false},
    {"F10", "question opens", false},
    {"Esc", "question closes", false},
    {"Ctrl-o", "panels off", false},
    {"Ctrl-o", "panels on", false},
    {"Alt-Shift-F1", "style brief", false},
    {"Alt-Shift-F2", "style full", false},
    {"Ctrl-r", "read again", false},
};

// The number of cursor steps that paint too much.
int Measure(const FileTree& tree, int columns, int rows) {
    SessionOptions options;
    options.directory = tree.Path();
    options.columns = columns;
    options.rows = rows;
    Session session(options);
    std::printf("\nTraffic of zt-remote at %dx%d\n%-24s %9s %9s %9s\n", columns, rows, "",
                "requests", "bytes", "cells");
    const Traffic start = session.LastTraffic();
    std::printf("%-24s %9d %9zu %9d\n", "start", start.requests, start.bytes, start.changedCells);
    int over = 0;
    for (const Step& step : kSteps) {
        session.Press(step.key);
        const Traffic traffic = session.LastTraffic();
        const bool tooMuch = step.isCursorStep && traffic.changedCells > kMostCellsForACursorStep;
        over += tooMuch;
        std::printf("%-24s %9d %9zu %9d%s\n", step.what, traffic.requests, traffic.bytes,
                    traffic.changedCells, tooMuch ? "  OVER" : "");
    }
    return over;
}

}  // namespace

int Main() {
    FileTree tree;
    for (int i = 0; i < 300; i++)
        tree.File("file" + std::to_string(1000 + i));
    int over = 0;
    for (const auto& [columns, rows] : {std::pair{80, 25}, {132, 50}, {200, 60}}) {
        over += Measure(tree, columns, rows);
    }
    return over == 0 ? 0 : 1;
}

}  // namespace zt::bench

int main() {
    return zt::bench::Main();
}
