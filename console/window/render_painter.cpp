// Paints cells with the X RENDER extension ("The X Rendering Extension", version 0.10 or later).
// The masks go to the server once; from then on a cell costs a few bytes. Of all cells painted
// together those with one colour go in one request, backgrounds first. Under the GDK lock only.
#include <gdk/gdkx.h>

#include <X11/extensions/Xrender.h>

#include <algorithm>
#include <array>
#include <vector>

#include "console/window/cell_painter.h"
#include "console/window/glyph_cache.h"
#include "console/window/palette.h"

namespace zt {

namespace {

constexpr int kNeededMinorVersion = 10;  // solid fills
// Keeps a request below the length that every server takes.
constexpr size_t kMaxRunsInRequest = 4096;

// Masks of neighbouring cells of one colour.
struct Run {
    int x;
    int y;
    size_t firstSlot;
    int count;
};

struct ColourWork {
    std::vector<XRectangle> backgrounds;
    std::vector<Run> runs;
    std::vector<GlyphCache::Slot> slots;
    Picture picture = 0;
};

class RenderPainter : public CellPainter {
public:
    RenderPainter(Display* display, Picture target, CellFont& font);
    ~RenderPainter() override;
    void Add(int column, int row, Cell cell) override;
    void Flush() override;

private:
    GlyphCache::Slot UploadedSlot(uint32_t character);
    void Upload(GlyphCache::Slot slot);
    void AddBackground(ColourWork& work, int x, int y);
    void AddSlot(ColourWork& work, int x, int y, GlyphCache::Slot slot);
    void FlushBackgrounds();
    void FlushRuns(ColourWork& work);

