// The sixteen colours of an attribute, in 16-bit channels. Fixed: colours are chosen by attribute.
#pragma once

#include <array>
#include <cstdint>

namespace zt {

struct PaletteColour {
    uint16_t red;
    uint16_t green;
    uint16_t blue;
};

inline constexpr int kPaletteSize = 16;
using Palette = std::array<PaletteColour, kPaletteSize>;

constexpr Palette MakePalette() {
    Palette palette{};
    for (unsigned i = 0; i < kPaletteSize; i++) {
        const uint16_t value = i < 8 ? 0x7FFF : 0xFFFF;
        const auto channel = [&](unsigned bit) { return (i & bit) ? value : uint16_t{0}; };
        palette[i] = {channel(4), channel(2), channel(1)};
    }
    palette[7] = {0xC000, 0xC000, 0xC000};
    palette[8] = {0x8000, 0x8000, 0x8000};
    return palette;
}

}  // namespace zt
