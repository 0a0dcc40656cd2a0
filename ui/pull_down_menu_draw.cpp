// How the menu bar, its titles and the entries of a drop-down look.
#include <algorithm>

#include "console/program_state.h"
#include "ui/pull_down_menu.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr wchar_t kMark = 0x221A;
constexpr wchar_t kLine = 0x2500;

Attribute WithForegroundOf(Attribute background, ColourClass foreground) {
    return static_cast<Attribute>((background & 0xF0) | (Colour(foreground) & 0x0F));
}

}  // namespace

void PullDownMenu::Paint() {
    UpdateFreeze freeze;
    DrawTitles();
    const int column = kMenuTitles[menuIndex].column;
    if (dropDown && (!open || dropDown->Left() != column)) dropDown.reset();
    if (!open) return;
    itemIndex = std::clamp(itemIndex, 0, Current().count - 1);
    if (!dropDown) {
        dropDown =
            std::make_unique<Win>(column, 1, column + Current().width + 1, Current().count + 2,
                                  Colour(ColourClass::kMenu), Colour(ColourClass::kMenuBar));
    }
    for (int i = 0; i < Current().count; ++i)
        DrawEntry(i);
}

void PullDownMenu::DrawTitles() {
    const Attribute barColour = Colour(ColourClass::kMenuBar);
    const MenuTitle& current = kMenuTitles[menuIndex];
    const Westring text = kMenuBarText;
    const Westring title = current.text;
    const int end = current.column + title.Length();
    // In one piece, so that no cell is drawn twice.
    CellString line(barColour);
    line.Append(text.Left(current.column).c_str(), barColour);
    line.Append(title.c_str(), Colour(ColourClass::kMenuHighlight));
    line.Append(text.Right(text.Length() - end).c_str(), barColour);
    bar->Print(0, 0, line);
}

void PullDownMenu::DrawEntry(int item) {
    const PullDownEntry& entry = Current().entries[item];
    const int width = Current().width;
    if (!entry.text) {
        dropDown->Print(1, item, Westring::Repeat(kLine, width - 2), Colour(ColourClass::kMenuBar));
        return;
    }
    const bool isCurrent = item == itemIndex;
    Attribute colour = Colour(isCurrent ? ColourClass::kMenuHighlight : ColourClass::kMenu);
    const Attribute hot = WithForegroundOf(colour, ColourClass::kMenuQuickKey);
    if (!entry.code) colour = WithForegroundOf(colour, ColourClass::kDisabledMenu);

    const Westring text = entry.text;
    CellString line(colour);
    line.Append(static_cast<uint32_t>(IsMarked(entry.mark) ? kMark : L' '));
    line.Append(text);
    line = line.Padded(width);
    const int hotIndex = text.Find(static_cast<wchar_t>(entry.quickKey));
    if (hotIndex >= 0) line.Cells()[hotIndex + 1].attribute = hot;
    dropDown->Print(0, item, line);
}

}  // namespace zt
