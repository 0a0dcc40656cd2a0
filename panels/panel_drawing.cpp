// Painting panels from the pieces that entry_row, panel_frame, scroll_bar and status_row make.
#include "panels/panel_drawing.h"

#include "console/program_state.h"
#include "panels/entry_row.h"
#include "panels/panel_frame.h"
#include "panels/panel_pair.h"
#include "panels/scroll_bar.h"
#include "panels/status_row.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr uint32_t kVerticalLine = 0x2502;
constexpr uint32_t kDoubleVertical = 0x2551;
constexpr uint32_t kThumbTop = 0x25B2;
constexpr uint32_t kThumbBottom = 0x25BC;

bool HasWindow(const CPanel& panel) {
    return panel.window && !panel.window->IsHidden();
}

bool CanDrawEntries(const CPanel& panel) {
    return HasWindow(panel) && panel.IsFiles();
}

IPanelTree* TreeOf(const CPanel& panel) {
    return panel.IsTree() ? panel.pair->seams.tree : nullptr;
}

CellString EmptyRow(const CPanel& panel) {
    CellString row = CellString(Colour(ColourClass::kPanel)).Padded(panel.window->ClientWidth());
    if (panel.style >= kFileStyleCount) return row;
    const StyleColumns& columns = panel.columns.Of(panel.style);
    for (int i = 1; i < columns.count; ++i) {
        const int position = columns.Start(i) - 1;
        if (position >= 0 && position < row.Length())
            row.Cells()[position].character = kVerticalLine;
    }
    return row;
}

void Overlay(CellString& row, int x, const CellString& cells) {
    for (int i = 0; i < cells.Length() && x + i < row.Length(); ++i) {
        row.Cells()[x + i] = cells.At(i);
    }
}

CellString CellsOf(CPanel& panel, int index, int nameWidth) {
    const entry& e = *panel.entries.At(index);
    return EntryCells(panel, e, panel.style, nameWidth, AttributeOf(panel, e));
}

// One row of the window with all entries that stand in it, in one piece.
void DrawRow(CPanel& panel, int y) {
    CellString row = EmptyRow(panel);
    for (int column = 0; column < EntryColumns(panel.style); ++column) {
        const int onPage = column * panelRows + y;
        if (panel.top + onPage >= panel.Count()) break;
        const EntryPlace place = PlaceOf(panel.columns, panel.style, onPage, panelRows);
        Overlay(row, place.x, CellsOf(panel, panel.top + onPage, place.nameWidth));
    }
    panel.window->Print(0, y, row);
}

void DrawTreeRows(CPanel& panel, IPanelTree& tree) {
    for (int y = 0; y < panelRows; ++y) {
        if (panel.top + y < panel.Count()) {
            tree.DrawRow(panel, panel.top + y, kByRules);
        } else {
            panel.window->Print(0, y, EmptyRow(panel));
        }
    }
}

}  // namespace

void DrawEntries(CPanel& panel) {
    if (!CanDrawEntries(panel)) return;
    const UpdateFreeze freeze;
    if (IPanelTree* tree = TreeOf(panel)) {
        DrawTreeRows(panel, *tree);
    } else {
        for (int y = 0; y < panelRows; ++y)
            DrawRow(panel, y);
    }
    DrawScrollBar(panel);
}

void DrawEntry(CPanel& panel, int index, int attribute) {
    if (!CanDrawEntries(panel) || !panel.entries.At(index)) return;
    const int onPage = index - panel.top;
    if (onPage < 0 || onPage >= panel.visibleEntries) return;
    if (IPanelTree* tree = TreeOf(panel)) {
        tree->DrawRow(panel, index, attribute);
        return;
    }
    const entry& e = *panel.entries.At(index);
    const EntryPlace place = PlaceOf(panel.columns, panel.style, onPage, panelRows);
    const bool isBar = attribute != kByRules;
    const Attribute shown = isBar ? static_cast<Attribute>(attribute) : AttributeOf(panel, e);
    int* shift = isBar && index == panel.nameShiftIndex ? &panel.nameShift : nullptr;
    const CellString cells = EntryCells(panel, e, panel.style, place.nameWidth, shown, shift);
    panel.window->Print(place.x, place.y, cells.Left(panel.window->ClientWidth() - place.x));
}

void DrawHeader(CPanel& panel) {
    if (HasWindow(panel)) DrawHeaderLine(panel);
}

void DrawScrollBar(CPanel& panel) {
    if (!HasWindow(panel)) return;
    ScrollThumb thumb;
    if (panel.IsFiles()) {
        thumb = ThumbOf(panelRows, panel.visibleEntries, panel.Count(), panel.top);
    }
    const int x = panel.window->ClientWidth();
    const int end = thumb.start + thumb.length;
    for (int y = 0; y < panelRows; ++y) {
        uint32_t sign = kDoubleVertical;
        if (y >= thumb.start && y < end) {
            sign = y == thumb.start ? kThumbTop : y == end - 1 ? kThumbBottom : kVerticalLine;
        }
        CellString cell(Colour(ColourClass::kPanel));
        cell.Append(sign);
        panel.window->Print(x, y, cell);
    }
}

void DrawStatusRow(CPanel& panel) {
    if (!CanDrawEntries(panel)) return;
    panel.window->Print(0, panelRows + 1, StatusCells(panel, panel.window->ClientWidth()));
}

void DrawPanel(CPanel& panel) {
    if (!HasWindow(panel)) return;
    const UpdateFreeze freeze;
    DrawFrameLines(panel);
    if (panel.IsFiles()) {
        DrawEntries(panel);
        DrawStatusRow(panel);
        return;
    }
    DrawScrollBar(panel);
    if (IPanelInfo* info = panel.pair->seams.info) info->Draw(panel);
}

void DrawCursorBar(CPanel& panel) {
    if (const entry* current = panel.Current()) {
        DrawEntry(panel, panel.CurrentIndex(), BarAttributeOf(*current));
    }
    DrawStatusRow(panel);
}

void RemoveCursorBar(CPanel& panel) {
    DrawEntry(panel, panel.CurrentIndex());
}

}  // namespace zt
