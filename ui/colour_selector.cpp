// The colour list: rows in their own colours, and the keys that step them.
#include "ui/colour_selector.h"

#include "ui/dialog.h"

namespace zt {

namespace {

constexpr int kForegroundStep = 0x01;
constexpr int kBackgroundStep = 0x10;

// Steps one nibble of the attribute; the other keeps its value.
Attribute Step(Attribute attribute, int step, int mask) {
    return static_cast<Attribute>((attribute & ~mask) | ((attribute + step) & mask));
}

}  // namespace

ColourSelector::ColourSelector(int x_, int y_, int width_, int height_, const char* const* names,
                               Attribute* colours_, int count_, int32_t* variable_, int exitCode_)
    : ListBoxString(x_, y_, width_, height_, names, count_, variable_, exitCode_),
      colours(colours_) {}

void ColourSelector::DrawRow(int windowRow, int itemIndex, Attribute attribute) {
    const bool isItem = itemIndex >= 0 && itemIndex < Count();
    const bool isCursor = isItem && itemIndex == Chosen();
    const Attribute own = isItem ? colours[itemIndex] : attribute;
    ListBoxString::DrawRow(windowRow, itemIndex, own);
    const Attribute around = dialog->DialogAttribute(DialogColour::kText);
    dialog->Print(x - 1, y + windowRow, isCursor ? L">" : L" ", around);
    dialog->Print(x + Width(), y + windowRow, isCursor ? L"<" : L" ", around);
}

bool ColourSelector::HandleOwnKey(int key) {
    if (Chosen() >= Count()) return false;
    Attribute& colour = colours[Chosen()];
    switch (key) {
        case 'f':
            colour = Step(colour, kForegroundStep, 0x0F);
            break;
        case 'F':
            colour = Step(colour, -kForegroundStep, 0x0F);
            break;
        case 'b':
            colour = Step(colour, kBackgroundStep, 0xF0);
            break;
        case 'B':
            colour = Step(colour, -kBackgroundStep, 0xF0);
            break;
        default:
            return false;
    }
    Draw();
    return true;
}

}  // namespace zt