    Display* display;
    Picture target;
    GlyphCache cache;
    int width;
    int height;
    GlyphSet glyphs;
    std::array<ColourWork, kPaletteSize> colours;
    std::vector<XGlyphElt16> elements;
    std::vector<unsigned char> trimmed;
};

XRenderColor RenderColour(size_t index) {
    static constexpr Palette kPalette = MakePalette();
    const PaletteColour& colour = kPalette[index];
    return XRenderColor{colour.red, colour.green, colour.blue, 0xFFFF};
}

GlyphSet NewGlyphSet(Display* display) {
    return XRenderCreateGlyphSet(display, XRenderFindStandardFormat(display, PictStandardA8));
}

RenderPainter::RenderPainter(Display* displayArgument, Picture targetArgument, CellFont& font)
    : display(displayArgument),
      target(targetArgument),
      cache(font),
      width(font.CellWidth()),
      height(font.CellHeight()),
      glyphs(NewGlyphSet(display)) {
    for (size_t i = 0; i < colours.size(); i++) {
        const XRenderColor colour = RenderColour(i);
        colours[i].picture = XRenderCreateSolidFill(display, &colour);
    }
}

RenderPainter::~RenderPainter() {
    for (const ColourWork& work : colours)
        XRenderFreePicture(display, work.picture);
    XRenderFreeGlyphSet(display, glyphs);
    XRenderFreePicture(display, target);
}

GlyphCache::Slot RenderPainter::UploadedSlot(uint32_t character) {
    if (cache.IsFull()) {
        Flush();
        cache.Clear();
        XRenderFreeGlyphSet(display, glyphs);
        glyphs = NewGlyphSet(display);
    }
    bool isNew;
    const GlyphCache::Slot slot = cache.Find(character, isNew);
    if (isNew) Upload(slot);
    return slot;
}

// Only the part of the mask with something in it: the server blends every pixel that it has.
void RenderPainter::Upload(GlyphCache::Slot slot) {
    const unsigned char* mask = cache.Mask(slot);
    const int stride = cache.Font().MaskStride();
    int left = width;
    int top = height;
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < height; y++) {
        for (int x = 0; x < width; x++) {
            if (mask[y * stride + x] == 0) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = y + 1;
        }
    }
    const int inkStride = (right - left + 3) & ~3;
    trimmed.assign(static_cast<size_t>(inkStride * (bottom - top)), 0);
    for (int y = top; y < bottom; y++) {
        std::copy(mask + y * stride + left, mask + y * stride + right,
                  trimmed.begin() + inkStride * (y - top));
    }
    const Glyph id = slot;
    const XGlyphInfo info{static_cast<unsigned short>(right - left),
                          static_cast<unsigned short>(bottom - top),
                          static_cast<short>(-left),
                          static_cast<short>(-top),
                          static_cast<short>(width),
                          0};
    XRenderAddGlyphs(display, glyphs, &id, &info, 1, reinterpret_cast<const char*>(trimmed.data()),
                     static_cast<int>(trimmed.size()));
}

void RenderPainter::AddBackground(ColourWork& work, int x, int y) {
    if (!work.backgrounds.empty()) {
        XRectangle& last = work.backgrounds.back();
        if (last.y == y && last.x + last.width == x) {
            last.width = static_cast<unsigned short>(last.width + width);
            return;
        }
    }
    work.backgrounds.push_back({static_cast<short>(x), static_cast<short>(y),
                                static_cast<unsigned short>(width),
                                static_cast<unsigned short>(height)});
}

void RenderPainter::AddSlot(ColourWork& work, int x, int y, GlyphCache::Slot slot) {
    const bool goesOn = !work.runs.empty() && work.runs.back().y == y &&
                        work.runs.back().x + work.runs.back().count * width == x;
    if (!goesOn) work.runs.push_back({x, y, work.slots.size(), 0});
    work.runs.back().count++;
    work.slots.push_back(slot);
}

void RenderPainter::Add(int column, int row, Cell cell) {
    const int x = column * width;
    const int y = row * height;
    const GlyphCache::Slot slot = UploadedSlot(cell.character);
    AddBackground(colours[cell.attribute >> 4], x, y);
    if (slot != GlyphCache::kBlank) AddSlot(colours[cell.attribute & 0xF], x, y, slot);
}

void RenderPainter::FlushBackgrounds() {
    for (size_t i = 0; i < colours.size(); i++) {
        std::vector<XRectangle>& rects = colours[i].backgrounds;
        if (rects.empty()) continue;
        const XRenderColor colour = RenderColour(i);
        XRenderFillRectangles(display, PictOpSrc, target, &colour, rects.data(),
                              static_cast<int>(rects.size()));
        rects.clear();
    }
}

void RenderPainter::FlushRuns(ColourWork& work) {
    for (size_t first = 0; first < work.runs.size(); first += kMaxRunsInRequest) {
        const size_t end = std::min(first + kMaxRunsInRequest, work.runs.size());
        elements.clear();
        int penX = 0;
        int penY = 0;
        for (size_t i = first; i < end; i++) {
            const Run& run = work.runs[i];
            elements.push_back(
                {glyphs, &work.slots[run.firstSlot], run.count, run.x - penX, run.y - penY});
            penX = run.x + run.count * width;
            penY = run.y;
        }
        XRenderCompositeText16(display, PictOpOver, work.picture, target, nullptr, 0, 0, 0, 0,
                               elements.data(), static_cast<int>(elements.size()));
    }
    work.runs.clear();
    work.slots.clear();
}

void RenderPainter::Flush() {
    FlushBackgrounds();
    for (ColourWork& work : colours)
        FlushRuns(work);
}

bool HasRender(Display* display) {
    int event;
    int error;
    int major = 0;
    int minor = 0;
    return XRenderQueryExtension(display, &event, &error) &&
           XRenderQueryVersion(display, &major, &minor) &&
           (major > 0 || minor >= kNeededMinorVersion);
}

}  // namespace

std::unique_ptr<CellPainter> MakeRenderPainter(GdkPixmap* pixmap, CellFont& font) {
    Display* display = GDK_DISPLAY_XDISPLAY(gdk_drawable_get_display(pixmap));
    GdkVisual* visual = gdk_drawable_get_visual(pixmap);
    if (visual == nullptr || !HasRender(display)) return nullptr;
    XRenderPictFormat* format =
        XRenderFindVisualFormat(display, gdk_x11_visual_get_xvisual(visual));
    if (format == nullptr) return nullptr;
    const Picture target =
        XRenderCreatePicture(display, GDK_PIXMAP_XID(pixmap), format, 0, nullptr);
    return std::make_unique<RenderPainter>(display, target, font);
}

}  // namespace zt
