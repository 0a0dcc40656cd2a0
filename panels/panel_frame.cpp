// Composing the frame lines of a panel.
#include "panels/panel_frame.h"

#include <algorithm>

#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/panel_pair.h"
#include "ui/abbreviate_path.h"
#include "ui/clock_window.h"

namespace zt {

namespace {

constexpr uint32_t kDoubleHorizontal = 0x2550;
constexpr uint32_t kHorizontal = 0x2500;

bool HasColumns(const CPanel& panel) {
    return panel.IsFiles() && panel.style < kFileStyleCount;
}

// Styles whose status row has the fields of the full style, unlike the list above it.
bool HasStatusFields(const CPanel& panel) {
    return HasColumns(panel) && panel.style != kStyleFull;
}

CellString Line(const CPanel& panel, uint32_t left, uint32_t fill, uint32_t right) {
    CellString line(Colour(ColourClass::kPanel));
    const int inside = panel.window->ClientWidth();
    line.Append(left);
    for (int i = 0; i < inside; ++i)
        line.Append(fill);
    line.Append(right);
    return line;
}

// At each boundary between the columns of `style`.
void PutJunctions(const CPanel& panel, int style, uint32_t junction, CellString& line) {
    const StyleColumns& columns = panel.columns.Of(style);
    for (int i = 1; i < columns.count; ++i) {
        const int position = columns.Start(i);  // one cell of frame, less one of separator
        if (position > 0 && position < line.Length() - 1) {
            line.Cells()[position].character = junction;
        }
    }
}

int ClockSpace(const CPanel& panel) {
    const bool reachesCorner = panel.side == 1 || panel.width == kWidthFull;
    return reachesCorner && settings.clock ? ClockWidth() : 0;
}

Attribute TitleAttribute(const CPanel& panel) {
    const bool isActive = panel.pair->active == panel.side;
    if (panel.archive) {
        return Colour(isActive ? ColourClass::kHighlightTagged : ColourClass::kTagged);
    }
    return Colour(isActive ? ColourClass::kHighlight : ColourClass::kPanel);
}

Westring TitleText(const CPanel& panel, int room) {
    Westring text = panel.path;
    const bool isFiltered = !(panel.filter.Length() == 1 && panel.filter[0] == L'*');
    if (isFiltered) {
        text.AddTrailingSlash();
        text += L"?";
    }
    AbbreviatePath(text, std::max(room, 0));
    return L" " + text + L" ";
}

void PutTitle(const CPanel& panel, CellString& line) {
    const int width = line.Length();
    const int clock = ClockSpace(panel);
    Westring title;
    int centre = width / 2;
    if (!HasColumns(panel)) {
        title = panel.IsFiles() ? " TREE " : " INFO ";
    } else {
        title = TitleText(panel, width - 4 - clock);
        if (panel.width == kWidthFull) centre = (panel.side == 0 ? width : 3 * width) / 4;
    }
    const int length = title.Length();
    int left = centre - (length + 1) / 2;
    if (HasColumns(panel)) left = std::min(left, width - 1 - clock - length);
    left = std::max(left, 0);
    const Attribute attribute = TitleAttribute(panel);
    for (int i = 0; i < length && left + i < width; ++i) {
        line.Cells()[left + i] = Cell{static_cast<uint32_t>(title[i]), attribute};
    }
}

}  // namespace

CellString HeaderCells(const CPanel& panel) {
    CellString line = Line(panel, 0x2554, kDoubleHorizontal, 0x2557);
    if (HasColumns(panel)) PutJunctions(panel, panel.style, 0x2564, line);
    PutTitle(panel, line);
    return line;
}

CellString SeparatorCells(const CPanel& panel) {
    CellString line = Line(panel, 0x255F, kHorizontal, 0x2562);
    if (HasColumns(panel)) PutJunctions(panel, panel.style, 0x2534, line);
    if (HasStatusFields(panel)) PutJunctions(panel, kStyleFull, 0x252C, line);
    return line;
}

CellString BottomCells(const CPanel& panel) {
    CellString line = Line(panel, 0x255A, kDoubleHorizontal, 0x255D);
    if (HasStatusFields(panel)) PutJunctions(panel, kStyleFull, 0x2567, line);
    return line;
}

void DrawHeaderLine(CPanel& panel) {
    CellString line = HeaderCells(panel);
    // The clock stands over the corner and ticks by itself.
    if (ClockWindowShown()) line = line.Left(line.Length() - ClockSpace(panel));
    panel.window->Print(-1, -1, line);
}

void DrawFrameLines(CPanel& panel) {
    DrawHeaderLine(panel);
    panel.window->Print(-1, panelRows, SeparatorCells(panel));
    panel.window->Print(-1, panelRows + 2, BottomCells(panel));
}

}  // namespace zt
