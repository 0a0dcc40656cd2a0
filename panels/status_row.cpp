// Composing the status row.
#include "panels/status_row.h"

#include "foundation/result_codes.h"
#include "panels/entry_fields.h"
#include "panels/entry_row.h"
#include "panels/panel_pair.h"
#include "ui/abbreviate_path.h"

namespace zt {

namespace {

CellString ErrorCells(const CPanel& panel, int width) {
    const char* text =
        panel.readError == kDriveNotReady ? " No disk in drive" : " Error reading drive";
    return CellString(text, Colour(ColourClass::kTagged)).Padded(width);
}

// Of a long text the end shows, where the next character goes.
CellString SearchCells(const CPanel& panel, int width) {
    const Westring label = "Search: ";
    const Westring text = label + panel.searchText.Right(width - label.Length());
    return CellString(text, Colour(ColourClass::kTagged)).Padded(width);
}

CellString TaggedCells(const CPanel& panel, int width) {
    Westring tail = " bytes in ";
    tail += Westring(Estring::FromInteger(panel.taggedCount));
    tail += panel.taggedCount > 1 ? L" selected files" : L" selected file";
    const Westring text = FormatSize(panel.taggedBytes, width - tail.Length()) + tail;
    const int left = (width - text.Length()) / 2;
    return CellString(Westring::Repeat(L' ', left) + text, Colour(ColourClass::kTagged))
        .Padded(width);
}

CellString EntryStatusCells(CPanel& panel, entry& current, int width) {
    const Attribute attribute = Colour(ColourClass::kPanel);
    if (panel.style == kStyleFull) {
        CellString name = WholeName(panel, current, attribute);
        name.SetDefaultAttribute(attribute);
        return name.Padded(width);
    }
    if (panel.style == kStyleTree) {
        IPanelTree* tree = panel.pair->seams.tree;
        Westring path = tree ? tree->SelectedPath(panel) : panel.path;
        AbbreviatePath(path, width);
        return CellString(path, attribute).Padded(width);
    }
    const int nameWidth = panel.columns.Of(kStyleFull).width[0];
    return EntryCells(panel, current, kStyleFull, nameWidth, attribute).Padded(width);
}

}  // namespace

CellString StatusCells(CPanel& panel, int width) {
    if (panel.readError != 0) return ErrorCells(panel, width);
    if (!panel.searchText.IsEmpty()) return SearchCells(panel, width);
    if (panel.taggedCount != 0) return TaggedCells(panel, width);
    if (entry* current = panel.Current()) return EntryStatusCells(panel, *current, width);
    const wchar_t* text = panel.Count() == 0 ? L"Directory is empty" : L"";
    return CellString(text, Colour(ColourClass::kPanel)).Padded(width);
}

}  // namespace zt
