// Paints cells on a display without the RENDER extension: each run of neighbouring cells is made
// into an image here and sent whole. Slower, and much more to send. Under the GDK lock only.
#include <vector>

#include "console/window/cell_painter.h"
#include "console/window/glyph_cache.h"
#include "console/window/palette.h"

namespace zt {

namespace {

constexpr int kBytesPerPixel = 3;
constexpr Palette kPalette = MakePalette();

unsigned char Mix(uint16_t background, uint16_t foreground, unsigned char cover) {
    const int from = background >> 8;
    const int to = foreground >> 8;
    return static_cast<unsigned char>(from + (to - from) * cover / 0xFF);
}

class ImagePainter : public CellPainter {
public:
    ImagePainter(GdkPixmap* pixmapArgument, CellFont& font)
        : pixmap(pixmapArgument), cache(font), context(gdk_gc_new(pixmap)) {}
    ~ImagePainter() override { g_object_unref(context); }

    void Add(int column, int row, Cell cell) override {
        if (row != runRow || column != runColumn + static_cast<int>(run.size())) Flush();
        if (run.empty()) {
            runColumn = column;
            runRow = row;
        }
        run.push_back(cell);
    }

    void Flush() override;

private:
    void DrawCell(Cell cell, unsigned char* pixels, int stride);

    GdkPixmap* pixmap;
    GlyphCache cache;
    GdkGC* context;
    int runColumn = 0;
    int runRow = 0;
    std::vector<Cell> run;
    std::vector<unsigned char> image;
};

void ImagePainter::DrawCell(Cell cell, unsigned char* pixels, int stride) {
    if (cache.IsFull()) cache.Clear();
    bool isNew;
    const CellFont& font = cache.Font();
    const unsigned char* mask = cache.Mask(cache.Find(cell.character, isNew));
    const PaletteColour& back = kPalette[cell.attribute >> 4];
    const PaletteColour& fore = kPalette[cell.attribute & 0xF];
    for (int y = 0; y < font.CellHeight(); y++) {
        unsigned char* out = pixels + static_cast<ptrdiff_t>(y) * stride;
        const unsigned char* cover = mask + static_cast<ptrdiff_t>(y) * font.MaskStride();
        for (int x = 0; x < font.CellWidth(); x++) {
            *out++ = Mix(back.red, fore.red, cover[x]);
            *out++ = Mix(back.green, fore.green, cover[x]);
            *out++ = Mix(back.blue, fore.blue, cover[x]);
        }
    }
}

void ImagePainter::Flush() {
    if (run.empty()) return;
    const int cellWidth = cache.Font().CellWidth();
    const int cellHeight = cache.Font().CellHeight();
    const int width = cellWidth * static_cast<int>(run.size());
    const int stride = width * kBytesPerPixel;
    image.resize(static_cast<size_t>(stride) * static_cast<size_t>(cellHeight));
    for (size_t i = 0; i < run.size(); i++) {
        DrawCell(run[i], image.data() + i * static_cast<size_t>(cellWidth * kBytesPerPixel),
                 stride);
    }
    gdk_draw_rgb_image(pixmap, context, runColumn * cellWidth, runRow * cellHeight, width,
                       cellHeight, GDK_RGB_DITHER_NONE, image.data(), stride);
    run.clear();
}

}  // namespace

std::unique_ptr<CellPainter> MakeImagePainter(GdkPixmap* pixmap, CellFont& font) {
    return std::make_unique<ImagePainter>(pixmap, font);
}

std::unique_ptr<CellPainter> MakeCellPainter(GdkPixmap* pixmap, CellFont& font) {
    auto painter = MakeRenderPainter(pixmap, font);
    return painter != nullptr ? std::move(painter) : MakeImagePainter(pixmap, font);
}

}  // namespace zt
