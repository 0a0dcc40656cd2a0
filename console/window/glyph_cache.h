// The masks of all characters that have been painted, each made once. A slot is the number of a
// mask; slot 0 is the blank. Under the GDK lock only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "console/window/cell_font.h"

namespace zt {

class GlyphCache {
public:
    using Slot = uint16_t;
    static constexpr Slot kBlank = 0;
    // Beyond this many masks the cache is to be emptied: some megabytes.
    static constexpr size_t kMaxSlots = 16384;

    explicit GlyphCache(CellFont& font);

    bool IsFull() const { return slotCount >= kMaxSlots; }
    void Clear();
    // The cache must not be full. `isNew` tells that the mask has just been made.
    Slot Find(uint32_t character, bool& isNew);
    // CellFont::MaskBytes() bytes; until the next Find.
    const unsigned char* Mask(Slot slot) const;
    const CellFont& Font() const { return font; }

private:
    static constexpr uint32_t kDirect = 0x2600;  // characters found without a search
    static constexpr uint16_t kUnknown = 0xFFFF;

    Slot Make(uint32_t character, bool& isNew);

    CellFont& font;
    size_t slotCount = 0;
    std::vector<uint16_t> direct;
    std::unordered_map<uint32_t, Slot> others;
    std::vector<unsigned char> masks;
};

}  // namespace zt
