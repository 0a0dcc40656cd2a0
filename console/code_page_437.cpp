// The glyphs of code page 437 for the control codes, and the rule for what a cell may hold.
#include "console/code_page_437.h"

#include "foundation/file_name.h"

namespace zt {

namespace {

// Positions 0 to 31 of the published table. Position 0 is not used.
constexpr uint16_t kControlGlyphs[32] = {
    0x0020, 0x263A, 0x263B, 0x2665, 0x2666, 0x2663, 0x2660, 0x2022,  //
    0x25D8, 0x25CB, 0x25D9, 0x2642, 0x2640, 0x266A, 0x266B, 0x263C,  //
    0x25BA, 0x25C4, 0x2195, 0x203C, 0x00B6, 0x00A7, 0x25AC, 0x21A8,  //
    0x2191, 0x2193, 0x2192, 0x2190, 0x221F, 0x2194, 0x25B2, 0x25BC,
};

}  // namespace

uint32_t ControlGlyph(uint32_t code) {
    return code >= 1 && code <= 31 ? kControlGlyphs[code] : code;
}

uint32_t ValidCharacter(uint32_t code) {
    if (code >= 1 && code < 0xD800) return code;
    const uint32_t shown = static_cast<uint32_t>(ShownCharacter(static_cast<wchar_t>(code)));
    if (shown == 0 || shown > 0x10FFFF) return kReplacementCharacter;
    if (shown >= 0xD800 && shown <= 0xDFFF) return kReplacementCharacter;
    return shown;
}

uint32_t CellGlyph(uint32_t code) {
    if (code >= 32 && code < 0xD800) return code;
    return ControlGlyph(ValidCharacter(code));
}

uint32_t ShownGlyph(uint32_t code) {
    if (code >= 32 && code < 127) return code;
    const uint32_t glyph = CellGlyph(code);
    return glyph >= 127 && glyph <= 159 ? kHouse : glyph;
}

}  // namespace zt
