// Building the cells of an entry.
#include "panels/entry_row.h"

#include <algorithm>

#include "foundation/settings.h"
#include "panels/entry_fields.h"
#include "panels/panel_pair.h"

namespace zt {

namespace {

constexpr uint32_t kLinkArrow = 0x00BB;
constexpr uint32_t kHiddenMark = 0x2591;
constexpr uint32_t kFieldSeparator = 0x2502;
constexpr Attribute kForeground = 0x0F;
constexpr Attribute kBackground = 0xF0;
constexpr Attribute kBrokenLinkForeground = 12;  // bright red

Attribute WithForeground(Attribute attribute, Attribute foreground) {
    return static_cast<Attribute>((attribute & kBackground) | (foreground & kForeground));
}

uint32_t MarkOf(const entry& e) {
    if (e.IsLink() && !e.IsDirectory()) return '@';
    return e.IsHidden() ? kHiddenMark : 0;
}

// Where the kept extension begins; -1 when the cut text keeps none.
int KeptExtension(const CellString& text, int width) {
    if (!settings.keepExtVisible) return -1;
    const int stop = text.FindLast('.');
    if (stop < 0 || (text.Length() - stop) * 2 > width) return -1;
    return stop;
}

CellString CutName(const CellString& text, int width, Attribute attribute) {
    if (width <= 0) return CellString(attribute);
    const int extension = KeptExtension(text, width);
    const int kept = extension < 0 ? width : width - (text.Length() - extension);
    CellString cut = text.Left(kept - 1);
    cut.Append(Cell{static_cast<uint32_t>(kRightTriangle), attribute});
    if (extension >= 0) cut.Append(text.Mid(extension));
    return cut;
}

class RowBuilder {
public:
    explicit RowBuilder(Attribute attribute) : cells_(attribute) {
        separator_.character = kFieldSeparator;
        separator_.attribute = WithForeground(attribute, Colour(ColourClass::kPanel));
    }
    void Add(const CellString& field) {
        Separate();
        cells_.Append(field);
    }
    void Add(const Westring& field) {
        Separate();
        cells_.Append(field);
    }
    const CellString& Cells() const { return cells_; }

private:
    void Separate() {
        if (cells_.Length() > 0) cells_.Append(separator_);
    }

    CellString cells_;
    Cell separator_;
};

}  // namespace

Attribute AttributeOf(const CPanel& panel, const entry& e) {
    if (e.tagged) return Colour(ColourClass::kTagged);
    const Attribute base =
        Colour(e.IsDirectory() ? ColourClass::kDirectories : ColourClass::kPanel);
    IEntryColours* rules = panel.pair->seams.colours;
    return rules ? rules->ColourOf(panel, e, base) : base;
}

Attribute BarAttributeOf(const entry& e) {
    if (e.tagged) return Colour(ColourClass::kHighlightTagged);
    return Colour(e.IsDirectory() ? ColourClass::kDirectoryHigh : ColourClass::kHighlight);
}

CellString WholeName(CPanel& panel, const entry& e, Attribute attribute) {
    CellString text(e.name, attribute);
    if (!e.IsLink()) return text;
    Westring target;
    ResolveLinkTarget(panel, e, target);
    const Attribute foreground =
        (e.flags & kBrokenLink) != 0 ? kBrokenLinkForeground : Colour(ColourClass::kTagged);
    text.Append(static_cast<uint32_t>(L' '));
    text.Append(Cell{kLinkArrow, WithForeground(attribute, foreground)});
    text.Append(static_cast<uint32_t>(L' '));
    text.Append(target);
    return text;
}

CellString NameField(CPanel& panel, const entry& e, int width, Attribute attribute, int* shift) {
    CellString text = WholeName(panel, e, attribute);
    const uint32_t mark = width > 0 ? MarkOf(e) : 0;
    const int room = mark ? width - 1 : width;
    if (shift) {
        *shift = std::clamp(*shift, 0, std::max(text.Length() - room, 0));
        if (*shift > 0) text = text.Mid(*shift);
    }
    if (text.Length() > room) text = CutName(text, room, attribute);
    text.SetDefaultAttribute(attribute);
    CellString field = text.Padded(std::max(room, 0));
    if (mark) field.Append(Cell{mark, attribute});
    return field;
}

CellString EntryCells(CPanel& panel, const entry& e, int style, int nameWidth, Attribute attribute,
                      int* shift) {
    const CellString name = NameField(panel, e, nameWidth, attribute, shift);
    const StyleColumns& columns = panel.columns.Of(style);
    RowBuilder row(attribute);
    switch (style) {
        case kStyleFull:
            row.Add(name);
            row.Add(SizeField(e, columns.width[1]));
            row.Add(DateField(e, columns.width[2]));
            row.Add(TimeField(e, columns.width[3]));
            return row.Cells();
        case kStyleWide:
            row.Add(SizeField(e, columns.width[0]));
            row.Add(name);
            return row.Cells();
        case kStyleUnix:
            row.Add(name);
            row.Add(SizeField(e, columns.width[1]));
            row.Add(ModeField(e.mode));
            row.Add(panel.pair->owners.UserName(e.uid).PadRight(columns.width[3]));
            row.Add(panel.pair->owners.GroupName(e.gid).PadRight(columns.width[4]));
            return row.Cells();
        default:
            return name;
    }
}

}  // namespace zt
