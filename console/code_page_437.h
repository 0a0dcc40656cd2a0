// What the grid shows for a character code: the glyphs that stand for control codes, and the signs
// for codes that are no character. Pure functions; any thread.
#pragma once

#include <cstdint>

namespace zt {

inline constexpr uint32_t kHouse = 0x2302;                 // stands for codes 127 to 159
inline constexpr uint32_t kReplacementCharacter = 0xFFFD;  // stands for what is no character

// Codes 1 to 31 as the graphic glyphs that code page 437 has at those positions; others as they
// are.
uint32_t ControlGlyph(uint32_t code);

// The code itself when it is a Unicode scalar value other than 0. A private raw-byte code
// (foundation/file_name.h) becomes the character of the byte's value. Everything else (0,
// surrogates, codes above U+10FFFF) becomes U+FFFD: it is Unicode's own sign for "no character
// here", and so cannot be taken for a control code, which shows as a glyph or as U+2302.
uint32_t ValidCharacter(uint32_t code);

// Both of the above. What it gives stays as it is when it is written again, so a part of the
// screen that is read and put back does not change.
uint32_t CellGlyph(uint32_t code);

// The same for text, with U+2302 for the codes 127 to 159. The result is always safe to paint: no
// line break, no end mark, and it has a UTF-8 form of 1 to 4 bytes.
uint32_t ShownGlyph(uint32_t code);

}  // namespace zt
