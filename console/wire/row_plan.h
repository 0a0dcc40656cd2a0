// How one row of the display is brought up to date with the fewest bytes: the row is cut into runs,
// each of which goes as one request, and into gaps that need none.
//
// The cost of a run is that of its frame and of its cells, so the best cut is found in one walk
// over the row that keeps, for each way of sending, the least cost so far of ending in it.
#pragma once

#include <cstdint>
#include <vector>

#include "console/cell.h"

namespace zt {

enum class RunKind : uint8_t {
    kNone,        // the display shows these cells already
    kCells,       // text with an attribute for each cell
    kText,        // text in one attribute
    kRepeat,      // one cell, repeated
    kAttributes,  // the characters stand; one attribute for all
};
inline constexpr int kRunKindCount = 5;

struct CellRun {
    RunKind kind;
    int row;
    int left;
    int right;
};

// A display shows these codes as one sign for all of them, except in a repeated cell.
constexpr bool IsShownAsHouse(uint32_t code) {
    return code >= 127 && code <= 159;
}

class RowPlanner {
public:
    // Appends the runs, left to right, that make `sent` into `wanted` between the two columns, and
    // gives what they cost in bytes. Both are whole rows.
    int Plan(const Cell* wanted, const Cell* sent, int row, int left, int right,
             std::vector<CellRun>& runs);

private:
    struct Step {
        RunKind from[kRunKindCount];  // the kind of the cell before, when this one has the index's
        bool begins[kRunKindCount];   // whether a new run begins here
    };
    void Collect(RunKind last, int row, int left, std::vector<CellRun>& runs) const;

    std::vector<Step> steps_;
};

}  // namespace zt
