// The font of the grid. Under the GDK lock only.
#include "console/window/cell_font.h"

#include <glib-object.h>
#include <pango/pangocairo.h>

#include <algorithm>

#include "console/window/display_text.h"

namespace zt {

namespace {

// A glyph that every font has and whose extents in a monospaced font are those of all others.
constexpr PangoGlyph kMeasuredGlyph = 65;
constexpr uint32_t kNoBreakSpace = 0xA0;

}  // namespace

CellFont::CellFont(PangoContext* contextArgument, const char* family, int size)
    : context(contextArgument) {
    g_object_ref(context);
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family(description, family);
    pango_font_description_set_size(description, size * PANGO_SCALE);
    pango_context_set_font_description(context, description);
    // Each character is drawn for itself in a cell of its own: nothing is reordered.
    pango_context_set_base_dir(context, PANGO_DIRECTION_LTR);
    layout = pango_layout_new(context);
    pango_layout_set_auto_dir(layout, FALSE);
    pango_layout_set_single_paragraph_mode(layout, TRUE);
    pango_layout_set_font_description(layout, description);
    pango_font_description_free(description);
    Measure();
}

CellFont::~CellFont() {
    g_object_unref(layout);
    g_object_unref(context);
}

void CellFont::Measure() {
    PangoRectangle logical{};
    PangoFont* font = pango_context_load_font(context, pango_context_get_font_description(context));
    if (font != nullptr) {
        pango_font_get_glyph_extents(font, kMeasuredGlyph, nullptr, &logical);
        g_object_unref(font);
    }
    // Truncated: the grid must never be wider than the text that a font of this size gives.
    cellWidth = std::max(logical.width / PANGO_SCALE, 1);
    cellHeight = std::max(logical.height / PANGO_SCALE, 1);
    baseline = PANGO_ASCENT(logical) / PANGO_SCALE;
    widestAdvance = std::max(logical.width, cellWidth * PANGO_SCALE);
}

void CellFont::Render(uint32_t character, unsigned char* pixels) {
    const CellMask mask{pixels, cellWidth, cellHeight, MaskStride()};
    const uint32_t shown = DisplayCharacter(character);
    if (shown == U' ' || DrawBoxGlyph(shown, mask)) return;
    DrawText(shown, mask);
}

void CellFont::DrawText(uint32_t character, const CellMask& mask) {
    // A mark that belongs to the letter before it stands in a cell of its own here, over a blank
    // that does not break ("The Unicode Standard", chapter 7.9).
    char utf8[2 * kMaxUtf8Bytes];
    int length = g_unichar_ismark(character) ? EncodeUtf8(kNoBreakSpace, utf8) : 0;
    length += EncodeUtf8(character, utf8 + length);
    pango_layout_set_text(layout, utf8, length);
    PangoLayoutLine* line = pango_layout_get_line_readonly(layout, 0);
    if (line == nullptr) return;
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_line_get_extents(line, &ink, &logical);

    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        mask.pixels, CAIRO_FORMAT_A8, mask.width, mask.height, mask.stride);
    cairo_t* cairo = cairo_create(surface);
    double left = 0;
    if (logical.width > widestAdvance) {
        cairo_scale(cairo, double{PANGO_SCALE} * cellWidth / logical.width, 1);
    } else if (logical.width == 0) {  // a mark that belongs to no letter here: into the middle
        left = cellWidth / 2.0 - (ink.x + ink.width / 2.0) / PANGO_SCALE;
    }
    cairo_move_to(cairo, left, baseline);
    pango_cairo_show_layout_line(cairo, line);
    cairo_destroy(cairo);
    cairo_surface_flush(surface);
    cairo_surface_destroy(surface);
}

}  // namespace zt
