// Finding the cheapest cut of a row into requests.
#include "console/wire/row_plan.h"

#include <algorithm>
#include <climits>

#include "console/wire/frame_buffer.h"

namespace zt {

namespace {

constexpr int kHead = 6;  // magic, opcode, count
constexpr int kInteger = kParameterHeaderBytes + kIntegerBytes;
constexpr int kAttribute = kParameterHeaderBytes + 1;
// What a run costs before its first cell.
constexpr int kCellsStart = kHead + 2 * kInteger + kParameterHeaderBytes + 1;
constexpr int kTextStart = kHead + 2 * kInteger + kParameterHeaderBytes + kAttribute;
constexpr int kRepeatStart = kHead + 3 * kInteger + kParameterHeaderBytes + 1 + 1;
constexpr int kAttributesStart = kHead + 3 * kInteger + kAttribute;
constexpr int kNever = INT_MAX / 2;

// For each kind, what this cell adds when its run goes on and when it begins one.
struct CellCosts {
    int goesOn[kRunKindCount];
    int begins[kRunKindCount];
};

CellCosts CostsOf(Cell cell, Cell shown, const Cell* before) {
    const int size = Utf8Bytes(cell.character);
    const bool asText = !IsShownAsHouse(cell.character);
    const bool sameCharacter = cell.character == shown.character;
    const bool likeBefore = before != nullptr && before->attribute == cell.attribute;
    const bool repeats = before != nullptr && *before == cell;
    CellCosts costs;
    const auto set = [&](RunKind kind, int goesOn, int begins) {
        costs.goesOn[static_cast<int>(kind)] = goesOn;
        costs.begins[static_cast<int>(kind)] = begins;
    };
    const int none = cell == shown ? 0 : kNever;
    set(RunKind::kNone, none, none);
    set(RunKind::kCells, asText ? size + 1 : kNever, asText ? kCellsStart + size + 1 : kNever);
    set(RunKind::kText, asText && likeBefore ? size : kNever, asText ? kTextStart + size : kNever);
    set(RunKind::kRepeat, repeats ? 0 : kNever, kRepeatStart + size);
    set(RunKind::kAttributes, sameCharacter && likeBefore ? 0 : kNever,
        sameCharacter ? kAttributesStart : kNever);
    return costs;
}

int Cheapest(const int (&costs)[kRunKindCount]) {
    return static_cast<int>(std::min_element(costs, costs + kRunKindCount) - costs);
}

}  // namespace

int RowPlanner::Plan(const Cell* wanted, const Cell* sent, int row, int left, int right,
                     std::vector<CellRun>& runs) {
    if (left >= right) return 0;
    steps_.resize(static_cast<size_t>(right - left));
    int soFar[kRunKindCount] = {0, kNever, kNever, kNever, kNever};
    for (int column = left; column < right; column++) {
        const CellCosts costs =
            CostsOf(wanted[column], sent[column], column > left ? wanted + column - 1 : nullptr);
        const int before = Cheapest(soFar);
        Step& step = steps_[static_cast<size_t>(column - left)];
        int next[kRunKindCount];
        for (int kind = 0; kind < kRunKindCount; kind++) {
            const int goesOn = std::min(soFar[kind] + costs.goesOn[kind], kNever);
            const int begins = std::min(soFar[before] + costs.begins[kind], kNever);
            step.begins[kind] = begins < goesOn;
            step.from[kind] = static_cast<RunKind>(begins < goesOn ? before : kind);
            next[kind] = std::min(goesOn, begins);
        }
        std::copy_n(next, kRunKindCount, soFar);
    }
    const int last = Cheapest(soFar);
    Collect(static_cast<RunKind>(last), row, left, runs);
    return soFar[last];
}

// Walks the steps back from the end and appends the runs in order.
void RowPlanner::Collect(RunKind last, int row, int left, std::vector<CellRun>& runs) const {
    const size_t first = runs.size();
    RunKind kind = last;
    int end = left + static_cast<int>(steps_.size());
    for (int column = end - 1; column >= left; column--) {
        const Step& step = steps_[static_cast<size_t>(column - left)];
        const auto index = static_cast<size_t>(kind);
        const RunKind from = step.from[index];
        const bool begins = step.begins[index] || from != kind || column == left;
        if (!begins) continue;
        if (kind != RunKind::kNone) runs.push_back({kind, row, column, end});
        end = column;
        kind = from;
    }
    std::reverse(runs.begin() + static_cast<std::ptrdiff_t>(first), runs.end());
}

}  // namespace zt
