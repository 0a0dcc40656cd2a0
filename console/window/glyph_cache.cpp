// The masks of all characters that have been painted. Under the GDK lock only.
#include "console/window/glyph_cache.h"

#include <algorithm>

namespace zt {

GlyphCache::GlyphCache(CellFont& fontArgument) : font(fontArgument) {
    Clear();
}

void GlyphCache::Clear() {
    direct.assign(kDirect, kUnknown);
    others.clear();
    masks.assign(static_cast<size_t>(font.MaskBytes()), 0);
    slotCount = 1;
    direct[U' '] = kBlank;
}

GlyphCache::Slot GlyphCache::Find(uint32_t character, bool& isNew) {
    isNew = false;
    if (character < kDirect) {
        uint16_t& slot = direct[character];
        if (slot == kUnknown) slot = Make(character, isNew);
        return slot;
    }
    const auto found = others.find(character);
    if (found != others.end()) return found->second;
    return others[character] = Make(character, isNew);
}

GlyphCache::Slot GlyphCache::Make(uint32_t character, bool& isNew) {
    const size_t size = static_cast<size_t>(font.MaskBytes());
    const size_t start = slotCount * size;
    masks.resize(start + size);
    unsigned char* mask = masks.data() + start;
    std::fill_n(mask, size, static_cast<unsigned char>(0));
    font.Render(character, mask);
    if (std::all_of(mask, mask + size, [](unsigned char pixel) { return pixel == 0; })) {
        return kBlank;
    }
    isNew = true;
    return static_cast<Slot>(slotCount++);
}

const unsigned char* GlyphCache::Mask(Slot slot) const {
    return masks.data() + static_cast<size_t>(slot) * static_cast<size_t>(font.MaskBytes());
}

}  // namespace zt
