// What a key press costs on the way to the display of zt-remote: requests, bytes and cells, on a
// small and on a large screen; what opening and closing the menu and a dialog over a full screen
// may cost at most, and a key press in an input field. Counts, not times.
#include <cstdio>
#include <string>

#include "bench/figures.h"
#include "tests/support/file_tree.h"
#include "tests/support/session.h"

namespace zt::bench {

namespace {

using headless::FileTree;
using headless::Session;
using headless::SessionOptions;
using headless::Traffic;

// The bar leaves a row and comes to another, each half the screen wide; then the status row's name
// and the scroll bar.
constexpr int MostCellsForACursorStep(int columns) {
    return columns + 20;
}

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

constexpr int kWideScreen = 200;
constexpr int kHighScreen = 60;

// A box changes its own cells, its shadow's (two columns and a row more) and no other.
constexpr int BoxCells(int columns, int rows) {
    return (columns + 2) * (rows + 1);
}
// One that opens is painted blank, then its texts over it: half as much again.
constexpr int Opened(int cells) {
    return cells * 3 / 2;
}
constexpr int kBarCells = kWideScreen;
constexpr int kDropDownCells = BoxCells(27, 15);  // of the options
constexpr int kEntryCells = 25;
constexpr int kConfigurationCells = BoxCells(76, 19);
constexpr int kDrawnAnewCells = kWideScreen;  // all is drawn after that dialog, a row twice at most
constexpr int kFieldCells = 20;
constexpr int kMostBytesPerCell = 4;

// Of 1,000 lines: 25 bytes of text each, and as much again around it.
constexpr int kMostOutputBytes = 50000;

struct BoxStep {
    const char* key;
    const char* what;
    const char* shows;  // is on the screen afterwards
    int mostCells;
};

constexpr const char* kBar = "    Left    Files";
constexpr const char* kDropDown = "Save Setup";
constexpr const char* kPanels = "file1000";

constexpr BoxStep kBoxSteps[] = {
    {"F9", "menu opens", kBar, Opened(kBarCells)},
    {"o", "its drop-down opens", kDropDown, Opened(kDropDownCells)},
    {"Down", "a step in it", kDropDown, 2 * kEntryCells},
    {"Esc", "the drop-down closes", kBar, kDropDownCells},
    {"Esc", "the menu closes", kPanels, kBarCells},
    {"F9", "menu opens again", kBar, Opened(kBarCells)},
    {"o", "its drop-down opens again", kDropDown, Opened(kDropDownCells)},
    {"c", "menu closes, configuration opens", " Configuration ",
     kBarCells + kDropDownCells + Opened(kConfigurationCells)},
    {"x", "letter over all of a field's text", "x", kFieldCells},
    {"y", "letter at its end", "xy", kFieldCells},
    {"z", "another", "xyz", kFieldCells},
    {"Shift-Home", "all of it selected", "xyz", kFieldCells},
    {"Home", "to its start", "xyz", kFieldCells},
    {"w", "letter at its start", "wxyz", kFieldCells},
    {"Backspace", "letter less", "xyz", kFieldCells},
    {"Esc", "configuration closes", kPanels, kConfigurationCells + kDrawnAnewCells},
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
        const bool tooMuch =
            step.isCursorStep && traffic.changedCells > MostCellsForACursorStep(columns);
        over += tooMuch;
        std::printf("%-24s %9d %9zu %9d%s\n", step.what, traffic.requests, traffic.bytes,
                    traffic.changedCells, tooMuch ? "  OVER" : "");
    }
    return over;
}

void MeasureBoxes(Figures& figures, const FileTree& tree) {
    SessionOptions options;
    options.directory = tree.Path();
    options.columns = kWideScreen;
    options.rows = kHighScreen;
    Session session(options);
    for (const BoxStep& step : kBoxSteps) {
        if (step.key[1] == 0) {
            session.Type(step.key);
        } else {
            session.Press(step.key);
        }
        const Traffic traffic = session.LastTraffic();
        // What changes nothing, or leads elsewhere, is no cheap step but none at all.
        const bool there = session.Text().find(step.shows) != std::string::npos;
        const bool done = there && traffic.changedCells > 0;
        figures.Budget(std::string(step.what) + ", cells", done ? traffic.changedCells : -1, "",
                       step.mostCells);
        figures.Budget(std::string(step.what) + ", bytes",
                       done ? static_cast<double>(traffic.bytes) : -1, "B",
                       kMostBytesPerCell * step.mostCells);
    }
}

// A program that writes as fast as it can: what has scrolled by unseen need not be sent.
void MeasureOutput(Figures& figures, const FileTree& tree) {
    SessionOptions options;
    options.directory = tree.Path();
    Session session(options);
    session.Press("Ctrl-o");
    session.Type("seq -f 'line %g of the output' 1000");
    session.Press("Enter");
    const bool done = session.Text().find("line 1000 of the output") != std::string::npos;
    const double bytes = static_cast<double>(session.LastTraffic().bytes);
    figures.Budget("program writes 1,000 lines, bytes", done ? bytes : -1, "B", kMostOutputBytes);
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
    Figures figures("Boxes over a full screen of 200x60, on the way to the display");
    MeasureBoxes(figures, tree);
    MeasureOutput(figures, tree);
    return over == 0 && figures.Failures() == 0 ? 0 : 1;
}

}  // namespace zt::bench

int main() {
    return zt::bench::Main();
}
