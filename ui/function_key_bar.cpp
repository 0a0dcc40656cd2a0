// The labels of the function keys, how they are painted and clicked.
#include "ui/function_key_bar.h"

#include <algorithm>

#include "console/program_state.h"

namespace zt {

namespace {

// By the modifiers: 1 Alt, 2 Ctrl, 4 Shift.
constexpr FunctionKeyLabels kLabelSets[] = {
    {"1Help", "2Menu", "3View", "4Edit", "5Copy", "6RenMov", "7Mkdir", "8Delete", "9PullDn",
     "10Quit"},
    {"1Left", "2Right", "3View..", "4Edit..", "5DStore", "6Object", "7Find", "8Histry", "9EGA Ln",
     "10Tree"},
    {"1Left", "2Right", "3Name", "4Exten", "5Time", "6Size", "7Unsort", "8Revers", "9", "10"},
    {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"},
    {"1Manual", "2MnMenu", "3View..", "4Edit..", "5Copy", "6Rename", "7MkArch", "8DelOne",
     "9SavSet", "10MenuRe"},
    {"1Brief", "2Full", "3Wide", "4BriefW", "5Unix", "6", "7FindRC", "8DirHst", "9ColChg", "10"},
    {"1LWide", "2RWide", "3View..", "4Edit..", "5SymLnk", "6", "7", "8", "9Sync", "10"},
    {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"},
};
constexpr int kSetMask = 7;
static_assert(sizeof(kLabelSets) / sizeof(kLabelSets[0]) == kSetMask + 1);

constexpr int kKeyCount = 10;
constexpr int kPlainF1 = 0x1003B;
constexpr int kShiftF1 = 0x30054;
constexpr int kCtrlF1 = 0x1005E;
constexpr int kAltF1 = 0x10068;
constexpr int kRightPress = 1, kRightRelease = 6;  // MouseEvent::type

int LastRow() {
    int columns, rows;
    console->GetSize(columns, rows);
    return rows - 1;
}

int LastColumn() {
    int columns, rows;
    console->GetSize(columns, rows);
    return columns - 1;
}

}  // namespace

const FunctionKeyLabels& LabelsForModifiers(int modifiers) {
    return kLabelSets[modifiers & kSetMask];
}

CFunctionKeyBar::CFunctionKeyBar()
    : Win(0, LastRow(), LastColumn(), LastRow(), Colour(ColourClass::kMenuBar)) {}

CFunctionKeyBar::~CFunctionKeyBar() = default;

void CFunctionKeyBar::SetLabels(const FunctionKeyLabels& labels) {
    const Attribute numberColour = Colour(ColourClass::kCommandLine);
    CellString line(Colour(ColourClass::kMenuBar));
    line = line.Padded(ClientWidth());
    Cell* cells = line.Cells();
    for (int i = 0; i < kKeyCount; ++i) {
        const int at = Slot() * i;
        // The number, with the blank before it that parts it from the label to its left.
        const int first = std::max(i == 0 ? 0 : at - 1, 0);
        const int last = std::min(i == kKeyCount - 1 ? at + 1 : at, line.Length() - 1);
        for (int column = first; column <= last; ++column)
            cells[column].attribute = numberColour;
        const char* text = labels[static_cast<size_t>(i)];
        for (int j = 0; text[j] && at + j < line.Length(); ++j) {
            cells[at + j].character = static_cast<uint8_t>(text[j]);
        }
    }
    Print(0, 0, line);
}

int CFunctionKeyBar::KeyForClick(const MouseEvent& event) const {
    const int slot = Slot() > 0 ? Slot() : 1;
    int index = (event.column + 1) / slot;
    if (index > kKeyCount - 1) index = kKeyCount - 1;
    int base = kPlainF1;
    if (event.type == kRightPress || event.type == kRightRelease ||
        (event.modifiers & kModifierAlt)) {
        base = kAltF1;
    } else if (event.modifiers & kModifierShift) {
        base = kShiftF1;
    } else if (event.modifiers & kModifierCtrl) {
        base = kCtrlF1;
    }
    return base + index;
}

}  // namespace zt
